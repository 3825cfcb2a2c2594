#include "platform/SysColor.h"

#include <gtest/gtest.h>
#include <wx/settings.h>

#include "platform/SystemMetrics.h"

namespace {

TEST(SysColor, TranslucentColoursAreLaidOverWhatLiesBelow) {
  wxColour const under(200, 100, 0);
  EXPECT_EQ(LayOver(wxColour(0, 0, 0, 0xCC), under), wxColour(40, 20, 0));
  EXPECT_EQ(LayOver(wxColour(255, 255, 255, 0), under), under);
  EXPECT_EQ(LayOver(wxColour(10, 20, 30), under), wxColour(10, 20, 30));
}

TEST(SysColor, IndexesFollowTheThemeAndAreOpaque) {
  for (int index : {COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_HIGHLIGHT, COLOR_INFOBK, COLOR_BTNFACE}) {
    wxColour const color = GetSysColour(index);
    EXPECT_EQ(color.Alpha(), wxALPHA_OPAQUE) << index;
    wxColour const theme = wxSystemSettings::GetColour(static_cast<wxSystemColour>(index));
    if (theme.Alpha() == wxALPHA_OPAQUE) {
      EXPECT_EQ(color, theme) << index;
    }
    EXPECT_EQ(GetSysColor(index), color.GetRGB()) << index;
  }
  EXPECT_EQ(GetSysColor(-1), 0u);
  EXPECT_EQ(GetSysColor(wxSYS_COLOUR_MAX), 0u);
}

TEST(SystemMetrics, ScrollBarWidthIsTheToolkitsAndUnknownIndexesAreZero) {
  EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), wxSystemSettings::GetMetric(wxSYS_VSCROLL_X));
  EXPECT_GT(GetSystemMetrics(SM_CXVSCROLL), 0);
  EXPECT_EQ(GetSystemMetrics(9999), 0);
}

}  // namespace
