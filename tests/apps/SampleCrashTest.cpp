// Help > Crash now of the sample's real main frame: each command, fired from
// the menu in a child process with crash capture on, ends that process with
// its signal and leaves a dump that names the crash, then the report runs.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <wx/menu.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "MainFrame.h"
#include "crash/MiniDumper.h"
#include "crash/MinidumpReader.h"
#include "harness/GuiTestUtilities.h"

namespace {

std::string ReadFile(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

int FindItem(wxMenuBar const & bar, wxString const & label) {
  int const help = bar.FindMenu("Help");
  if (help == wxNOT_FOUND) return wxNOT_FOUND;
  wxMenuItem * crash = nullptr;
  for (wxMenuItem * item : bar.GetMenu(static_cast<size_t>(help))->GetMenuItems())
    if (item->GetItemLabelText() == "Crash now") crash = item;
  if (crash == nullptr || crash->GetSubMenu() == nullptr) return wxNOT_FOUND;
  return crash->GetSubMenu()->FindItem(label);
}

TEST(SampleCrash, EachCrashCommandLeavesADumpThenTheReport) {
  struct Case {
    char const * item;
    int signal;
    bool onMainThread;
  };
  Case const cases[] = {
      {"Null write", SIGSEGV, true},
      {"Abort", SIGABRT, true},
      {"Worker exception", SIGABRT, false},
  };
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  std::string const folder = std::getenv("TMPDIR");
  for (Case const & c : cases) {
    SCOPED_TRACE(c.item);
    int const id = FindItem(*frame->GetMenuBar(), c.item);
    ASSERT_NE(id, wxNOT_FOUND);
    std::string const dump = folder + "/sample.dmp";
    std::string const report = folder + "/reported";
    ::unlink(dump.c_str());
    ::unlink(report.c_str());
    pid_t const child = ::fork();
    if (child == 0) {
      // The report is a note here: the real one is a window of its own program.
      MiniDumper::Initialize(
          [dump] { return wxString::FromUTF8(dump); },
          [report](wchar_t const * path) { std::ofstream(report) << wxString(path).utf8_string(); },
          {}, 0);
      wxCommandEvent command(wxEVT_MENU, id);
      command.SetEventObject(frame);
      frame->ProcessWindowEvent(command);
      ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), c.signal);
    EXPECT_EQ(ReadFile(report), dump);
    MinidumpReader const reader(ReadFile(dump));
    ASSERT_TRUE(reader.hasException);
    EXPECT_EQ(reader.exceptionCode, static_cast<uint32_t>(c.signal));
    EXPECT_EQ(reader.exceptionThread == static_cast<uint32_t>(child), c.onMainThread);
  }
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
