// The sample's Messages menu as a person uses it: the memory of a ticked
// answer and forgetting it, and a failing handler that ends in the
// internal-error dialog and lets the box carry on.
#include <gtest/gtest.h>

#include <wx/checkbox.h>
#include <wx/frame.h>
#include <wx/menu.h>

#include "../../apps/sample/MessagesMenu.h"
#include "dialogs/CustomMessageBoxDlg.h"
#include "frame/HandleExceptionPage.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"

namespace {

using gui_test::Click;

class MessagesMenuTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "Messages");
    frame->CreateStatusBar();
    menu = CreateMessagesMenu(*frame);
    auto * bar = new wxMenuBar;
    bar->Append(menu, "&Messages");
    frame->SetMenuBar(bar);
  }
  void TearDown() override { frame->Destroy(); }

  // Runs the command whose label starts with `label` (mnemonics left out).
  void Run(wxString const & label) {
    for (wxMenuItem * item : menu->GetMenuItems()) {
      if (!item->GetItemLabelText().StartsWith(label)) continue;
      wxCommandEvent command(wxEVT_MENU, item->GetId());
      frame->ProcessWindowEvent(command);
      return;
    }
    ADD_FAILURE() << "no command " << label;
  }
  wxString Status() const { return frame->GetStatusBar()->GetStatusText(); }

  wxFrame * frame = nullptr;
  wxMenu * menu = nullptr;
};

TEST_F(MessagesMenuTest, ATickedAnswerIsGivenBackUntilTheAnswersAreForgotten) {
  Run("Forget");  // nothing from an earlier run of the binary
  ModalDialogScript script;
  script.Act([](wxDialog & d) {
    static_cast<wxCheckBox *>(d.FindWindow(CustomMessageBoxDlg::kCheckBoxId))->SetValue(true);
    Click(d, IDOK);
  });
  Run("Don't-show-again");
  EXPECT_EQ(Status(), "The box was answered: OK.");
  Run("Don't-show-again");
  EXPECT_EQ(Status(), "Not shown: the stored answer is OK.");
  EXPECT_EQ(script.Shown().size(), 1u);

  Run("Forget");
  script.Act([](wxDialog & d) { Click(d, IDCANCEL); });
  Run("Don't-show-again");
  EXPECT_EQ(script.Shown().size(), 2u);
  EXPECT_EQ(Status(), "The box was answered: Cancel.");
}

TEST_F(MessagesMenuTest, AFailingHandlerEndsInTheInternalErrorDialogAndTheBoxCarriesOn) {
  std::string detail;
  ModalDialogScript script;
  script.Act([](wxDialog & d) {
    Click(d, IDOK);  // throws; the internal-error dialog is answered below
    Click(d, IDCANCEL);
  });
  script.Act([&](wxDialog & d) {
    detail = dynamic_cast<HandleExceptionPage &>(d).GetDetailText();
    d.EndModal(HandleExceptionPage::kIgnoreId);
  });
  Run("Failure");
  EXPECT_EQ(detail, "The sample's OK handler failed on purpose.");
  EXPECT_EQ(Status(), "The box was answered: Cancel.");
}

}  // namespace

namespace {

// Muted, the details commands show nothing; switched back on, the status bar
// lists what the switch caught.
TEST_F(MessagesMenuTest, TheMuteSwitchListsTheDetailsDialogsItKeptAway) {
  ModalDialogScript script;  // no step: a dialog shown while muted fails the test
  Run("Mute");
  EXPECT_EQ(Status(), "Details dialogs are muted.");
  Run("Details open");
  Run("Details closed");
  Run("Mute");
  EXPECT_EQ(Status(),
            "Muted 2 details dialog(s): 40 runs could not be imported.; 40 runs could not be "
            "imported.");
  EXPECT_TRUE(script.Shown().empty());
}

// The scroll box's Yes and No, and the rich text page's Cancel, reach the
// status bar as the answers they are.
TEST_F(MessagesMenuTest, TheScrollBoxAndTheRichTextPageReportTheirAnswers) {
  struct Case {
    char const * command;
    int pressed;
    char const * status;
  } const cases[] = {{"Scroll box", IDYES, "The archive question was answered: Yes."},
                     {"Scroll box", IDNO, "The archive question was answered: No."},
                     {"Information, rich text", IDCANCEL, "The method was answered: Cancel."}};
  for (Case const & c : cases) {
    ModalDialogScript script;
    script.Act([&c](wxDialog & d) { Click(d, c.pressed); });
    Run(c.command);
    EXPECT_EQ(Status(), c.status);
    ASSERT_EQ(script.Shown().size(), 1U) << c.command;
  }
}

}  // namespace
