// The standard crash capture end to end, on a display: a crash writes its
// dump into the application's "Crash diagnostics" folder, then the report
// program shows it, and only when the user has closed the report does the
// process end, of its own signal and without a core.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "crash/MiniDumper.h"
#include "utl/VxSystemInfo.h"

namespace {

TEST(StandardCrashReport, ADumpThenTheReportProgramThenTheSignal) {
  VxSystemInfo::SetApplication("Crash Probe", "2.5.1.7");
  std::string const folder =
      std::string(std::getenv("TMPDIR")) + "/Karvinel/Crash Probe/2.5/Crash diagnostics";
  pid_t const child = ::fork();
  if (child == 0) {
    rlimit const anyCore{RLIM_INFINITY, RLIM_INFINITY};
    ::setrlimit(RLIMIT_CORE, &anyCore);
    if (::chdir(std::getenv("TMPDIR")) != 0) ::_exit(90);
    MiniDumper::Initialize();
    int volatile * volatile nowhere = nullptr;
    *nowhere = 1;
    ::_exit(91);
  }
  // The report's window bears the application's name; the user closes it.
  int const shown = std::system(
      "timeout 60 xdotool search --sync --onlyvisible --name '^Crash Probe$' >/dev/null");
  std::system("xdotool search --onlyvisible --name '^Crash Probe$' windowfocus --sync key Escape");
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(shown, 0) << "the report window did not show";
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGSEGV);
  EXPECT_FALSE(WCOREDUMP(status));
  int dumps = 0;
  for (auto const & entry : std::filesystem::directory_iterator(folder)) {
    std::string const name = entry.path().filename().string();
    EXPECT_EQ(name.compare(0, 16, "Crash Probe_2_5_"), 0) << name;
    EXPECT_EQ(entry.path().extension(), ".dmp");
    EXPECT_GT(entry.file_size(), 1000U);
    ++dumps;
  }
  EXPECT_EQ(dumps, 1);
}

}  // namespace
