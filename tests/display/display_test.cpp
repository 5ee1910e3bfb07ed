#include <gmock/gmock.h>

#include "DisplayFixture.h"

namespace tarnlog::test {
namespace {

using testing::HasSubstr;

TEST(DisplayBuild, MakesPlacesAndFreesEveryKindOfBlock) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph);
  d.add(d.speed, oTarnScope::kDigital);
  d.add(d.gear, oTarnScope::kDigital, [](oTarnScope& item) { item.ChangeCaption("Selected"); });
  d.add(d.load, oTarnScope::kBarGraph, [](oTarnScope& item) {
    item.oTarnSlide()->mini = 20;
    item.oTarnSlide()->maxi = 80;
  });
  d.add(d.load, oTarnScope::kGraph);
  EXPECT_EQ(d.build(), 0);
  EXPECT_EQ(d.frame.callsTo("GT1"),
            "width 7200; height 1035; top 0; left 1800; visible 1; enabled 1; title Speed; front; xy 0; "
            "history 500; range X 0 500; labels X 0; auto Y 1; addPlot; plotColour 1 16711680");
  EXPECT_EQ(d.frame.callsTo("VT2"),
            "caption ; top 1020; left 0; width 2400; visible 1; height 270; border 0; back 15790320");
  EXPECT_EQ(
      d.frame.callsTo("CL2"),
      "3D 1; caption Speed (km/h); tip  (km/h); top 1020; height 270; left 2400; width 6600; visible 1; "
      "text 0; leftAligned; back 15790320; border 0; font MS Sans Serif 10 0 0");
  EXPECT_THAT(d.frame.callsTo("VT3"), HasSubstr("top 1290"));
  EXPECT_THAT(d.frame.callsTo("CL3"), HasSubstr("caption Selected; tip Selected; "));
  EXPECT_THAT(d.frame.callsTo("CL3"), HasSubstr("back 13684944")) << "greys alternate";
  EXPECT_EQ(d.frame.callsTo("SL1"),
            "width 6600; height 435; top 1560; left 2400; range 20 80; title Load (%); visible 1; "
            "fill 1 16711680; pointer 1 20; pointer 2 80; colour 2 2147483663; pointer 3 20; "
            "colour 3 2147483663");
  EXPECT_EQ(d.frame.callsTo("VT4"),
            "caption ; top 1740; left 0; width 2400; visible 1; text 16711680; border 0");
  EXPECT_THAT(d.frame.callsTo("CL4"), HasSubstr("top 1560; height 195; left 0; width 2400"));
  EXPECT_EQ(d.frame.callsTo("GT2") + d.frame.callsTo("GT3"), "")
      << "a digital block takes a graph number too";
  EXPECT_THAT(d.frame.callsTo("GT4"), HasSubstr("height 1035; top 1980;"));

  EXPECT_EQ(d.arrange(8000, 600), 1560);
  EXPECT_EQ(d.frame.callsTo("SL1"), "top 1140; left 2400; width 5600; height 420")
      << "a pixel less than built";
  EXPECT_EQ(d.frame.callsTo("CL4"), "top 1140; width 2400; height 420");
  EXPECT_EQ(d.frame.callsTo("VT4"), "top 1320; width 2400");
  EXPECT_EQ(d.frame.callsTo("CL2"), "top 600; left 2400; width 5600");

  d.frame.calls.lines.clear();
  d.scope.ClearDisplay(d.frame);
  EXPECT_EQ(d.frame.controlCount(), 0u);
  EXPECT_EQ(d.frame.callsTo("GT1"), "clear");
  EXPECT_EQ(d.scope.graphes().Count(), 5u);
  EXPECT_EQ(d.arrange(5000, 3000), 0) << "nothing to place";
  EXPECT_TRUE(d.frame.calls.lines.empty());
}

TEST(DisplayBuild, LabelsOfCurvesStackInBands) {
  Display d;
  d.frame.setHeight(1350);
  d.add(d.speed, oTarnScope::kGraph, [](oTarnScope& item) { item.oTarnGraph()->Caption = "Front"; });
  d.addCurve(d.load, 1);
  d.addCurve(d.brake, 1);
  EXPECT_EQ(d.build(), 0);
  EXPECT_EQ(d.frame.callsTo("VT2"), "caption ; top 660; left 0; width 1800; visible 1; text 65280; border 0");
  EXPECT_EQ(d.frame.callsTo("CL1"),
            "caption Front (km/h); top 0; height 225; left 0; width 1800; visible 1; text 16711680");
  EXPECT_EQ(d.frame.callsTo("CL2"),
            "caption Load (%); top 450; height 225; left 0; width 1800; visible 1; text 65280");
  EXPECT_EQ(d.frame.callsTo("VT3").substr(0, 19), "caption ; top 1110;");
  EXPECT_THAT(d.frame.callsTo("VT3"), HasSubstr("; front"));
  EXPECT_THAT(d.frame.callsTo("GT1"), HasSubstr("addPlot; plotColour 3 65280"));
}

TEST(DisplayBuild, GraphsKeepAMinimumHeightAndTheRestIsReported) {
  Display d;
  d.frame.setHeight(1000);
  d.add(d.speed, oTarnScope::kGraph);
  d.add(d.load, oTarnScope::kGraph);
  EXPECT_EQ(d.build(), 200);
  // Too narrow a band for both labels: the caption keeps the whole of it.
  EXPECT_EQ(d.arrange(9000, 1289), 0);
  EXPECT_EQ(d.frame.callsTo("GT2"), "height 645; top 630; width 7200")
      << "1289 / 2 is 644, halves to even, and 42 whole pixels";
}

TEST(DisplayBuild, GraphsOfBinaryDataShowLogicalLevelsAndOthersTheAxesOfTheirSettings) {
  Display d;
  d.add(d.brake, oTarnScope::kGraph, [](oTarnScope& item) { item.ChangeAxeY(false, -5, 5); });
  d.add(d.speed, oTarnScope::kGraph, [](oTarnScope& item) {
    item.ChangeAxeXNbPoints(50);
    item.ChangeAxeY(false, 0, 200);
  });
  d.add(d.load, oTarnScope::kGraphAxeX, [](oTarnScope& item) { item.SetGraphAxeX("", false, 5, 95, 2); });
  EXPECT_EQ(d.build(), 0);
  EXPECT_THAT(d.frame.callsTo("GT1"), HasSubstr("height 615; top 0"));
  EXPECT_THAT(d.frame.callsTo("GT1"), HasSubstr("range Y -0.05 1.05; binary Y; auto Y 0;"));
  EXPECT_THAT(d.frame.callsTo("GT2"), HasSubstr("xy 1; history 50; range X 5 95; labels X 1; caption X Load; "
                                                "range Y 0 200; addPlot"));
}

TEST(DisplayModel, ReferencesFindOnlyEarlierGraphs) {
  Display d;
  d.addCurve(d.load, 3);  // its graph comes later
  d.add(d.gear, oTarnScope::kDigital);
  d.add(d.speed, oTarnScope::kGraph);
  d.addCurve(d.load, -1);  // what a digital block has for an index
  d.addCurve(d.load, 2);   // not a graph
  EXPECT_EQ(d.scope.graphes().Count(), 2u);
  EXPECT_EQ(d.scope.graphes().Item(2).courbes->Count(), 1u);
  d.addCurve(d.load, 3);
  EXPECT_EQ(d.scope.graphes().Item(2).courbes->Item(2).Color, 0x00FF00u);
}

/// What one refresh asked of the controls.
std::vector<std::string> refresh(Display& d) {
  d.frame.calls.lines.clear();
  d.scope.RefreshDisplay();
  return d.frame.calls.lines;
}

using Lines = std::vector<std::string>;

TEST(DisplayUpdate, EachPlotGetsOnePointInCurveOrderOrOverTheDataOfItsXAxis) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph);
  d.addCurve(d.brake, 1);
  d.addCurve(d.gear, 1);
  d.add(d.gear, oTarnScope::kDigital);
  d.add(d.speed, oTarnScope::kGraph);
  d.addCurve(d.brake, 5);
  for (ScriptedData* const x : {&d.brake, &d.load})  // the last one holds
    d.add(*x, oTarnScope::kGraphAxeX, [](oTarnScope& item) { item.oTarnGraphAxeX()->index = 5; });
  d.build();
  d.speed.setValue(12.5, "12.50 km/h");
  d.brake.setValue(std::int32_t{1}, "Pressed");
  d.gear.setValue(std::string("R"), "R");
  d.load.setValue(30.0, "");
  EXPECT_EQ(refresh(d),
            (Lines{"GT1.chart 1 12.5", "VT1.caption 12.50 km/h", "GT1.chart 2 1", "VT2.caption Pressed",
                   "GT1.chart 3 nan", "VT3.caption R", "VT4.caption R", "GT3.plot 1 30 12.5",
                   "VT5.caption 12.50 km/h", "GT3.plot 2 30 1", "VT6.caption Pressed"}));
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

}  // namespace
}  // namespace tarnlog::test
