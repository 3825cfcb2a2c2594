#include "favourites/FavouriteOpenFailures.h"

#include <utility>

#include "dialogs/DetailsDialog.h"

namespace {

// The details dialog's error icon.
constexpr unsigned int kErrorIcon = 16;

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
  // The details start closed: the headline says enough for most.
  DetailsDialog(parent, headline.wc_str(), details.wc_str(), nullptr, kErrorIcon, false);
}
