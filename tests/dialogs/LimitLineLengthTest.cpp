// The pixel wrap and the bounds, checked as relations that hold in any font:
// every line within the width, the text unchanged but for inserted line feeds.
#include <gtest/gtest.h>

#include <wx/dcmemory.h>

#include <string>
#include <vector>

#include "WrapChecks.h"
#include "dialogs/LimitLineLength.h"

namespace {

using namespace wrap_checks;

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
  for (Case const & c : Cases())
    ExpectWrapped(c, LimitLineLength::ByPixels(c.text, mDc, limit), limit,
                  [this](std::wstring const & line) { return Width(line); });
}

TEST_F(LimitLineLengthPixels, BreaksOnlyWhatDoesNotFit) {
  std::wstring const text = L"ab " + Repeat(L"W", 60) + L" cd";
  size_t const limit = Width(Repeat(L"W", 10));
  std::vector<std::wstring> const lines = Lines(LimitLineLength::ByPixels(text, mDc, limit));
  // The long word stands whole on a line of its own; the words around keep
  // theirs.
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0], L"ab ");
  EXPECT_EQ(lines[1], Repeat(L"W", 60) + L" ");
  EXPECT_EQ(lines[2], L"cd");
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
  wxRect const wrapped =
      LimitLineLength::GetBoundsRect(LimitLineLength::ByPixels(text, mDc, limit).c_str(), mFont);
  EXPECT_LE(static_cast<size_t>(wrapped.width), limit);
  EXPECT_GT(wrapped.height, one.height);
}

}  // namespace
