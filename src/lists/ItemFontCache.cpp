#include "lists/ItemFontCache.h"

#include <algorithm>

wxFont FontFromLogFont(LOGFONTW const & logFont, wxFont const & base) {
  wxFont font = base;
  if (logFont.lfFaceName[0] != L'\0') font.SetFaceName(wxString(logFont.lfFaceName));
  if (logFont.lfHeight < 0) font.SetPixelSize(wxSize(0, -logFont.lfHeight));
  if (logFont.lfWeight >= FW_BOLD) font.SetWeight(wxFONTWEIGHT_BOLD);
  if (logFont.lfItalic != 0) font.SetStyle(wxFONTSTYLE_ITALIC);
  if (logFont.lfUnderline != 0) font.SetUnderlined(true);
  if (logFont.lfStrikeOut != 0) font.SetStrikethrough(true);
  return font;
}

wxFont const & ItemFontCache::Font(LOGFONTW const & logFont, bool bold, wxFont const & base) {
  if (!(mBase == base)) {
    mFonts.clear();
    mBase = base;
  }
  bool const ownFace = logFont.lfFaceName[0] != L'\0';
  std::wstring face;
  if (ownFace) {
    size_t length = 0;
    while (length < LF_FACESIZE && logFont.lfFaceName[length] != L'\0') ++length;
    face.assign(logFont.lfFaceName, length);
  }
  // Without a face of its own an item keeps the control's font whole.
  Key const key =
      ownFace ? Key(face, std::min<LONG>(logFont.lfHeight, 0), bold || logFont.lfWeight >= FW_BOLD,
                    logFont.lfItalic != 0, logFont.lfUnderline != 0, logFont.lfStrikeOut != 0)
              : Key(face, 0, bold, false, false, false);
  auto found = mFonts.find(key);
  if (found == mFonts.end()) {
    wxFont font = ownFace ? FontFromLogFont(logFont, base) : base;
    if (bold) font.SetWeight(wxFONTWEIGHT_BOLD);
    found = mFonts.emplace(key, Made{font, {}}).first;
  }
  return found->second.font;
}

int ItemFontCache::TextHeight(wxDC & dc, wxFont const & font, wxString const & text) {
  for (auto & [key, made] : mFonts) {
    if (&made.font != &font) continue;
    auto const known = made.heights.find(text);
    if (known != made.heights.end()) return known->second;
    if (made.heights.size() >= MaxHeightsPerFont) made.heights.clear();
    int height = 0;
    dc.GetTextExtent(text, nullptr, &height, nullptr, nullptr, &font);
    made.heights.emplace(text, height);
    return height;
  }
  int height = 0;
  dc.GetTextExtent(text, nullptr, &height, nullptr, nullptr, &font);
  return height;
}
