#include "TreeViewWindow.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include "SampleCommands.h"
#include "platform/commctrl/CTreeCtrl.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

constexpr char kWindowName[] = "SampleTreeView";

// Projects and their runs, as the sample's other pages show them.
struct Project {
  char const * name;
  std::vector<char const *> runs;
};

std::vector<Project> const kProjects = {
    {"Calibration 2026", {"Blank", "Standard 1", "Standard 2", "Standard 3", "Control"}},
    {"Stability study", {"Week 0", "Week 4", "Week 8", "Week 12"}},
    {"Method transfer", {"Site A", "Site B"}},
};

class TreeViewWindow : public wxFrame {
public:
  explicit TreeViewWindow(wxFrame & owner)
      : wxFrame(&owner, wxID_ANY, Tr("Window title", "Tree view"), wxDefaultPosition,
                wxSize(360, 420), wxDEFAULT_FRAME_STYLE | wxFRAME_FLOAT_ON_PARENT, kWindowName) {
    CreateStatusBar();
    mTree = new CTreeCtrl(this, wxID_ANY,
                          TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_CHECKBOXES |
                              TVS_EDITLABELS | TVS_SHOWSELALWAYS);
    for (Project const & project : kProjects) {
      HTREEITEM const group = mTree->InsertItem(wxString::FromUTF8(project.name));
      for (char const * run : project.runs) mTree->InsertItem(wxString::FromUTF8(run), group);
      mTree->SetItemState(group, TVIS_BOLD, TVIS_BOLD);
    }
    mTree->Expand(mTree->GetRootItem(), TVE_EXPAND);
    Bind(VX_EVT_NOTIFY, &TreeViewWindow::OnNotify, this);
  }

private:
  void OnNotify(NotifyEvent & event) {
    switch (event.GetCode()) {
      case TVN_SELCHANGED: {
        HTREEITEM const item = event.GetNotification<NMTREEVIEWW>()->itemNew.hItem;
        SetStatusText(wxString::Format(Tr("Status", "Selected: %s"), mTree->GetItemText(item)));
        break;
      }
      case TVN_ENDLABELEDIT:
        // Any non-empty name is taken.
        if (auto const * info = event.GetNotification<NMTVDISPINFOW>();
            info->item.pszText != nullptr)
          event.SetResult(wxString(info->item.pszText).Trim().Trim(false).empty() ? 0 : 1);
        break;
      case NM_CLICK:
      case TVN_KEYDOWN: CallAfter([this] { ShowChecked(); }); break;
      default: event.Skip(); break;
    }
  }

  void ShowChecked() {
    int checked = 0;
    for (HTREEITEM group = mTree->GetRootItem(); group; group = mTree->GetNextSiblingItem(group))
      for (HTREEITEM run = mTree->GetChildItem(group); run; run = mTree->GetNextSiblingItem(run))
        if (mTree->GetCheck(run)) ++checked;
    SetStatusText(wxString::Format(Tr("Status", "Runs checked: %d"), checked), 0);
  }

  CTreeCtrl * mTree = nullptr;
};

}  // namespace

wxFrame * ShowTreeViewWindow(wxFrame & owner) {
  auto * window = dynamic_cast<wxFrame *>(owner.FindWindowByName(kWindowName, &owner));
  if (window == nullptr) window = new TreeViewWindow(owner);
  window->Show();
  window->Raise();
  return window;
}

void AddTreeViewCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kTreeViewCommand, Tr("Menu command", "&Tree view"));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        ShowTreeViewWindow(frame);
        frame.SetStatusText(Tr("Status", "The tree view window is open."));
      },
      kTreeViewCommand);
}
