// What a splash window computes without a display: the outline of its
// picture, where its text lines go, how its fades step, and which picture
// files it refuses before decoding them.
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "controls/SplashFade.h"
#include "controls/SplashPicture.h"
#include "controls/SplashRegion.h"
#include "controls/SplashText.h"
#include "controls/VxSplash2013.h"

namespace {

constexpr COLORREF kMagenta = RGB(255, 0, 255);

// Rows of a picture as characters: '.' magenta (transparent), '#' black,
// 'r' pure red.
std::vector<unsigned char> Picture(std::vector<std::string> const & rows) {
  std::vector<unsigned char> rgb;
  for (std::string const & row : rows)
    for (char c : row) {
      if (c == '.') rgb.insert(rgb.end(), {255, 0, 255});
      if (c == '#') rgb.insert(rgb.end(), {0, 0, 0});
      if (c == 'r') rgb.insert(rgb.end(), {255, 0, 0});
    }
  return rgb;
}

using Pixels = std::set<std::pair<int, int>>;

Pixels Cover(std::vector<wxRect> const & rects) {
  Pixels pixels;
  for (wxRect const & r : rects)
    for (int y = r.y; y < r.y + r.height; ++y)
      for (int x = r.x; x < r.x + r.width; ++x) EXPECT_TRUE(pixels.insert({x, y}).second);
  return pixels;
}

TEST(SplashRegion, RunsFollowTheRowRules) {
  struct Case {
    char const * name;
    std::vector<std::string> rows;
    COLORREF key;
    std::vector<wxRect> runs;
  };
  std::vector<Case> const cases = {
      {"opaque first pixel starts a run at 0", {"##..#."}, kMagenta, {{0, 0, 2, 1}, {4, 0, 1, 1}}},
      {"a run open at the end closes at the edge", {"..####"}, kMagenta, {{2, 0, 4, 1}}},
      {"a two-pixel run at the end is kept", {"....##"}, kMagenta, {{4, 0, 2, 1}}},
      {"a lone opaque last pixel is dropped", {".....#"}, kMagenta, {}},
      {"so is a one-pixel row", {"#"}, kMagenta, {}},
      {"rows go from the bottom up", {"##....", "....##"}, kMagenta, {{4, 1, 2, 1}, {0, 0, 2, 1}}},
      {"all transparent gives nothing", {"....", "...."}, kMagenta, {}},
      {"the key is compared as red, green, blue", {"r.r."}, RGB(255, 0, 0), {{1, 0, 1, 1}}},
      {"a key of another colour keeps every pixel", {"#.#"}, RGB(1, 2, 3), {{0, 0, 3, 1}}},
  };
  for (Case const & c : cases) {
    auto const rgb = Picture(c.rows);
    auto const runs = SplashRegionRuns(rgb.data(), static_cast<int>(c.rows[0].size()),
                                       static_cast<int>(c.rows.size()), c.key);
    EXPECT_EQ(runs, c.runs) << c.name;
  }
}

TEST(SplashRegion, MergedRunsCoverTheSamePixels) {
  std::mt19937 random(7);
  for (int round = 0; round < 50; ++round) {
    int const width = 1 + static_cast<int>(random() % 40);
    int const height = 1 + static_cast<int>(random() % 40);
    std::vector<unsigned char> rgb;
    // Few distinct rows, so that equal runs repeat and get merged.
    std::vector<std::vector<bool>> shapes(3, std::vector<bool>(width));
    for (auto & shape : shapes)
      for (int x = 0; x < width; ++x) shape[x] = random() % 3 != 0;
    for (int y = 0; y < height; ++y)
      for (bool opaque : shapes[random() % 3])
        rgb.insert(rgb.end(), opaque ? std::initializer_list<unsigned char>{9, 9, 9}
                                     : std::initializer_list<unsigned char>{255, 0, 255});
    auto const runs = SplashRegionRuns(rgb.data(), width, height, kMagenta);
    auto const merged = MergeSplashRuns(runs);
    EXPECT_LE(merged.size(), runs.size());
    EXPECT_EQ(Cover(merged), Cover(runs)) << "round " << round;
  }
}

TEST(SplashText, PlacesLinesByFormat) {
  // Every character 10 wide, every line 12 high.
  MeasureText const measure = [](wxString const & text) {
    return wxSize(10 * static_cast<int>(text.length()), 12);
  };
  wxRect const rect(100, 50, 80, 60);
  struct Case {
    char const * name;
    wxString text;
    unsigned format;
    std::vector<std::pair<wxString, wxPoint>> pieces;
  };
  std::vector<Case> const cases = {
      {"top left", "abc", DT_LEFT, {{"abc", {100, 50}}}},
      {"centred", "abcd", DT_CENTER | DT_VCENTER | DT_SINGLELINE, {{"abcd", {120, 74}}}},
      {"bottom right", "ab", DT_RIGHT | DT_BOTTOM, {{"ab", {160, 98}}}},
      {"line breaks followed", "a\nbc", DT_LEFT, {{"a", {100, 50}}, {"bc", {100, 62}}}},
      {"single line joins them", "a\nbc", DT_SINGLELINE, {{"a bc", {100, 50}}}},
      {"wraps at spaces",
       "abc def ghij",
       DT_WORDBREAK,
       {{"abc def", {100, 50}}, {"ghij", {100, 62}}}},
      {"too wide ends with dots", "abcdefghijk", DT_END_ELLIPSIS, {{"abcde...", {100, 50}}}},
  };
  for (Case const & c : cases) {
    std::vector<std::pair<wxString, wxPoint>> got;
    for (auto const & piece : LayoutSplashText(c.text, rect, c.format, measure))
      got.emplace_back(piece.text, piece.position);
    EXPECT_EQ(got, c.pieces) << c.name;
  }
}

TEST(SplashFade, StepsWithTheClock) {
  using namespace std::chrono;
  steady_clock::time_point now{};
  SplashFade::Clock const clock = [&now] { return now; };
  SplashFade in(true, milliseconds(SplashFade::kFadeInMilliseconds), clock);
  SplashFade out(false, milliseconds(SplashFade::kFadeOutMilliseconds), clock);
  struct Step {
    int ms;
    int in, out;
    bool inDone, outDone;
  };
  for (Step const & step : std::vector<Step>{{0, 0, 255, false, false},
                                             {100, 51, 128, false, false},
                                             {200, 102, 0, false, true},
                                             {250, 127, 0, false, true},
                                             {500, 255, 0, true, true},
                                             {9000, 255, 0, true, true}}) {
    now = steady_clock::time_point{} + milliseconds(step.ms);
    EXPECT_EQ(in.Alpha(), step.in) << step.ms << " ms";
    EXPECT_EQ(out.Alpha(), step.out) << step.ms << " ms";
    EXPECT_EQ(in.Finished(), step.inDone) << step.ms << " ms";
    EXPECT_EQ(out.Finished(), step.outDone) << step.ms << " ms";
  }
  // A clock that goes back does not make the fade jump.
  now = steady_clock::time_point{} - milliseconds(50);
  EXPECT_EQ(in.Alpha(), 0);
}

std::string Png(unsigned width, unsigned height) {
  std::string bytes = "\x89PNG\r\n\x1A\n";
  bytes += std::string("\0\0\0\x0DIHDR", 8);
  for (unsigned value : {width, height})
    for (int shift = 24; shift >= 0; shift -= 8)
      bytes += static_cast<char>((value >> shift) & 0xFF);
  return bytes + std::string(5, '\0');
}

std::string Bmp(int width, int height) {
  std::string bytes = "BM" + std::string(16, '\0');
  for (int value : {width, height})
    for (int shift = 0; shift < 32; shift += 8)
      bytes += static_cast<char>((static_cast<unsigned>(value) >> shift) & 0xFF);
  return bytes;
}

TEST(SplashPicture, HeaderSizes) {
  struct Case {
    char const * name;
    std::string bytes;
    bool known;
    int width, height;
  };
  std::vector<Case> const cases = {
      {"png", Png(640, 480), true, 640, 480},
      {"bmp", Bmp(32, 16), true, 32, 16},
      {"top-down bmp", Bmp(32, -16), true, 32, 16},
      {"png beyond int", Png(0x80000000u, 1), false, 0, 0},
      {"cut png", Png(640, 480).substr(0, 20), false, 0, 0},
      {"text", "not a picture at all, just words", false, 0, 0},
      {"empty", "", false, 0, 0},
  };
  for (Case const & c : cases) {
    int width = 0;
    int height = 0;
    auto const * data = reinterpret_cast<unsigned char const *>(c.bytes.data());
    EXPECT_EQ(ReadPictureHeaderSize(data, c.bytes.size(), width, height), c.known) << c.name;
    if (c.known) EXPECT_EQ(wxSize(width, height), wxSize(c.width, c.height)) << c.name;
  }
}

TEST(Splash2013, FirstFaceTheSystemHas) {
  struct Case {
    std::set<wxString> faces;
    wxString chosen;
  };
  for (Case const & c : std::vector<Case>{{{"Arial", "Segoe UI"}, "Segoe UI"},
                                          {{"Arial", "DejaVu Sans"}, "Arial"},
                                          {{"DejaVu Sans"}, "Sans"}}) {
    auto const has = [&c](wxString const & face) { return c.faces.count(face) != 0; };
    EXPECT_EQ(VxSplash2013::ChooseFace(has, "Sans"), c.chosen);
  }
}

}  // namespace
