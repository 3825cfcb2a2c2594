// Damaged dumps through the tests' minidump reader: every record is checked
// against the file's end, so any input is read or refused with
// std::runtime_error, and what was read answers memory queries in bounds.
#include <cstdint>
#include <stdexcept>
#include <string>

#include "crash/MinidumpReader.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  try {
    MinidumpReader const dump(std::string(reinterpret_cast<char const *>(data), size));
    for (auto const & thread : dump.threads) {
      uint64_t word = 0;
      dump.ReadMemory(thread.context.rsp, &word, sizeof word);
      dump.ModuleAt(thread.context.rip);
    }
    dump.MemoryContains("MDMP");
  } catch (std::runtime_error const &) {}
  return 0;
}
