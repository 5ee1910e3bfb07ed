#include <gtest/gtest.h>

#include "DisplayFixture.h"

namespace tarnlog::test {
namespace {

/// What one refresh asked of the controls.
std::vector<std::string> refresh(Display& d) {
  d.frame.calls.lines.clear();
  d.scope.RefreshDisplay();
  return d.frame.calls.lines;
}

using Lines = std::vector<std::string>;

TEST(DisplayUpdate, EachPlotGetsOnePointInCurveOrder) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph);
  d.addCurve(d.brake, 1);
  d.addCurve(d.gear, 1);
  d.add(d.gear, oTarnScope::kDigital);
  d.build();
  d.speed.setValue(12.5, "12.50 km/h");
  d.brake.setValue(std::int32_t{1}, "Pressed");
  d.gear.setValue(std::string("R"), "R");
  EXPECT_EQ(refresh(d), (Lines{"GT1.chart 1 12.5", "VT1.caption 12.50 km/h", "GT1.chart 2 1",
                               "VT2.caption Pressed", "GT1.chart 3 nan", "VT3.caption R", "VT4.caption R"}));
}

TEST(DisplayUpdate, CurvesOfAnXYGraphShareTheirX) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph);
  d.addCurve(d.brake, 1);
  d.add(d.load, oTarnScope::kGraphAxeX, [](oTarnScope& item) { item.oTarnGraphAxeX()->index = 1; });
  d.build();
  d.speed.setValue(12.5, "");
  d.brake.setValue(std::int32_t{1}, "");
  d.load.setValue(30.0, "");
  EXPECT_EQ(refresh(d), (Lines{"GT1.plot 1 30 12.5", "VT1.caption ", "GT1.plot 2 30 1", "VT2.caption "}));
}

TEST(DisplayUpdate, MarkersCloseInOnTheRangeSeenAndTurnRedBeyondTheAxis) {
  Display d;
  d.add(d.speed, oTarnScope::kBarGraph);
  d.build();
  const auto feed = [&](double value) {
    d.speed.setValue(value, "");
    refresh(d);
    return d.frame.callsTo("SL1");
  };
  EXPECT_EQ(feed(40), "value 40; pointer 2 40; pointer 3 40");
  EXPECT_EQ(feed(60), "value 60; pointer 3 60");
  EXPECT_EQ(feed(50), "value 50");
  EXPECT_EQ(feed(std::numeric_limits<double>::quiet_NaN()), "value nan");
  EXPECT_EQ(feed(100), "value 100; pointer 3 100") << "the end of the axis is not beyond it";
  EXPECT_EQ(feed(0), "value 0; pointer 2 0");
  EXPECT_EQ(feed(120), "value 120; pointer 3 100; colour 3 255");
  EXPECT_EQ(feed(-1), "value -1; pointer 2 0; colour 2 255");
  EXPECT_EQ(feed(50), "value 50") << "never reset";
}

TEST(DisplayUpdate, AFailurePassesAndLaterBlocksWait) {
  Display d;
  d.add(d.speed, oTarnScope::kDigital);
  d.add(d.gear, oTarnScope::kDigital);
  d.build();
  d.frame.calls.refused = {"VT1.caption"};
  EXPECT_THROW(refresh(d), TarnError);
  EXPECT_TRUE(d.frame.calls.lines.empty());
}

}  // namespace
}  // namespace tarnlog::test
