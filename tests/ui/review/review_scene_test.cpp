#include "ui/review/ReviewScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/text/Numbers.h"
#include "tests/ui/review/TableRig.h"
#include "ui/review/DataRows.h"
#include "ui/review/FigureRows.h"
#include "ui/review/TimeTicks.h"

namespace {

using namespace tarnlog;
using namespace tarnlog::test;

std::string spanText(const ReviewScene& scene) {
  std::string text;
  appendFixed(text, scene.span().from, 2, '.');
  text += " to ";
  appendFixed(text, scene.span().till, 2, '.');
  return text;
}

TEST(ReviewSceneTest, GroupsDataByUnitAndStatesByThemselves) {
  ReviewScene scene;
  scene.addRecord(drive("a"));
  EXPECT_EQ(graphsText(scene), "Speed Wheel speed | Coolant | states Brake Gear ");
  EXPECT_EQ(spanText(scene), "0.00 to 100.00");
  EXPECT_EQ(scene.chosen(), (ReviewScene::Chosen{0, 0}));

  scene.addCurve(1, {0, 0, 0});
  scene.addCurve(1, {0, 0, 0});
  std::set<std::uint32_t> colours;
  for (const ReviewCurve& curve : scene.graphs()[1].curves) colours.insert(curve.colour);
  EXPECT_EQ(colours.size(), 2U) << "once, in a colour of its own";
  scene.choose(ReviewScene::Chosen{1, 1});
  scene.removeCurve(1, 0);
  EXPECT_EQ(scene.chosen(), (ReviewScene::Chosen{1, 0})) << "goes with its curve";
  scene.removeCurve(1, 0);
  EXPECT_EQ(graphsText(scene), "Speed Wheel speed | states Brake Gear ") << "an empty graph goes";
  scene.setX(0, CurvePlace{0, 0, 2});
  scene.addGraph({"", GraphKind::Time, {{{0, 0, 2}, {}, 0}}, {}, false, 0}, 0);
  EXPECT_EQ(graphsText(scene), "Coolant | xy Speed Wheel speed | states Brake Gear ");
}

/// A label of a datum with a unit names single numbers of it.
TEST(ReviewSceneTest, TakesTheSameDataForStatesEverywhere) {
  ReviewScene scene;
  scene.addRecord(recordOf(
      "a", {groupOf(every(1, 10), {{"Speed", "km/h", [](double t) { return t; }, {{255, 255, "none"}}},
                                   {"Gear", "", [](double t) { return t; }, {{0, 0, "Neutral"}}}})}));
  EXPECT_EQ(graphsText(scene), "Speed | states Gear ");
  DataRows rows(scene);
  rows.remove({0, 0, 0});
  rows.add({0, 0, 0});
  EXPECT_EQ(graphsText(scene), "states Gear | Speed ");
  CurveColumns columns(scene);
  FigureRows figures(scene, columns);
  figures.refresh();
  EXPECT_EQ(figures.rows()[1].figures.highest, 9) << "it is measured";
}

TEST(ReviewSceneTest, ZoomsAndPansWithinTheRecordAndGoesBack) {
  ReviewScene scene;
  unsigned told = 0;
  scene.addListener([&](unsigned changes) { told |= changes; });
  scene.zoom(0.5, 1);  // nothing to see yet
  scene.addRecord(drive("a"));
  std::string walk;
  const auto step = [&](auto&& act) {
    act();
    walk += spanText(scene) + "\n";
  };
  step([&] { scene.zoom(0.5, 80); });
  step([&] { scene.pan(1); });
  step([&] { scene.pan(-0.1, true); });
  step([&] { scene.zoom(1e-9, 65); });
  step([&] { scene.zoom(1e9, 65); });
  step([&] { scene.show({70, 20}); });
  step([&] { scene.show({std::nan(""), 20}); });
  for (int i = 0; i < 5; ++i) step([&] { scene.back(); });
  EXPECT_EQ(walk,
            "40.00 to 90.00\n50.00 to 100.00\n45.00 to 95.00\n"
            "64.84 to 65.24\n0.00 to 100.00\n20.00 to 70.00\n20.00 to 70.00\n"
            "0.00 to 100.00\n64.84 to 65.24\n45.00 to 95.00\n40.00 to 90.00\n0.00 to 100.00\n");
  EXPECT_FALSE(scene.canGoBack());
  EXPECT_EQ(told & (kRecordsChanged | kGraphsChanged | kSpanChanged | kChosenChanged),
            kRecordsChanged | kGraphsChanged | kSpanChanged | kChosenChanged);

  scene.show({20, 70});
  scene.setCursor(ReviewCursor::A, 60);
  EXPECT_EQ(scene.measured().from, 20);
  scene.setCursor(ReviewCursor::B, 40);
  EXPECT_EQ(scene.measured().from, 40);
}

/// While all is seen, what comes is seen, too; graphs follow what the columns turn out to be.
TEST(ReviewSceneTest, FollowsARecordThatGrows) {
  const auto part = [](int rows) {
    return recordOf("a", {groupOf(every(1, rows), {{"Speed", "", [](double t) { return t; }}})});
  };
  ReviewScene scene;
  scene.addRecord(part(2));
  EXPECT_EQ(graphsText(scene), "states Speed ") << "0 and 1 so far";
  scene.layOver(true);
  scene.addRecord(part(3));
  scene.updateRecord(0, part(50).table);
  EXPECT_EQ(graphsText(scene), "Speed Speed(2) ") << "also with another record over it";
  EXPECT_EQ(spanText(scene), "0.00 to 49.00");
  scene.show({10, 20});
  scene.updateRecord(0, part(100).table);
  EXPECT_EQ(spanText(scene), "10.00 to 20.00");
}

TEST(ReviewSceneTest, LaysRecordsOverEachOther) {
  ReviewScene scene;
  scene.addRecord(drive("a"));
  scene.layOver(true);
  scene.addRecord(drive("b"));
  scene.addRecord(drive("c"));
  scene.addRecord(drive("one too many"));
  EXPECT_EQ(scene.records().size(), 3U);
  EXPECT_EQ(
      graphsText(scene),
      "Speed Wheel speed Speed(2) Wheel speed(2) Speed(3) Wheel speed(3) | Coolant Coolant(2) Coolant(3) "
      "| states Brake Gear Brake(2) Gear(2) Brake(3) Gear(3) ");
  EXPECT_EQ(scene.graphs()[0].curves[2].colour, scene.graphs()[0].curves[0].colour);
  scene.setOffset(1, -30);
  EXPECT_EQ(scene.whole().from, -30);
  scene.removeRecord(1);
  EXPECT_EQ(
      graphsText(scene),
      "Speed Wheel speed Speed(2) Wheel speed(2) | Coolant Coolant(2) | states Brake Gear Brake(2) Gear(2) ");
  EXPECT_EQ(scene.span().from, 0);
  scene.layOver(false);
  EXPECT_EQ(graphsText(scene), "Speed Wheel speed | Coolant | states Brake Gear ");

  scene.setOffset(1, -30);
  scene.show({10, 20});
  scene.setCursor(ReviewCursor::A, 15);
  scene.removeRecord(0);
  EXPECT_EQ(scene.records()[0].offset, 0) << "it gives the times now";
  EXPECT_EQ(spanText(scene), "40.00 to 50.00") << "the same moments are seen";
  EXPECT_EQ(scene.cursor(ReviewCursor::A), 45);
  scene.removeRecord(0);
  EXPECT_FALSE(scene.cursor(ReviewCursor::A)) << "they are not of the next record";
}

TEST(TimeTicksTest, StandAtTimesThatPeopleCountIn) {
  const auto texts = [](TimeSpan span) {
    std::vector<std::string> result;
    for (const TimeTick& tick : timeTicks(span, 4, ',')) result.push_back(tick.text);
    return result;
  };
  using ::testing::ElementsAre;
  EXPECT_THAT(texts({-0.3, 1}), ElementsAre("0 s", "0,5 s", "1 s"));
  EXPECT_THAT(texts({-100, 100}), ElementsAre("-1 min", "0 s", "1 min"));
  EXPECT_THAT(texts({3500, 9000}), ElementsAre("1 h", "1:30 h", "2 h", "2:30 h"));
  EXPECT_LT(texts({1.7e18, 1.7e18 + 256}).size(), 10U) << "nanoseconds that were taken for seconds";
  EXPECT_THAT(texts({1.2e-5, 1.6e-5}), ElementsAre("0,000012 s", "0,000014 s", "0,000016 s"));
}

}  // namespace
