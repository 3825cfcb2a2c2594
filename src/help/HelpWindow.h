#pragma once
// The help window: the topic on the right, and on the left three tabs to
// find one: Contents (the file's ".hhc" as a tree), Index (the ".hhk"
// keywords, filtered as the user types) and Search (the topics that hold
// every word asked for). There is one window for each window type (the name
// after ">" in a help path); each remembers its own placement in the
// application profile.

#include <memory>
#include <string>

#include <wx/frame.h>

#include "help/HelpIndex.h"
#include "help/HelpTopicViewer.h"

class HelpFile;
class wxListBox;
class wxListCtrl;
class wxNotebook;
class wxSplitterWindow;
class wxTextCtrl;
class wxTreeCtrl;
class wxTreeItemId;
struct SitemapEntry;

class HelpWindow : public wxFrame {
public:
  enum Tab { ContentsTab = 0, IndexTab = 1, SearchTab = 2 };

  // A window of type `windowType` ("" for the default one) on `file`, which
  // must outlive it (the engine keeps its files until it closes every
  // window). `viewers` makes the pane that shows topics; without one only
  // the tabs show.
  HelpWindow(std::string windowType, HelpFile & file, HelpTopicViewerFactory const & viewers);
  ~HelpWindow() override;

  std::string const & GetWindowType() const { return m_windowType; }
  HelpFile & GetFile() const { return *m_file; }
  // Shows another file's contents, index and topics.
  void SetFile(HelpFile & file);

  // Shows `innerPath` ("/a.htm") of the file; false when the file has no
  // such topic (the viewer shows a page that says so).
  bool ShowTopic(std::string const & innerPath);
  std::string const & GetCurrentTopic() const { return m_topic; }
  void ShowTab(Tab tab);
  Tab GetShownTab() const;

  // What typing in the Index tab's box does: the keywords starting with
  // `typed`, the first of them selected.
  void FilterIndex(wxString const & typed);
  HelpIndexRange GetIndexRange() const { return m_indexRange; }
  // Shows the first topic of the index row `row` of the filtered list.
  bool OpenIndexRow(long row);

  // What the Search tab's button does: lists the topics holding every word.
  void RunSearch(wxString const & query);
  size_t GetSearchResultCount() const;
  bool OpenSearchResult(int result);

  wxTreeCtrl * GetContentsTree() const { return m_contents; }
  wxTextCtrl * GetIndexText() const { return m_indexText; }
  wxListCtrl * GetIndexList() const { return m_indexList; }
  wxTextCtrl * GetSearchText() const { return m_searchText; }
  wxListBox * GetSearchResults() const { return m_searchResults; }
  HelpTopicViewer * GetViewer() const { return m_viewer.get(); }

  // The profile section and entry of a window type's placement.
  static std::string PlacementSection();
  static std::string PlacementEntry(std::string const & windowType);

private:
  void BuildTabs();
  void FillContents();
  void AddContents(wxTreeItemId parent, std::vector<SitemapEntry> const & entries);
  void OnTopicReached(std::string const & chmPath, std::string const & innerPath);
  bool SelectContentsEntry(wxTreeItemId parent, std::string const & innerPath);
  void SavePlacement();
  void RestorePlacement();

  std::string m_windowType;
  HelpFile * m_file;
  std::string m_topic;
  bool m_followingTopic = false;  // selecting the entry of a topic shown already
  wxSplitterWindow * m_splitter = nullptr;
  wxNotebook * m_tabs = nullptr;
  wxTreeCtrl * m_contents = nullptr;
  wxTextCtrl * m_indexText = nullptr;
  wxListCtrl * m_indexList = nullptr;
  HelpIndexRange m_indexRange;
  wxTextCtrl * m_searchText = nullptr;
  wxListBox * m_searchResults = nullptr;
  std::vector<uint32_t> m_searchFound;
  std::unique_ptr<HelpTopicViewer> m_viewer;
};
