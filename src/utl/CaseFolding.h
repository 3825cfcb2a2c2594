#pragma once
// Unicode case folding as every comparison "without regard to case" of this
// library applies it: ICU's default folding (not the Turkic one), the same
// for every locale, so that a sorted list, a registry lookup or a filter
// gives the same answer whatever language the user runs.
//
// Full folding maps one code point to up to three ("ß" -> "ss",
// "İ" -> "i" + U+0307) and is used where text is compared as a whole.
// Simple folding keeps one code point for one ("ß" stays), for wildcard
// matching, where "?" stands for exactly one character.
// Turkish dotless "ı" folds to itself and dotted "İ" to "i" + U+0307: so
// "I" matches "i" but neither "ı" nor "İ" in any locale.

#include <string>
#include <string_view>

#include "utl/Utf.h"

namespace vx3 {

constexpr int kMaxFoldedLength = 3;

inline bool IsAsciiDigit(unsigned char c) { return c >= '0' && c <= '9'; }
inline unsigned char FoldAscii(unsigned char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + ('a' - 'A')) : c;
}

// True when every byte is below 0x80.
bool IsAscii(std::string_view text);

// One code point for one.
char32_t FoldCaseSimple(char32_t code);

// Writes the full folding of `code` (1 to kMaxFoldedLength code points) to
// `out` and returns how many.
int FoldCaseFull(char32_t code, char32_t * out);

// Appends the full folding of UTF-8 `text`, skipping invalid sequences.
void AppendFoldedFull(std::string_view text, std::u32string & out);

// Case-insensitive search of ASCII `part` in ASCII `text`, where `part` is
// already folded. Allocates nothing.
bool AsciiContainsFolded(std::string_view text, std::string_view foldedPart);

// Walks UTF-8 text as a stream of fully folded code points, skipping invalid
// sequences. The raw position stays reachable for callers that read some
// runs of bytes themselves (the digit runs of CompareNumber).
class FoldedReader {
public:
  static constexpr char32_t kEnd = 0xFFFFFFFF;

  explicit FoldedReader(std::string_view text) : mText(text) {}

  std::string_view Text() const { return mText; }
  size_t Position() const { return mAt; }
  void SetPosition(size_t at) { mAt = at; }
  // Code points of an expansion not handed out yet ("ß" gave "s", one "s" waits).
  bool HasPending() const { return mPendingAt < mPendingCount; }

  // Moves past invalid bytes; a non-ASCII code point after them is read and
  // folded into the pending ones at once, so that it is decoded only once.
  // Then the reader stands on pending code points, an ASCII byte or the end.
  void SkipInvalid() {
    if (HasPending()) return;
    while (mAt < mText.size() && static_cast<unsigned char>(mText[mAt]) >= 0x80) {
      char32_t const code = DecodeUtf8(mText, mAt);
      if (code == kInvalidCodePoint) continue;
      mPendingCount = FoldCaseFull(code, mPending);
      mPendingAt = 0;
      return;
    }
  }

  // True when nothing is pending and the next byte is an ASCII digit.
  // Call SkipInvalid first.
  bool AtDigit() const { return !HasPending() && mAt < mText.size() && IsAsciiDigit(mText[mAt]); }

  // The next folded code point, or kEnd.
  char32_t Next() {
    if (!HasPending()) {
      SkipInvalid();
      if (!HasPending()) return mAt < mText.size() ? FoldAscii(mText[mAt++]) : kEnd;
    }
    return mPending[mPendingAt++];
  }

private:
  std::string_view mText;
  size_t mAt = 0;
  char32_t mPending[kMaxFoldedLength] = {};
  int mPendingAt = 0;
  int mPendingCount = 0;
};

}  // namespace vx3
