#pragma once
// The ELF files a process has mapped (executable, shared libraries), with
// the span each covers and its GNU build id, read from the process's memory
// so that a file replaced on disk since it was loaded is still named right.

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

#include "crash/ProcessMemory.h"

struct LoadedModule {
  uint64_t base = 0;
  uint64_t size = 0;
  std::string path;
  std::vector<uint8_t> buildId;  // empty when the file carries none
};

std::vector<LoadedModule> FindLoadedModules(pid_t pid, std::vector<Mapping> const & mappings);
