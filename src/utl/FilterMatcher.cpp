#include "utl/FilterMatcher.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "utl/CaseFolding.h"
#include "utl/Utf.h"
#include "utl/WildCardCompare.h"

namespace {

constexpr char32_t kQuote = '"';
constexpr char32_t kBar = '|';
constexpr char32_t kMinus = '-';

bool IsBlank(char32_t c) { return u_isUWhiteSpace(static_cast<UChar32>(c)) != 0; }

}  // namespace

FilterMatcher::FilterMatcher(std::string const & filter) {
  Problem ignored = Problem::None;
  mAlternatives = Parse(filter, ignored);
}

FilterMatcher::Problem FilterMatcher::FindProblem(std::string const & filter) {
  Problem problem = Problem::None;
  Parse(filter, problem);
  return problem;
}

std::vector<FilterMatcher::Alternative> FilterMatcher::Parse(std::string const & filter,
                                                             Problem & lastProblem) {
  std::u32string const codes = vx3::Utf8ToUtf32(filter);
  size_t const size = codes.size();
  std::vector<Alternative> alternatives;
  Alternative current;
  bool currentHasTokens = false;  // also ignored ones: "- |" is no empty alternative
  bool sawBar = false;
  for (size_t at = 0;;) {
    while (at < size && IsBlank(codes[at])) ++at;
    if (at == size || codes[at] == kBar) {
      if (!currentHasTokens && (sawBar || at < size)) lastProblem = Problem::EmptyAlternative;
      if (!current.empty()) alternatives.push_back(std::move(current));
      current.clear();
      currentHasTokens = false;
      if (at == size) break;
      sawBar = true;
      ++at;
      continue;
    }

    currentHasTokens = true;
    Term term;
    if (codes[at] == kMinus) {
      term.exclude = true;
      ++at;
    }
    std::u32string text;
    bool quoted = false;
    bool inQuotes = false;
    while (at < size && (inQuotes || (!IsBlank(codes[at]) && codes[at] != kBar))) {
      char32_t const c = codes[at++];
      if (c != kQuote) {
        text += c;
      } else if (!inQuotes) {
        inQuotes = quoted = true;
      } else if (at < size && codes[at] == kQuote) {
        text += kQuote;
        ++at;
      } else {
        inQuotes = false;
      }
    }
    if (inQuotes) lastProblem = Problem::UnclosedQuote;
    if (text.empty()) {
      if (!inQuotes) lastProblem = quoted ? Problem::EmptyQuotes : Problem::MinusWithoutText;
      continue;
    }

    term.wildcard = text.find_first_of(U"*?") != std::u32string::npos;
    if (term.wildcard) {
      term.pattern = vx3::Utf32ToUtf8(text);
    } else {
      vx3::AppendFoldedFull(vx3::Utf32ToUtf8(text), term.folded);
      term.foldedIsAscii =
          std::all_of(term.folded.begin(), term.folded.end(), [](char32_t c) { return c < 0x80; });
      if (term.foldedIsAscii) term.foldedAscii.assign(term.folded.begin(), term.folded.end());
    }
    current.push_back(std::move(term));
  }
  return alternatives;
}

bool FilterMatcher::MatchString(std::string const & text) const {
  if (mAlternatives.empty()) return true;
  bool const textIsAscii = vx3::IsAscii(text);
  std::u32string folded;  // made when a term first needs it
  bool foldedReady = false;
  auto const contains = [&](Term const & term) {
    if (textIsAscii) {
      // Folded ASCII text is ASCII: a term that folds to more never occurs.
      return term.foldedIsAscii && vx3::AsciiContainsFolded(text, term.foldedAscii);
    }
    if (!foldedReady) {
      vx3::AppendFoldedFull(text, folded);
      foldedReady = true;
    }
    return folded.find(term.folded) != std::u32string::npos;
  };
  for (Alternative const & alternative : mAlternatives) {
    bool all = true;
    for (Term const & term : alternative) {
      bool const found = term.wildcard
                             ? VxString::WildCardCompare(term.pattern.c_str(), text.c_str(), false)
                             : contains(term);
      if (found == term.exclude) {
        all = false;
        break;
      }
    }
    if (all) return true;
  }
  return false;
}
