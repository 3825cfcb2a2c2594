// Crashes for real: each case forks a process that installs crash capture
// and then fails in one way; the test reads what its parent sees (the
// signal, a core or not) and the dump it left.

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "crash/CrashSignals.h"
#include "crash/MiniDumper.h"
#include "crash/MinidumpReader.h"
#include "crash/MinidumpWriter.h"
#include "work/InThread.h"

#if defined(__SANITIZE_ADDRESS__)
#define TALVO_UNDER_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TALVO_UNDER_ASAN 1
#endif
#endif

// In the module's data; external, so that its initial bytes are kept.
extern char gCrashTestDataMarker[];
char gCrashTestDataMarker[] = "data-marker-77e1b0";

namespace {

// Found in the crashing thread's stack.
char const kStackMarker[] = "stack-marker-5f3a9c";

std::string ReadFile(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void WriteFile(std::string const & path, std::string const & text) {
  std::ofstream(path, std::ios::binary) << text;
}

// The ways a process fails. Each keeps kStackMarker in its frame.
__attribute__((noinline)) void WriteThroughNull() {
  char volatile marker[sizeof kStackMarker];
  for (size_t i = 0; i < sizeof marker; ++i) marker[i] = kStackMarker[i];
  int volatile * volatile nowhere = nullptr;  // volatile: the fault cannot be proved away
  *nowhere = marker[0];
}

__attribute__((noinline)) void Abort() {
  char volatile marker[sizeof kStackMarker];
  for (size_t i = 0; i < sizeof marker; ++i) marker[i] = kStackMarker[i];
  std::abort();
}

__attribute__((noinline)) int Recurse(int depth) {
  char volatile pad[512];
  pad[0] = static_cast<char>(depth);
  // Always true, but the compiler cannot know: the recursion has an end in name.
  if (depth >= 0 || pad[0] != 0) return Recurse(depth + 1) + pad[0];
  return 0;
}

void ThrowOnWorker() {
  std::thread worker([] { throw std::runtime_error("nobody catches this"); });
  worker.join();
}

void DivideByZero() {
  int volatile zero = 0;
  int volatile one = 1;
  int volatile result = one / zero;
  (void)result;
}

void ExecuteIllegal() { __builtin_trap(); }

void ReadPastTruncatedFile() {
  char path[] = "/tmp/crash-bus-XXXXXX";
  int const fd = ::mkstemp(path);
  if (::ftruncate(fd, 4096) != 0) return;
  auto * page = static_cast<char volatile *>(::mmap(nullptr, 4096, PROT_READ, MAP_SHARED, fd, 0));
  if (::ftruncate(fd, 0) != 0) return;
  ::unlink(path);
  char const byte = page[0];
  (void)byte;
}

struct Outcome {
  int signal = 0;
  bool core = false;
  std::string dump;     // the dump's bytes, "" when none was written
  std::string success;  // what the success callback was told
  std::string failure;  // what the failure callback was told
};

class CrashCapture : public ::testing::Test {
protected:
  void SetUp() override {
#ifdef TALVO_UNDER_ASAN
    GTEST_SKIP() << "crash capture is not tested in the sanitizer build: the sanitizers "
                    "catch these crashes first (a null write is UBSan's report and never "
                    "faults), and run with handle_segv=0:handle_abort=0 so that a real crash "
                    "still reaches the library's handlers";
#endif
    char const * const tmp = std::getenv("TMPDIR");
    std::string pattern = std::string(tmp != nullptr ? tmp : "/tmp") + "/crash-test-XXXXXX";
    std::vector<char> folder(pattern.begin(), pattern.end());
    folder.push_back(0);
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    mFolder = folder.data();
  }
  void TearDown() override {
    std::error_code ignored;
    if (!mFolder.empty()) std::filesystem::remove_all(mFolder, ignored);
  }

  // Runs `crash` in a child that installed capture with `setup` (by
  // default: a dump at <folder>/dump.dmp, callbacks that leave notes).
  Outcome Run(std::function<void()> const & crash, std::function<void()> const & setup = {}) {
    pid_t const child = ::fork();
    if (child == 0) {
      // Cores allowed, so that the status tells whether the system wrote one.
      rlimit const anyCore{RLIM_INFINITY, RLIM_INFINITY};
      ::setrlimit(RLIMIT_CORE, &anyCore);
      if (::chdir(mFolder.c_str()) != 0) ::_exit(90);
      if (setup)
        setup();
      else
        InstallCapture(mFolder + "/dump.dmp", minidump::kTypeStacks);
      crash();
      ::_exit(91);  // no crash at all
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    Outcome outcome;
    if (WIFSIGNALED(status)) {
      outcome.signal = WTERMSIG(status);
      outcome.core = WCOREDUMP(status);
    }
    outcome.dump = ReadFile(mFolder + "/dump.dmp");
    outcome.success = ReadFile(mFolder + "/success");
    outcome.failure = ReadFile(mFolder + "/failure");
    mChild = child;
    for (auto const & entry : std::filesystem::directory_iterator(mFolder))
      if (entry.path().filename().string().compare(0, 4, "core") == 0)
        std::filesystem::remove(entry.path());
    return outcome;
  }

  void InstallCapture(std::string const & path, int type) {
    std::string const folder = mFolder;
    MiniDumper::Initialize(
        [path] { return wxString::FromUTF8(path); },
        [folder](wchar_t const * p) { WriteFile(folder + "/success", wxString(p).utf8_string()); },
        [folder](wchar_t const * p, unsigned long error) {
          WriteFile(folder + "/failure", wxString(p).utf8_string() + " " + std::to_string(error));
        },
        type);
  }

  std::string mFolder;
  pid_t mChild = 0;
};

TEST_F(CrashCapture, EachFatalSignalLeavesADumpAndTheSameSignalWithoutACore) {
  struct Case {
    char const * name;
    void (*crash)();
    int signal;
    bool markerOnStack;
    bool onWorker;
  };
  Case const cases[] = {
      {"null write", WriteThroughNull, SIGSEGV, true, false},
      {"abort", Abort, SIGABRT, true, false},
      {"uncaught exception on a worker", ThrowOnWorker, SIGABRT, false, true},
      {"stack overflow", [] { Recurse(0); }, SIGSEGV, false, false},
      {"division by zero", DivideByZero, SIGFPE, false, false},
      {"illegal instruction", ExecuteIllegal, SIGILL, false, false},
      {"read past a truncated file", ReadPastTruncatedFile, SIGBUS, false, false},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    ::unlink((mFolder + "/dump.dmp").c_str());
    ::unlink((mFolder + "/success").c_str());
    Outcome const outcome = Run(c.crash);
    EXPECT_EQ(outcome.signal, c.signal);
    EXPECT_FALSE(outcome.core);
    EXPECT_EQ(outcome.success, mFolder + "/dump.dmp");
    ASSERT_FALSE(outcome.dump.empty());
    MinidumpReader const dump(outcome.dump);
    EXPECT_EQ(dump.architecture, minidump::kArchitectureAmd64);
    EXPECT_EQ(dump.platform, minidump::kPlatformLinux);
    EXPECT_EQ(dump.processId, static_cast<uint32_t>(mChild));
    ASSERT_TRUE(dump.hasException);
    EXPECT_EQ(dump.exceptionCode, static_cast<uint32_t>(c.signal));
    EXPECT_EQ(dump.exceptionThread != static_cast<uint32_t>(mChild), c.onWorker);
    auto const * crashed = dump.Thread(dump.exceptionThread);
    ASSERT_NE(crashed, nullptr);
    // The registers are those of the crash: the stack pointer inside the
    // stack kept, and for a fault in this program, its code.
    EXPECT_GT(crashed->stackSize, 0U);
    EXPECT_LT(crashed->context.rsp, crashed->stackStart + crashed->stackSize);
    if (c.signal != SIGABRT) {
      auto const * module = dump.ModuleAt(crashed->context.rip);
      ASSERT_NE(module, nullptr);
      EXPECT_NE(module->name.find("test_crash_capture"), std::string::npos) << module->name;
      EXPECT_FALSE(module->buildId.empty());
    }
    if (c.markerOnStack) {
      EXPECT_TRUE(dump.MemoryContains(kStackMarker));
    }
    EXPECT_NE(dump.maps.find("test_crash_capture"), std::string::npos);
    EXPECT_NE(dump.status.find("Pid:\t" + std::to_string(mChild) + "\n"), std::string::npos);
    EXPECT_NE(dump.commandLine.find("test_crash_capture"), std::string::npos);
    EXPECT_FALSE(dump.auxv.empty());
  }
}

TEST_F(CrashCapture, AStackOverflowOnTheLibrarysOwnThreadIsStillReported) {
  // Without a signal stack of its own the handler could not run at all.
  Outcome const outcome = Run([] {
    InThread worker([](bool &) { return static_cast<float>(Recurse(0)); }, nullptr, 0);
    worker.Start();
    worker.get();
  });
  EXPECT_EQ(outcome.signal, SIGSEGV);
  EXPECT_FALSE(outcome.core);
  ASSERT_FALSE(outcome.dump.empty());
  MinidumpReader const dump(outcome.dump);
  EXPECT_NE(dump.exceptionThread, static_cast<uint32_t>(mChild));
}

TEST_F(CrashCapture, EveryThreadIsInTheDumpWithItsOwnStack) {
  Outcome const outcome = Run([] {
    std::atomic<int> running{0};
    std::vector<std::thread> threads;
    threads.reserve(5);
    for (int i = 0; i < 5; ++i)
      threads.emplace_back([&running] {
        ++running;
        for (;;) ::pause();
      });
    while (running < 5) std::this_thread::yield();
    WriteThroughNull();
  });
  ASSERT_FALSE(outcome.dump.empty());
  MinidumpReader const dump(outcome.dump);
  ASSERT_EQ(dump.threads.size(), 6U);
  for (auto const & thread : dump.threads) {
    SCOPED_TRACE(thread.tid);
    EXPECT_NE(thread.context.contextFlags & minidump::kContextAmd64, 0U);
    EXPECT_NE(thread.context.rip, 0U);
    ASSERT_GT(thread.stackSize, 0U);
    uint64_t word = 0;  // the stack pointer's own word is in the dump
    EXPECT_TRUE(dump.ReadMemory(thread.context.rsp, &word, sizeof word));
  }
}

TEST_F(CrashCapture, LargerTypesKeepModuleDataOrAllMemory) {
  struct Case {
    int type;
    bool moduleData;
    bool heap;
  };
  for (Case const c :
       {Case{minidump::kTypeStacks, false, false}, Case{minidump::kTypeWithModuleData, true, false},
        Case{minidump::kTypeFullMemory, true, true}}) {
    SCOPED_TRACE(c.type);
    ::unlink((mFolder + "/dump.dmp").c_str());
    Outcome const outcome = Run(
        [] {
          std::string heap = "heap-marker-";
          heap += "c41d2e";  // made at run time, so only the heap holds it whole
          *static_cast<char volatile *>(&gCrashTestDataMarker[0]) =
              'D';  // only the live copy changes
          WriteThroughNull();
        },
        [this, c] { InstallCapture(mFolder + "/dump.dmp", c.type); });
    ASSERT_FALSE(outcome.dump.empty());
    MinidumpReader const dump(outcome.dump);
    EXPECT_EQ(dump.MemoryContains("Data-marker-77e1b0"), c.moduleData);
    EXPECT_EQ(dump.MemoryContains("heap-marker-c41d2e"), c.heap);
  }
}

TEST_F(CrashCapture, FailuresEndInTheSystemsHandlingNeverAHang) {
  struct Case {
    char const * name;
    std::function<void()> setup;
    bool failureCalled;
  };
  std::string const folder = mFolder;
  Case const cases[] = {
      {"unwritable folder", [this] { InstallCapture("/dev/null/dump.dmp", minidump::kTypeStacks); },
       true},
      {"full disk",
       [this] {
         rlimit const tiny{8192, 8192};
         ::setrlimit(RLIMIT_FSIZE, &tiny);
         InstallCapture(mFolder + "/dump.dmp", minidump::kTypeStacks);
       },
       true},
      {"throwing name provider",
       [folder] {
         MiniDumper::Initialize(
             []() -> wxString { throw std::runtime_error("no name"); },
             [folder](wchar_t const *) { WriteFile(folder + "/success", "x"); },
             [folder](wchar_t const *, unsigned long) { WriteFile(folder + "/failure", "x"); }, 0);
       },
       false},
      {"hanging name provider",
       [folder] {
         MiniDumper::Initialize(
             []() -> wxString {
               for (;;) ::pause();
             },
             [folder](wchar_t const *) { WriteFile(folder + "/success", "x"); },
             [folder](wchar_t const *, unsigned long) { WriteFile(folder + "/failure", "x"); }, 0);
         SetCrashWriterLimits(1, 1);
       },
       false},
      {"crash while naming the dump",
       [folder] {
         MiniDumper::Initialize(
             []() -> wxString {
               WriteThroughNull();
               return {};
             },
             [folder](wchar_t const *) { WriteFile(folder + "/success", "x"); },
             [folder](wchar_t const *, unsigned long) { WriteFile(folder + "/failure", "x"); }, 0);
       },
       false},
      {"no name provider", [] { MiniDumper::Initialize({}, {}, {}, 0); }, false},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    ::unlink((mFolder + "/failure").c_str());
    Outcome const outcome = Run(WriteThroughNull, c.setup);
    EXPECT_EQ(outcome.signal, SIGSEGV);
    EXPECT_TRUE(outcome.core);  // the default action, as without capture
    EXPECT_TRUE(outcome.dump.empty());
    EXPECT_TRUE(outcome.success.empty());
    EXPECT_EQ(!outcome.failure.empty(), c.failureCalled) << outcome.failure;
    EXPECT_EQ(ReadFile(mFolder + "/dump.dmp.part"), "");  // nothing half-written is left
  }
}

TEST_F(CrashCapture, AFailedWriteTellsTheFailureCallbackWhy) {
  Outcome const outcome = Run(
      WriteThroughNull, [this] { InstallCapture("/dev/null/dump.dmp", minidump::kTypeStacks); });
  EXPECT_EQ(outcome.failure, "/dev/null/dump.dmp " + std::to_string(ENOTDIR));
}

TEST_F(CrashCapture, TwoThreadsCrashingAtOnceMakeOneDump) {
  Outcome const outcome = Run([] {
    std::atomic<bool> go{false};
    std::thread other([&go] {
      while (!go) {}
      WriteThroughNull();
    });
    go = true;
    WriteThroughNull();
  });
  EXPECT_EQ(outcome.signal, SIGSEGV);
  EXPECT_FALSE(outcome.core);
  ASSERT_FALSE(outcome.dump.empty());
  MinidumpReader const dump(outcome.dump);
  EXPECT_EQ(dump.threads.size(), 2U);
}

TEST_F(CrashCapture, OnlyTheFirstInitializeCounts) {
  Outcome const outcome = Run(WriteThroughNull, [this] {
    InstallCapture(mFolder + "/dump.dmp", minidump::kTypeStacks);
    MiniDumper::Initialize([this] { return wxString::FromUTF8(mFolder + "/other.dmp"); }, {}, {},
                           2);
  });
  EXPECT_FALSE(outcome.dump.empty());
  EXPECT_EQ(ReadFile(mFolder + "/other.dmp"), "");
}

}  // namespace
