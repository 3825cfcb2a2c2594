#pragma once
// A window showing HTML held in a string or a resource, with its style
// sheet apart, in a wxWebView (WebKitGTK). It composes one page of {html,
// style} for the browser, puts it in when the browser's document is ready,
// saves what it shows as a complete page, sends "app:" links to the
// application as commands, and keeps the browser's menu and keys under its
// own control: the context menu is a menu resource, keys go through an
// accelerator resource first. Page scripts are off. The browser comes from
// a library of its own loaded with the first view (html/HtmlBrowser.h), so
// that WebKit costs nothing to an application that shows no HTML.

#include <memory>
#include <vector>

#include <wx/string.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include "html/AppLink.h"
#include "html/HtmlBrowser.h"
#include "html/HtmlStyleSheet.h"
#include "platform/AcceleratorText.h"

class HtmlFindBar;
class wxWebView;

class VxHtmlView : public wxWindow, private HtmlBrowserEvents {
  wxDECLARE_DYNAMIC_CLASS(VxHtmlView);

public:
  using CommandMap = AppCommandMap;

  static constexpr unsigned int kDefaultPopupMenu = 16239;
  static constexpr unsigned int kNoPopupMenu = static_cast<unsigned int>(-1);
  static constexpr unsigned int kAcceleratorTable = 16261;
  static constexpr unsigned int kSaveAsFileName = 61443;  // the proposed file name
  // The commands the view answers itself.
  static constexpr unsigned int kFileSaveAs = 57604;
  static constexpr unsigned int kFilePrint = 57607;
  static constexpr unsigned int kEditCopy = 57634;
  static constexpr unsigned int kEditFind = 57636;
  static constexpr unsigned int kEditSelectAll = 57642;

  // What the view knows of its browser's document.
  enum class PageState { NoBrowser, Loading, Ready, ProcessGone };

  VxHtmlView();
  VxHtmlView(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
             wxSize const & size = wxDefaultSize, long style = 0);
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
              wxSize const & size = wxDefaultSize, long style = 0);
  ~VxHtmlView() override;

  // Shows `html` with the style `css`. With no style the text of the
  // page's first <style> element is the style. Before the browser's
  // document is ready the texts wait and come up when it is.
  void SetHTML(wchar_t const * html, wchar_t const * css);
  // The style is text resource `cssResource` (UTF-8).
  void SetHTML(wchar_t const * html, unsigned int cssResource);
  // Both from text resources; with a `cssResource` of -1 the HTML
  // resource is the whole page, style included.
  void SetHTML(unsigned int htmlResource, unsigned int cssResource);

  // "app:name" links post wxEVT_MENU with map[name] (names compared with
  // case) to `target`, or to the application's top window when null.
  void SetCmdMap(CommandMap const & commands, wxWindow * target);
  void SetPopupMenuID(unsigned int id) { mPopupMenu = id; }
  void DisablePopupMenu() { mPopupMenu = kNoPopupMenu; }
  unsigned int GetPopupMenuID() const { return mPopupMenu; }

  // Whether `window` is a browser window, where the view's keys and menu
  // apply.
  static bool IsIEWindow(wxWindow const * window);

  // The browser command of menu command `id` (copy 15, print 27), `value`
  // its mapping value and `mapped` whether that is non-zero; -1 as unsigned
  // when the command has none.
  unsigned int GetDHtmlCommandMapping(unsigned int id, int & mapped, unsigned int & value) const;
  // Runs the browser command of `id`: 1 done, 0 when `id` has none.
  int ExecHandler(unsigned int id);

  void OnEditSelectAll();
  void OnFileSaveAs();
  void OnEditFind();

  // The document's style sheets (html/IHTMLDocumentUtilities.h works on
  // them); a change made through them goes into the page shown.
  HtmlDocumentStyle * GetDocumentStyle() { return &mDocumentStyle; }
  wxWebView * GetBrowser() const { return mBrowser ? mBrowser->GetWebView() : nullptr; }
  // Goes to `url` in the browser; false when the view has no browser.
  // Callers outside the browser library go through here: wxWebView's own
  // members live in that library, which is loaded only with the first view.
  bool LoadURL(wxString const & url) {
    if (!mBrowser) return false;
    mBrowser->LoadURL(url);
    return true;
  }
  HtmlFindBar * GetFindBar() const { return mFindBar; }
  PageState GetPageState() const { return mState; }
  // Texts are waiting for the document.
  bool IsPending() const { return mPending; }

protected:
  // Loads menu `menu` and tracks its first menu at `point` (screen) with
  // the view as the owner of its commands.
  virtual void DisplayContextMenu(wxWindow * wnd, unsigned int menu, wxPoint point);
  // An "app:" link: looks `name` up in the command map and posts its
  // command; an unknown name does nothing.
  virtual void OnAppCmd(wchar_t const * name);

private:
  void CreateBrowser();
  void PrivateSetHTML();
  void PutStyleIntoPage();
  void SendCommand(unsigned int command);
  void SaveOwnPage();
  void SaveUrlPage();

  void OnMenuCommand(wxCommandEvent & event);
  void OnContextMenu(wxContextMenuEvent & event);

  void OnBrowserLoaded() override;
  bool OnBrowserNavigating(wxString const & url) override;
  bool OnBrowserKey(int flags, int keyCode) override;
  void OnBrowserContextMenu(bool keyboard, wxPoint screenPoint) override;
  void OnBrowserProcessGone() override;

  std::unique_ptr<HtmlBrowser> mBrowser;
  HtmlFindBar * mFindBar = nullptr;
  PageState mState = PageState::NoBrowser;
  bool mPending = false;
  wxString mHtml;
  wxString mCss;
  wxString mWholePage;  // a page resource shown as it is
  HtmlDocumentStyle mDocumentStyle;
  bool mComposing = false;  // style changes made while composing need no script
  CommandMap mCommands;
  wxWeakRef<wxWindow> mTarget;
  unsigned int mPopupMenu = kDefaultPopupMenu;
  std::vector<AcceleratorLine> mAccelerators;
};
