// A guard in a program where no internal-error dialog is installed: the
// failure still stops at the window's edge, reaches the log at the error
// level and is shown in a plain error box.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/frame.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "controls/ExceptionGuarded.h"
#include "harness/ModalDialogScript.h"
#include "platform/InternalErrorReport.h"
#include "utl/Log.h"

namespace {

class ExceptionGuardFallbackTest : public testing::Test {
protected:
  void SetUp() override { mFormer = SetInternalErrorReporter(nullptr); }
  void TearDown() override { SetInternalErrorReporter(mFormer); }

private:
  InternalErrorReporter mFormer = nullptr;
};

std::string LogText() {
  std::ifstream log(Log::GetLogFilePath());
  return std::string((std::istreambuf_iterator<char>(log)), std::istreambuf_iterator<char>());
}

TEST_F(ExceptionGuardFallbackTest, WithoutAReporterTheFailureIsLoggedAndShownInAnErrorBox) {
  auto * frame = new ExceptionGuarded<wxFrame>(nullptr, wxID_ANY, "Guarded");
  auto * button = new wxButton(frame, wxID_OK, "Go");
  frame->Bind(
      wxEVT_BUTTON, [](wxCommandEvent &) { throw std::runtime_error("disk full"); }, wxID_OK);
  ModalDialogScript script;
  script.Answer(wxID_OK);
  wxCommandEvent click(wxEVT_BUTTON, wxID_OK);
  click.SetEventObject(button);
  EXPECT_TRUE(button->ProcessWindowEvent(click));  // stopped at the edge
  frame->Destroy();

  ASSERT_EQ(script.Shown().size(), 1u);
  EXPECT_EQ(script.Shown()[0].className, "wxMessageDialog");
  EXPECT_EQ(script.Shown()[0].message, "disk full");
  std::string const log = LogText();
  EXPECT_NE(log.find("] 3 InternalErrorReport::ReportInternalError: disk full\n"),
            std::string::npos)
      << log;
}

}  // namespace
