// Dialog templates and bitmaps of the resource modules: a template builds a
// wx dialog whose controls carry their numbers as ids, with translated
// texts; lookups follow the chain like strings do.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "platform/ResourceModule.h"
#include "platform/SetResourceInstance.h"
#include "utl/Translation.h"

namespace {

class DialogTemplates : public testing::Test {
protected:
  void TearDown() override { std::locale::global(std::locale::classic()); }
};

TEST_F(DialogTemplates, ControlsNamedByNumberGetThatNumberAsId) {
  wxDialog dialog;
  ASSERT_TRUE(LoadDialogTemplate(dialog, nullptr, 13099));
  EXPECT_EQ(dialog.GetTitle(), "Message");
  struct Control {
    int id;
    wxClassInfo * kind;
  };
  Control const controls[] = {
      {13080, wxCLASSINFO(wxStaticText)}, {13038, wxCLASSINFO(wxCheckBox)},
      {13351, wxCLASSINFO(wxStaticText)}, {1, wxCLASSINFO(wxButton)},
      {2, wxCLASSINFO(wxButton)},         {6, wxCLASSINFO(wxButton)},
      {7, wxCLASSINFO(wxButton)},         {9, wxCLASSINFO(wxButton)},
  };
  for (Control const & control : controls) {
    SCOPED_TRACE(control.id);
    wxWindow * window = dialog.FindWindow(control.id);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->IsKindOf(control.kind)) << window->GetClassInfo()->GetClassName();
  }
  EXPECT_EQ(static_cast<wxCheckBox *>(dialog.FindWindow(13038))->GetLabel(),
            "&Don't show this message again");
  EXPECT_FALSE(dialog.FindWindow(13351)->IsShown());
  dialog.Destroy();
}

TEST_F(DialogTemplates, TitleAndLabelsAreTranslatedWhenLoaded) {
  vx3::TranslationSetup setup;
  setup.domains = {"talvo-test"};
  setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
  setup.localeName = "de_DE.UTF-8";
  vx3::InstallTranslation(setup);
  wxDialog dialog;
  ASSERT_TRUE(LoadDialogTemplate(dialog, nullptr, 4100));
  EXPECT_EQ(dialog.GetTitle(), "Meldung");
  EXPECT_EQ(dialog.FindWindow(13080)->GetLabel(), "Bereit");
  EXPECT_EQ(dialog.FindWindow(2)->GetLabel(), "Halt");
  EXPECT_NE(dynamic_cast<wxTextCtrl *>(dialog.FindWindow(4101)), nullptr);
  dialog.Destroy();
}

TEST_F(DialogTemplates, ATemplateBuildsAgainAndAgain) {
  for (int round = 0; round < 2; ++round) {
    wxDialog dialog;
    ASSERT_TRUE(LoadDialogTemplate(dialog, nullptr, 4100)) << round;
    EXPECT_NE(dialog.FindWindow(4101), nullptr);
    dialog.Destroy();
  }
}

TEST_F(DialogTemplates, AMissingTemplateLeavesTheDialogUncreated) {
  wxDialog dialog;
  EXPECT_FALSE(LoadDialogTemplate(dialog, nullptr, 4999));
  EXPECT_EQ(dialog.GetHandle(), nullptr);
}

TEST_F(DialogTemplates, TheCurrentModuleDecidesWhereATemplateIsLookedForFirst) {
  // Only the library has 13099; the application's 4100 stays reachable
  // through the chain while the library is current.
  SetResourceInstance library(FindResourceModule("TALVOutlwin"));
  for (unsigned id : {13099u, 4100u}) {
    wxDialog dialog;
    EXPECT_TRUE(LoadDialogTemplate(dialog, nullptr, id)) << id;
    dialog.Destroy();
  }
}

TEST(ResourceBitmaps, PngBitmapsDecodeAndMissingOrBrokenOnesAreInvalid) {
  struct Case {
    unsigned id;
    bool valid;
    int width, height;
  };
  Case const cases[] = {
      {13024, true, 64, 64},  // the library's about picture
      {4200, true, 3, 2},     // the application's
      {4201, false, 0, 0},    // a PNG signature and nothing more
      {4999, false, 0, 0},    // nowhere
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.id);
    wxBitmap const bitmap = LoadResourceBitmap(c.id);
    ASSERT_EQ(bitmap.IsOk(), c.valid);
    if (!c.valid) continue;
    EXPECT_EQ(bitmap.GetWidth(), c.width);
    EXPECT_EQ(bitmap.GetHeight(), c.height);
  }
}

}  // namespace
