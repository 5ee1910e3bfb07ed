#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "platform/plotting/Autoscale.h"
#include "platform/plotting/AxisTicks.h"
#include "platform/plotting/CurveDrawing.h"
#include "platform/plotting/PlotHistory.h"
#include "platform/plotting/TimeGrid.h"
#include "platform/plotting/TimeLine.h"
#include "platform/plotting/TimeView.h"

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
  EXPECT_EQ(scale.range(), (AxisRange{-5, 100})) << "with a margin";
  EXPECT_FALSE(scale.follow(0, 99));
  EXPECT_TRUE(scale.follow(0, 101));
  for (int i = 0; i < 59; ++i) EXPECT_FALSE(scale.follow(0, 10));
  EXPECT_TRUE(scale.follow(0, 10));
  EXPECT_EQ(scale.range(), (AxisRange{-1, 11}));

  Autoscale settling;
  EXPECT_TRUE(settling.follow(0.2, 0.4));
  EXPECT_DOUBLE_EQ(settling.range().minimum, 0.18) << "the first points set it";
  EXPECT_TRUE(settling.follow(0, 1));
  settling.follow(0, 100);
  for (int i = 0; i < 59; ++i) settling.follow(0, 10);
  settling.follow(0, 93);
  for (int i = 0; i < 59; ++i) EXPECT_FALSE(settling.follow(0, 10)) << "counted anew";
  EXPECT_TRUE(settling.follow(0, 10));
  settling.reset();
  EXPECT_TRUE(settling.follow(0, 2)) << "as with the first points";
}

std::int64_t finite(const PlotHistory& history, std::int64_t first) {
  std::int64_t count = 0;
  for (std::int64_t k = first; k < history.end(); ++k) count += std::isfinite(history.y(k)) ? 1 : 0;
  return count;
}

Extremes walk(const PlotHistory& history, std::int64_t first) {
  Extremes walked;
  for (std::int64_t k = first; k < history.end(); ++k) walked.add(history.y(k));
  return walked;
}

TEST(PlotHistory, ExtremesAgreeWithAWalkWhileItGrowsAndOldPointsAreDropped) {
  PlotHistory history;
  history.setKeepsX(true);
  history.setCapacity(3000);
  for (int i = 0; i < 15000; ++i) {
    history.append(i, i % 97 == 0 ? kNaN : (i * 7919 % 1009) - 500);
    if (i % 11 != 0) continue;
    const std::int64_t first = history.begin() + i % 130;
    const Extremes walked = walk(history, first);
    ASSERT_EQ(history.x(first), first);
    const Extremes asked = history.extremes(first, history.end());
    ASSERT_EQ(asked.lowest, walked.lowest) << i;
    ASSERT_EQ(asked.highest, walked.highest) << i;
    ASSERT_EQ(history.ys().summary(first, history.end()).count, walked.any() ? finite(history, first) : 0);
    const std::int64_t block = PointSeries::blockWithin(i % 2000);
    const std::int64_t whole = (first + block - 1) / block * block;
    if (block == 1 || whole >= history.end()) continue;
    const Extremes ofBlocks = history.ys().extremesOfBlocks(whole, history.end(), block);
    ASSERT_EQ(ofBlocks.lowest, walk(history, whole).lowest) << i;
    ASSERT_EQ(ofBlocks.highest, walk(history, whole).highest) << i;
  }
  EXPECT_EQ(history.begin(), 12000);
  const PlotHistory copy = history;
  for (int i = 0; i < 5000; ++i) history.append(0, -1);
  EXPECT_EQ(copy.end(), 15000);
  EXPECT_EQ(copy.y(14999), (14999 * 7919 % 1009) - 500) << "a copy keeps what it had";
  EXPECT_EQ(history.extremes(0, history.end()).highest, -1);
}

/// A curve of many points a column, with a rim: in one walk, or the rim first and the curve over it.
ScrollingCanvas rimmed(const PlotHistory& points, int pen, bool oneWalk) {
  ScrollingCanvas canvas;
  canvas.resize(301, 60);
  canvas.setPen(pen);
  canvas.setFirstColumn(40);
  const ColumnScale columns(301, 301 * 9);
  const PixelScale rows = PixelScale::downwards({-500, 500}, 50);
  const TimeCurvePlace place{columns, rows, {}};
  if (oneWalk) {
    drawDenseTimeCurve(canvas, points, 0, place, {1, 2});
  } else {
    canvas.setHalo(pen);
    drawDenseTimeCurve(canvas, points, 0, place, {2});
    canvas.setHalo(0);
    drawDenseTimeCurve(canvas, points, 0, place, {1});
  }
  return canvas;
}

TEST(CurveDrawing, ARimDrawnWithItsCurveIsThatOfTwoWalks) {
  PlotHistory points;
  points.setCapacity(4000);
  // What lies on both sides of a gap has no pixels in common.
  for (int i = 0; i < 3400; ++i)
    points.append(0, i % 1500 < 100 ? kNaN : 300 * std::sin(i / 60.0) + i * 7919 % 200 - 100);
  for (const int pen : {1, 2, 3}) {
    const ScrollingCanvas one = rimmed(points, pen, true);
    const ScrollingCanvas two = rimmed(points, pen, false);
    for (std::int64_t column = one.firstColumn(); column < one.endColumn(); ++column)
      for (int row = 0; row < one.height(); ++row)
        ASSERT_EQ(one.at(column, row), two.at(column, row)) << pen << ": " << column << ", " << row;
  }
}

TEST(TimeLine, KnowsWhenPointsCameAndWhereTheyFailedTo) {
  TimeLine times;
  times.setCapacity(100);
  double now = 5000;
  const auto come = [&](double step) { times.append(now += step); };
  for (int i = 0; i < 10; ++i) come(50);
  EXPECT_EQ(times.usualStep(), 50);
  EXPECT_EQ(times.pointAt(5075), 0.5);
  come(3000);
  ASSERT_EQ(times.pauses().size(), 1U);
  EXPECT_EQ(times.pauses()[0].before, 10);
  EXPECT_EQ(times.pauses()[0].length, 3000);
  EXPECT_EQ(times.pointAt(now - 1000), std::nullopt) << "nothing came then";
  for (int i = 0; i < 8; ++i) come(500);
  EXPECT_EQ(times.usualStep(), 500);
  EXPECT_LE(times.pauses().size(), 4U) << "a new rate is the usual one soon";
  come(-4000);
  EXPECT_FALSE(times.knows(10)) << "the clock went back: better no time than a wrong one";
  EXPECT_EQ(times.pointAt(5100), std::nullopt);
  for (int i = 0; i < 200; ++i) come(50);
  EXPECT_LE(times.pauses().size(), 2U) << "those of dropped points are dropped";
}

TEST(TimeGrid, StandsAtWholeTimesBeforeTheNewestPoint) {
  TimeLine times;
  times.setCapacity(2000);
  const auto lines = [&](double first, double last, int atMost) {
    TimeGrid grid;
    std::string text;
    for (const TimeGridLine& line : grid.lines(times, first, last, atMost))
      text += durationText(line.ago, ',') + " at " + std::to_string(std::lround(line.point)) + "; ";
    return text;
  };
  times.append(0);
  EXPECT_EQ(lines(0, 1, 4), "");
  for (int i = 1; i <= 1000; ++i) times.append(i * 100);
  EXPECT_EQ(lines(0, 1000, 4), "30 s at 700; 1 min at 400; 1:30 min at 100; ");
  EXPECT_EQ(lines(900, 910, 2), "9 s at 910; 9,5 s at 905; 10 s at 900; ")
      << "zoomed in, still before the newest";
  EXPECT_EQ(lines(0, 1000, 0), "");
  EXPECT_EQ(lines(1001, 1100, 4), "") << "behind all points";
  for (int i = 0; i <= 100; ++i) times.append(i * 100);
  EXPECT_EQ(lines(1001, 1101, 4), "5 s at 1051; 10 s at 1001; ");
  EXPECT_EQ(lines(0, 1000, 4), "") << "the clock went back";

  TimeGrid steady;
  for (const double first : {1061, 1059, 1061, 1059})
    EXPECT_EQ(steady.lines(times, first, 1101, 4).size(), 4U) << "a span that jitters keeps its step";
}

TEST(TimeGrid, WritesDurationsThatDifferAsTextsThatDo) {
  std::string texts;
  for (const int each : {50, 60'000, 65'500, 5'400'000, 7'200'000, 11'710'000, 3'645'300})
    texts += durationText(each, ',') + "; ";
  EXPECT_EQ(texts, "0,05 s; 1 min; 1:05,5 min; 1:30 h; 2 h; 3:15:10 h; 1:00:45,3 h; ");
}

TEST(TimeView, ZoomsAroundAPointAndStaysWithinWhatIsKept) {
  const PointSpan kept{100, 1100};
  const TimeView half = zoomed(wholeView(kept), 0.5, 600, kept);
  EXPECT_EQ(half, (TimeView{350, 500}));
  EXPECT_EQ(panned(half, -1e9, kept), (TimeView{100, 500}));
  EXPECT_EQ(panned(half, 1e9, kept), (TimeView{600, 500}));
  EXPECT_EQ(zoomed(half, 1e9, 600, kept), wholeView(kept));
  EXPECT_EQ(zoomed(half, 1e-9, 600, kept).count, 4);
  EXPECT_EQ(zoomed({0, 1}, 0.1, 0, {0, 2}), wholeView({0, 2}));
}

}  // namespace
}  // namespace tarnlog
