#pragma once
// Shows the audit trail of the active project as a page, and a static page
// from the resources when there is none (13167) or logging is off (13169).
// The trail is turned into HTML in this process (audit/AuditTrailTransform.h)
// with the stylesheet "audit_trail.xsl" that Init writes beside it; the
// browser only shows the result, with page scripts off. The view follows
// AuditTrail's signals. "app:name" links become commands through the
// command map; other links never load in the view (web and mail links go to
// the desktop's programs).
//
// The browser works asynchronously: while it loads a page the view is busy,
// and an update asked for meanwhile waits (one at most) for the page to
// finish loading. No nested event loop runs, so no handler is re-entered.

#include <boost/signals2/connection.hpp>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <wx/string.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include "html/AppLink.h"
#include "html/HtmlBrowser.h"
#include "platform/AcceleratorText.h"

class AuditTrail;
class HtmlFindBar;
class wxMenu;
class wxUpdateUIEvent;

class AuditTrailView : public wxWindow, private HtmlBrowserEvents {
  wxDECLARE_DYNAMIC_CLASS(AuditTrailView);

public:
  using CommandMap = AppCommandMap;
  using BrowserFactory = std::function<HtmlBrowser *(wxWindow *, HtmlBrowserEvents *)>;

  static constexpr unsigned int kStylesheetResource = 13166;
  static constexpr unsigned int kNoTrailPage = 13167;
  static constexpr unsigned int kLoggingOffPage = 13169;
  static constexpr unsigned int kContextMenu = 13352;
  static constexpr unsigned int kAccelerators = 13410;
  static constexpr unsigned int kFileSaveAs = 57604;
  static constexpr unsigned int kFilePrint = 57607;
  static constexpr unsigned int kEditCopy = 57634;
  static constexpr unsigned int kEditFind = 57636;
  static constexpr unsigned int kEditSelectAll = 57642;
  static constexpr unsigned int kAuditTrailClear = 13386;
  static constexpr unsigned int kAuditTrailStart = 13358;

  AuditTrailView();
  // `factory` makes the browser (tests pass their own); empty: the browser
  // library's.
  AuditTrailView(wxWindow * parent, wxWindowID id, BrowserFactory factory = BrowserFactory());
  bool Create(wxWindow * parent, wxWindowID id, BrowserFactory factory = BrowserFactory());
  ~AuditTrailView() override;

  // Shows the trail file `path` (UTF-8 or wide, like the caller has it);
  // null forgets the file. Writes the stylesheet beside it.
  void Init(wchar_t const * path, bool update);
  void Update() override;
  void SetAuditTrail(AuditTrail * trail);
  AuditTrail * GetAuditTrail() const { return mTrail; }
  void SetCmdMap(CommandMap const & commands, wxWindow * target);
  void SetDefaultResourceID(unsigned int id, bool load);
  unsigned int GetDefaultResourceID() const { return mDefaultPage; }
  void SetNotOnResourceID(unsigned int id) { mNotOnPage = id; }
  void SetResourcePath(wchar_t const * path) { mResourcePath = path != nullptr ? path : L""; }
  static wchar_t const * GetXSLFileName() { return L"audit_trail.xsl"; }

  unsigned int GetDHtmlCommandMapping(unsigned int id, int & mapped, unsigned int & value) const;
  int ExecHandler(unsigned int id);

  // What tests and figures look at.
  enum class Shown { Nothing, StaticPage, TrailPage, Problem };
  Shown GetShown() const { return mShown; }
  unsigned int GetShownResource() const { return mShownResource; }
  bool IsBusy() const { return mBusy; }
  bool IsUpdatePending() const { return mUpdatePending; }
  bool IsPageLoaded() const { return mPageLoaded; }
  bool IsNavigated() const { return mNavigated; }
  wxString const & GetFilePath() const { return mFilePath; }
  HtmlBrowser * GetBrowser() const { return mBrowser.get(); }
  HtmlFindBar * GetFindBar() const { return mFindBar; }
  // The context menu as shown now: 57607 and 57604 grayed without a trail.
  std::unique_ptr<wxMenu> MakeContextMenu() const;
  // Shows the context menu; a keyboard request opens it 5 pixels inside the
  // view's top left corner.
  void ShowContextMenu(bool keyboard, wxPoint screenPoint);

protected:
  int LoadFromResourceEx(unsigned int id) { return LoadFromString(id); }
  // Writes the page resource `id` into the browser; 0 without a browser.
  int LoadFromString(unsigned int id);
  // An "app:" link: the name looked up with case; unknown names do nothing.
  virtual void OnAppCmd(wchar_t const * name);

private:
  void ConnectSignals();
  void UpdatePair();
  bool PrepareUpdateView();
  void UpdateView();
  void ShowTrailPage();
  void ShowPage(std::string const & html);
  bool ShowQueuedPage();
  void SendCommand(unsigned int command);
  void SaveIfModified();

  void OnBCBeginSession(AuditTrail * trail);
  void OnBCEventAdded(AuditTrail * trail);
  void OnBCEndSession(AuditTrail * trail);
  void OnBCAuditTrailDestroyed(AuditTrail * trail);
  void OnBCAuditTrailChanged(AuditTrail * trail);

  void OnMenuCommand(wxCommandEvent & event);
  void OnUpdateCommand(wxUpdateUIEvent & event);
  void OnContextMenu(wxContextMenuEvent & event);

  void OnBrowserLoaded() override;
  bool OnBrowserNavigating(wxString const & url) override;
  bool OnBrowserKey(int flags, int keyCode) override;
  void OnBrowserContextMenu(bool keyboard, wxPoint screenPoint) override;
  void OnBrowserProcessGone() override;

  std::unique_ptr<HtmlBrowser> mBrowser;
  HtmlFindBar * mFindBar = nullptr;
  wxString mFilePath;
  wxString mResourcePath;  // kept for the application; not read here
  unsigned int mDefaultPage = kNoTrailPage;
  unsigned int mNotOnPage = kLoggingOffPage;
  bool mPageLoaded = false;
  std::vector<AcceleratorLine> mAccelerators;
  CommandMap mCommands;
  wxWeakRef<wxWindow> mTarget;
  AuditTrail * mTrail = nullptr;
  bool mOn = true;
  bool mNavigated = false;
  bool mBusy = false;           // the browser is loading what the view gave it
  bool mUpdatePending = false;  // an update waits for the load to end
  // A page given while the browser loads waits for the load's end: a second
  // load would supersede the first without a word from the browser, and
  // the first one's end would be taken for the second's.
  std::optional<std::string> mQueuedPage;
  Shown mShown = Shown::Nothing;
  unsigned int mShownResource = 0;
  int mScrollY = -1;  // restored when the refreshed trail page has loaded
  std::array<boost::signals2::scoped_connection, 6> mConnections;
};
