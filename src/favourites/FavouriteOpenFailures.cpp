#include "favourites/FavouriteOpenFailures.h"

#include <wx/richmsgdlg.h>

#include "utl/VxSystemInfo.h"

// The family's details dialog (headline, details behind a toggle, the error
// icon) takes this place once it is part of the library; until then the
// stock dialog with the same three parts shows them.
void ShowFavouriteOpenFailures(wxWindow * parent, wxString const & headline,
                               wxString const & details) {
  wxRichMessageDialog dialog(parent, headline,
                             wxString::FromUTF8(VxSystemInfo::GetApplicationName()),
                             wxOK | wxICON_ERROR);
  dialog.ShowDetailedText(details);
  dialog.ShowModal();
}
