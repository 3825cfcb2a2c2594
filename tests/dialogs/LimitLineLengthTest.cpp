// Wrapping checked as relations that hold in any font: every line within the
// limit, the text unchanged but for inserted line feeds, no cluster cut.
#include <gtest/gtest.h>

#include <wx/dcmemory.h>

#include <locale>
#include <string>
#include <vector>

#include "dialogs/LimitLineLength.h"
#include "utl/Utf.h"
#include "utl/VxStdString.h"

namespace {

std::vector<std::wstring> Lines(std::wstring const & text) {
  std::vector<std::wstring> lines(1);
  for (wchar_t c : text) {
    if (c == L'\n') lines.emplace_back();
    else lines.back() += c;
  }
  return lines;
}

// True when `wrapped` is `original` with line feeds inserted and nothing else.
bool OnlyFeedsInserted(std::wstring const & original, std::wstring const & wrapped) {
  size_t at = 0;
  for (wchar_t c : wrapped) {
    if (at < original.size() && c == original[at]) ++at;
    else if (c != L'\n') return false;
  }
  return at == original.size();
}

size_t Clusters(std::wstring const & line) {
  return VxStdString::GraphemeClusterCount(vx3::WideToUtf8(line), std::locale::classic());
}

bool IsCombining(wchar_t c) { return c >= 0x300 && c <= 0x36F; }

std::wstring Repeat(std::wstring const & part, size_t times) {
  std::wstring text;
  for (size_t i = 0; i < times; ++i) text += part;
  return text;
}

struct Case {
  char const * name;
  std::wstring text;
  size_t limit;
};

std::vector<Case> Cases() {
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

TEST(LimitLineLength, ByCharactersKeepsEveryLineWithinTheLimit) {
  for (Case const & c : Cases()) {
    std::wstring const wrapped = LimitLineLength::ByCharacters(c.text, c.limit);
    EXPECT_TRUE(OnlyFeedsInserted(c.text, wrapped)) << c.name;
    for (std::wstring const & line : Lines(wrapped)) {
      EXPECT_LE(Clusters(line), std::max<size_t>(c.limit, 1)) << c.name;
      if (!line.empty()) {
        EXPECT_FALSE(IsCombining(line.front())) << c.name;
      }
    }
  }
}

TEST(LimitLineLength, ByCharactersBreaksWhereExpected) {
  struct Expected { std::wstring text; size_t limit; std::wstring wrapped; };
  Expected const cases[] = {
      {L"aaa bbb ccc", 7, L"aaa \nbbb ccc"},
      {L"one two\nthree four", 9, L"one two\nthree \nfour"},
      // The long word fills whole lines; its rest shares a line if it can.
      {L"ab abcdefghij cd", 4, L"ab \nabcd\nefgh\nij \ncd"},
      {L"abcdef\ngh", 3, L"abc\ndef\ngh"},
      // A surrogate pair and a combining sequence count as one character.
      {Repeat(L"\U0001F600", 140), 140, Repeat(L"\U0001F600", 140)},
      {Repeat(L"o\u0308", 140), 140, Repeat(L"o\u0308", 140)},
      {L"", 5, L""}};
  for (Expected const & c : cases)
    EXPECT_EQ(LimitLineLength::ByCharacters(c.text, c.limit), c.wrapped) << c.limit;
}

class LimitLineLengthPixels : public ::testing::Test {
protected:
  LimitLineLengthPixels() : mBitmap(8, 8), mDc(mBitmap) { mDc.SetFont(mFont); }

  size_t Width(std::wstring text) {
    // The layout rejects what is no code point; the wrapper measures U+FFFD.
    for (wchar_t & c : text) {
      if (static_cast<uint32_t>(c) > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = 0xFFFD;
    }
    wxCoord width = 0;
    mDc.GetTextExtent(wxString(text), &width, nullptr);
    return static_cast<size_t>(width);
  }

  wxFont mFont{wxFontInfo(10).Family(wxFONTFAMILY_SWISS)};
  wxBitmap mBitmap;
  wxMemoryDC mDc;
};

TEST_F(LimitLineLengthPixels, EveryLineFitsTheWidth) {
  size_t const limit = Width(L"MMMMMMMMMMMM");
  ASSERT_GT(limit, 0u);
  for (Case const & c : Cases()) {
    std::wstring const wrapped = LimitLineLength::ByPixels(c.text, mDc, limit);
    EXPECT_TRUE(OnlyFeedsInserted(c.text, wrapped)) << c.name;
    for (std::wstring const & line : Lines(wrapped)) {
      if (Clusters(line) > 1) {
        EXPECT_LE(Width(line), limit) << c.name;
      }
      if (!line.empty()) {
        EXPECT_FALSE(IsCombining(line.front())) << c.name;
      }
    }
  }
}

TEST_F(LimitLineLengthPixels, BreaksOnlyWhatDoesNotFit) {
  std::wstring const text = L"ab " + Repeat(L"W", 60) + L" cd";
  size_t const limit = Width(Repeat(L"W", 10));
  std::vector<std::wstring> const lines = Lines(LimitLineLength::ByPixels(text, mDc, limit));
  // The long word is cut into several lines and the first words keep theirs.
  EXPECT_GE(lines.size(), 6u);
  EXPECT_EQ(lines.front(), L"ab ");
  // What fits, and a width that was negative, leave the text alone.
  EXPECT_EQ(LimitLineLength::ByPixels(text, mDc, Width(text)), text);
  EXPECT_EQ(LimitLineLength::ByPixels(text, mDc, static_cast<size_t>(-6)), text);
}

TEST_F(LimitLineLengthPixels, BoundsAreTheWidestLineAndAllLines) {
  wxRect const one = LimitLineLength::GetBoundsRect(L"a short line", mFont);
  wxRect const two = LimitLineLength::GetBoundsRect(L"a short line\na longer second line", mFont);
  EXPECT_EQ(one.GetTopLeft(), wxPoint(0, 0));
  EXPECT_EQ(static_cast<size_t>(one.width), Width(L"a short line"));
  EXPECT_EQ(static_cast<size_t>(two.width), Width(L"a longer second line"));
  EXPECT_GT(two.height, one.height);
  EXPECT_EQ(LimitLineLength::GetBoundsRect(L"", mFont).width, 0);
  EXPECT_EQ(LimitLineLength::GetBoundsRect(nullptr, mFont).width, 0);

  size_t const limit = Width(L"MMMMMMMMMMMM");
  std::wstring const text = L"The quick brown fox jumps over the lazy dog, twice or more.";
  wxRect const wrapped = LimitLineLength::GetBoundsRect(
      LimitLineLength::ByPixels(text, mDc, limit).c_str(), mFont);
  EXPECT_LE(static_cast<size_t>(wrapped.width), limit);
  EXPECT_GT(wrapped.height, one.height);
}

}  // namespace
