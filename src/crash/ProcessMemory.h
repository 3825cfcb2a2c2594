#pragma once
// Another process's address space as the dump writer reads it: its mappings
// (/proc/<pid>/maps) and their bytes. The caller must be allowed to trace
// the process (it is its tracer, or the process named it with PR_SET_PTRACER).

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct Mapping {
  uint64_t start = 0;
  uint64_t end = 0;
  uint64_t offset = 0;
  bool readable = false;
  bool writable = false;
  bool executable = false;
  std::string path;  // empty for anonymous memory; "[stack]", "[vdso]"... for the kernel's
};

// The lines of a maps file; lines that do not parse are left out.
std::vector<Mapping> ParseMaps(std::string const & text);

// The whole of a /proc file ("" when it cannot be read).
std::string ReadProcFile(pid_t pid, char const * name);

// Copies [address, address + size) of `pid` into `buffer`; false when any
// byte of it cannot be read.
bool ReadProcessMemory(pid_t pid, uint64_t address, void * buffer, size_t size);
