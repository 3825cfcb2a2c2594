// The scrollable fatal-error box: icon by its form, text with "\r\n" line
// ends, title, and the ways out.
#include <gtest/gtest.h>

#include <wx/textctrl.h>

#include "frame/FatalErrorDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"

namespace {

TEST(FatalErrorDialog, TheInformationFormHidesTheIconAndTheTextKeepsCrLfLineEnds) {
  struct Case {
    bool informationOnly;
    bool iconShown;
  };
  for (Case const c : {Case{false, true}, Case{true, false}}) {
    SCOPED_TRACE(c.informationOnly);
    FatalErrorDialog dialog(L"Out of memory.\nThe analysis stopped.", L"Analysis", nullptr,
                            c.informationOnly);
    bool iconShown = !c.iconShown;
    wxString text;
    wxString title;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      iconShown = d.FindWindow(FatalErrorDialog::kIconId)->IsShown();
      text = static_cast<wxTextCtrl *>(d.FindWindow(FatalErrorDialog::kTextId))->GetValue();
      title = d.GetTitle();
      gui_test::Click(d, IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(iconShown, c.iconShown);
    EXPECT_EQ(text, "Out of memory.\r\nThe analysis stopped.");
    EXPECT_EQ(title, "Analysis");
  }
}

TEST(FatalErrorDialog, EscapeClosesItAndANullTextIsEmpty) {
  FatalErrorDialog dialog(nullptr, nullptr, nullptr, false);
  ModalDialogScript script;
  script.Act([](wxDialog & d) { gui_test::PressKey(d, WXK_ESCAPE); });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(dialog.GetText(), "");
}

}  // namespace
