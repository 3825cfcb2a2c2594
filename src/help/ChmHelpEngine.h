#pragma once
// The help engine that shows compiled help files in help windows
// (HelpWindow.h): it carries out VxHtmlHelp's commands, keeps the files it
// opened and one window for each window type, and shows a control's pop-up
// text in a tip window beside the control. It is installed when the library
// loads, and is available once a browser can be made for its windows (a
// failed attempt is remembered).

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "help/HelpArchive.h"
#include "help/HelpTopicViewer.h"
#include "html/HelpEngine.h"

class HelpFile;
class HelpWindow;
class wxTipWindow;
class wxWindowDestroyEvent;

// A help path "file.chm::/topic.htm>window" in its parts; each may be empty.
struct HelpPath {
  std::string file;
  std::string topic;  // an inner path with a leading "/"
  std::string window;
};
HelpPath ParseHelpPath(std::wstring const & path);

class ChmHelpEngine : public HelpEngine {
public:
  // Whether a browser can be made; asked once.
  using BrowserCheck = std::function<bool()>;

  // `opener` opens the files, `viewers` makes the windows' topic panes.
  ChmHelpEngine(HelpArchiveOpener opener, HelpTopicViewerFactory viewers, BrowserCheck canBrowse);
  ~ChmHelpEngine() override;

  bool IsAvailable() const override;
  bool Execute(HelpRequest const & request) override;

  // The open window of type `windowType` ("" for the default one), or null.
  HelpWindow * FindWindow(std::string const & windowType) const;
  size_t WindowCount() const { return m_windows.size(); }
  // The pop-up shown last, null once it closed.
  wxTipWindow * GetPopup() const { return m_popup; }

private:
  HelpFile * OpenFile(std::string const & path);
  HelpWindow * WindowFor(HelpFile & file, std::string const & windowType);
  bool ShowPopup(HelpRequest const & request, HelpPath const & path);
  void CloseAll();
  void OnWindowDestroyed(wxWindowDestroyEvent & event);
  bool Fail(HelpRequest const & request, std::string const & why) const;

  HelpArchiveOpener m_opener;
  HelpTopicViewerFactory m_viewers;
  BrowserCheck m_canBrowse;
  mutable int m_browserState = -1;  // -1 not tried yet, 0 failed, 1 loaded
  std::map<std::string, std::unique_ptr<HelpFile>> m_files;
  std::map<std::string, HelpWindow *> m_windows;
  std::set<HelpWindow *> m_closing;  // closed, not yet destroyed
  wxTipWindow * m_popup = nullptr;
};
