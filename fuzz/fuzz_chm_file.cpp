// Whole help files from anywhere: opening, listing, extracting every file
// and reading the system streams and the help map end in a result, never a
// crash; a file extracted whole has the length the directory gives it.
#include <cstdint>
#include <string>

#include "help/ChmArchive.h"
#include "help/ChmSystemStreams.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  ChmLimits limits;
  limits.maxFileBytes = 1 << 20;  // keep a fuzzing run quick
  limits.maxArchiveBytes = 8 << 20;
  ChmError error = ChmError::None;
  auto archive =
      ChmArchive::OpenBytes(std::string(reinterpret_cast<char const *>(data), size), error, limits);
  if (!archive) {
    if (error == ChmError::None) __builtin_trap();
    return 0;
  }
  for (auto const & name : archive->GetNames()) {
    std::string bytes;
    ChmError const result = archive->Extract(name, bytes);
    if (result == ChmError::None &&
        static_cast<std::int64_t>(bytes.size()) != archive->GetSize(name))
      __builtin_trap();
    if (result != ChmError::None && !bytes.empty()) __builtin_trap();
  }
  ChmSystemInfo info;
  ReadChmSystem(*archive, info);
  std::string ivb;
  std::string strings;
  archive->Extract("/#IVB", ivb);
  archive->Extract("/#STRINGS", strings);
  if (auto const pairs = ParseChmIdMap(ivb)) {
    for (auto const & pair : *pairs) {
      if (auto const topic = ChmStringAt(strings, pair.stringOffset)) ChmTextToUtf8(*topic);
    }
  }
  return 0;
}
