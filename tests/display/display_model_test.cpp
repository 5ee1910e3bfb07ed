#include <gtest/gtest.h>

#include "DisplayFixture.h"
#include "tests/support/FailureOf.h"

namespace tarnlog::test {
namespace {

TEST(DisplayModel, PhysicalGraphsAreThoseWithACurveThatIsNotBinary) {
  Display d;
  ScriptedData& threeLevels = d.request.addData("Levels", ferrox3::kInteger, "", 0, 2);
  ScriptedData& fraction = d.request.addData("Fraction", ferrox3::kDouble, "", 0, 1);
  d.add(d.brake, oTarnScope::kGraph);
  EXPECT_EQ(d.scope.graphes().Item(1).grapheType(), 0);
  EXPECT_EQ(d.scope.graphes().CountScopePhysical(), 0);
  d.addCurve(fraction, 1);
  EXPECT_EQ(d.scope.graphes().Item(1).grapheType(), 1);
  EXPECT_EQ(d.scope.graphes().Item(1).hauteur, 600);
  d.add(threeLevels, oTarnScope::kGraph);
  d.add(d.speed, oTarnScope::kDigital);
  d.add(d.speed, oTarnScope::kBarGraph);
  EXPECT_EQ(d.scope.graphes().CountScopePhysical(), 2);
  EXPECT_EQ(d.scope.graphes().CountSlide(), 1);
  EXPECT_EQ(d.scope.graphes().HeightNoScopeGraphe(), 600 + 270 + 420);
}

TEST(DisplayModel, OnlyAGraphTakesCurves) {
  Display d;
  GrapheItem& digital = d.scope.graphes().Add(GrapheItem::kDigital, "");
  EXPECT_EQ(errorOf([&] { digital.addcourbe(d.speed, 0, ""); }),
            "1 GrapheItem.addcourbe: Enable to add a item when mode is not Scope");
  EXPECT_FALSE(digital.courbes);
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

TEST(DisplayModel, TheLastXAxisOfAGraphHolds) {
  Display d;
  d.add(d.speed, oTarnScope::kGraph);
  d.add(d.brake, oTarnScope::kGraphAxeX, [](oTarnScope& item) { item.oTarnGraphAxeX()->index = 1; });
  d.add(d.load, oTarnScope::kGraphAxeX,
        [](oTarnScope& item) { item.SetGraphAxeX("Throttle", false, 5, 95, 1); });
  const GrapheItem& graphe = d.scope.graphes().Item(1);
  EXPECT_EQ(graphe.xData, &d.load);
  EXPECT_EQ(graphe.xcaption, "Throttle");
  EXPECT_FALSE(graphe.xautoscale);
  EXPECT_EQ(graphe.xmini, 5);
  EXPECT_EQ(graphe.xmaxi, 95);
}

}  // namespace
}  // namespace tarnlog::test
