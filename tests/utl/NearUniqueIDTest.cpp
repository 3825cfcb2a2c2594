// Stream names of pictures: no repeats within a process, whatever the
// threads, and a forked process does not repeat its parent.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <thread>
#include <vector>

#include "utl/NearUniqueID.h"

namespace {

TEST(NearUniqueID, AMillionCallsFromFourThreadsNeverRepeat) {
  constexpr size_t kThreads = 4;
  constexpr size_t kCallsEach = 250000;
  std::vector<std::vector<unsigned long>> drawn(kThreads);
  std::vector<std::thread> threads;
  for (size_t t = 0; t < kThreads; ++t) {
    threads.emplace_back([&drawn, t] {
      drawn[t].reserve(kCallsEach);
      for (size_t i = 0; i < kCallsEach; ++i) drawn[t].push_back(GetNearUniqueID());
    });
  }
  for (std::thread & thread : threads) thread.join();
  std::vector<unsigned long> all;
  for (auto const & some : drawn) all.insert(all.end(), some.begin(), some.end());
  ASSERT_EQ(all.size(), kThreads * kCallsEach);
  EXPECT_LE(*std::max_element(all.begin(), all.end()), 0xFFFFFFFFul);
  std::sort(all.begin(), all.end());
  EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
}

// The first number of a forked child, read through a pipe.
unsigned long FirstIdOfAChild() {
  int ends[2];
  if (pipe(ends) != 0) ADD_FAILURE() << "pipe";
  pid_t const child = fork();
  if (child == 0) {
    unsigned long const id = GetNearUniqueID();
    ssize_t const written = write(ends[1], &id, sizeof id);
    _exit(written == sizeof id ? 0 : 1);
  }
  close(ends[1]);
  unsigned long id = 0;
  EXPECT_EQ(read(ends[0], &id, sizeof id), static_cast<ssize_t>(sizeof id));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  return id;
}

TEST(NearUniqueID, AForkedChildStartsElsewhere) {
  GetNearUniqueID();  // the parent is under way when it forks
  unsigned long const first = FirstIdOfAChild();
  unsigned long const second = FirstIdOfAChild();
  unsigned long const parent = GetNearUniqueID();
  // Continuing the parent's sequence, both children would have drawn the
  // parent's next number.
  EXPECT_NE(first, parent);
  EXPECT_NE(second, parent);
  EXPECT_NE(first, second);
}

}  // namespace
