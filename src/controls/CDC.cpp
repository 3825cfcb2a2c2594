#include "controls/CDC.h"

#include <wx/dc.h>
#include <wx/font.h>

CDC::~CDC() = default;

wxFont CDC::CreatePointFont(int decipoints, wxString const & face) {
  // The drawing surface sizes fonts for its own resolution (wx's PPI, 96 on
  // a graphics context); the device's units an inch may be many more.
  double const surfacePpi = GetDC().GetPPI().y > 0 ? GetDC().GetPPI().y : 96.0;
  double const points = decipoints / 10.0 * GetDeviceCaps(LOGPIXELSY) / surfacePpi;
  wxFont font(wxFontInfo(points).FaceName(face));
  font.SetFractionalPointSize(points);
  return font;
}
