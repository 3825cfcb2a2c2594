// The class-wide pens and fonts, and drawing through VxMemDC.
#include <gtest/gtest.h>

#include <iterator>

#include <wx/dcmemory.h>
#include <wx/font.h>
#include <wx/pen.h>
#include <wx/settings.h>

#include "controls/StandardColor.h"
#include "controls/StandardFont.h"
#include "controls/StandardPen.h"
#include "controls/VxMemDC.h"

namespace {

TEST(StandardPen, EveryPenOfTheTableAndNoneOutsideIt) {
  struct Case {
    int style;
    wxPen const * (*getter)();
    wxColour colour;
    int width;
    wxPenStyle penStyle;
  };
  wxColour const black(0, 0, 0), white(0xFF, 0xFF, 0xFF), lightGray(0xC0, 0xC0, 0xC0);
  // The stock pens are wx's own, one pixel wide; the made ones are cosmetic (0).
  Case const cases[] = {
      {StandardPen::Solid, &StandardPen::GetSolidPen, black, 1, wxPENSTYLE_SOLID},
      {StandardPen::Dash, &StandardPen::GetDashPen, black, 0, wxPENSTYLE_LONG_DASH},
      {StandardPen::DashDot, &StandardPen::GetDashDotPen, black, 0, wxPENSTYLE_DOT_DASH},
      {StandardPen::Dot, &StandardPen::GetDotPen, black, 0, wxPENSTYLE_DOT},
      {StandardPen::LightGray, &StandardPen::GetLightGrayPen, lightGray, 0, wxPENSTYLE_SOLID},
      {StandardPen::White, &StandardPen::GetWhitePen, white, 1, wxPENSTYLE_SOLID},
      {StandardPen::Thick, &StandardPen::GetThickPen, black, 2, wxPENSTYLE_SOLID},
      {StandardPen::None, &StandardPen::GetNonePen, black, 1, wxPENSTYLE_TRANSPARENT}};
  for (size_t i = 0; i < std::size(cases); ++i) {
    Case const & c = cases[i];
    SCOPED_TRACE(c.style);
    EXPECT_EQ(c.style, int(i) + 1) << "numbers follow the table's rows";
    wxPen const * pen = StandardPen::GetPen(c.style);
    ASSERT_TRUE(pen != nullptr && pen->IsOk());
    EXPECT_EQ(c.getter(), pen);
    EXPECT_EQ(pen->GetStyle(), c.penStyle);
    if (c.penStyle == wxPENSTYLE_TRANSPARENT) continue;
    EXPECT_EQ(pen->GetColour(), c.colour);
    EXPECT_EQ(pen->GetWidth(), c.width);
  }
  EXPECT_EQ(StandardPen::GetPen(0), nullptr);
  EXPECT_EQ(StandardPen::GetPen(9), nullptr);
}

TEST(StandardFont, EveryTypeOfTheTable) {
  wxFont const base = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  LOGFONTW baseLog{};
  ASSERT_TRUE(StandardFont::GetLogFont(StandardFont::Normal, baseLog));
  // 0 means "as the message font"; a face means the font is not made from it.
  struct Case {
    int type;
    double points;
    int weight;
    bool italic, underline;
    char const * face;
    BYTE pitchAndFamily;
  };
  Case const cases[] = {{0, 0, 0, false, false, nullptr, 0},
                        {1, 12, 0, false, false, nullptr, 0},
                        {2, 0, 700, false, false, nullptr, 0},
                        {3, 12, 700, false, false, nullptr, 0},
                        {4, 16, 700, true, false, "Times New Roman", 16},
                        {5, 22, 700, false, false, nullptr, 0},
                        {6, 0, 0, true, false, nullptr, 0},
                        {7, 8, 0, false, false, nullptr, 0},
                        {8, 7, 0, false, false, nullptr, 0},
                        {9, 8, 700, false, false, "Courier New", 49},
                        {10, 9, 300, false, false, "Courier New", 49},
                        {11, 0, 0, false, true, nullptr, 0}};
  for (size_t i = 0; i < std::size(cases); ++i) {
    Case const & c = cases[i];
    SCOPED_TRACE(c.type);
    EXPECT_EQ(c.type, int(i)) << "every type, in order";
    LOGFONTW log{};
    ASSERT_TRUE(StandardFont::GetLogFont(c.type, log));
    LONG const height = c.points > 0 ? StandardFont::PointsToHeight(c.points) : baseLog.lfHeight;
    EXPECT_EQ(log.lfHeight, height);
    EXPECT_LT(log.lfHeight, 0);
    int const weight = c.weight > 0 ? c.weight : base.GetNumericWeight();
    EXPECT_EQ(log.lfWeight, weight);
    EXPECT_EQ(log.lfItalic != 0, c.italic);
    EXPECT_EQ(log.lfUnderline != 0, c.underline);
    EXPECT_EQ(log.lfPitchAndFamily, c.pitchAndFamily);
    EXPECT_EQ(wxString(log.lfFaceName), c.face != nullptr ? wxString(c.face) : base.GetFaceName());
    wxFont const * font = StandardFont::GetFont(c.type);
    ASSERT_NE(font, nullptr);
    EXPECT_DOUBLE_EQ(font->GetFractionalPointSize(),
                     c.points > 0 ? c.points : base.GetFractionalPointSize());
    EXPECT_EQ(font->GetNumericWeight(), weight);
    EXPECT_EQ(font->GetStyle() == wxFONTSTYLE_ITALIC, c.italic);
    EXPECT_EQ(font->GetUnderlined(), c.underline);
  }
  for (int outside : {12, -1}) {
    LOGFONTW unused{};
    EXPECT_FALSE(StandardFont::GetLogFont(outside, unused));
    EXPECT_EQ(StandardFont::GetFont(outside), nullptr);
  }
}

TEST(StandardFont, PointsBecomeScreenPixelsRoundedToNearest) {
  // At 96 pixels an inch (Xvfb's), 8 points are 10.67 pixels, 9 are 12.
  ASSERT_EQ(wxGetDisplayPPI().y, 96);
  struct Case {
    double points;
    LONG height;
  };
  Case const cases[] = {{8, -11}, {9, -12}, {7, -9}, {22, -29}};
  for (Case const & c : cases) EXPECT_EQ(StandardFont::PointsToHeight(c.points), c.height);
}

TEST(StandardFont, UnloadedPensAndFontsAreMadeAgainOnNextUse) {
  for (int unloaded = 0; unloaded < 2; ++unloaded) {
    SCOPED_TRACE(unloaded);
    wxFont const * font = StandardFont::GetFont(StandardFont::Bold);
    wxPen const * pen = StandardPen::GetDotPen();
    ASSERT_TRUE(font != nullptr && pen != nullptr);
    EXPECT_EQ(font->GetNumericWeight(), 700);
    EXPECT_EQ(pen->GetStyle(), wxPENSTYLE_DOT);
    StandardFont::UnloadFonts();
    StandardPen::UnloadPens();
  }
}

wxColour PixelOf(wxBitmap const & bitmap, int x, int y) {
  wxImage const image = bitmap.ConvertToImage();
  return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
}

TEST(VxMemDC, FillsWithTheTargetsBackgroundAndCopiesToTheOrigin) {
  wxBitmap target(60, 40, 24);
  wxMemoryDC dc(target);
  dc.SetBackground(*wxRED_BRUSH);
  dc.Clear();
  dc.SetBackground(*wxBLUE_BRUSH);
  {
    // The rectangle starts at (20, 10), yet the copy lands at (0, 0).
    VxMemDC memory(dc, wxRect(20, 10, 30, 15));
    EXPECT_EQ(memory.GetSize(), wxSize(30, 15));
    memory.SetPen(*wxTRANSPARENT_PEN);
    memory.SetBrush(*wxGREEN_BRUSH);
    memory.DrawRectangle(0, 0, 5, 5);
    // Nothing reaches the target before the end of the scope.
    dc.SelectObject(wxNullBitmap);
    EXPECT_EQ(PixelOf(target, 2, 2), *wxRED);
    dc.SelectObject(target);
  }
  dc.SelectObject(wxNullBitmap);
  struct Case {
    int x, y;
    wxColour colour;
  };
  Case const cases[] = {{2, 2, *wxGREEN}, {10, 2, *wxBLUE}, {29, 14, *wxBLUE},
                        {30, 14, *wxRED}, {29, 15, *wxRED}, {45, 20, *wxRED}};
  for (Case const & c : cases) EXPECT_EQ(PixelOf(target, c.x, c.y), c.colour) << c.x << "," << c.y;
}

}  // namespace
