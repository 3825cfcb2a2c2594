// A process killed in the middle of Flush leaves a settings file that loads
// and holds one whole generation: the old one or a newer one, never a mix;
// the temporary file it may leave goes at the next write of that file.
#include <gtest/gtest.h>

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "TestFiles.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/XercesXMLSection.h"

namespace {

constexpr int kKeys = 300;

void WriteGeneration(ConfigurationSection & section, int generation) {
  for (int key = 0; key < kKeys; ++key)
    section.WriteInt(("key" + std::to_string(key)).c_str(), generation);
}

// The generation all keys agree on, or -1.
int GenerationOf(std::string const & path) {
  XercesXMLSection section(path.c_str(), false);
  int first = -1;
  for (int key = 0; key < kKeys; ++key) {
    int value = -2;
    if (!section.ReadInt(("key" + std::to_string(key)).c_str(), value)) return -1;
    if (key == 0) first = value;
    if (value != first) return -1;
  }
  return first;
}

// The hidden temporaries beside `path` whose names begin like `path`'s.
std::vector<std::string> TemporariesOf(std::string const & path) {
  std::string const prefix = "." + VxGetFileName(path) + ".tmp-";
  std::vector<std::string> names;
  if (DIR * directory = ::opendir(VxGetDirectory(path).c_str())) {
    while (dirent const * entry = ::readdir(directory))
      if (std::string(entry->d_name).rfind(prefix, 0) == 0) names.push_back(entry->d_name);
    ::closedir(directory);
  }
  return names;
}

[[noreturn]] void FlushForever(std::string const & path, int handshake) {
  XercesXMLSection section(path.c_str(), false);
  for (int generation = 1; generation < 100000; ++generation) {
    WriteGeneration(section, generation);
    char const done = 1;
    if (!section.Flush() || ::write(handshake, &done, 1) != 1) ::_exit(2);
  }
  ::_exit(0);
}

TEST(FlushKill, KilledFlushLeavesOldOrNewNeverBroken) {
  std::string const path = Temp("killed.kvxml");
  std::mt19937 random(20240611);
  for (int round = 0; round < 25; ++round) {
    SCOPED_TRACE(round);
    {
      XercesXMLSection start(path.c_str(), true);
      WriteGeneration(start, 0);
      ASSERT_TRUE(start.Flush());
    }
    int pipeEnds[2];
    ASSERT_EQ(::pipe(pipeEnds), 0);
    pid_t const child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      ::close(pipeEnds[0]);
      FlushForever(path, pipeEnds[1]);
    }
    ::close(pipeEnds[1]);
    int const confirmed = std::uniform_int_distribution<int>(0, 3)(random);
    for (int i = 0; i < confirmed; ++i) {
      char byte = 0;
      ASSERT_EQ(::read(pipeEnds[0], &byte, 1), 1) << "the child stopped flushing";
    }
    // Kill somewhere inside the next flush: spin, don't sleep, a random while.
    int const spin = std::uniform_int_distribution<int>(0, 3000)(random);
    auto const until = std::chrono::steady_clock::now() + std::chrono::microseconds(spin);
    while (std::chrono::steady_clock::now() < until) {}
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ::close(pipeEnds[0]);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;

    int generation = -1;
    ASSERT_NO_THROW(generation = GenerationOf(path));
    EXPECT_GE(generation, confirmed) << "a confirmed flush was lost, or keys were mixed";
    {
      XercesXMLSection next(path.c_str(), false);
      ASSERT_TRUE(next.Flush());
    }
    EXPECT_TRUE(TemporariesOf(path).empty()) << "the dead writer's temporary outlived a write";
  }
}

// A writer that holds the lock on its temporary, as a flush does, until the
// test lets it go. `exitAtOnce`: it ends at once instead, as a killed one
// does, leaving the file.
struct Writer {
  pid_t pid = -1;
  int release = -1;  // closed: the writer ends
};

Writer StartWriter(std::string const & temporary, bool exitAtOnce) {
  int ready[2];
  int release[2];
  if (::pipe(ready) != 0 || ::pipe(release) != 0) return {};
  pid_t const pid = ::fork();
  if (pid == 0) {
    ::close(ready[0]);
    ::close(release[1]);
    int const fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0644);
    if (fd < 0 || ::flock(fd, LOCK_EX) != 0 || ::write(fd, "<Settings", 9) != 9) ::_exit(2);
    char const done = 1;
    if (::write(ready[1], &done, 1) != 1) ::_exit(2);
    char byte = 0;
    if (!exitAtOnce) ::read(release[0], &byte, 1);
    ::_exit(0);
  }
  ::close(ready[1]);
  ::close(release[0]);
  char byte = 0;
  bool const started = pid > 0 && ::read(ready[0], &byte, 1) == 1;
  ::close(ready[0]);
  if (!started) return {};
  return {pid, release[1]};
}

TEST(FlushKill, AWriteRemovesOnlyTheTemporariesOfItsFileWhoseWritersAreGone) {
  std::string const path = Temp("stale.kvxml");
  std::string const folder = VxGetDirectory(path);
  vx3::WriteFileAtomically(path, "<Settings/>");
  std::string const dead = VxPathAppend(folder, ".stale.kvxml.tmp-dead01");
  std::string const live = VxPathAppend(folder, ".stale.kvxml.tmp-live01");
  // Not temporaries of this file: another file's, and names only alike.
  std::vector<std::string> const others = {
      VxPathAppend(folder, ".stale.kvxml.bak.tmp-abc123"),
      VxPathAppend(folder, ".stale.kvxml.tmp-x.tmp-abc123"),
      VxPathAppend(folder, ".stale.kvxml.tmp-ABC123"),
      VxPathAppend(folder, "stale.kvxml.tmp-abc123"),
  };
  for (std::string const & other : others) Spit(other, "someone else's");

  Writer const gone = StartWriter(dead, true);
  ASSERT_GT(gone.pid, 0);
  int status = 0;
  ASSERT_EQ(::waitpid(gone.pid, &status, 0), gone.pid);
  ::close(gone.release);
  Writer const running = StartWriter(live, false);
  ASSERT_GT(running.pid, 0);

  vx3::WriteFileAtomically(path, "<Settings format=\"1\"/>");
  EXPECT_EQ(VxFileExist(dead), VxNothing) << "the exited writer's temporary stays";
  EXPECT_EQ(VxFileExist(live), VxFile) << "a running writer's temporary was taken";
  for (std::string const & other : others) EXPECT_EQ(Slurp(other), "someone else's") << other;
  EXPECT_EQ(Slurp(path), "<Settings format=\"1\"/>");

  ::close(running.release);
  ASSERT_EQ(::waitpid(running.pid, &status, 0), running.pid);
  vx3::WriteFileAtomically(path, "<Settings/>");
  std::vector<std::string> left = TemporariesOf(path);
  std::sort(left.begin(), left.end());
  EXPECT_EQ(left,
            (std::vector<std::string>{".stale.kvxml.tmp-ABC123", ".stale.kvxml.tmp-x.tmp-abc123"}))
      << "only what a writer of stale.kvxml makes goes, once its writer ended";
}

}  // namespace
