// A program that crashes on purpose, for the checks that read its dump with
// other tools (tests/crash/check-dump-tools):
//   crash-victim DUMP [TYPE]   dumps to DUMP, then writes through null in
//                              CrashInVictimFunction, three threads running
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "crash/MiniDumper.h"

__attribute__((noinline)) void CrashInVictimFunction() {
  int volatile * volatile nowhere = nullptr;  // volatile: the fault cannot be proved away
  *nowhere = 1;
}

int main(int argc, char ** argv) {
  if (argc < 2) return 2;
  std::string const path = argv[1];
  MiniDumper::Initialize([path] { return wxString::FromUTF8(path); }, {}, {},
                         argc > 2 ? std::atoi(argv[2]) : 0);
  std::atomic<int> running{0};
  std::vector<std::thread> threads;
  threads.reserve(2);
  for (int i = 0; i < 2; ++i)
    threads.emplace_back([&running] {
      ++running;
      for (;;) ::pause();
    });
  while (running < 2) std::this_thread::yield();
  CrashInVictimFunction();
  return 1;
}
