// The internal-error dialog's three ways out: Restart, Exit and Ignore, with
// the launcher and the process exit replaced so that the test neither
// relaunches nor ends itself.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/hyperlink.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "frame/HandleExceptionPage.h"
#include "frame/InternalErrorDialog.h"
#include "frame/ProcessRestart.h"
#include "harness/ModalDialogScript.h"
#include "utl/Log.h"
#include "utl/VxSystemInfo.h"

namespace {

struct Ending {
  int launches = 0;
  std::vector<int> exits;
};

class HandleExceptionPageTest : public testing::Test {
protected:
  void SetUp() override {
    SetRestartLauncher([this] { ++ending.launches; });
    SetProcessExit([this](int status) { ending.exits.push_back(status); });
  }
  void TearDown() override {
    SetRestartLauncher({});
    SetProcessExit({});
  }

  static wxButton & Button(wxDialog & page, int id) {
    return *wxStaticCast(page.FindWindow(id), wxButton);
  }
  static void Click(wxDialog & page, int id) {
    wxCommandEvent click(wxEVT_BUTTON, id);
    click.SetEventObject(&Button(page, id));
    Button(page, id).ProcessWindowEvent(click);
  }
  static void SetRestart(wxDialog & page, bool on) {
    auto & box = *wxStaticCast(page.FindWindow(HandleExceptionPage::kRestartBoxId), wxCheckBox);
    box.SetValue(on);
    wxCommandEvent toggled(wxEVT_CHECKBOX, box.GetId());
    toggled.SetEventObject(&box);
    toggled.SetInt(on);
    box.ProcessWindowEvent(toggled);
  }

  Ending ending;
};

TEST_F(HandleExceptionPageTest, TheFinishButtonRestartsWhenTickedAndExitsWithOneEitherWay) {
  struct Case {
    bool restart;
    char const * label;
    int launches;
  } const cases[] = {{true, "R&estart", 1}, {false, "&Exit", 0}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.label);
    ending = Ending();
    ModalDialogScript script;
    wxString label;
    script.Act([&](wxDialog & page) {
      if (!c.restart) SetRestart(page, false);
      label = Button(page, HandleExceptionPage::kFinishId).GetLabel();
      Click(page, HandleExceptionPage::kFinishId);
    });
    ShowInternalErrorDialog("disk full");
    EXPECT_EQ(label, c.label);
    EXPECT_EQ(ending.launches, c.launches);
    EXPECT_EQ(ending.exits, std::vector<int>{1});
  }
}

TEST_F(HandleExceptionPageTest, IgnoreCarriesOnAndMoreInformationShowsTheDetail) {
  ASSERT_TRUE(VxSystemInfo::SetSupportPage("https://help.example.org/analyzer"));
  ModalDialogScript script;
  wxString link;
  script.Act([&](wxDialog & page) {
    link = wxStaticCast(page.FindWindow(HandleExceptionPage::kSupportLinkId), wxHyperlinkCtrl)
               ->GetURL();
    Click(page, HandleExceptionPage::kMoreInformationId);
    Click(page, HandleExceptionPage::kIgnoreId);
  });
  script.Answer(wxID_OK);  // the "more information" box
  ShowInternalErrorDialog("index 7 out of range");
  ASSERT_EQ(script.Shown().size(), 2u);
  EXPECT_EQ(script.Shown()[1].message,
            "Error reported by the exception handler:\n\nindex 7 out of range");
  EXPECT_EQ(ending.launches, 0);
  EXPECT_TRUE(ending.exits.empty());
  EXPECT_EQ(link, "https://help.example.org/analyzer");
  // The failure stays in the log at the error level, whatever the user chose.
  std::ifstream log(Log::GetLogFilePath());
  std::string const text((std::istreambuf_iterator<char>(log)), std::istreambuf_iterator<char>());
  EXPECT_NE(text.find("] 3 InternalErrorDialog::ShowInternalErrorDialog: index 7 out of range\n"),
            std::string::npos)
      << text;
}

}  // namespace
