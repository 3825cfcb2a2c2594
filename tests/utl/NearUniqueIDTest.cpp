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
  std::vector<unsigned long> drawn(1000000);
  std::vector<std::thread> threads;
  size_t const share = drawn.size() / 4;
  for (size_t first = 0; first < drawn.size(); first += share) {
    threads.emplace_back([&drawn, first, share] {
      for (size_t i = first; i < first + share; ++i) drawn[i] = GetNearUniqueID();
    });
  }
  for (std::thread & thread : threads) thread.join();
  EXPECT_LE(*std::max_element(drawn.begin(), drawn.end()), 0xFFFFFFFFul);
  std::sort(drawn.begin(), drawn.end());
  EXPECT_EQ(std::adjacent_find(drawn.begin(), drawn.end()), drawn.end());
}

unsigned long FirstIdOfAForkedChild() {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  pid_t const child = fork();
  if (child == 0) {
    unsigned long const id = GetNearUniqueID();
    _exit(write(ends[1], &id, sizeof id) == sizeof id ? 0 : 1);
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
  unsigned long const first = FirstIdOfAForkedChild();
  unsigned long const second = FirstIdOfAForkedChild();
  // Continuing the parent's sequence, both would draw the parent's next.
  unsigned long const parent = GetNearUniqueID();
  EXPECT_NE(first, parent);
  EXPECT_NE(second, parent);
  EXPECT_NE(first, second);
}

}  // namespace
