#include "platform/SysColor.h"

#include <wx/settings.h>

wxColour LayOver(wxColour const & color, wxColour const & under) {
  unsigned const alpha = color.Alpha();
  if (alpha == wxALPHA_OPAQUE) return color;
  auto mix = [alpha](unsigned top, unsigned bottom) {
    return static_cast<unsigned char>((top * alpha + bottom * (255 - alpha) + 127) / 255);
  };
  return {mix(color.Red(), under.Red()), mix(color.Green(), under.Green()),
          mix(color.Blue(), under.Blue())};
}

wxColour GetSysColour(int index) {
  if (index < 0 || index >= wxSYS_COLOUR_MAX) return *wxBLACK;
  wxColour const color = wxSystemSettings::GetColour(static_cast<wxSystemColour>(index));
  if (!color.IsOk()) return *wxBLACK;
  if (color.Alpha() == wxALPHA_OPAQUE) return color;
  // The window colour itself may be translucent in a theme: it lies on white.
  wxColour const window = LayOver(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW), *wxWHITE);
  return LayOver(color, window);
}

COLORREF GetSysColor(int index) { return GetSysColour(index).GetRGB(); }
