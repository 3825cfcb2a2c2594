#pragma once
// A window that shows pages of a compiled help file (CHM) inside an
// application, below a small tool bar (Home, Back, Forward), rather than
// in the separate help window. Pages are "its:" addresses served from the
// file by the process's scheme (help/ChmScheme.h); a help number is turned
// into its topic through the file's help map (help/ChmHelpMap.h). The
// browser comes from the browser library loaded on first use
// (html/HtmlBrowser.h), so an application without help never loads WebKit.
//
// "app:name" links post the command of `name` (from SetCmdMap) to the main
// window. Links written for other help viewers ("ms-its:", "mk:@MSITStore:")
// open the named file, looked for beside the current one first.

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <wx/string.h>
#include <wx/variant.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include "help/ChmHelpMap.h"
#include "html/AppLink.h"
#include "html/HtmlBrowser.h"

class wxFileName;
class wxToolBar;
class wxCommandEvent;

class CHHCtrl : public wxWindow, private HtmlBrowserEvents {
  wxDECLARE_DYNAMIC_CLASS(CHHCtrl);

public:
  using CommandMap = AppCommandMap;

  static constexpr int kToolBarId = 1;
  static constexpr unsigned int kToolBarBitmap = 16266;     // strip: Home, Back, Forward
  static constexpr unsigned int kToolBarHotBitmap = 16262;  // the same, greyed
  static constexpr int kButtonSize = 20;
  static constexpr unsigned int kNotFoundString = 16116;  // "%1%": the file name
  // The tool bar's buttons, as OnCommand gets them.
  enum Button { kHome = 100, kBack, kForward };
  // OnCommandStateChange's commands.
  enum CommandState { kNavigateForward = 1, kNavigateBack = 2 };

  // Navigate2's flags: the browser has no such choices; they are logged.
  enum NavigateFlag { kOpenInNewWindow = 0x1, kNoHistory = 0x2, kNoReadFromCache = 0x4 };
  // Refresh levels: the first three reload as the cache allows, the last
  // asks every part of the page again.
  enum RefreshLevel {
    kRefreshNormal = 0,
    kRefreshIfExpired = 1,
    kRefreshContinue = 2,
    kRefreshCompletely = 3
  };
  // The commands ExecWB and QueryStatusWB know, by their numbers.
  // Help topics are read-only: the editing commands (cut, paste, undo)
  // are unknown to the control.
  enum BrowserCommand {
    kCmdPrint = 6,
    kCmdCopy = 12,
    kCmdSelectAll = 17,
    kCmdClearSelection = 18,
    kCmdRefresh = 22,
    kCmdStop = 23,
    kCmdZoom = 63  // the page's zoom in percent: in sets it, out gets it
  };
  // QueryStatusWB's answer: bits of a known command, and of one that would
  // run now.
  static constexpr int kCmdSupported = 0x1;
  static constexpr int kCmdEnabled = 0x2;
  // ExecWB's code for a command the browser does not have, or cannot run now.
  static constexpr HRESULT kCmdNotSupported = static_cast<HRESULT>(0x80040100u);
  static constexpr HRESULT kCmdDisabled = static_cast<HRESULT>(0x80040101u);
  // What the browser cannot do at all (GoSearch; posting data).
  static constexpr HRESULT kNotImplemented = static_cast<HRESULT>(0x80004001u);

  CHHCtrl();
  ~CHHCtrl() override;

  // Makes the control with its tool bar and browser at `rect` of `parent`;
  // with a file named, SetChmFile.
  bool Create(wxWindow * parent, wxRect const & rect, unsigned long id, wchar_t const * chmFile,
              bool unused = false);
  // Makes the control in place of the child `id` of `parent` (which it
  // destroys), taking its place in a sizer; the control gets `newId`.
  bool ReplaceControl(wxWindow * parent, unsigned int id, unsigned long newId,
                      wchar_t const * chmFile, bool unused = false);

  // Looks for the file (help/ChmFileSearch.h) and makes it current; a file
  // not found is told to the user (string 16116) and false returned.
  bool SetChmFile(wchar_t const * name);
  wchar_t const * GetChmFile() const { return mChmFileWide.c_str(); }
  // help/ChmFileSearch.h; `result` gets the full path.
  static bool FindChmFile(wchar_t const * name, std::wstring & result);

  // Shows `topic` of the current file: STG_E_FILENOTFOUND without a file.
  HRESULT NavigateChm(wchar_t const * topic, wchar_t const * frame = nullptr);
  // Shows the topic of help number `helpId` (codes: help/ChmHelpMap.h).
  HRESULT NavigateChm(unsigned int helpId, wchar_t const * frame = nullptr);

  // "app:" names and their commands (case-sensitive), and the window that
  // gets them (null: the application's top window).
  void SetCmdMap(CommandMap const & commands, wxWindow * target = nullptr);

  // The browser's own operations. A frame name is logged and ignored: the
  // browser cannot target one.
  HRESULT Navigate(wxString const & url, wchar_t const * frame = nullptr);
  // Navigate with flags, headers and data to post. Flags and headers are
  // logged and ignored; data to post is refused (kNotImplemented, nothing
  // loads), as a plain load would be a different request.
  HRESULT Navigate2(wxString const & url, unsigned long flags = 0, wchar_t const * frame = nullptr,
                    wchar_t const * headers = nullptr, void const * postData = nullptr,
                    unsigned long postDataLength = 0);
  HRESULT Navigate2(wxString const & url, unsigned long flags,
                    std::vector<unsigned char> const & postData, wchar_t const * frame = nullptr,
                    wchar_t const * headers = nullptr);
  // A file by its name (the shell item of other systems), as a file: URL.
  HRESULT Navigate2(wxFileName const & file, unsigned long flags = 0,
                    wchar_t const * frame = nullptr);
  void GoBack();
  void GoForward();
  void GoHome();  // the file's default topic
  // The browser has no search page: logged, kNotImplemented.
  HRESULT GoSearch();
  // The browser's reload. wxWindow::Refresh (a repaint) keeps its name and
  // stays callable as it is: the browser's form takes a level, of a type of
  // its own so that Refresh() and Refresh(true) still mean the repaint.
  using wxWindow::Refresh;
  void Refresh(RefreshLevel level);
  void Refresh2(int level = kRefreshNormal);
  void Stop();
  // Runs command `command` (BrowserCommand) on the page: S_OK, or
  // kCmdNotSupported for a command the browser has not, kCmdDisabled when
  // it cannot run now (logged). `options` (prompt or not) is ignored: the
  // browser never asks. Only kCmdZoom reads `in` and writes `out`.
  HRESULT ExecWB(int command, int options, wxVariant const * in = nullptr,
                 wxVariant * out = nullptr);
  // kCmdSupported | kCmdEnabled as they hold now; 0 for an unknown command.
  int QueryStatusWB(int command) const;
  // Values a caller keeps with the browser under names of its own; the
  // browser does nothing with them. GetProperty is false (and `value` null)
  // for a name never put.
  void PutProperty(wxString const & name, wxVariant const & value);
  bool GetProperty(wxString const & name, wxVariant & value) const;
  wxVariant GetProperty(wxString const & name) const;
  wxString GetLocationURL() const;
  wxString GetLocationName() const;
  bool GetBusy() const;
  // 0 no document, 1 asked for, 2 on its way, 3 arrived and showing, 4 complete.
  int GetReadyState() const { return mReadyState; }

  HtmlBrowser * GetBrowser() const { return mBrowser.get(); }
  wxToolBar * GetToolBarCtrl() const { return mToolBar; }
  ChmHelpMap const & GetHelpMap() const { return mHelpMap; }

protected:
  // What the browser does, for a derived class to watch. Links reach
  // OnBeforeNavigate2 unless they are "app:" or foreign help links.
  virtual void OnBeforeNavigate2(wxString const & url, bool & cancel);
  virtual void OnNavigateComplete2(wxString const & url);
  virtual void OnDocumentComplete(wxString const & url);
  virtual void OnCommand(unsigned long button);
  virtual void OnCommandStateChange(long command, int enable);
  virtual void OnAppCmd(wchar_t const * name);
  virtual void OnDownloadBegin();
  virtual void OnDownloadComplete();

private:
  void OnBrowserLoaded() override;
  bool OnBrowserNavigating(wxString const & url) override;
  bool OnBrowserKey(int, int) override { return false; }
  void OnBrowserContextMenu(bool, wxPoint) override {}
  void OnBrowserProcessGone() override;
  void OnBrowserNavigated(wxString const & url) override;

  void OnToolBar(wxCommandEvent & event);
  void UpdateButtons();
  bool HasSelection() const;
  bool OpenForeignLink(wxString const & url);
  void Serve(std::string const & path);

  std::string mChmFile;
  std::wstring mChmFileWide;
  ChmHelpMap mHelpMap;
  CommandMap mCommands;
  wxWeakRef<wxWindow> mTarget;
  wxToolBar * mToolBar = nullptr;
  std::unique_ptr<HtmlBrowser> mBrowser;
  std::set<std::string> mServed;  // files registered with the scheme
  std::map<wxString, wxVariant> mProperties;
  int mReadyState = 0;
};
