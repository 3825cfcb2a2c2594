#include "utl/Utf.h"

#include <cstdint>
#include <type_traits>

namespace vx3 {

namespace {

constexpr char32_t kInvalid = kInvalidCodePoint;

// Decodes one code point at `at` and advances past it. An invalid sequence
// (bad lead, missing continuation, overlong form, surrogate, beyond
// U+10FFFF) advances by one byte only, so that the bytes after it are read
// again as text of their own.
char32_t Decode(std::string_view text, size_t & at) {
  auto const byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned char const lead = byte(at);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  size_t length;
  char32_t code;
  char32_t minimum;
  if ((lead & 0xE0) == 0xC0) {
    length = 2, code = lead & 0x1F, minimum = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    length = 3, code = lead & 0x0F, minimum = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    length = 4, code = lead & 0x07, minimum = 0x10000;
  } else {
    ++at;
    return kInvalid;
  }
  if (at + length > text.size()) {
    ++at;
    return kInvalid;
  }
  for (size_t i = 1; i < length; ++i) {
    unsigned char const next = byte(at + i);
    if ((next & 0xC0) != 0x80) {
      ++at;
      return kInvalid;
    }
    code = (code << 6) | (next & 0x3F);
  }
  if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
    ++at;
    return kInvalid;
  }
  at += length;
  return code;
}

bool IsScalar(char32_t code) { return code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF); }

void EncodeScalar(char32_t code, std::string & out) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (code >> 18));
    out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

template <typename Char>
std::basic_string<Char> Decode(std::string_view text) {
  std::basic_string<Char> out;
  out.reserve(text.size());
  for (size_t at = 0; at < text.size();) {
    char32_t const code = Decode(text, at);
    if (code != kInvalid) out += static_cast<Char>(code);
  }
  return out;
}

template <typename Char>
std::string Encode(std::basic_string_view<Char> text) {
  std::string out;
  out.reserve(text.size());
  for (Char const c : text) {
    auto const code = static_cast<char32_t>(static_cast<std::make_unsigned_t<Char>>(c));
    if (IsScalar(code)) EncodeScalar(code, out);
  }
  return out;
}

}  // namespace

static_assert(sizeof(wchar_t) == 4, "wchar_t is UTF-32 on this platform");

char32_t DecodeUtf8(std::string_view text, size_t & at) { return Decode(text, at); }

std::wstring Utf8ToWide(std::string_view text) { return Decode<wchar_t>(text); }
std::string WideToUtf8(std::wstring_view text) { return Encode(text); }
std::u32string Utf8ToUtf32(std::string_view text) { return Decode<char32_t>(text); }
std::string Utf32ToUtf8(std::u32string_view text) { return Encode(text); }

std::string SanitizeUtf8(std::string_view text) {
  // Fast path: most text is valid and is returned as it is.
  for (size_t at = 0; at < text.size();) {
    if (static_cast<unsigned char>(text[at]) < 0x80) {
      ++at;
      continue;
    }
    if (Decode(text, at) == kInvalid) return Encode(std::u32string_view(Decode<char32_t>(text)));
  }
  return std::string(text);
}

void AppendUtf8(char32_t code, std::string & out) { EncodeScalar(code, out); }

}  // namespace vx3
