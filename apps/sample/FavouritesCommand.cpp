#include "FavouritesCommand.h"

#include <vector>

#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/wfstream.h>

#include "SampleCommands.h"
#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouritesManager.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

wxString TempFile(char const * name) {
  return wxFileName(wxFileName::GetTempDir(), name).GetFullPath();
}

// The kept file exists before it is opened; the other is removed, as if
// moved away after it became a favourite.
void PrepareFiles() {
  if (!wxFileName::FileExists(SampleFavouriteFile())) {
    wxFileOutputStream out(SampleFavouriteFile());
    char const text[] = "Notes on the calibration runs.\n";
    if (out.IsOk()) out.WriteAll(text, sizeof text - 1);
  }
  if (wxFileName::FileExists(SampleMissingFavouriteFile()))
    wxRemoveFile(SampleMissingFavouriteFile());
}

void OpenFavourites() {
  PrepareFiles();
  // The manager deletes the items it is given, as the tree's copies.
  std::vector<FavouriteItem *> items{
      new FavouriteCommandItem(L"Tree view", kTreeViewCommand),
      new FavouriteFileItem(L"Calibration notes", SampleFavouriteFile().wc_str()),
      new FavouriteFileItem(L"Old calibration notes", SampleMissingFavouriteFile().wc_str()),
  };
  FavouritesManager manager;
  manager.Open(&items);
}

}  // namespace

wxString SampleFavouriteFile() { return TempFile("talvo-sample-favourite-notes.txt"); }

wxString SampleMissingFavouriteFile() { return TempFile("talvo-sample-moved-notes.txt"); }

void AddOpenFavouritesCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kOpenFavouritesCommand, Tr("Menu command", "Open &favourites"));
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { OpenFavourites(); }, kOpenFavouritesCommand);
  // A command favourite opens only what an update handler enables.
  frame.Bind(
      wxEVT_UPDATE_UI, [](wxUpdateUIEvent & event) { event.Enable(true); }, kTreeViewCommand);
}
