#include "lists/TrackFilterListCtrlPopup.h"

#include <wx/utils.h>
#include <wx/window.h>

#include "lists/FilterListCtrlPopupBar.h"

uint64_t TrackFilterListCtrlPopup(wxWindow * parent, wxPoint point, FilterListItems const & items,
                                  uint64_t selected) {
  if (point == wxPoint(-1, -1))
    point = parent != nullptr ? parent->GetScreenRect().GetTopLeft() + wxPoint(5, 5)
                              : wxGetMousePosition();
  auto * const bar = new FilterListCtrlPopupBar(parent, &items, selected);
  uint64_t const chosen = bar->Track(point);
  bar->Destroy();
  return chosen;
}
