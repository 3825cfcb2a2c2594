#pragma once
// Reads a minidump back for the tests: every stream the writer makes,
// each record bounds-checked, so that a damaged file is a clear error
// (std::runtime_error), never a read past the end.

#include <cstdint>
#include <string>
#include <vector>

#include "crash/MinidumpFormat.h"

class MinidumpReader {
public:
  explicit MinidumpReader(std::string bytes);

  struct ThreadInfo {
    uint32_t tid = 0;
    minidump::ContextAmd64 context{};
    uint64_t stackStart = 0;
    uint32_t stackSize = 0;
  };
  struct ModuleInfo {
    uint64_t base = 0;
    uint32_t size = 0;
    std::string name;
    std::string buildId;  // lower-case hex
  };

  uint16_t architecture = 0;
  uint32_t platform = 0;
  uint32_t processId = 0;
  std::vector<ThreadInfo> threads;
  std::vector<ModuleInfo> modules;
  bool hasException = false;
  uint32_t exceptionThread = 0;
  uint32_t exceptionCode = 0;
  uint64_t exceptionAddress = 0;
  std::string maps, status, commandLine, auxv;

  ThreadInfo const * Thread(uint32_t tid) const;
  // The module that holds `address`, or null.
  ModuleInfo const * ModuleAt(uint64_t address) const;
  // Bytes of the process at `address` from the memory lists; false when the
  // dump does not hold all of them.
  bool ReadMemory(uint64_t address, void * out, size_t size) const;
  // Whether the dump's memory holds `pattern` anywhere.
  bool MemoryContains(std::string const & pattern) const;

private:
  struct Range {
    uint64_t start;
    uint64_t size;
    uint64_t rva;
  };
  template <typename T>
  T Record(uint64_t rva) const;
  std::string Bytes(uint64_t rva, uint64_t size) const;
  std::string Utf16String(uint32_t rva) const;
  void ReadStream(minidump::Directory const & entry);

  std::string mBytes;
  std::vector<Range> mMemory;
};
