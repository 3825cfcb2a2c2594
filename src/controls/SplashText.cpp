#include "controls/SplashText.h"

#include <wx/dc.h>
#include <wx/tokenzr.h>

#include <map>

namespace {

// Words that fit the width, one line each; a word wider than the width
// stands on its own line.
void Wrap(wxString const & paragraph, int width, MeasureText const & measure,
          std::vector<wxString> & lines) {
  wxString line;
  wxStringTokenizer words(paragraph, " ", wxTOKEN_RET_EMPTY_ALL);
  while (words.HasMoreTokens()) {
    wxString const word = words.GetNextToken();
    wxString const candidate = line.empty() ? word : line + " " + word;
    if (!line.empty() && measure(candidate).x > width) {
      lines.push_back(line);
      line = word;
    } else {
      line = candidate;
    }
  }
  lines.push_back(line);
}

wxString EndWithEllipsis(wxString const & line, int width, MeasureText const & measure) {
  if (measure(line).x <= width) return line;
  wxString cut = line;
  while (!cut.empty() && measure(cut + "...").x > width) cut.RemoveLast();
  return cut + "...";
}

}  // namespace

std::vector<SplashTextPiece> LayoutSplashText(wxString const & text, wxRect const & rect,
                                              unsigned format, MeasureText const & measure) {
  std::vector<wxString> lines;
  if ((format & DT_SINGLELINE) != 0) {
    wxString flat = text;
    flat.Replace("\r\n", " ");
    flat.Replace("\n", " ");
    lines.push_back(flat);
  } else {
    wxStringTokenizer paragraphs(text, "\n", wxTOKEN_RET_EMPTY_ALL);
    while (paragraphs.HasMoreTokens()) {
      wxString paragraph = paragraphs.GetNextToken();
      if (paragraph.EndsWith("\r")) paragraph.RemoveLast();
      if ((format & DT_WORDBREAK) != 0)
        Wrap(paragraph, rect.width, measure, lines);
      else
        lines.push_back(paragraph);
    }
  }
  if ((format & DT_END_ELLIPSIS) != 0)
    for (wxString & line : lines) line = EndWithEllipsis(line, rect.width, measure);

  int const lineHeight = measure("Ag").y;
  int const blockHeight = lineHeight * static_cast<int>(lines.size());
  int y = rect.y;
  if ((format & DT_BOTTOM) != 0)
    y = rect.GetBottom() + 1 - blockHeight;
  else if ((format & DT_VCENTER) != 0)
    y = rect.y + (rect.height - blockHeight) / 2;

  std::vector<SplashTextPiece> pieces;
  for (wxString const & line : lines) {
    int const width = measure(line).x;
    int x = rect.x;
    if ((format & DT_RIGHT) != 0)
      x = rect.GetRight() + 1 - width;
    else if ((format & DT_CENTER) != 0)
      x = rect.x + (rect.width - width) / 2;
    pieces.push_back({line, {x, y}});
    y += lineHeight;
  }
  return pieces;
}

void DrawSplashText(wxDC & dc, wxString const & text, wxRect const & rect, unsigned format) {
  // The layout asks for a line's size more than once: measured once each,
  // the splash's first paint shapes each text once.
  std::map<wxString, wxSize> measured;
  auto const pieces = LayoutSplashText(text, rect, format, [&dc, &measured](wxString const & line) {
    auto const known = measured.find(line);
    if (known != measured.end()) return known->second;
    wxCoord width = 0;
    wxCoord height = 0;
    dc.GetTextExtent(line.empty() ? wxString(" ") : line, &width, &height);
    return measured.emplace(line, wxSize(line.empty() ? 0 : width, height)).first->second;
  });
  bool const clip = (format & DT_NOCLIP) == 0;
  if (clip) dc.SetClippingRegion(rect);
  for (SplashTextPiece const & piece : pieces) dc.DrawText(piece.text, piece.position);
  if (clip) dc.DestroyClippingRegion();
}
