// The log: where it writes, whole lines from many threads, and no failure
// ever leaves it.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <set>
#include <thread>
#include <vector>

#include "utl/Log.h"
#include "utl/Paths.h"
#include "utl/VxSystemInfo.h"

namespace {

std::vector<std::string> Lines(std::string const & path) {
  std::ifstream in(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

class LogTest : public testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication(testing::UnitTest::GetInstance()->current_test_info()->name(),
                                 "1.0");
  }
  void TearDown() override { VxSystemInfo::SetApplication("TALVOutlwin", "0.1"); }
};

TEST_F(LogTest, WritesUnderTheStateFolderNamedAfterTheApplication) {
  Log::WriteMessage("NTServiceApp", "ReportStatus", "Service stopped.", Log::Normal, true);
  std::string const expected = std::string(std::getenv("XDG_STATE_HOME")) +
                               "/Karvinel/WritesUnderTheStateFolderNamedAfterTheApplication/"
                               "WritesUnderTheStateFolderNamedAfterTheApplication.log";
  EXPECT_EQ(Log::GetLogFilePath(), expected);
  auto const lines = Lines(expected);
  ASSERT_EQ(lines.size(), 1u);
  // "2026-11-21T05:44:00.123456Z [pid/tid] 1 Class::Function: text"
  EXPECT_EQ(lines[0].size() > 28 ? lines[0][10] : 0, 'T');
  EXPECT_EQ(lines[0].substr(26, 2), "Z ");
  EXPECT_NE(lines[0].find("] 1 NTServiceApp::ReportStatus: Service stopped."), std::string::npos)
      << lines[0];
  struct stat info {};
  ASSERT_EQ(::stat(expected.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u) << "the log may hold private data";
}

TEST_F(LogTest, OneEntryIsOneLineWhateverTheText) {
  Log::WriteMessage("A", "B", std::string("two\nlines\r and \xff bad UTF-8"), Log::Error, false);
  Log::WriteMessage(nullptr, nullptr, static_cast<char const *>(nullptr), Log::Failure, false);
  Log::WriteMessage("A", "B", "out of range", static_cast<Log::Importance>(99), false);
  auto const lines = Lines(Log::GetLogFilePath());
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_NE(lines[0].find("] 3 A::B: two\\nlines\\r and  bad UTF-8"), std::string::npos)
      << lines[0];
  EXPECT_NE(lines[1].find("] 4 ::: "), std::string::npos) << lines[1];
  EXPECT_NE(lines[2].find("] 4 A::B: out of range"), std::string::npos) << lines[2];
}

TEST_F(LogTest, LinesFromManyThreadsAreNeitherLostNorInterleaved) {
  constexpr int kThreads = 4;
  constexpr int kPerThread = 2000;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([t] {
      for (int i = 0; i < kPerThread; ++i)
        Log::WriteMessage("Worker", "Run",
                          "thread " + std::to_string(t) + " line " + std::to_string(i) +
                              std::string(40, static_cast<char>('a' + t)),
                          Log::Routine, false);
    });
  }
  for (auto & thread : threads) thread.join();
  auto const lines = Lines(Log::GetLogFilePath());
  ASSERT_EQ(lines.size(), static_cast<size_t>(kThreads * kPerThread));
  std::set<std::string> seen;
  for (auto const & line : lines) {
    auto const text = line.find("Worker::Run: thread ");
    ASSERT_NE(text, std::string::npos) << line;
    std::string const body = line.substr(text + 20);
    char const fill = static_cast<char>('a' + (body[0] - '0'));
    EXPECT_EQ(body.substr(body.size() - 40), std::string(40, fill)) << line;
    seen.insert(body);
  }
  EXPECT_EQ(seen.size(), lines.size());
}

TEST_F(LogTest, AnUnwritableFolderIsSilentlyIgnored) {
  std::string const saved = std::getenv("XDG_STATE_HOME");
  // A file where the state folder should be: nothing can be created below it,
  // not even by root.
  std::string const blocked = VxPathAppend(std::getenv("TMPDIR"), "blocked-state");
  std::ofstream(blocked) << "blocked";
  ::setenv("XDG_STATE_HOME", blocked.c_str(), 1);
  Log::WriteMessage("A", "B", "lost", Log::Normal, true);
  EXPECT_EQ(VxFileExist(Log::GetLogFilePath()), VxNothing);
  ::setenv("XDG_STATE_HOME", saved.c_str(), 1);
  Log::WriteMessage("A", "B", "kept", Log::Normal, true);
  EXPECT_EQ(Lines(Log::GetLogFilePath()).size(), 1u);
}

}  // namespace
