#include "help/HelpWindow.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>

#include "frame/AppProfile.h"
#include "help/HelpFile.h"
#include "settings/TopLevelWindowPlacement.h"
#include "settings/WindowPlacement.h"
#include "utl/Log.h"
#include "utl/Translation.h"

namespace {

// The topic a contents entry leads to.
class TopicData : public wxTreeItemData {
public:
  explicit TopicData(std::string local) : m_local(std::move(local)) {}
  std::string const & Local() const { return m_local; }

private:
  std::string m_local;
};

// The Index tab's list: only the rows of the current filter, asked for as
// they are painted, so that a keystroke costs the same for 50 or 50,000
// keywords.
class IndexList : public wxListCtrl {
public:
  IndexList(wxWindow * parent, HelpWindow & window)
      : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                   wxLC_REPORT | wxLC_VIRTUAL | wxLC_NO_HEADER | wxLC_SINGLE_SEL),
        m_window(window) {
    AppendColumn(wxString());
    Bind(wxEVT_SIZE, [this](wxSizeEvent & event) {
      SetColumnWidth(0, GetClientSize().x);
      event.Skip();
    });
  }

  wxString OnGetItemText(long item, long /*column*/) const override {
    HelpIndexRange const range = m_window.GetIndexRange();
    auto const & rows = m_window.GetFile().Index().Rows();
    size_t const row = range.first + static_cast<size_t>(item);
    if (item < 0 || row >= range.last) return {};
    return wxString(std::string(rows[row].level * 4, ' ')) + wxString::FromUTF8(rows[row].text);
  }

private:
  HelpWindow & m_window;
};

constexpr int kDefaultWidth = 900;
constexpr int kDefaultHeight = 640;
constexpr int kTabsWidth = 260;

}  // namespace

HelpWindow::HelpWindow(std::string windowType, HelpFile & file,
                       HelpTopicViewerFactory const & viewers)
    : wxFrame(nullptr, wxID_ANY, wxString(), wxDefaultPosition,
              wxSize(kDefaultWidth, kDefaultHeight)),
      m_windowType(std::move(windowType)),
      m_file(&file) {
  m_splitter = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                    wxSP_LIVE_UPDATE | wxSP_3DSASH);
  m_splitter->SetMinimumPaneSize(80);
  BuildTabs();
  if (viewers) m_viewer = viewers(m_splitter);
  if (m_viewer)
    m_viewer->SetTopicReached([this](std::string const & chmPath, std::string const & innerPath) {
      OnTopicReached(chmPath, innerPath);
    });
  if (m_viewer)
    m_splitter->SplitVertically(m_tabs, m_viewer->GetWindow(), kTabsWidth);
  else
    m_splitter->Initialize(m_tabs);
  SetFile(file);
  RestorePlacement();
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent & event) {
    SavePlacement();
    event.Skip();
  });
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::BuildTabs() {
  m_tabs = new wxNotebook(m_splitter, wxID_ANY);

  m_contents = new wxTreeCtrl(m_tabs, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                              wxTR_DEFAULT_STYLE | wxTR_HIDE_ROOT | wxTR_SINGLE);
  m_contents->Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent & event) {
    auto const * data = dynamic_cast<TopicData *>(m_contents->GetItemData(event.GetItem()));
    if (data != nullptr && !data->Local().empty() && !m_followingTopic)
      ShowTopic(ResolveHelpLink("/", data->Local()));
  });
  m_tabs->AddPage(m_contents, vx3::Tr("Help window tab", "Contents"));

  auto * indexPage = new wxPanel(m_tabs);
  m_indexText = new wxTextCtrl(indexPage, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxTE_PROCESS_ENTER);
  m_indexList = new IndexList(indexPage, *this);
  m_indexText->Bind(wxEVT_TEXT, [this](wxCommandEvent &) { FilterIndex(m_indexText->GetValue()); });
  m_indexText->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent &) {
    OpenIndexRow(
        std::max(0L, m_indexList->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)));
  });
  m_indexList->Bind(wxEVT_LIST_ITEM_ACTIVATED,
                    [this](wxListEvent & event) { OpenIndexRow(event.GetIndex()); });
  auto * indexSizer = new wxBoxSizer(wxVERTICAL);
  indexSizer->Add(m_indexText, 0, wxEXPAND | wxALL, 4);
  indexSizer->Add(m_indexList, 1, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 4);
  indexPage->SetSizer(indexSizer);
  m_tabs->AddPage(indexPage, vx3::Tr("Help window tab", "Index"));

  auto * searchPage = new wxPanel(m_tabs);
  m_searchText = new wxTextCtrl(searchPage, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxTE_PROCESS_ENTER);
  auto * listTopics = new wxButton(searchPage, wxID_ANY, vx3::Tr("List Topics"));
  m_searchResults = new wxListBox(searchPage, wxID_ANY);
  auto const search = [this](wxCommandEvent &) { RunSearch(m_searchText->GetValue()); };
  m_searchText->Bind(wxEVT_TEXT_ENTER, search);
  listTopics->Bind(wxEVT_BUTTON, search);
  m_searchResults->Bind(wxEVT_LISTBOX_DCLICK,
                        [this](wxCommandEvent & event) { OpenSearchResult(event.GetSelection()); });
  auto * searchSizer = new wxBoxSizer(wxVERTICAL);
  searchSizer->Add(m_searchText, 0, wxEXPAND | wxALL, 4);
  searchSizer->Add(listTopics, 0, wxALIGN_RIGHT | wxLEFT | wxRIGHT | wxBOTTOM, 4);
  searchSizer->Add(m_searchResults, 1, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 4);
  searchPage->SetSizer(searchSizer);
  m_tabs->AddPage(searchPage, vx3::Tr("Help window tab", "Search"));
}

void HelpWindow::SetFile(HelpFile & file) {
  m_file = &file;
  std::string const & title = file.Title();
  SetTitle(title.empty() ? vx3::Tr("Help") : wxString::FromUTF8(title));
  FillContents();
  m_indexText->ChangeValue(wxString());
  FilterIndex(wxString());
  m_searchText->ChangeValue(wxString());
  m_searchResults->Clear();
  m_searchFound.clear();
}

void HelpWindow::FillContents() {
  m_contents->DeleteAllItems();
  wxTreeItemId const root = m_contents->AddRoot(wxString());
  AddContents(root, m_file->Contents().entries);
}

void HelpWindow::AddContents(wxTreeItemId parent, std::vector<SitemapEntry> const & entries) {
  for (SitemapEntry const & entry : entries) {
    std::string const local = entry.locals.empty() ? std::string() : entry.locals.front();
    wxTreeItemId const item = m_contents->AppendItem(parent, wxString::FromUTF8(entry.name), -1, -1,
                                                     new TopicData(local));
    AddContents(item, entry.children);
  }
}

// A topic reached by a link: the Contents tab shows where the reader is.
void HelpWindow::OnTopicReached(std::string const & chmPath, std::string const & innerPath) {
  if (chmPath != m_file->Path() || !m_file->Contains(innerPath)) return;
  m_topic = innerPath;
  m_followingTopic = true;
  if (!SelectContentsEntry(m_contents->GetRootItem(), innerPath)) m_contents->UnselectAll();
  m_followingTopic = false;
}

bool HelpWindow::SelectContentsEntry(wxTreeItemId parent, std::string const & innerPath) {
  if (!parent.IsOk()) return false;
  wxTreeItemIdValue cookie;
  for (wxTreeItemId item = m_contents->GetFirstChild(parent, cookie); item.IsOk();
       item = m_contents->GetNextChild(parent, cookie)) {
    auto const * data = dynamic_cast<TopicData *>(m_contents->GetItemData(item));
    // Names inside a help file are compared without case, as its readers do.
    if (data != nullptr && !data->Local().empty() &&
        wxString::FromUTF8(ResolveHelpLink("/", data->Local()))
            .IsSameAs(wxString::FromUTF8(innerPath), false)) {
      if (m_contents->GetSelection() != item) m_contents->SelectItem(item);
      m_contents->EnsureVisible(item);
      return true;
    }
    if (SelectContentsEntry(item, innerPath)) return true;
  }
  return false;
}

bool HelpWindow::ShowTopic(std::string const & innerPath) {
  bool const found = !innerPath.empty() && m_file->Contains(innerPath);
  m_topic = found ? innerPath : std::string();
  if (!found)
    Log::WriteMessage("HelpWindow", "ShowTopic",
                      "The help file " + m_file->Path() + " has no topic \"" + innerPath + "\"",
                      Log::Notice, false);
  if (m_viewer) m_viewer->Show(m_file->Path(), innerPath);
  return found;
}

void HelpWindow::ShowTab(Tab tab) {
  m_tabs->SetSelection(static_cast<size_t>(tab));
  if (tab == IndexTab) m_indexText->SetFocus();
  if (tab == SearchTab) m_searchText->SetFocus();
}

HelpWindow::Tab HelpWindow::GetShownTab() const { return static_cast<Tab>(m_tabs->GetSelection()); }

void HelpWindow::FilterIndex(wxString const & typed) {
  m_indexRange = m_file->Index().Filter(typed.utf8_string());
  m_indexList->SetItemCount(static_cast<long>(m_indexRange.size()));
  if (!m_indexRange.empty()) {
    m_indexList->SetItemState(0, wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED,
                              wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED);
    m_indexList->EnsureVisible(0);
  }
  m_indexList->Refresh();
}

bool HelpWindow::OpenIndexRow(long row) {
  size_t const at = m_indexRange.first + static_cast<size_t>(row);
  if (row < 0 || at >= m_indexRange.last) return false;
  HelpIndexRow const & found = m_file->Index().Rows()[at];
  if (found.locals.empty()) return false;
  return ShowTopic(ResolveHelpLink("/", found.locals.front()));
}

void HelpWindow::RunSearch(wxString const & query) {
  m_searchFound = m_file->SearchIndex().Find(query.utf8_string());
  auto const & topics = m_file->SearchTopics();
  wxArrayString titles;
  titles.reserve(m_searchFound.size());
  for (uint32_t const topic : m_searchFound)
    titles.push_back(wxString::FromUTF8(topics[topic].title));
  m_searchResults->Set(titles);
  if (!titles.empty()) m_searchResults->SetSelection(0);
}

size_t HelpWindow::GetSearchResultCount() const { return m_searchFound.size(); }

bool HelpWindow::OpenSearchResult(int result) {
  if (result < 0 || static_cast<size_t>(result) >= m_searchFound.size()) return false;
  return ShowTopic(m_file->SearchTopics()[m_searchFound[static_cast<size_t>(result)]].path);
}

std::string HelpWindow::PlacementSection() { return "HelpWindows"; }

std::string HelpWindow::PlacementEntry(std::string const & windowType) {
  return windowType.empty() ? std::string("Default") : windowType;
}

void HelpWindow::SavePlacement() {
  std::string const text = WindowPlacementToString(VxGetWindowPlacement(*this));
  AppProfile::WriteProfileString(PlacementSection().c_str(), PlacementEntry(m_windowType).c_str(),
                                 text.c_str());
}

void HelpWindow::RestorePlacement() {
  std::string const text = AppProfile::GetProfileString(PlacementSection().c_str(),
                                                        PlacementEntry(m_windowType).c_str(), "");
  WINDOWPLACEMENT placement{};
  if (!text.empty() && ParseWindowPlacement(text.c_str(), placement))
    VxSetWindowPlacement(*this, placement);
  VxTrackWindowPlacement(*this);
}
