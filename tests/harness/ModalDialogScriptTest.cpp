// The dialog script answers message boxes and custom dialogs, records what
// they showed, and fails a test on a dialog nobody expected.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"

namespace {

TEST(ModalDialogScript, AnswersMessageBoxesInOrderAndRecordsThem) {
  ModalDialogScript script;
  script.Answer(wxID_YES).Answer(wxID_NO);
  wxMessageDialog first(nullptr, "Overwrite the file?", "Save", wxYES_NO);
  wxMessageDialog second(nullptr, "Keep the old copy?", "Save", wxYES_NO);
  EXPECT_EQ(first.ShowModal(), wxID_YES);
  EXPECT_EQ(second.ShowModal(), wxID_NO);
  ASSERT_EQ(script.Shown().size(), 2u);
  EXPECT_EQ(script.Shown()[0].message, "Overwrite the file?");
  EXPECT_EQ(script.Shown()[0].title, "Save");
  EXPECT_EQ(script.Shown()[1].message, "Keep the old copy?");
  EXPECT_EQ(script.Shown()[1].result, wxID_NO);
}

TEST(ModalDialogScript, ActsOnARealDialogOnceItIsOnScreen) {
  ModalDialogScript script;
  bool wasOnScreen = false;
  script.Act([&](wxDialog & dialog) {
    wasOnScreen = gui_test::WaitUntil([&] { return dialog.IsShownOnScreen(); });
    wxCommandEvent click(wxEVT_BUTTON, wxID_OK);
    click.SetEventObject(dialog.FindWindow(wxID_OK));
    dialog.FindWindow(wxID_OK)->GetEventHandler()->ProcessEvent(click);
  });
  wxDialog dialog(nullptr, wxID_ANY, "Custom");
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(new wxStaticText(&dialog, wxID_ANY, "Pick one"));
  sizer->Add(new wxButton(&dialog, wxID_OK, "OK"));
  dialog.SetSizerAndFit(sizer);
  EXPECT_EQ(dialog.ShowModal(), wxID_OK);
  EXPECT_TRUE(wasOnScreen);
  ASSERT_EQ(script.Shown().size(), 1u);
  EXPECT_EQ(script.Shown()[0].message, "Pick one");
  EXPECT_EQ(script.Shown()[0].result, wxID_OK);
}

TEST(ModalDialogScript, AnUnexpectedDialogFailsTheTestAndIsCancelled) {
  int result = 0;
  EXPECT_NONFATAL_FAILURE(
      {
        ModalDialogScript script;
        wxMessageDialog box(nullptr, "Surprise", "Oops", wxOK | wxCANCEL);
        result = box.ShowModal();
      },
      "unexpected modal dialog");
  EXPECT_EQ(result, wxID_CANCEL);
}

TEST(ModalDialogScript, AStepNeverUsedFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(
      {
        ModalDialogScript script;
        script.Answer(wxID_OK);
      },
      "never shown");
}

TEST(WxAssertHandler, AWxAssertionFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(wxFAIL_MSG("deliberate"), "deliberate");
}

}  // namespace
