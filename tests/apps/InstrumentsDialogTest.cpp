// Tools > Instruments on the sample's real main frame: the check combo keeps
// its last check and refuses the reference balance, OK shows the face in
// the status bar and keeps the choice for the next opening, Cancel keeps
// nothing.
#include <gtest/gtest.h>

#include <wx/statusbr.h>

#include <functional>
#include <vector>

#include "InstrumentsDialog.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "lists/CheckComboBox.h"
#include "lists/ListSeparator.h"

namespace {

class InstrumentsDialogTest : public testing::Test {
protected:
  void SetUp() override {
    frame = new MainFrame;
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  }
  void TearDown() override {
    frame->Destroy();
    gui_test::Flush();
  }

  // Opens the dialog; `act` toggles as the user would and returns how the
  // dialog ends. What was checked when it opened comes back.
  std::vector<int> Open(std::function<int(InstrumentsDialog &)> act) {
    std::vector<int> atOpening;
    ModalDialogScript script;
    script.Act([&](wxDialog & dialog) {
      auto * const instruments = dynamic_cast<InstrumentsDialog *>(&dialog);
      ASSERT_NE(instruments, nullptr);
      atOpening = instruments->GetChecked();
      dialog.EndModal(act(*instruments));
    });
    wxCommandEvent command(wxEVT_MENU, kInstrumentsCommand);
    command.SetEventObject(frame);
    frame->ProcessWindowEvent(command);
    return atOpening;
  }

  wxString Status() const { return frame->GetStatusBar()->GetStatusText(); }

  MainFrame * frame = nullptr;
};

TEST_F(InstrumentsDialogTest, OkKeepsTheChecksAndShowsTheFaceCancelKeepsNothing) {
  std::vector<int> const first = Open([](InstrumentsDialog & dialog) {
    CheckComboBox & combo = dialog.GetCombo();
    combo.ToggleItem(0, true);  // the only check: it stays
    combo.ToggleItem(5, true);  // the reference balance is never chosen
    combo.ToggleItem(2, true);
    return wxID_OK;
  });
  EXPECT_EQ(first, std::vector<int>{0}) << "the balance is checked at first";
  wxString const separator = wxString::FromUTF8(UserListSeparator()) + " ";
  EXPECT_EQ(Status(), "Instruments: Balance" + separator + "Spectrometer");

  std::vector<int> const second = Open([](InstrumentsDialog & dialog) {
    dialog.GetCombo().ToggleItem(0, true);
    return wxID_CANCEL;
  });
  EXPECT_EQ(second, (std::vector<int>{0, 2}));
  EXPECT_EQ(Status(), "Instruments: Balance" + separator + "Spectrometer");

  std::vector<int> const third = Open([](InstrumentsDialog &) { return wxID_CANCEL; });
  EXPECT_EQ(third, (std::vector<int>{0, 2})) << "a cancelled change is not kept";
}

}  // namespace
