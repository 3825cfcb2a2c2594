#pragma once
// Relations every wrap must keep, and the texts they are checked on.
#include <gtest/gtest.h>

#include <algorithm>
#include <locale>
#include <string>
#include <vector>

#include "utl/Utf.h"
#include "utl/VxStdString.h"

namespace wrap_checks {

inline std::vector<std::wstring> Lines(std::wstring const & text) {
  std::vector<std::wstring> lines(1);
  for (wchar_t c : text) {
    if (c == L'\n')
      lines.emplace_back();
    else
      lines.back() += c;
  }
  return lines;
}

// True when `wrapped` is `original` with line feeds inserted and nothing else.
inline bool OnlyFeedsInserted(std::wstring const & original, std::wstring const & wrapped) {
  size_t at = 0;
  for (wchar_t c : wrapped) {
    if (at < original.size() && c == original[at])
      ++at;
    else if (c != L'\n')
      return false;
  }
  return at == original.size();
}

inline size_t Clusters(std::wstring const & line) {
  return VxStdString::GraphemeClusterCount(vx3::WideToUtf8(line), std::locale::classic());
}

// True when `line` holds one line-break piece only: no blank before its
// trailing blanks. Only such a line may exceed the limit.
inline bool IsOnePiece(std::wstring const & line) {
  size_t const last = line.find_last_not_of(L' ');
  return last == std::wstring::npos || line.find(L' ') > last;
}

inline bool IsCombining(wchar_t c) { return c >= 0x300 && c <= 0x36F; }

inline std::wstring Repeat(std::wstring const & part, size_t times) {
  std::wstring text;
  for (size_t i = 0; i < times; ++i) text += part;
  return text;
}

struct Case {
  char const * name;
  std::wstring text;
  size_t limit;
};

// Every line of `wrapped` within `limit` as `measure` counts, but for single
// pieces too long for any line; the text unchanged but for inserted line
// feeds; no line starting with a combining mark.
template <class Measure>
void ExpectWrapped(Case const & c, std::wstring const & wrapped, size_t limit, Measure measure) {
  SCOPED_TRACE(c.name);
  EXPECT_TRUE(OnlyFeedsInserted(c.text, wrapped));
  for (std::wstring const & line : Lines(wrapped)) {
    if (measure(line) > limit) {
      EXPECT_TRUE(IsOnePiece(line));
    }
    if (!line.empty()) {
      EXPECT_FALSE(IsCombining(line.front()));
    }
  }
}

inline std::vector<Case> Cases() {
  return {{"empty", L"", 10},
          {"fits", L"short text", 40},
          {"words", L"The quick brown fox jumps over the lazy dog. Again and again.", 12},
          {"line feeds", L"one two\nthree four\n\nfive six seven", 9},
          {"unbreakable", Repeat(L"x", 300), 25},
          {"long word among short", L"ab " + Repeat(L"W", 70) + L" cd ef", 20},
          {"combining", Repeat(L"e\u0301", 40), 7},
          {"outside the BMP", Repeat(L"\U0001F600", 30) + L" " + Repeat(L"\U00020000", 30), 4},
          {"flags", Repeat(L"\U0001F1EB\U0001F1F7", 12), 5},
          {"limit zero", L"ab c", 0},
          {"invalid code points", std::wstring(L"a\xD800 b ") + wchar_t(0x110000) + L" c", 2},
          {"hundred thousand", Repeat(L"lorem ipsum dolor sit amet, ", 3572), 60}};
}

}  // namespace wrap_checks
