#pragma once
// The one dialog that tells which favourites could not be opened: a
// headline, the "name: reason" lines as details, the error icon.

#include <wx/string.h>

class wxWindow;

void ShowFavouriteOpenFailures(wxWindow * parent, wxString const & headline,
                               wxString const & details);
