// Read, write, read: the writer keeps the text of whatever the reader took
// from anywhere, complete, and a second round changes nothing at all.
#include <cstdint>
#include <string>
#include <string_view>

#include "controls/RtfReader.h"
#include "controls/RtfWriter.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const rtf(reinterpret_cast<char const *>(data), size);
  RtfReadResult const first = ReadRtf(rtf, 4096);
  std::string const written = WriteRtf(first.document);
  RtfReadResult const second = ReadRtf(written);
  if (!second.Complete()) __builtin_trap();
  if (second.document.PlainText() != first.document.PlainText()) __builtin_trap();
  if (WriteRtf(second.document) != written) __builtin_trap();
  return 0;
}
