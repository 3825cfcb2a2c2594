#pragma once
// Lets the user pick one of `items` in the filter popup: shown at `point`
// (screen; (-1, -1): 5 pixels inside the parent's top-left corner, or at
// the pointer without a parent) with `selected` shown selected at first.
// Returns the chosen item's index, or all bits set when the popup closed
// without a choice.

#include <wx/gdicmn.h>

#include <cstdint>

class FilterListItems;
class wxWindow;

uint64_t TrackFilterListCtrlPopup(wxWindow * parent, wxPoint point, FilterListItems const & items,
                                  uint64_t selected);
