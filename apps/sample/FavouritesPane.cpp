#include "FavouritesPane.h"

#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/menu.h>

#include "SampleCommands.h"
#include "SampleMenuResource.h"
#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"
#include "favourites/FavouritesView.h"
#include "frame/KnownFolders.h"
#include "utl/Exception.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

using vx3::Tr;

namespace {

constexpr char kWindowName[] = "SampleFavourites";
// The sample's commands a favourite may run: each needs an update handler
// that enables it, as a command favourite asks before it opens.
int const kFavouriteCommands[] = {kTreeViewCommand, kNotesCommand, kReportCommand,
                                  kRunsByProjectCommand};

// The first favourites of a user who has none yet.
void FillDefaults(FavouritesTree & tree) {
  tree.AddToFavourites(
      new FavouriteCommandItem(Tr("Favourite", "Tree view").wc_str(), kTreeViewCommand));
  tree.AddToFavourites(new FavouriteCommandItem(Tr("Favourite", "Notes").wc_str(), kNotesCommand));
  tree.ClearSelection();
  // A new folder starts a label edit: each is ended before the next row.
  tree.AddToFavourites(new FavouriteFolderItem(Tr("Favourite", "Reports").wc_str(), nullptr));
  tree.EndEditLabelNow(1);
  HTREEITEM const reports = tree.GetSelectedItem();
  tree.AddToFavourites(
      new FavouriteCommandItem(Tr("Favourite", "Calibration report").wc_str(), kReportCommand));
  tree.AddToFavourites(
      new FavouriteCommandItem(Tr("Favourite", "Runs by project").wc_str(), kRunsByProjectCommand));
  tree.SetItemStyle(reports, 3);  // bold and open
  tree.ClearSelection();
  tree.SetItemState(tree.GetRootItem(), TVIS_SELECTED, TVIS_SELECTED);
  tree.AddToFavourites(new FavouriteFolderItem(Tr("Favourite", "Documents").wc_str(),
                                               Tr("Favourite", "Drop files here").wc_str()));
  tree.EndEditLabelNow(1);
  tree.ClearSelection();
}

class FavouritesPane : public wxFrame {
public:
  explicit FavouritesPane(wxFrame & owner)
      : wxFrame(&owner, wxID_ANY, Tr("Window title", "Favourites"), wxDefaultPosition,
                wxSize(280, 420), wxDEFAULT_FRAME_STYLE | wxFRAME_FLOAT_ON_PARENT, kWindowName) {
    auto * const view = new FavouritesView;
    if (!view->Create(this)) {
      delete view;  // never became a window
      return;
    }
    mView = view;
    mView->SetFavouritesManager(&mManager);
    // Commands come from the sample's menu resource (and its tool bar).
    mView->EnableCommandItems(&kSampleMenuResource, 1);
    mView->OnInitialUpdate();
    FavouritesTree & tree = *mView->GetTreeCtrl();
    if (wxFileName::FileExists(SampleFavouritesFile()))
      mManager.LoadFavourites(SampleFavouritesFile(), -1);
    if (tree.GetCount() == 0) FillDefaults(tree);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent & event) {
      Save();
      event.Skip();
    });
  }

  void Save() {
    if (mView == nullptr) return;
    wxFileName::Mkdir(wxFileName(SampleFavouritesFile()).GetPath(), wxS_DIR_DEFAULT,
                      wxPATH_MKDIR_FULL);
    try {
      mManager.SaveFavourites(SampleFavouritesFile(), -1);
    } catch (Exception const &) {
      // A data folder that cannot be written keeps the favourites of this
      // run only.
    }
  }

  FavouritesTree * GetTree() const { return mView != nullptr ? mView->GetTreeCtrl() : nullptr; }

private:
  FavouritesManager mManager;
  FavouritesView * mView = nullptr;
};

}  // namespace

wxString SampleFavouritesFile() {
  wxFileName file(wxString::FromUTF8(vx3::UserDataFolder()), "favourites.xml");
  file.AppendDir("Karvinel");
  file.AppendDir(wxString::FromUTF8(VxSystemInfo::GetApplicationName()));
  return file.GetFullPath();
}

wxFrame * ShowFavouritesPane(wxFrame & owner) {
  auto * window = dynamic_cast<wxFrame *>(owner.FindWindowByName(kWindowName, &owner));
  if (window == nullptr) window = new FavouritesPane(owner);
  window->Show();
  window->Raise();
  return window;
}

FavouritesTree * FavouritesPaneTree(wxFrame & pane) {
  auto const * const window = dynamic_cast<FavouritesPane *>(&pane);
  return window != nullptr ? window->GetTree() : nullptr;
}

void AddFavouritesPaneCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kFavouritesPaneCommand, Tr("Menu command", "F&avourites pane"));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { ShowFavouritesPane(frame); },
      kFavouritesPaneCommand);
  for (int const command : kFavouriteCommands)
    frame.Bind(
        wxEVT_UPDATE_UI, [](wxUpdateUIEvent & event) { event.Enable(true); }, command);
}
