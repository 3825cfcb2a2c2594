#include "controls/WrapToWidth.h"

#include <wx/dcscreen.h>

wxString WrapToWidth(wxString const & text, wxFont const & font, int width) {
  wxScreenDC dc;
  dc.SetFont(font);
  wxArrayInt extents;  // extents[i]: the width of the text up to character i
  if (!dc.GetPartialTextExtents(text, extents) || extents.size() != text.size()) return text;
  wxString wrapped(text);
  int lineStart = 0;
  size_t blank = wxString::npos;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ') blank = i;
    if (extents[i] - lineStart > width && blank != wxString::npos) {
      wrapped[blank] = '\n';
      lineStart = extents[blank];
      blank = wxString::npos;
    }
  }
  return wrapped;
}
