// Picker formats of any bytes (DTM_SETFORMATW takes them from the
// application, which may take them from a user): the format is cut into
// fields and text that give back every character outside the fields, and
// a time shown, stepped and typed into through every field stays a valid
// time. The first two bytes choose the typed value.
#include <cstdint>
#include <string>

#include <boost/locale/encoding_utf.hpp>

#include "platform/commctrl/DateTimeFields.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  int typed = 0;
  if (size >= 2) {
    typed = data[0] << 8 | data[1];
    data += 2;
    size -= 2;
  }
  std::string const bytes(reinterpret_cast<char const *>(data), size);
  std::wstring const format = boost::locale::conv::utf_to_utf<wchar_t>(bytes);
  auto const segments = ParseDateTimeFormat(format);

  SYSTEMTIME time{};
  time.wYear = 2024;
  time.wMonth = 2;
  time.wDay = 29;
  time.wHour = 23;
  time.wMinute = 59;
  time.wSecond = 59;
  time.wMilliseconds = 999;
  time = WithWeekday(time);
  size_t literalChars = 0;
  for (DateTimeSegment const & segment : segments) {
    if (segment.field == DateTimeField::Literal) {
      if (segment.literal.empty()) __builtin_trap();
      literalChars += segment.literal.size();
    } else if (!segment.literal.empty()) {
      __builtin_trap();
    }
    if (literalChars > format.size()) __builtin_trap();
    for (int delta : {+1, -1}) {
      SYSTEMTIME const stepped = StepField(time, segment.field, delta);
      if (!IsValidSystemTime(stepped)) __builtin_trap();
    }
    SYSTEMTIME const typedInto = TypeIntoField(time, segment.field, typed);
    if (!IsValidSystemTime(typedInto)) __builtin_trap();
    time = typedInto;
  }
  (void)FormatDateTime(segments, time);
  return 0;
}
