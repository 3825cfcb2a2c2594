#include "controls/StandardFont.h"

#include <array>
#include <cmath>
#include <cstring>
#include <memory>

#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/settings.h>

namespace {

struct FontRecipe {
  bool fromMessageFont;
  double points;  // 0: the message font's size
  LONG weight;    // 0: the message font's weight
  bool italic;
  bool underline;
  wchar_t const * face;  // own face, for fonts not based on the message font
  BYTE pitchAndFamily;
};

constexpr FontRecipe Recipes[StandardFont::FontTypeCount] = {
    {true, 0, 0, false, false, nullptr, 0},
    {true, 12, 0, false, false, nullptr, 0},
    {true, 0, FW_BOLD, false, false, nullptr, 0},
    {true, 12, FW_BOLD, false, false, nullptr, 0},
    {false, 16, FW_BOLD, true, false, L"Times New Roman", DEFAULT_PITCH | FF_ROMAN},
    {true, 22, FW_BOLD, false, false, nullptr, 0},
    {true, 0, 0, true, false, nullptr, 0},
    {true, 8, 0, false, false, nullptr, 0},
    {true, 7, 0, false, false, nullptr, 0},
    {false, 8, FW_BOLD, false, false, L"Courier New", FIXED_PITCH | FF_MODERN},
    {false, 9, FW_LIGHT, false, false, L"Courier New", FIXED_PITCH | FF_MODERN},
    {true, 0, 0, false, true, nullptr, 0},
};

using FontArray = std::array<std::unique_ptr<wxFont>, StandardFont::FontTypeCount>;

std::unique_ptr<FontArray> & Fonts() {
  static std::unique_ptr<FontArray> fonts;
  return fonts;
}

wxFont MessageFont() { return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT); }

int ScreenPixelsPerInchY() {
  int const ppi = wxGetDisplayPPI().y;
  return ppi > 0 ? ppi : 96;
}

wxFontFamily FamilyOf(BYTE pitchAndFamily) {
  switch (pitchAndFamily & 0xF0) {
    case FF_ROMAN: return wxFONTFAMILY_ROMAN;
    case FF_SWISS: return wxFONTFAMILY_SWISS;
    case FF_MODERN: return wxFONTFAMILY_TELETYPE;
    case FF_SCRIPT: return wxFONTFAMILY_SCRIPT;
    case FF_DECORATIVE: return wxFONTFAMILY_DECORATIVE;
    default: return wxFONTFAMILY_DEFAULT;
  }
}

wxFont MakeFont(FontRecipe const & recipe) {
  wxFont font = recipe.fromMessageFont ? MessageFont()
                                       : wxFont(wxFontInfo(recipe.points)
                                                    .Family(FamilyOf(recipe.pitchAndFamily))
                                                    .FaceName(recipe.face));
  if (recipe.points > 0) font.SetFractionalPointSize(recipe.points);
  if (recipe.weight > 0) font.SetNumericWeight(int(recipe.weight));
  if (recipe.italic) font.SetStyle(wxFONTSTYLE_ITALIC);
  if (recipe.underline) font.SetUnderlined(true);
  return font;
}

}  // namespace

LONG StandardFont::PointsToHeight(double points) {
  return -LONG(std::lround(points * ScreenPixelsPerInchY() / 72.0));
}

void StandardFont::InitFonts() {
  auto fonts = std::make_unique<FontArray>();
  for (int type = 0; type < FontTypeCount; ++type)
    (*fonts)[type] = std::make_unique<wxFont>(MakeFont(Recipes[type]));
  Fonts() = std::move(fonts);
}

wxFont const * StandardFont::GetFont(int fontType) {
  if (fontType < 0 || fontType >= FontTypeCount) return nullptr;
  if (!Fonts()) InitFonts();
  return (*Fonts())[fontType].get();
}

bool StandardFont::GetLogFont(int fontType, LOGFONTW & logFont) {
  if (fontType < 0 || fontType >= FontTypeCount) return false;
  FontRecipe const & recipe = Recipes[fontType];
  std::memset(&logFont, 0, sizeof logFont);
  if (recipe.fromMessageFont) {
    wxFont const base = MessageFont();
    logFont.lfHeight = PointsToHeight(base.GetFractionalPointSize());
    logFont.lfWeight = base.GetNumericWeight();
    logFont.lfItalic = base.GetStyle() != wxFONTSTYLE_NORMAL;
    logFont.lfUnderline = base.GetUnderlined();
    std::wcsncpy(logFont.lfFaceName, base.GetFaceName().wc_str(), LF_FACESIZE - 1);
  } else {
    std::wcsncpy(logFont.lfFaceName, recipe.face, LF_FACESIZE - 1);
    logFont.lfPitchAndFamily = recipe.pitchAndFamily;
  }
  if (recipe.points > 0) logFont.lfHeight = PointsToHeight(recipe.points);
  if (recipe.weight > 0) logFont.lfWeight = recipe.weight;
  if (recipe.italic) logFont.lfItalic = 1;
  if (recipe.underline) logFont.lfUnderline = 1;
  return true;
}

void StandardFont::UnloadFonts() { Fonts().reset(); }
