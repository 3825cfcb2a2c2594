// The sample's batch command through the sample's own channel: "to all"
// answers end the asking, and the collected account comes at the end.
#include <gtest/gtest.h>

#include <wx/msgdlg.h>

#include "../../apps/sample/BatchCommand.h"
#include "dialogs/YesNoCancelAll.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "utl/UserComm.h"

namespace {

using gui_test::Click;

TEST(SampleBatch, AToAllAnswerEndsTheQuestionsAndOneMessageTellsWhatWasDone) {
  struct Case {
    int secondAnswer;
    int archived;
    char const * lastLine;
  };
  Case const cases[] = {{YesNoCancelAll::kYesToAllId, 5, "Run 5 archived."},
                        {YesNoCancelAll::kNoToAllId, 1, "Run 5 kept."},
                        {YesNoCancelAll::kCancelId, 1, "Stopped before run 2."}};
  InstallStandardUserComm();
  UserComm * const installed = UserComm::GetUserComm();
  ASSERT_NE(installed, nullptr);
  for (Case const & c : cases) {
    SCOPED_TRACE(c.lastLine);
    ModalDialogScript script;
    script.Act([](wxDialog & d) { Click(d, YesNoCancelAll::kYesId); });
    script.Act([&](wxDialog & d) { Click(d, c.secondAnswer); });
    script.Answer(wxID_OK);  // the account at the end
    EXPECT_EQ(RunArchiveBatch(5), c.archived);
    ASSERT_EQ(script.Shown().size(), 3u);
    wxString const account = script.Shown()[2].message;
    EXPECT_TRUE(account.StartsWith("Run 1 archived.\n")) << account;
    EXPECT_TRUE(account.EndsWith(wxString(c.lastLine) + "\n")) << account;
    EXPECT_EQ(UserComm::GetUserComm(), installed);
  }
}

}  // namespace
