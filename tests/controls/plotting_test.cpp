#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/plotting/Autoscale.h"
#include "platform/plotting/AxisTicks.h"
#include "platform/plotting/PlotHistory.h"

namespace tarnlog {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(AxisTicks, StandAtOneTwoFive) {
  EXPECT_DOUBLE_EQ(ticksFor({0, 100}, 6).step, 20);
  EXPECT_EQ(ticksFor({0, 100}, 6).count, 6);
  EXPECT_DOUBLE_EQ(ticksFor({-0.05, 1.05}, 5).step, 0.5);
  EXPECT_EQ(ticksFor({-0.3, 0.3}, 7).at(3), 0);
  EXPECT_EQ(wholeTicksFor({-0.05, 1.05}, 1).count, 2);
}

TEST(AxisTicks, AnyRangeCanBeDrawn) {
  const double ends[] = {0, 5, -5, 1e308, -1e308, 1e-300, 1e15, kInfinity, -kInfinity, kNaN};
  for (const double from : ends) {
    for (const double to : ends) {
      const AxisRange range = saneRange(from, to);
      EXPECT_LT(range.minimum, range.maximum) << from << ' ' << to;
      EXPECT_TRUE(std::isfinite(range.span()));
      for (const int atMost : {0, 5}) EXPECT_LE(ticksFor(range, atMost).count, 6);
    }
  }
}

TEST(Autoscale, GrowsAtOnceAndShrinksLate) {
  Autoscale scale;
  EXPECT_FALSE(scale.follow(kInfinity, -kInfinity));
  EXPECT_TRUE(scale.follow(0, 93));
  EXPECT_EQ(scale.range(), (AxisRange{0, 100}));
  EXPECT_FALSE(scale.follow(0, 99));
  EXPECT_TRUE(scale.follow(0, 101));
  for (int i = 0; i < 59; ++i) EXPECT_FALSE(scale.follow(0, 10));
  EXPECT_TRUE(scale.follow(0, 10));
  EXPECT_EQ(scale.range(), (AxisRange{0, 10}));

  Autoscale settling;
  EXPECT_TRUE(settling.follow(0.2, 0.4));
  EXPECT_EQ(settling.range(), (AxisRange{0.2, 0.4})) << "the first points set it";
  EXPECT_TRUE(settling.follow(0, 1));
  settling.follow(0, 100);
  for (int i = 0; i < 59; ++i) settling.follow(0, 10);
  settling.follow(0, 93);
  for (int i = 0; i < 59; ++i) EXPECT_FALSE(settling.follow(0, 10)) << "counted anew";
  EXPECT_TRUE(settling.follow(0, 10));
  settling.reset();
  EXPECT_TRUE(settling.follow(0, 2)) << "as with the first points";
}

TEST(PlotHistory, ExtremesAgreeWithAWalkWhileItGrowsAndOldPointsAreDropped) {
  PlotHistory history;
  history.setKeepsX(true);
  history.setCapacity(PlotHistory::kMostPoints);
  EXPECT_LE(history.held(), 1024) << "what a file asks for is not reserved at once";
  history.setCapacity(3000);
  for (int i = 0; i < 15000; ++i) {
    history.append(i, i % 97 == 0 ? kNaN : (i * 7919 % 1009) - 500);
    if (i % 11 != 0) continue;
    const std::int64_t first = history.begin() + i % 130;
    Extremes walked;
    for (std::int64_t k = first; k < history.end(); ++k) walked.add(history.y(k));
    ASSERT_EQ(history.x(first), first);
    const Extremes asked = history.extremes(first, history.end());
    ASSERT_EQ(asked.lowest, walked.lowest) << i;
    ASSERT_EQ(asked.highest, walked.highest) << i;
  }
  EXPECT_EQ(history.begin(), 12000);
  EXPECT_EQ(history.held(), 3000);
}

}  // namespace
}  // namespace tarnlog
