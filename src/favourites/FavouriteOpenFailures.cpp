#include "favourites/FavouriteOpenFailures.h"

#include <utility>

#include <wx/richmsgdlg.h>

#include "utl/VxSystemInfo.h"

// The family's details dialog (headline, details behind a toggle, the error
// icon) takes this place once it is part of the library; until then the
// stock dialog with the same three parts shows them.
namespace {
FavouriteOpenFailuresDisplay & Display() {
  static FavouriteOpenFailuresDisplay display;
  return display;
}
}  // namespace

FavouriteOpenFailuresDisplay SetFavouriteOpenFailuresDisplay(FavouriteOpenFailuresDisplay display) {
  std::swap(display, Display());
  return display;
}

void ShowFavouriteOpenFailures(wxWindow * parent, wxString const & headline,
                               wxString const & details) {
  if (Display()) {
    Display()(parent, headline, details);
    return;
  }
  wxRichMessageDialog dialog(parent, headline,
                             wxString::FromUTF8(VxSystemInfo::GetApplicationName()),
                             wxOK | wxICON_ERROR);
  dialog.ShowDetailedText(details);
  dialog.ShowModal();
}
