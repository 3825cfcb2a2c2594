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

// What DecodeUtf8 returns for an invalid sequence.
constexpr char32_t kInvalidCodePoint = 0xFFFFFFFF;

// The code point that starts at byte `at`, advancing `at` past it. An invalid
// sequence gives kInvalidCodePoint and advances by one byte only, so that
// the bytes after it are read again as text of their own. For code that
// walks text without converting all of it first.
char32_t DecodeUtf8(std::string_view text, size_t & at);

// Appends the UTF-8 form of `code`, which must be a Unicode scalar value.
void AppendUtf8(char32_t code, std::string & out);

}  // namespace vx3
