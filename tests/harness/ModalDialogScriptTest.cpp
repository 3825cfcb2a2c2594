// The dialog script answers message boxes and custom dialogs, records what
// they showed, and fails a test on a dialog nobody expected.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include <gmock/gmock.h>

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

// wx's message box is GTK's own and runs GTK's loop, where EndModal does
// nothing: End clicks its button, and a mistaken action still lets it go.
TEST(ModalDialogScript, EndsAMessageBoxShownByGtkAndNeverLeavesItUp) {
  struct Case {
    char const * what;
    long style;
    std::function<void(wxDialog &)> action;
    int returned;
    std::vector<char const *> failures;
  };
  auto const end = [](int id) { return [id](wxDialog & d) { ModalDialogScript::End(d, id); }; };
  Case const cases[] = {
      {"No", wxYES_NO, end(wxID_NO), wxID_NO, {}},
      {"Yes", wxYES_NO | wxCANCEL, end(wxID_YES), wxID_YES, {}},
      {"Cancel", wxOK | wxCANCEL, end(wxID_CANCEL), wxID_CANCEL, {}},
      {"a button the box lacks", wxOK, end(wxID_YES), wxID_CANCEL, {"no button for"}},
      {"EndModal",
       wxYES_NO,
       [](wxDialog & d) { d.EndModal(wxID_YES); },
       wxID_CANCEL,
       {"EndModal called twice", "left the message box \"Clear\" up"}},
      {"nothing", wxOK, [](wxDialog &) {}, wxID_CANCEL, {"left the message box"}},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    int result = 0;
    int recorded = 0;
    ::testing::TestPartResultArray failures;
    {
      ::testing::ScopedFakeTestPartResultReporter const reporter(
          ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
      ModalDialogScript script;
      script.Act(c.action);
      wxMessageDialog box(nullptr, "Clear everything?", "Clear", c.style);
      result = box.ShowModal();
      recorded = script.Shown().at(0).result;
    }
    EXPECT_EQ(result, c.returned);
    EXPECT_EQ(recorded, c.returned);
    ASSERT_EQ(failures.size(), static_cast<int>(c.failures.size()));
    for (int i = 0; i < failures.size(); ++i)
      EXPECT_THAT(failures.GetTestPartResult(i).message(), ::testing::HasSubstr(c.failures[i]));
  }
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
