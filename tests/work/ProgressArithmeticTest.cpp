// The arithmetic of Progress on objects that show nothing (no application
// object here, so none becomes active): construction's corrections, the
// counter, nested ranges and what bad numbers do.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>

#include "work/Progress.h"

// Every allocation of this binary is counted, so that a test can tell
// whether a stretch of code allocates.
static std::size_t gAllocations = 0;

void * operator new(std::size_t size) {
  ++gAllocations;
  if (void * memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void * memory) noexcept { std::free(memory); }
void operator delete(void * memory, std::size_t) noexcept { std::free(memory); }

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();

Progress MakeProgress(float from, float to) {
  return Progress(nullptr, L"Work", from, to, false, false, true);
}

TEST(ProgressConstruction, CorrectsTheScaleItIsGiven) {
  struct Case {
    float from, to, wantFrom, wantTo;
  } const cases[] = {
      {5, 5, 5, 6},         // empty: one wide
      {10, 0, 0, 10},       // reversed: swapped
      {kNaN, 3, 0, 3},      // no start: 0
      {2, kNaN, 2, 3},      // no end: one wide
      {-kInf, kInf, 0, 1},  // endless both ways
  };
  for (auto const & c : cases) {
    Progress const progress = MakeProgress(c.from, c.to);
    float from = 0;
    float to = 0;
    progress.GetRange(from, to);
    EXPECT_EQ(from, c.wantFrom) << c.from << ".." << c.to;
    EXPECT_EQ(to, c.wantTo) << c.from << ".." << c.to;
    EXPECT_EQ(progress.GetValue(), c.wantFrom) << c.from << ".." << c.to;
  }
}

TEST(ProgressCounter, IsAddedBySetAndClearedByEveryRangeChange) {
  Progress progress = MakeProgress(0, 100);
  progress.SetCounter(5);
  EXPECT_TRUE(progress.Set(1));
  EXPECT_EQ(progress.GetValue(), 6);
  progress.SetRange(0, 10);
  progress.Set(1);
  EXPECT_EQ(progress.GetValue(), 1);
  progress.SetCounter(5);
  progress.PushSubRange(0, 5);
  progress.Set(0.25f);
  EXPECT_EQ(progress.GetValue(), 0.25f);
  progress.SetCounter(5);
  progress.PopSubRange();
  EXPECT_EQ(progress.GetValue(), 5);    // the end of the slice, no counter
  EXPECT_TRUE(progress.PopSubRange());  // on the last level: changes nothing
  EXPECT_EQ(progress.GetValue(), 5);
  EXPECT_EQ(progress.GetDepth(), 1u);
}

TEST(ProgressNesting, PopLeavesTheParentAtTheEndOfTheSlice) {
  struct Case {
    char const * name;
    float scaleFrom, scaleTo, pushFrom, pushTo;
    float valueAfterPop;  // where the parent stands once the sub-task left
  } const cases[] = {
      {"slice of a scale from 0", 0, 100, 20, 60, 60},
      // Not offset by the scale's start: 50..100 places 60..80 at shares
      // 1.2..1.6, so the parent ends at 130.
      {"scale not from 0", 50, 100, 60, 80, 130},
      {"ends beyond the scale are clamped", 0, 10, -5, 20, 10},
      {"NaN ends are the scale's ends", 0, 10, kNaN, kNaN, 10},
      {"reversed ends are kept", 0, 10, 8, 2, 2},
  };
  for (auto const & c : cases) {
    Progress progress = MakeProgress(c.scaleFrom, c.scaleTo);
    EXPECT_TRUE(progress.PushSubRange(c.pushFrom, c.pushTo)) << c.name;
    float from = -1;
    float to = -1;
    progress.GetRange(from, to);
    EXPECT_EQ(from, 0) << c.name;
    EXPECT_EQ(to, 1) << c.name;
    progress.Set(0.3f);  // whatever the sub-task reached
    EXPECT_TRUE(progress.PopSubRange()) << c.name;
    EXPECT_FLOAT_EQ(progress.GetValue(), c.valueAfterPop) << c.name;
    progress.GetRange(from, to);
    EXPECT_EQ(from, c.scaleFrom) << c.name;
    EXPECT_EQ(to, c.scaleTo) << c.name;
  }
}

TEST(ProgressNesting, NestedLevelsComposeTheirSlices) {
  Progress progress = MakeProgress(0, 100);
  progress.PushSubRange(20, 60);   // shares 0.2..0.6
  progress.PushSubRange(0.5f, 1);  // shares 0.4..0.6
  progress.SetRange(0, 4);
  progress.PushSubRange(0, 1);  // shares 0.4..0.45
  EXPECT_EQ(progress.GetDepth(), 4u);
  progress.PopSubRange();
  // The level 0..4 over shares 0.4..0.6 shows the whole task as -8..12;
  // share 0.45 is 1.
  EXPECT_FLOAT_EQ(progress.GetValue(), 1);
  progress.PopPushSubRange(0, 0.5f);  // replaces the level: shares 0.2..0.4
  EXPECT_EQ(progress.GetDepth(), 3u);
  progress.PopSubRange();
  EXPECT_FLOAT_EQ(progress.GetValue(), 0.5f);
  progress.PopSubRange();
  EXPECT_FLOAT_EQ(progress.GetValue(), 60);
  // A copy carries the levels by value.
  progress.PushSubRange(20, 60);
  Progress copy(progress);
  copy.PopSubRange();
  EXPECT_EQ(progress.GetDepth(), 2u);
  EXPECT_FLOAT_EQ(copy.GetValue(), 60);
}

TEST(ProgressBadInput, RangesAreKeptAsGivenAndValuesOutsideThemToo) {
  // Unlike the constructor, SetRange corrects nothing, and a level over such
  // a range still nests.
  auto const same = [](float a, float b) { return a == b || (std::isnan(a) && std::isnan(b)); };
  struct Case {
    float from, to;
  } const cases[] = {{5, 5}, {10, 0}, {kNaN, 1}, {-kInf, kInf}};
  for (auto const & c : cases) {
    Progress progress = MakeProgress(0, 10);
    progress.SetRange(c.from, c.to);
    float from = 0, to = 0;
    progress.GetRange(from, to);
    EXPECT_TRUE(same(from, c.from) && same(to, c.to)) << c.from << ".." << c.to;
    progress.PushSubRange(0, 1);
    progress.Set(0.5f);
    progress.PopSubRange();
    EXPECT_EQ(progress.GetDepth(), 1u);
  }
  // A silent object keeps values outside its scale, NaN included.
  Progress silent = MakeProgress(0, 10);
  EXPECT_TRUE(silent.Set(-kInf));
  EXPECT_EQ(silent.GetValue(), -kInf);
  EXPECT_TRUE(silent.Set(kNaN));
  EXPECT_TRUE(std::isnan(silent.GetValue()));
  // The empty level shows every share as 3; its sub-task took 0.2..0.6.
  Progress progress = MakeProgress(0, 100);
  progress.PushSubRange(20, 60);
  progress.SetRange(3, 3);
  progress.PushSubRange(0, 1);
  progress.PopSubRange();
  EXPECT_EQ(progress.GetValue(), 3);
  progress.PopSubRange();
  EXPECT_FLOAT_EQ(progress.GetValue(), 60);
}

TEST(ProgressNesting, AllocatesNothingOnceWarm) {
  Progress progress = MakeProgress(0, 100);
  for (int depth = 0; depth < 3; ++depth) progress.PushSubRange(0, 50);  // warm: room for levels
  while (progress.GetDepth() > 1) progress.PopSubRange();
  std::size_t const before = gAllocations;
  for (int i = 0; i < 100; ++i) {
    progress.PushSubRange(float(i), float(i + 1));
    progress.PushSubRange(0, 0.5f);
    progress.Set(0.25f);
    progress.PopSubRange();
    progress.PopSubRange();
  }
  EXPECT_EQ(gAllocations, before);
}

TEST(ProgressBreak, ShowsInEveryReportOfThatObjectOnly) {
  Progress stopped = MakeProgress(0, 10);
  Progress other = MakeProgress(0, 10);
  stopped.PressBreak();
  EXPECT_FALSE(stopped.Set(1));
  EXPECT_FALSE(stopped.PushSubRange(0, 1));
  EXPECT_FALSE(stopped.PopSubRange());
  EXPECT_TRUE(other.Set(1));
  EXPECT_FALSE(other.IsBreakPressed());
}

}  // namespace
