// The sample's audit trail is on out of the box: a calculation is recorded
// and shows in the trail's window, and Clear and Save As act on it. An
// administrator's policy still decides over the sample's default.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <optional>
#include <string>

#include <wx/filename.h>

#include "AuditTrailMenu.h"
#include "MainFrame.h"
#include "SampleCommands.h"
#include "audit/AuditTrailSettingsUI.h"
#include "audit/AuditTrailView.h"
#include "dialogs/DontShowAgainMessageBox.h"
#include "dialogs/NativeChoosers.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinReg.h"
#include "settings/RegistrySection.h"
#include "utl/AuditTrail.h"
#include "utl/Utf.h"
#include "work/Progress.h"

namespace {

std::string Slurp(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void DeletePolicy() {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE,
                 vx3::Utf8ToWide(AuditTrailSettingsUI::GetRegistryKeyPath()).c_str());
}

class SampleAuditTrailTest : public testing::Test {
protected:
  void SetUp() override {
    DeletePolicy();
    // The save's note asks only while no answer is stored.
    AppProfile::WriteProfileString(vx3::WideToUtf8(GetDontShowAgainRegistrySection()).c_str(),
                                   nullptr, nullptr);
    frame = new MainFrame;
    ASSERT_TRUE(gui_test::ShowAndWait(*frame));
    frame->SetCalculationPlan({2, [](Progress & progress, int) { return progress.Set(1); }});
  }
  void TearDown() override {
    frame->Destroy();  // saves and closes the trail
    gui_test::Flush();
    DeletePolicy();
  }

  void Command(int id) {
    wxCommandEvent command(wxEVT_MENU, id);
    command.SetEventObject(frame);
    frame->ProcessWindowEvent(command);
  }

  MainFrame * frame = nullptr;
};

TEST_F(SampleAuditTrailTest, ACalculationIsRecordedAndShowsInTheTrailsWindow) {
  Command(kRunCalculationCommand);
  AuditTrail const & trail = SampleAuditTrail();
  EXPECT_EQ(trail.mSettings.mLogLevel, 1);
  ASSERT_FALSE(trail.GetEvents().empty());
  EXPECT_EQ(trail.GetEvents().back().text, "Calculation run.");
  EXPECT_EQ(trail.GetEvents().back().detail, "Calculation finished: 2 runs.");

  Command(kAuditTrailViewCommand);
  AuditTrailView * view = nullptr;
  for (wxWindow * child : frame->GetChildren())
    if (child->IsTopLevel())
      for (wxWindow * inner : child->GetChildren())
        if (auto * found = dynamic_cast<AuditTrailView *>(inner)) view = found;
  ASSERT_NE(view, nullptr);
  ASSERT_TRUE(gui_test::WaitUntil(
      [view] {
        return view->GetShown() == AuditTrailView::Shown::TrailPage && view->IsPageLoaded() &&
               !view->IsBusy() && !view->IsUpdatePending();
      },
      20000));
  wxString text;
  ASSERT_TRUE(view->GetBrowser()->RunScript("document.body.innerText", &text));
  EXPECT_TRUE(text.Contains("Calculation run.")) << text;
  EXPECT_TRUE(text.Contains("Calculation finished: 2 runs.")) << text;
  view->GetParent()->Destroy();
}

TEST_F(SampleAuditTrailTest, ClearAsksAndEmptiesTheTrailAndSaveAsWritesACopy) {
  Command(kRunCalculationCommand);
  std::string const folder = wxFileName::GetTempDir().utf8_string() + "/sample-trail-copy";
  ::mkdir(folder.c_str(), 0755);
  std::string const copy = folder + "/Copy.xml";
  FileChooserFunction const former = SetFileChooserFunction([&](FileChooserRequest const &) {
    FileChooserAnswer answer;
    answer.accepted = true;
    answer.paths = {wxString::FromUTF8(copy)};
    return answer;
  });
  {
    ModalDialogScript script;
    script.Answer(wxID_OK);  // the note on the stylesheet beside the copy
    Command(kAuditTrailSaveAsCommand);
  }
  SetFileChooserFunction(former);
  EXPECT_NE(Slurp(copy).find("Calculation run."), std::string::npos);
  EXPECT_EQ(Slurp(folder + "/audit_trail.xsl"), AuditTrail::GetStylesheet());

  AuditTrail const & trail = SampleAuditTrail();
  {
    ModalDialogScript script;
    script.Act([](wxDialog & box) { ModalDialogScript::End(box, wxID_NO); });
    Command(kAuditTrailClearCommand);
    ASSERT_EQ(script.Shown().size(), 1u);
    EXPECT_TRUE(script.Shown()[0].message.Contains("clear the entire Audit Trail"));
  }
  EXPECT_EQ(trail.GetEvents().back().text, "Calculation run.") << "No keeps the trail";
  {
    ModalDialogScript script;
    script.Act([](wxDialog & box) { ModalDialogScript::End(box, wxID_YES); });
    Command(kAuditTrailClearCommand);
  }
  ASSERT_EQ(trail.GetEvents().size(), 1u);
  EXPECT_EQ(trail.GetEvents()[0].type, "cleared");
}

TEST_F(SampleAuditTrailTest, TheAdministratorsPolicyDecidesOverTheSamplesDefault) {
  struct Case {
    char const * what;
    std::optional<int> logEvents;  // the administrator's "LogEvents"
    bool locked;                   // the administrator's "LockedUI"
    int level;
  };
  Case const cases[] = {
      {"no policy", std::nullopt, false, 1},
      {"level 1, locked", 1, true, 1},
      {"level 3 imposed", 3, false, 3},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    frame->Destroy();  // the trail is made anew with the next frame
    gui_test::Flush();
    DeletePolicy();
    {
      RegistrySection policy(HKEY_LOCAL_MACHINE, AuditTrailSettingsUI::GetRegistryKeyPath().c_str(),
                             KEY_ALL_ACCESS, true);
      if (c.logEvents) policy.WriteInt("LogEvents", *c.logEvents);
      if (c.locked) policy.WriteBool("LockedUI", true);
    }
    frame = new MainFrame;
    AuditTrail const & trail = SampleAuditTrail();
    EXPECT_EQ(trail.mSettings.mLogLevel, c.level);
    EXPECT_EQ(trail.mSettings.mLocked, c.locked);
  }
}

}  // namespace
