#pragma once
// Text lines on a splash picture, placed in their rectangles with the
// format flags of the family's drawing call.

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <functional>
#include <vector>

class wxDC;

// The supported formats, by the names of that drawing call; every other bit
// is ignored. Vertical placement applies to the whole block of lines.
enum SplashTextFormat : unsigned {
  DT_LEFT = 0x0,
  DT_TOP = 0x0,
  DT_CENTER = 0x1,
  DT_RIGHT = 0x2,
  DT_VCENTER = 0x4,
  DT_BOTTOM = 0x8,
  DT_WORDBREAK = 0x10,       // wrap at spaces to the rectangle's width
  DT_SINGLELINE = 0x20,      // line breaks in the text are not followed
  DT_NOCLIP = 0x100,         // otherwise drawing stays inside the rectangle
  DT_END_ELLIPSIS = 0x8000,  // a line too wide ends with "..."
};

struct SplashTextPiece {
  wxString text;
  wxPoint position;  // top left
};

// Width and height of a text in the current font.
using MeasureText = std::function<wxSize(wxString const &)>;

std::vector<SplashTextPiece> LayoutSplashText(wxString const & text, wxRect const & rect,
                                              unsigned format, MeasureText const & measure);

void DrawSplashText(wxDC & dc, wxString const & text, wxRect const & rect, unsigned format);
