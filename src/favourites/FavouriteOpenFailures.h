#pragma once
// The one dialog that tells which favourites could not be opened: a
// headline, the "name: reason" lines as details, the error icon.

#include <functional>

#include <wx/string.h>

class wxWindow;

void ShowFavouriteOpenFailures(wxWindow * parent, wxString const & headline,
                               wxString const & details);

// Replaces what ShowFavouriteOpenFailures shows (tests read the headline and
// details here); an empty function puts the dialog back. Returns the former.
using FavouriteOpenFailuresDisplay =
    std::function<void(wxWindow *, wxString const &, wxString const &)>;
FavouriteOpenFailuresDisplay SetFavouriteOpenFailuresDisplay(FavouriteOpenFailuresDisplay display);
