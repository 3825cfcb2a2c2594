#include "utl/WildCardCompare.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "utl/CaseFolding.h"
#include "utl/Utf.h"

namespace VxString {

namespace {

constexpr char32_t kAnyRun = '*';
constexpr char32_t kAnyOne = '?';

// Works on either bytes (ASCII texts) or code points; `same(p, t)` says
// whether a literal pattern character matches a text character.
template <typename Char, typename Same>
class SegmentMatcher {
public:
  SegmentMatcher(std::basic_string_view<Char> pattern, std::basic_string_view<Char> text, Same same)
      : mPattern(pattern), mText(text), mSame(same) {}

  bool Match() const {
    size_t const firstStar = mPattern.find(static_cast<Char>(kAnyRun));
    if (firstStar == mPattern.npos)
      return mPattern.size() == mText.size() && MatchesAt(mPattern, 0);

    // The piece before the first star is anchored at the start, the piece
    // after the last star at the end; they must not overlap.
    auto const head = mPattern.substr(0, firstStar);
    size_t const lastStar = mPattern.rfind(static_cast<Char>(kAnyRun));
    auto const tail = mPattern.substr(lastStar + 1);
    if (head.size() + tail.size() > mText.size()) return false;
    if (!MatchesAt(head, 0) || !MatchesAt(tail, mText.size() - tail.size())) return false;

    // Each piece between stars at its leftmost place after the one before.
    size_t from = head.size();
    size_t const limit = mText.size() - tail.size();
    for (size_t at = firstStar; at < lastStar;) {
      size_t const next = mPattern.find(static_cast<Char>(kAnyRun), at + 1);
      auto const piece = mPattern.substr(at + 1, next - at - 1);
      at = next;
      if (piece.empty()) continue;
      size_t const place = Find(piece, from, limit);
      if (place == mText.npos) return false;
      from = place + piece.size();
    }
    return true;
  }

private:
  // Pieces up to this length are searched directly; the cost is at most
  // this many comparisons a text character.
  static constexpr size_t kShortPiece = 8;

  // The leftmost place of `piece` in the text between `from` and `limit`.
  size_t Find(std::basic_string_view<Char> piece, size_t from, size_t limit) const {
    if (piece.size() > kShortPiece && piece.find(static_cast<Char>(kAnyOne)) == piece.npos)
      return FindLinear(piece, from, limit);
    for (size_t place = from; place + piece.size() <= limit; ++place)
      if (MatchesAt(piece, place)) return place;
    return mText.npos;
  }

  // Knuth-Morris-Pratt: after a mismatch the search resumes at the longest
  // border of what matched, so no text character is read twice.
  size_t FindLinear(std::basic_string_view<Char> piece, size_t from, size_t limit) const {
    std::vector<size_t> border(piece.size(), 0);
    for (size_t i = 1, k = 0; i < piece.size(); ++i) {
      while (k > 0 && !mSame(piece[k], piece[i])) k = border[k - 1];
      if (mSame(piece[k], piece[i])) ++k;
      border[i] = k;
    }
    for (size_t at = from, k = 0; at < limit; ++at) {
      while (k > 0 && !mSame(piece[k], mText[at])) k = border[k - 1];
      if (mSame(piece[k], mText[at])) ++k;
      if (k == piece.size()) return at + 1 - piece.size();
    }
    return mText.npos;
  }

  bool MatchesAt(std::basic_string_view<Char> piece, size_t at) const {
    for (size_t i = 0; i < piece.size(); ++i) {
      Char const p = piece[i];
      if (p != static_cast<Char>(kAnyOne) && !mSame(p, mText[at + i])) return false;
    }
    return true;
  }

  std::basic_string_view<Char> mPattern;
  std::basic_string_view<Char> mText;
  Same mSame;
};

template <typename Char, typename Same>
bool MatchWith(std::basic_string_view<Char> pattern, std::basic_string_view<Char> text, Same same) {
  return SegmentMatcher<Char, Same>(pattern, text, same).Match();
}

std::u32string Decode(char const * text, bool fold) {
  std::u32string codes = vx3::Utf8ToUtf32(text);
  if (fold)
    for (char32_t & c : codes) c = vx3::FoldCaseSimple(c);
  return codes;
}

}  // namespace

bool WildCardCompare(basic_c_str<char> const & pattern, basic_c_str<char> const & text,
                     bool caseSensitive) {
  std::string_view const p(pattern.c_str());
  std::string_view const t(text.c_str());
  if (vx3::IsAscii(p) && vx3::IsAscii(t)) {
    if (caseSensitive) return MatchWith(p, t, [](char a, char b) { return a == b; });
    return MatchWith(p, t, [](char a, char b) { return vx3::FoldAscii(a) == vx3::FoldAscii(b); });
  }
  // Wildcards are ASCII and no character folds to one, so folding the
  // pattern keeps them.
  std::u32string const codes = Decode(p.data(), !caseSensitive);
  std::u32string const textCodes = Decode(t.data(), !caseSensitive);
  return MatchWith(std::u32string_view(codes), std::u32string_view(textCodes),
                   [](char32_t a, char32_t b) { return a == b; });
}

}  // namespace VxString
