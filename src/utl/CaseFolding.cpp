#include "utl/CaseFolding.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <array>
#include <cstdint>

namespace vx3 {

namespace {

int FoldWithIcu(char32_t code, char32_t * out) {
  UChar source[2];
  int32_t sourceLength = 0;
  U16_APPEND_UNSAFE(source, sourceLength, static_cast<UChar32>(code));
  UChar folded[2 * kMaxFoldedLength + 2];
  UErrorCode status = U_ZERO_ERROR;
  int32_t const length = u_strFoldCase(folded, static_cast<int32_t>(std::size(folded)), source,
                                       sourceLength, U_FOLD_CASE_DEFAULT, &status);
  if (U_FAILURE(status) || length <= 0) {
    out[0] = code;
    return 1;
  }
  int count = 0;
  for (int32_t i = 0; i < length && count < kMaxFoldedLength;) {
    UChar32 c;
    U16_NEXT(folded, i, length, c);
    out[count++] = static_cast<char32_t>(c);
  }
  return count;
}

// Latin, Greek, Cyrillic, Armenian, Hebrew and Arabic (below U+0800) are
// folded from a table made once, so that text in those scripts is compared
// without a call into ICU per character.
struct SmallFoldTable {
  static constexpr char32_t kSize = 0x800;
  struct Entry {
    std::array<char32_t, kMaxFoldedLength> code;
    int count;
  };
  std::array<Entry, kSize> entries;

  SmallFoldTable() {
    for (char32_t c = 0; c < kSize; ++c) entries[c].count = FoldWithIcu(c, entries[c].code.data());
  }
};

SmallFoldTable const & SmallTable() {
  static SmallFoldTable const table;
  return table;
}

}  // namespace

bool IsAscii(std::string_view text) {
  unsigned char any = 0;
  for (char const c : text) any |= static_cast<unsigned char>(c);
  return any < 0x80;
}

char32_t FoldCaseSimple(char32_t code) {
  if (code < 0x80) return FoldAscii(static_cast<unsigned char>(code));
  return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(code), U_FOLD_CASE_DEFAULT));
}

int FoldCaseFull(char32_t code, char32_t * out) {
  if (code < 0x80) {
    out[0] = FoldAscii(static_cast<unsigned char>(code));
    return 1;
  }
  if (code < SmallFoldTable::kSize) {
    auto const & entry = SmallTable().entries[code];
    for (int i = 0; i < entry.count; ++i) out[i] = entry.code[i];
    return entry.count;
  }
  return FoldWithIcu(code, out);
}

void AppendFoldedFull(std::string_view text, std::u32string & out) {
  out.reserve(out.size() + text.size());
  FoldedReader reader(text);
  for (char32_t c = reader.Next(); c != FoldedReader::kEnd; c = reader.Next()) out += c;
}

bool AsciiContainsFolded(std::string_view text, std::string_view foldedPart) {
  if (foldedPart.empty()) return true;
  if (foldedPart.size() > text.size()) return false;
  unsigned char const first = foldedPart[0];
  size_t const last = text.size() - foldedPart.size();
  for (size_t at = 0; at <= last; ++at) {
    if (FoldAscii(text[at]) != first) continue;
    size_t i = 1;
    while (i < foldedPart.size() &&
           FoldAscii(text[at + i]) == static_cast<unsigned char>(foldedPart[i]))
      ++i;
    if (i == foldedPart.size()) return true;
  }
  return false;
}

}  // namespace vx3
