#include "utl/XmlText.h"

#include "utl/Utf.h"

namespace vx3 {

std::u16string Utf8ToXml(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  bool ascii = true;
  for (char const c : text) ascii = ascii && static_cast<unsigned char>(c) < 0x80;
  if (ascii) {
    // The common case (names, numbers): no decoding needed.
    for (char const c : text) result.push_back(static_cast<char16_t>(c));
    return result;
  }
  for (char32_t const code : Utf8ToUtf32(text)) {
    if (code < 0x10000) {
      result.push_back(static_cast<char16_t>(code));
    } else {
      char32_t const offset = code - 0x10000;
      result.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
      result.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
    }
  }
  return result;
}

void AppendXmlAsUtf8(std::u16string_view text, std::string & out) {
  size_t const size = text.size();
  for (size_t i = 0; i < size; ++i) {
    char32_t code = text[i];
    if (code < 0x80) {
      out.push_back(static_cast<char>(code));
      continue;
    }
    if (code >= 0xD800 && code <= 0xDBFF) {
      if (i + 1 < size && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
        code = 0x10000 + ((code - 0xD800) << 10) + (text[i + 1] - 0xDC00);
        ++i;
      } else {
        continue;
      }
    } else if (code >= 0xDC00 && code <= 0xDFFF) {
      continue;
    }
    if (code < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (code >> 6)));
    } else if (code < 0x10000) {
      out.push_back(static_cast<char>(0xE0 | (code >> 12)));
      out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xF0 | (code >> 18)));
      out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
    }
    out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  }
}

std::string XmlToUtf8(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  AppendXmlAsUtf8(text, result);
  return result;
}

std::string XmlToUtf8(char16_t const * text) {
  return text == nullptr ? std::string() : XmlToUtf8(std::u16string_view(text));
}

bool IsXmlStorable(std::u16string_view text) {
  for (char16_t const c : text) {
    if (c < 0x20 && c != u'\t' && c != u'\n' && c != u'\r') return false;
    if (c == 0xFFFE || c == 0xFFFF) return false;
  }
  return true;
}

}  // namespace vx3
