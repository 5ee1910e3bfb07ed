#include <gtest/gtest.h>

#include "DisplayFixture.h"

namespace tarnlog::test {
namespace {

TEST(DisplayBuild, GraphsShareWhatTheOtherBlocksLeave) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph);
  d.add(d.gear, oTarnScope::kDigital);
  d.add(d.load, oTarnScope::kGraph);
  EXPECT_EQ(d.build(), 0);
  EXPECT_EQ(d.frame.callsTo("GT1"),
            "width 7200; height 1380; top 0; left 1800; visible 1; enabled 1; title Speed; front; xy 0; "
            "history 500; range X 0 500; labels X 0; auto Y 1; addPlot; plotColour 1 16711680");
  // A digital block takes a graph number too.
  EXPECT_EQ(d.frame.callsTo("GT3").substr(0, 34), "width 7200; height 1380; top 1635;");
  EXPECT_EQ(d.frame.callsTo("GT2"), "");
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
  EXPECT_NE(d.frame.callsTo("VT3").find("; front"), std::string::npos);
  EXPECT_NE(d.frame.callsTo("GT1").find("addPlot; plotColour 3 65280"), std::string::npos);
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

TEST(DisplayBuild, DigitalRowsAlternateTheirGreys) {
  Display d;
  d.add(d.speed, oTarnScope::kDigital);
  d.add(d.gear, oTarnScope::kDigital, [](oTarnScope& item) { item.ChangeCaption("Selected"); });
  EXPECT_EQ(d.build(), 0);
  EXPECT_EQ(d.frame.callsTo("VT1"),
            "caption ; top 0; left 0; width 2400; visible 1; height 270; border 0; back 13684944");
  EXPECT_EQ(d.frame.callsTo("CL1"),
            "3D 1; caption Speed (km/h); tip  (km/h); top 0; height 270; left 2400; width 6600; visible 1; "
            "text 0; leftAligned; back 13684944; border 0; font MS Sans Serif 10 0 0");
  EXPECT_NE(d.frame.callsTo("VT2").find("top 270"), std::string::npos);
  EXPECT_NE(d.frame.callsTo("CL2").find("caption Selected; tip Selected; "), std::string::npos);
  EXPECT_NE(d.frame.callsTo("CL2").find("back 15790320"), std::string::npos);
}

TEST(DisplayBuild, BarIsAPixelHigherWhenBuiltThanWhenArranged) {
  Display d;
  d.add(d.gear, oTarnScope::kDigital);
  d.add(d.speed, oTarnScope::kBarGraph, [](oTarnScope& item) {
    item.oTarnSlide()->mini = 20;
    item.oTarnSlide()->maxi = 80;
  });
  EXPECT_EQ(d.build(), 0);
  EXPECT_EQ(d.frame.callsTo("SL1"),
            "width 6600; height 435; top 270; left 2400; range 20 80; title Speed (km/h); visible 1; "
            "fill 1 16711680; pointer 1 20; pointer 2 80; colour 2 2147483663; pointer 3 20; "
            "colour 3 2147483663");
  EXPECT_EQ(d.frame.callsTo("VT2"),
            "caption ; top 450; left 0; width 2400; visible 1; text 16711680; border 0");
  EXPECT_NE(d.frame.callsTo("CL2").find("top 270; height 195; left 0; width 2400"), std::string::npos);

  EXPECT_EQ(d.arrange(8000, 600), 90);
  EXPECT_EQ(d.frame.callsTo("SL1"), "top 270; left 2400; width 5600; height 420");
  EXPECT_EQ(d.frame.callsTo("CL2"), "top 270; width 2400; height 420");
  EXPECT_EQ(d.frame.callsTo("VT2"), "top 450; width 2400");
  EXPECT_EQ(d.frame.callsTo("CL1"), "top 0; left 2400; width 5600");
}

TEST(DisplayBuild, GraphOfBinaryDataShowsLogicalLevels) {
  Display d;
  d.add(d.brake, oTarnScope::kGraph, [](oTarnScope& item) { item.ChangeAxeY(false, -5, 5); });
  EXPECT_EQ(d.build(), 0);
  EXPECT_NE(d.frame.callsTo("GT1").find("height 615; top 0"), std::string::npos);
  EXPECT_NE(d.frame.callsTo("GT1").find("range Y -0.05 1.05; binary Y; auto Y 0;"), std::string::npos);
}

TEST(DisplayBuild, GraphOverAnotherDatumHasAxesOfItsOwn) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph, [](oTarnScope& item) {
    item.ChangeAxeXNbPoints(50);
    item.ChangeAxeY(false, 0, 200);
  });
  d.add(d.load, oTarnScope::kGraphAxeX, [](oTarnScope& item) { item.SetGraphAxeX("", false, 5, 95, 1); });
  d.build();
  EXPECT_NE(d.frame.callsTo("GT1").find(
                "xy 1; history 50; range X 5 95; labels X 1; caption X Load; range Y 0 200; addPlot"),
            std::string::npos);
}

TEST(DisplayBuild, LabelThatRefusesItsPlaceDoesNotStopTheBuild) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph);
  d.add(d.load, oTarnScope::kGraph);
  d.frame.calls.refused = {"VT1.top", "CL1.height", "CL1.left", "GT1.history", "VT2", "CL2.top"};
  EXPECT_THROW(d.build(), TarnError) << "the second graph's value label is missing when failures count again";
  EXPECT_NE(d.frame.callsTo("GT1").find("xy 0; range X 0 500; labels X 0"), std::string::npos);
  d.frame.calls.refused.erase("VT2");
  d.scope.ClearDisplay(d.frame);
  EXPECT_EQ(d.build(), 0);
}

TEST(DisplayBuild, FailuresBeforeTheFirstCaptionPass) {
  for (const char* refused : {"VT1", "VT1.caption", "VT1.width", "CL1", "CL1.caption"}) {
    Display d;
    d.add(d.speed, oTarnScope::kGraph);
    d.frame.calls.refused = {refused};
    EXPECT_THROW(d.build(), TarnError) << refused;
    d.scope.ClearDisplay(d.frame);
    EXPECT_EQ(d.frame.controlCount(), 0u) << refused;
  }
}

TEST(DisplayBuild, ClearingFreesEveryControlAndKeepsTheModel) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph);
  d.addCurve(d.load, 1);
  d.add(d.gear, oTarnScope::kDigital);
  d.add(d.load, oTarnScope::kBarGraph);
  d.build();
  EXPECT_EQ(d.frame.controlCount(), 10u);
  d.frame.calls.lines.clear();
  d.scope.ClearDisplay(d.frame);
  EXPECT_EQ(d.frame.controlCount(), 0u);
  EXPECT_EQ(d.frame.callsTo("GT1"), "clear");
  EXPECT_EQ(d.scope.graphes().Count(), 3u);
  EXPECT_EQ(d.arrange(5000, 3000), 0) << "nothing to place";
  EXPECT_TRUE(d.frame.calls.lines.empty());
}

}  // namespace
}  // namespace tarnlog::test
