// The breathing of VxGauge and the percent of VxXTPGauge, frame by frame and
// value by value, worked out by hand.
#include <gtest/gtest.h>

#include <limits>

#include "work/VxGauge.h"
#include "work/VxXTPGauge.h"

namespace {

TEST(GaugePulse, BreathesOnceIn180Frames) {
  struct Case {
    int frame;
    float pulse;
  };
  // Rest until 70, up in tenths to 80, full until 100, down to 110, rest.
  Case const cases[] = {{0, 0},   {70, 0},     {71, 0.1f},  {75, 0.5f}, {80, 1},
                        {100, 1}, {101, 0.9f}, {109, 0.1f}, {110, 0},   {179, 0}};
  for (Case const & c : cases) EXPECT_FLOAT_EQ(VxGauge::Pulse(c.frame), c.pulse) << c.frame;
}

TEST(GaugePulse, ColoursBlendChannelByChannelAndCutDown) {
  struct Case {
    float pulse;
    wxColour bar, stripe;
  };
  Case const cases[] = {{0, wxColour(0x00, 0x80, 0xE6), wxColour(0xFF, 0xCC, 0x00)},
                        {1, wxColour(0xE0, 0x00, 0x34), wxColour(0xFF, 0xFF, 0xFF)},
                        // 224/2, 128/2, (52 + 230)/2; stripe (204 + 255)/2 = 229.5, 255/2 = 127.5
                        {0.5f, wxColour(112, 64, 141), wxColour(255, 229, 127)},
                        // 224 * .9 = 201.6, 128 * .1 = 12.8, 52 * .9 + 230 * .1 = 69.8
                        {VxGauge::Pulse(79), wxColour(201, 12, 69), wxColour(255, 249, 229)}};
  for (Case const & c : cases) {
    EXPECT_EQ(VxGauge::BarColour(c.pulse), c.bar) << c.pulse;
    EXPECT_EQ(VxGauge::StripeColour(c.pulse), c.stripe) << c.pulse;
  }
}

TEST(XtpGaugePercent, WholePercentOfTheRangeClamped) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  float const inf = std::numeric_limits<float>::infinity();
  struct Case {
    float low, high, value;
    int percent;
  };
  Case const cases[] = {{0, 100, 99.9f, 99}, {10, 20, 15, 50},   {0, 3, 2, 66},   {0, 100, -5, 0},
                        {0, 100, 150, 100},  {-10, 10, 0, 50},   {5, 5, 5, 0},  // no width, 0/0
                        {5, 5, 6, 100},                                         // no width, above
                        {5, 5, 4, 0},                                           // no width, below
                        {0, 100, nan, 0},    {0, 100, inf, 100}, {nan, nan, 1, 0}};
  for (Case const & c : cases)
    EXPECT_EQ(VxXTPGauge::Percent(c.low, c.high, c.value), c.percent)
        << c.low << ".." << c.high << " at " << c.value;
}

}  // namespace
