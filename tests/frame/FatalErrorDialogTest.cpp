// The scrollable fatal-error box on its own: Escape is a way out and a null
// text is empty. (Its icon, title and line ends are checked through the
// channels that show it.)
#include <gtest/gtest.h>

#include "frame/FatalErrorDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"

namespace {

TEST(FatalErrorDialog, EscapeClosesItAndANullTextIsEmpty) {
  FatalErrorDialog dialog(nullptr, nullptr, nullptr, false);
  ModalDialogScript script;
  script.Act([](wxDialog & d) { gui_test::PressKey(d, WXK_ESCAPE); });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(dialog.GetText(), "");
}

}  // namespace
