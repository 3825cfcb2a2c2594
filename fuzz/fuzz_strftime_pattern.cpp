// Patterns from a locale's data (any bytes): the conversion ends, and what
// it gives reads in the format language: known items, each group once, a
// twelve-hour clock with its marker, only the part asked for, no blanks at
// the ends, valid UTF-8.
#include <cstdint>
#include <string>

#include "../tests/utl/FormatLanguageCheck.h"
#include "utl/StrftimePattern.h"
#include "utl/Utf.h"

namespace {

void Check(std::string const & converted, VxTimeUtl::PatternPart part) {
  if (!format_language::Problems(converted).empty()) __builtin_trap();
  if (vx3::SanitizeUtf8(converted) != converted) __builtin_trap();
  if (!converted.empty() && (converted.front() == ' ' || converted.back() == ' ')) {
    __builtin_trap();
  }
  for (std::string const & item : format_language::Items(converted)) {
    bool const date = format_language::IsDateItem(item);
    if (part == VxTimeUtl::PatternPart::Date && !date) __builtin_trap();
    if (part == VxTimeUtl::PatternPart::Time && date) __builtin_trap();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  // The input is the pattern and, from its first newline on, also what the
  // locale's composites (%x %X %r %c) stand for, so that they nest.
  VxTimeUtl::StrftimeComposites composites;
  size_t const newline = input.find('\n');
  if (newline != std::string::npos) {
    std::string const tail = input.substr(newline + 1);
    composites.date = composites.time = composites.ampmTime = composites.dateAndTime = tail;
  }
  for (auto part : {VxTimeUtl::PatternPart::DateAndTime, VxTimeUtl::PatternPart::Date,
                    VxTimeUtl::PatternPart::Time}) {
    Check(VxTimeUtl::FromStrftimePattern(input, part, composites), part);
  }
  return 0;
}
