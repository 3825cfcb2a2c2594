#pragma once
// Where the break dialog's controls go, in client coordinates, for its three
// faces: a spinner beside the stop button; a plain text beside it; a painting
// with the painter's portrait, name and life span beside it and the
// painting's name below. A gauge, when the operation has one, spans the
// bottom. Pure arithmetic, so that it is tested without a display.

#include <wx/gdicmn.h>

enum class BreakDialogFace { kSpinner, kPlain, kArt };

struct BreakDialogMeasures {
  BreakDialogFace face = BreakDialogFace::kPlain;
  int margin = 0;
  wxSize button;       // the stop button's best size
  wxSize spinner;      // a spinner frame
  wxSize placeholder;  // the plain text
  wxSize painting;     // room for the largest painting
  wxSize portrait;     // room for the largest portrait
  wxSize artistText;   // the painter's name and life span, two lines
  int paintingTextHeight = 0;
  int gaugeHeight = 0;  // 0: no gauge
  // The spinner and plain faces are widened to this (room for the title).
  int minWidth = 0;
};

struct BreakDialogLayout {
  wxSize client;
  // Empty rectangles for what the face does not show.
  wxRect spinner, placeholder, painting, portrait, artistText, paintingText, gauge, button;
};

BreakDialogLayout LayOutBreakDialog(BreakDialogMeasures const & measures);

// `bitmap` centred in `box`; it may stick out of a box smaller than itself.
wxRect CentreIn(wxRect const & box, wxSize bitmap);

// `bitmap` centred across `box` and standing on its bottom edge: a painting
// keeps its name right under it, whatever its height.
wxRect StandOn(wxRect const & box, wxSize bitmap);

// Where a window of `size` goes: centred on `owner`, but kept on `screen`
// so that its title bar can be reached; a window larger than the screen
// keeps its top-left corner on it.
wxPoint PlaceOnScreen(wxRect const & owner, wxSize size, wxRect const & screen);
