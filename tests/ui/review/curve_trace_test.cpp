#include "ui/review/CurveTrace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "platform/text/Numbers.h"
#include "tests/ui/review/TableRig.h"

namespace {

using namespace tarnlog;
using namespace tarnlog::test;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

CurveTrace traced(const ReviewScene& scene, const ReviewCurve& curve, TimeSpan span, int columns) {
  SeenRecords seen;
  seen.see({span, columns});
  CurveTrace trace;
  traceOverTime(scene, curve, seen, trace);
  return trace;
}

/// "0,5 1,6 / 3,7": x and y of points; a stroke where the line is broken.
std::string text(const CurveTrace& trace) {
  std::string result;
  for (const CurveTrace::Point& point : trace.points) {
    if (!result.empty()) result += " ";
    if (std::isnan(point.y))
      result += "/";
    else
      result += numberText(point.x, {}) + "," + numberText(point.y, {});
  }
  return result;
}

TEST(CurveTraceTest, IsExactWhereRowsAreFewAndEndsBesideWhatIsSeen) {
  ReviewScene scene;
  scene.addRecord(recordOf("a",
                           {groupOf({0, 1, 2, 3, 4, 5, 20, 21, 22, 23},
                                    {{"Speed", "", [](double t) { return t == 2 ? kNone : 10 * t; }}})},
                           {{RecordNote::Kind::Gap, 22.2, 22.8, 0, ""}}));
  const ReviewCurve speed{{0, 0, 0}, {}, 0};
  EXPECT_EQ(text(traced(scene, speed, {0, 23}, 23)),
            "0,0 1,10 / 3,30 4,40 5,50 / 20,200 21,210 22,220 / 23,230")
      << "broken at a missing number, a pause and a gap that the record tells";
  const CurveTrace between = traced(scene, speed, {3.4, 3.6}, 100);
  EXPECT_EQ(text(between), "-16,33.68 116,36.32") << "a line through all, cut near its ends";
  EXPECT_EQ(between.lowest, 33.68) << "there is no row to scale by";
  EXPECT_EQ(text(traced(scene, speed, {10, 15}, 10)), "-10,50 / 20,200") << "nothing inside a pause";
}

/// One row in a million that stands out is seen at every zoom; whatever is not there breaks the line.
TEST(CurveTraceTest, KeepsLowestAndHighestOfManyRows) {
  constexpr int kRows = 1'000'000;
  ReviewScene scene;
  scene.addRecord(recordOf("a", {groupOf(every(0.001, kRows), {{"Spike", "V", [](double t) {
                                                                  if (t > 300 && t < 400) return kNone;
                                                                  return std::abs(t - 777.777) < 1e-7
                                                                             ? 99
                                                                             : std::fmod(t, 2);
                                                                }}})}));
  const ReviewCurve spike{{0, 0, 0}, {}, 0};
  for (const double half : {222.0, 50.0, 3.0, 0.1}) {
    const CurveTrace trace = traced(scene, spike, {777.777 - half, 777.777 + half}, 500);
    EXPECT_EQ(trace.highest, 99) << half;
    EXPECT_LE(trace.points.size(), 2010U) << half;
  }
  const CurveTrace all = traced(scene, spike, {0, 1000}, 500);
  EXPECT_EQ(std::ranges::count_if(all.points, [](auto& each) { return std::isnan(each.y); }), 1);
  for (const CurveTrace::Point& point : all.points)
    EXPECT_TRUE(std::isnan(point.y) || point.x < 151 || point.x > 199) << point.x;
}

TEST(CurveTraceTest, TakesTheDifferenceToTheRowThatHoldsThen) {
  ReviewScene scene;
  scene.addRecord(recordOf("a", {groupOf({0, 1, 2, 3}, {{"Speed", "", [](double t) { return 10 * t; }}})}));
  LookedAtRecord other = recordOf("b", {groupOf({0, 2}, {{"Speed", "", [](double t) { return t; }}})});
  other.offset = 0.5;
  scene.addRecord(other);
  const ReviewCurve difference{{0, 0, 0}, CurvePlace{1, 0, 0}, 0};
  EXPECT_EQ(text(traced(scene, difference, {0, 3}, 3)), "1,10 2,20 /");

  CurveTrace pairs;
  SeenRecords seen;
  seen.see({{1, 3}, 100});
  traceOverValues(scene, {{0, 0, 0}, {}, 0}, {1, 0, 0}, seen, pairs);
  EXPECT_EQ(text(pairs), "0,10 0,20 /");
}

/// Times that became those of the scene are not quite the rows' own when they are turned back.
TEST(CurveTraceTest, FindsTheRowsOfARecordThatIsMovedByAnOddTime) {
  std::vector<double> times = every(0.1, 200);
  ReviewScene scene;
  scene.addRecord(
      recordOf("a", {groupOf(times, {{"Speed", "", [](double t) { return std::round(10 * t); }}})}));
  for (double& time : times) time += 3.37;
  LookedAtRecord other =
      recordOf("b", {groupOf(times, {{"Speed", "", [](double t) { return std::round(10 * t - 33.7); }}})});
  other.offset = -3.37;
  scene.addRecord(other);
  const CurveTrace difference = traced(scene, {{0, 0, 0}, CurvePlace{1, 0, 0}, 0}, {0, 10}, 200);
  EXPECT_EQ(difference.lowest, 0);
  EXPECT_EQ(difference.highest, 0);
  for (std::int64_t row = 0; row < 200; ++row) {
    const double time = scene.group({1, 0, 0}).times[row] + other.offset;
    EXPECT_EQ(scene.rowUpTo({1, 0, 0}, time), row);
    EXPECT_EQ(scene.rowFrom({1, 0, 0}, time), row);
    EXPECT_EQ(scene.rowAt({1, 0, 0}, time), row);
  }
  EXPECT_EQ(scene.rowAt({1, 0, 0}, 30), std::nullopt);
}

TEST(StateBandsTest, AreAsLongAsAStateHolds) {
  ReviewScene scene;
  std::vector<double> times = every(1, 40);
  times.push_back(100);  // after a pause
  scene.addRecord(recordOf(
      "a",
      {groupOf(times, {{"Brake", "", [](double t) { return t >= 10 && t < 20 ? 1.0 : 0.0; }},
                       {"Gear", "", [](double t) { return std::floor(t / 20); }, {{0, 0, "Neutral"}}}})}));
  const auto bands = [&](std::size_t column, int columns) {
    SeenRecords seen;
    seen.see({{0, 100}, columns});
    std::string result;
    for (const StateBand& band : statesOverTime(scene, {0, 0, column}, seen)) {
      const char* const kinds[] = {"off", "on", "", "changing"};
      result += std::to_string(band.from) + "-" + std::to_string(band.till) + " " +
                kinds[static_cast<std::size_t>(band.kind)] + band.label + ", ";
    }
    return result;
  };
  EXPECT_EQ(bands(0, 200), "0-20 off, 20-40 on, 40-79 off, 199-200 off, ");
  EXPECT_EQ(bands(1, 200), "0-40 Neutral, 40-79 1, 199-200 5, ");
  EXPECT_EQ(bands(0, 4), "0-1 changing, 1-2 off, 3-4 off, ");
}

}  // namespace
