// A process killed in the middle of Flush leaves a settings file that loads
// and holds one whole generation: the old one or a newer one, never a mix.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <string>

#include "TestFiles.h"
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
  }
}

}  // namespace
