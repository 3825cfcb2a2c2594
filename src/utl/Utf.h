#pragma once
// Conversions between the encodings that meet in this library: UTF-8 in
// narrow strings, wchar_t (UTF-32 on Linux) towards wx and the platform.
// Invalid sequences are skipped, never reported: text from files and the
// command line must not stop a conversion.

#include <string>
#include <string_view>

namespace vx3 {

std::wstring Utf8ToWide(std::string_view text);
std::string WideToUtf8(std::wstring_view text);
std::u32string Utf8ToUtf32(std::string_view text);
std::string Utf32ToUtf8(std::u32string_view text);

// The text with every invalid UTF-8 sequence removed.
std::string SanitizeUtf8(std::string_view text);

}  // namespace vx3
