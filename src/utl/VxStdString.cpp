// Case-insensitive comparison and search, and lower-casing.
#include "utl/VxStdString.h"

#include <unicode/uchar.h>

#include <algorithm>

#include <boost/locale/conversion.hpp>

#include "utl/CaseFolding.h"
#include "utl/Utf.h"

namespace VxStdString {

namespace {

std::string LowerEachCodePoint(std::string_view text) {
  std::u32string codes = vx3::Utf8ToUtf32(text);
  for (char32_t & c : codes) c = static_cast<char32_t>(u_tolower(static_cast<UChar32>(c)));
  return vx3::Utf32ToUtf8(codes);
}

}  // namespace

int CompareNoCase(std::string const & first, std::string const & second, std::locale const &) {
  std::string_view const a(first);
  std::string_view const b(second);
  // ASCII prefix: no decoding, no folding table.
  size_t at = 0;
  size_t const common = std::min(a.size(), b.size());
  for (; at < common; ++at) {
    unsigned char const x = a[at];
    unsigned char const y = b[at];
    if ((x | y) >= 0x80) break;
    if (x == y) continue;
    unsigned char const fx = vx3::FoldAscii(x);
    unsigned char const fy = vx3::FoldAscii(y);
    if (fx != fy) return fx < fy ? -1 : 1;
  }
  vx3::FoldedReader x(a);
  vx3::FoldedReader y(b);
  x.SetPosition(at);
  y.SetPosition(at);
  for (;;) {
    // kEnd is above every code point: test it first so that a shorter
    // text sorts before the longer one it begins.
    char32_t const cx = x.Next();
    char32_t const cy = y.Next();
    if (cx == cy) {
      if (cx == vx3::FoldedReader::kEnd) return 0;
      continue;
    }
    if (cx == vx3::FoldedReader::kEnd) return -1;
    if (cy == vx3::FoldedReader::kEnd) return 1;
    return cx < cy ? -1 : 1;
  }
}

bool ContainsNoCase(std::string const & text, std::string const & part, std::locale const &) {
  if (part.empty()) return true;
  if (vx3::IsAscii(text) && vx3::IsAscii(part)) {
    std::string folded(part);
    for (char & c : folded) c = static_cast<char>(vx3::FoldAscii(c));
    return vx3::AsciiContainsFolded(text, folded);
  }
  std::u32string foldedText;
  std::u32string foldedPart;
  vx3::AppendFoldedFull(text, foldedText);
  vx3::AppendFoldedFull(part, foldedPart);
  return foldedText.find(foldedPart) != std::u32string::npos;
}

std::string ToLowerCase(std::string const & text, std::locale const & locale) {
  std::string const clean = vx3::SanitizeUtf8(text);
  if (std::has_facet<boost::locale::converter<char>>(locale)) {
    try {
      return boost::locale::to_lower(clean, locale);
    } catch (std::exception const &) {
      // A backend that cannot convert this text: fall back to ICU below.
    }
  }
  return LowerEachCodePoint(clean);
}

}  // namespace VxStdString
