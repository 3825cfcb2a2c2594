#include "help/HelpText.h"

#include "utl/CaseFolding.h"
#include "utl/Utf.h"

namespace vx3::help {

namespace {

// Windows-1252 at 0x80-0x9F; the five holes stay as their C1 code points.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsValidUtf8(std::string_view bytes) {
  size_t at = 0;
  while (at < bytes.size()) {
    if (static_cast<unsigned char>(bytes[at]) < 0x80) {
      ++at;
      continue;
    }
    if (DecodeUtf8(bytes, at) == kInvalidCodePoint) return false;
  }
  return true;
}

}  // namespace

std::string HelpTextToUtf8(std::string_view bytes) {
  if (IsValidUtf8(bytes)) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 4);
  for (char const c : bytes) {
    auto const byte = static_cast<unsigned char>(c);
    if (byte < 0x80)
      text.push_back(c);
    else
      AppendUtf8(byte < 0xA0 ? kCp1252High[byte - 0x80] : byte, text);
  }
  return text;
}

bool EqualsAsciiNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
  return true;
}

}  // namespace vx3::help
