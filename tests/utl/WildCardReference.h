#pragma once
// A slow, obviously correct wildcard matcher to check VxString::WildCardCompare
// against: dynamic programming over code points, O(pattern x text).

#include <string>
#include <vector>

#include "utl/CaseFolding.h"
#include "utl/Utf.h"

namespace reference {

inline bool WildCardMatch(std::string const & pattern, std::string const & text,
                          bool caseSensitive) {
  std::u32string p = vx3::Utf8ToUtf32(pattern);
  std::u32string t = vx3::Utf8ToUtf32(text);
  if (!caseSensitive) {
    for (char32_t & c : p) c = vx3::FoldCaseSimple(c);
    for (char32_t & c : t) c = vx3::FoldCaseSimple(c);
  }
  // matched[j]: the pattern read so far matches the first j characters.
  std::vector<char> matched(t.size() + 1, 0);
  matched[0] = 1;
  for (char32_t const pc : p) {
    std::vector<char> next(t.size() + 1, 0);
    for (size_t j = 0; j <= t.size(); ++j) {
      if (pc == U'*') {
        next[j] = matched[j] || (j > 0 && next[j - 1]);
      } else if (j > 0) {
        next[j] = matched[j - 1] && (pc == U'?' || pc == t[j - 1]);
      }
    }
    matched.swap(next);
  }
  return matched[t.size()] != 0;
}

}  // namespace reference
