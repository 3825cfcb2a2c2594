// Help > About of the sample: the about dialog with its build details behind
// the details button and the maker's page behind the company button.
#include <gtest/gtest.h>

#include <wx/textctrl.h>

#include "SampleAbout.h"
#include "frame/AboutDialog.h"
#include "frame/AboutKarvinelDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"

namespace {

TEST(SampleAbout, DetailsAndTheMakersPageOpenFromTheAboutDialog) {
  AboutDialog dialog(nullptr, "TALVOutlwin Sample", 13024);
  PrepareSampleAbout(dialog);
  wxString details;
  wxString companyTitle;
  ModalDialogScript script;
  script
      .Act([](wxDialog & d) {
        ASSERT_TRUE(d.FindWindow(AboutDialog::kDetailsButtonId)->IsShown());
        gui_test::Click(d, AboutDialog::kDetailsButtonId);
        gui_test::Click(d, AboutDialog::kCompanyButtonId);
        d.EndModal(IDOK);
      })
      .Act([&](wxDialog & d) {
        if (auto * text = dynamic_cast<wxTextCtrl *>(d.FindWindow(13041)))
          details = text->GetValue();
        d.EndModal(IDOK);
      })
      .Act([&](wxDialog & d) {
        companyTitle = d.GetTitle();
        EXPECT_NE(dynamic_cast<AboutKarvinelDialog *>(&d), nullptr);
        d.EndModal(IDOK);
      });
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_NE(details.Find("wxWidgets"), wxNOT_FOUND) << details;
  EXPECT_NE(details.Find("Customization package"), wxNOT_FOUND) << details;
  EXPECT_EQ(companyTitle, "About Us");
}

}  // namespace
