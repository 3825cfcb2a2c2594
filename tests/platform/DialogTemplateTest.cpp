// Dialog templates and bitmaps of the resource modules: a template builds a
// wx dialog whose controls carry their numbers as ids, with translated
// texts; missing or broken bitmaps come out invalid.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "platform/ResourceModule.h"
#include "utl/Translation.h"

namespace {

TEST(DialogTemplates, ControlsNamedByNumberGetThatNumberAsId) {
  wxDialog dialog;
  ASSERT_TRUE(LoadDialogTemplate(dialog, nullptr, 13099));
  EXPECT_EQ(dialog.GetTitle(), "Message");
  struct Control {
    int id;
    wxClassInfo * kind;
  };
  Control const controls[] = {
      {13080, wxCLASSINFO(wxStaticText)},
      {13038, wxCLASSINFO(wxCheckBox)},
      {1, wxCLASSINFO(wxButton)},
      {9, wxCLASSINFO(wxButton)},
  };
  for (Control const & control : controls) {
    wxWindow * window = dialog.FindWindow(control.id);
    ASSERT_NE(window, nullptr) << control.id;
    EXPECT_TRUE(window->IsKindOf(control.kind)) << window->GetClassInfo()->GetClassName();
  }
  EXPECT_FALSE(dialog.FindWindow(13351)->IsShown());
  dialog.Destroy();
  wxDialog missing;
  EXPECT_FALSE(LoadDialogTemplate(missing, nullptr, 4999));
  EXPECT_EQ(missing.GetHandle(), nullptr);
}

TEST(DialogTemplates, TitleAndLabelsAreTranslatedWhenLoadedEveryTime) {
  vx3::TranslationSetup setup;
  setup.domains = {"talvo-test"};
  setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
  setup.localeName = "de_DE.UTF-8";
  vx3::InstallTranslation(setup);
  struct Reset {
    ~Reset() { std::locale::global(std::locale::classic()); }
  } const reset;
  for (int round = 0; round < 2; ++round) {  // a template builds again and again
    wxDialog dialog;
    ASSERT_TRUE(LoadDialogTemplate(dialog, nullptr, 4100)) << round;
    EXPECT_EQ(dialog.GetTitle(), "Meldung");
    EXPECT_EQ(dialog.FindWindow(2)->GetLabel(), "Halt");
    EXPECT_NE(dynamic_cast<wxTextCtrl *>(dialog.FindWindow(4101)), nullptr);
    dialog.Destroy();
  }
}

TEST(ResourceBitmaps, PngBitmapsDecodeAndMissingOrBrokenOnesAreInvalid) {
  struct Case {
    unsigned id;
    int width;  // 0: invalid
  };
  Case const cases[] = {
      {4200, 3},  // the application's
      {4201, 0},  // a PNG signature and nothing more
      {4999, 0},  // nowhere
  };
  for (Case const & c : cases) {
    wxBitmap const bitmap = LoadResourceBitmap(c.id);
    EXPECT_EQ(bitmap.IsOk() ? bitmap.GetWidth() : 0, c.width) << c.id;
  }
}

}  // namespace
