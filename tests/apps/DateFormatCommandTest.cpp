// The sample's "Tools > Date format..." from the real main frame: an invalid
// format shows its box and the question comes again with what was typed; the
// format chosen lands in the status bar and is proposed first the next time,
// also by a main frame built anew.
#include <gtest/gtest.h>

#include <wx/combobox.h>
#include <wx/statusbr.h>

#include "DateFormatCommand.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "datetime/SpecifyDateFormat.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"
#include "utl/VxSystemInfo.h"

namespace {

wxComboBox & Combo(wxDialog & d) {
  return *wxStaticCast(d.FindWindow(SpecifyDateFormat::kFormatComboId), wxComboBox);
}

void RunCommand(MainFrame & frame) {
  wxCommandEvent command(wxEVT_MENU, kDateFormatCommand);
  command.SetEventObject(&frame);
  frame.ProcessWindowEvent(command);
}

}  // namespace

TEST(DateFormatCommand, AsksUntilValidAndRemembersTheFormatForTheNextFrame) {
  VxSystemInfo::SetApplication("SampleDateFormat", "1.0");
  HKEY app = AppProfile::GetAppRegistryKey();
  ASSERT_NE(app, nullptr);
  RegDeleteKeyW(app, L"DateTimeDefaults");
  RegCloseKey(app);

  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  frame->SetStatusText("");
  std::vector<wxString> proposed;
  wxString sample;
  ModalDialogScript script;
  script
      .Act([&](wxDialog & d) {
        proposed.push_back(Combo(d).GetValue());
        sample = d.FindWindow(SpecifyDateFormat::kSampleId)->GetLabel();
        Combo(d).SetValue("dd.MM.yyyy hh:mm:ss");
        gui_test::Click(d, IDOK);
      })
      .Answer(wxID_OK)  // "To use format 'h' or 'hh' ..."
      .Act([&](wxDialog & d) {
        proposed.push_back(Combo(d).GetValue());
        Combo(d).SetValue("dd.MM.yyyy HH:mm:ss");
        gui_test::Click(d, IDOK);
      });
  RunCommand(*frame);
  EXPECT_EQ(sample, kSampleDateText);
  ASSERT_EQ(script.Shown().size(), 3U);
  EXPECT_NE(script.Shown()[1].message.Find("'tt'"), wxNOT_FOUND);
  ASSERT_EQ(proposed.size(), 2U);
  EXPECT_EQ(proposed[1], "dd.MM.yyyy hh:mm:ss");
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), "Dates are read as dd.MM.yyyy HH:mm:ss.");
  frame->Destroy();
  gui_test::Flush();

  // A new frame (as after a restart) proposes it; Cancel changes nothing.
  frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  frame->SetStatusText("before");
  wxString again;
  script.Act([&](wxDialog & d) {
    again = Combo(d).GetValue();
    d.EndModal(IDCANCEL);
  });
  RunCommand(*frame);
  EXPECT_EQ(again, "dd.MM.yyyy HH:mm:ss");
  EXPECT_EQ(frame->GetStatusBar()->GetStatusText(), "before");
  frame->Destroy();
  gui_test::Flush();
}
