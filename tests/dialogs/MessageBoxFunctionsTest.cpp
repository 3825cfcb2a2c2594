// The front ends of the message box with a VxApp as the application: what
// each shows, what it returns, the mute switch, and the answers kept for
// "don't show again".
#include <gtest/gtest.h>

#include <vector>

#include <wx/checkbox.h>

#include "MessageBoxProbe.h"
#include "dialogs/CheckBoxMessageBox.h"
#include "dialogs/DontShowAgainMessageBox.h"
#include "dialogs/VxMessageBox.h"
#include "frame/AppProfile.h"
#include "frame/VxApp.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/ResourceModule.h"
#include "utl/InMemorySection.h"

namespace {

using gui_test::Click;

constexpr char kSection[] = "DontShowAgainMessages";

void Tick(wxDialog & d, bool ticked = true) {
  auto * check = dynamic_cast<wxCheckBox *>(d.FindWindow(CustomMessageBoxDlg::kCheckBoxId));
  ASSERT_NE(check, nullptr);
  ASSERT_TRUE(check->IsShown());
  check->SetValue(ticked);
}

// Presses `button`, after ticking the check box when `tick` says so.
std::function<void(wxDialog &)> Answer(int button, bool tick = false) {
  return [=](wxDialog & d) {
    if (tick) Tick(d);
    Click(d, button);
  };
}

class MessageBoxFunctions : public testing::Test {
protected:
  void TearDown() override {
    VxGetApp()->MuteInfoMessages(false);
    AppProfile::WriteProfileString(kSection, nullptr, nullptr);
  }
};

TEST_F(MessageBoxFunctions, VxMessageBoxRelabelsYesAndNoOnlyForTheirKinds) {
  struct Case {
    unsigned type;
    int press;
    bool yesNo;
  };
  Case const cases[] = {{MB_OK, IDOK, false},
                        {MB_OKCANCEL, IDCANCEL, false},
                        {MB_YESNO, IDYES, true},
                        {MB_YESNOCANCEL, IDNO, true}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.type);
    MessageBoxProbe probe;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      probe = MessageBoxProbe::Of(d);
      Click(d, c.press);
    });
    EXPECT_EQ(VxMessageBox(L"Overwrite the file?", c.type, L"&Overwrite", L"&Rename"), c.press);
    EXPECT_EQ(probe.Shows(IDYES), c.yesNo);
    if (c.yesNo) {
      EXPECT_EQ(probe.buttonLabel[IDYES], "&Overwrite");
      EXPECT_EQ(probe.buttonLabel[IDNO], "&Rename");
    }
    EXPECT_EQ(probe.textShown, "Overwrite the file?");
    // The application's name, as the caption form below replaces it.
    EXPECT_EQ(script.Shown().at(0).title, "VxApp Test");
  }
}

TEST_F(MessageBoxFunctions, TheOtherFormsTakeACaptionOrStringsOfTheResourceChain) {
  MessageBoxProbe probe;
  ModalDialogScript script;
  script.Act(Answer(IDOK));
  script.Act([&](wxDialog & d) {
    probe = MessageBoxProbe::Of(d);
    Click(d, IDNO);
  });
  EXPECT_EQ(VxMessageBox(L"Import", L"3 runs imported.", MB_OK), IDOK);
  EXPECT_EQ(script.Shown().at(0).title, "Import");
  EXPECT_EQ(script.Shown().at(0).message.Find("3 runs imported."), 0);

  // 13196 relabels Yes; 64999 loads empty and leaves No as it was.
  EXPECT_EQ(VxMessageBox(13195u, MB_YESNO, 13196u, 64999u), IDNO);
  EXPECT_EQ(probe.textShown, LoadResourceString(13195));
  EXPECT_EQ(probe.buttonLabel[IDYES], LoadResourceString(13196));
  EXPECT_EQ(probe.buttonLabel[IDNO], "&No");
}

TEST_F(MessageBoxFunctions, MutedOkBoxesReturnZeroUnseenQuestionsAreStillAsked) {
  VxGetApp()->MuteInfoMessages(true);
  ModalDialogScript script;  // an unexpected box fails the test
  EXPECT_EQ(VxMessageBox(L"Saved.", MB_OK | MB_ICONASTERISK), 0);
  bool checked = true;
  EXPECT_EQ(CheckBoxMessageBox(L"Saved.", checked), 0);
  EXPECT_TRUE(checked);
  EXPECT_TRUE(script.Shown().empty());

  script.Answer(IDCANCEL);
  script.Act(Answer(IDYES));
  EXPECT_EQ(VxMessageBox(L"Stop?", MB_OKCANCEL), IDCANCEL);
  EXPECT_EQ(VxMessageBox(L"Stop?", MB_YESNO), IDYES);
  EXPECT_EQ(script.Shown().size(), 2u);
}

TEST_F(MessageBoxFunctions, CheckBoxMessageBoxReportsTheTickUnlessCancelled) {
  struct Case {
    bool before;
    int press;
    bool tickTo, after;
  };
  Case const cases[] = {{false, IDOK, true, true},
                        {true, IDNO, false, false},
                        {false, IDYES, true, true},
                        {false, IDCANCEL, true, false},
                        {true, IDCANCEL, false, true}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.press);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      auto * check = static_cast<wxCheckBox *>(d.FindWindow(CustomMessageBoxDlg::kCheckBoxId));
      EXPECT_EQ(check->GetValue(), c.before);
      // An empty label is the default.
      EXPECT_EQ(check->GetLabel(), "&Don't show this message again");
      Tick(d, c.tickTo);
      Click(d, c.press);
    });
    bool checked = c.before;
    unsigned const type = c.press == IDOK ? MB_OKCANCEL : MB_YESNOCANCEL;
    EXPECT_EQ(CheckBoxMessageBox(L"Close the project?", checked, type, L""), c.press);
    EXPECT_EQ(checked, c.after);
  }

  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    MessageBoxProbe const probe = MessageBoxProbe::Of(d);
    ASSERT_TRUE(probe.Shows(IDHELP));
    EXPECT_EQ(probe.Rect(IDHELP).y, probe.Rect(IDOK).y);
    Click(d, IDOK);
  });
  bool checked = false;
  CheckBoxMessageBox(L"Done.", checked, MB_OK, L"&Always", 301);
}

TEST_F(MessageBoxFunctions, TickedAnswersAreKeptAndGivenBackUnseen) {
  EXPECT_TRUE(ShowDontShowAgainMessage(L"Overwrite"));
  ModalDialogScript script;
  script.Act(Answer(IDNO, true));
  EXPECT_EQ(VxDontShowAgainMessageBox(L"Overwrite", L"Overwrite?", MB_YESNO), IDNO);
  EXPECT_FALSE(ShowDontShowAgainMessage(L"Overwrite"));
  EXPECT_EQ(AppProfile::GetProfileInt(kSection, "Overwrite", -1), IDNO);
  // From now on the stored answer stands in for the user.
  EXPECT_EQ(VxDontShowAgainMessageBox(L"Overwrite", L"Overwrite?", MB_YESNO), IDNO);
  EXPECT_EQ(script.Shown().size(), 1u);

  // A stored 0 is an answer too.
  AppProfile::WriteProfileInt(kSection, "Muted once", 0);
  EXPECT_FALSE(ShowDontShowAgainMessage(L"Muted once"));
  EXPECT_EQ(VxDontShowAgainMessageBox(L"Muted once", L"Saved."), 0);
  EXPECT_EQ(script.Shown().size(), 1u);
}

TEST_F(MessageBoxFunctions, CancelOrAnUntickedBoxStoresNothing) {
  struct Case {
    unsigned type;
    int press;
    bool tick;
  };
  Case const cases[] = {{MB_YESNOCANCEL, IDCANCEL, true},
                        {MB_OKCANCEL, IDCANCEL, true},
                        {MB_YESNOCANCEL, IDYES, false}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.press);
    ModalDialogScript script;
    script.Act(Answer(c.press, c.tick));
    EXPECT_EQ(VxDontShowAgainMessageBox(L"Ask", L"Go on?", c.type, L"&Go on", nullptr), c.press);
    EXPECT_TRUE(ShowDontShowAgainMessage(L"Ask"));
  }
}

TEST_F(MessageBoxFunctions, TheSectionFormStoresTheSameButAnswersMinusOneAfterShowing) {
  InMemorySection section;
  ModalDialogScript script;
  script.Act(Answer(IDYES, true));
  EXPECT_EQ(VxDontShowAgainMessageBox(&section, "Convert", L"Convert?", MB_YESNO), -1);
  EXPECT_EQ(section.Raw("Convert"), "6");
  EXPECT_EQ(VxDontShowAgainMessageBox(&section, "Convert", L"Convert?", MB_YESNO), IDYES);

  section.SetRaw("Stored zero", "0");
  EXPECT_EQ(VxDontShowAgainMessageBox(&section, "Stored zero", L"Saved."), 0);

  // A value that is no number does not stand in for the user.
  section.SetRaw("Garbled", "yes please");
  script.Act(Answer(IDCANCEL, true));
  EXPECT_EQ(VxDontShowAgainMessageBox(&section, "Garbled", L"Go on?", MB_OKCANCEL), -1);
  EXPECT_EQ(section.Raw("Garbled"), "yes please");
  EXPECT_EQ(script.Shown().size(), 2u);
  // The profile was not touched.
  EXPECT_TRUE(ShowDontShowAgainMessage(L"Convert"));
}

}  // namespace
