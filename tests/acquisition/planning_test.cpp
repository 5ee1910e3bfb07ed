#include <gtest/gtest.h>

#include <limits>

#include "acquisition/FileNames.h"
#include "acquisition/LevelTrigger.h"
#include "acquisition/RecordingPlan.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog {
namespace {

TEST(Points, WholePeriodsPlusOneWhenMoreThanATenthRemains) {
  EXPECT_EQ(pointsFor(-3, 2), 2);
  EXPECT_EQ(pointsFor(-3, 0), 6);
  EXPECT_EQ(pointsFor(-4, 4), 1);
  EXPECT_EQ(pointsFor(11, 10), 1) << "a tenth exactly is not more than a tenth";
  EXPECT_EQ(pointsFor(12, 10), 2);
  EXPECT_EQ(pointsFor(0, 1), 0);
  EXPECT_EQ(pointsFor(std::numeric_limits<std::int32_t>::min(), 0), 4294967296);
}

TEST(Plan, RefusesTimesThatOverflowTheClock) {
  MemorySettingsStore settings;
  oTarnParameters parameters(settings);
  parameters.startTrigger->prepost = 5;
  EXPECT_EQ(planRecording(parameters, 3).preTriggerPoints, 0);
  parameters.recordingPeriod = 2147484;
  EXPECT_THROW(planRecording(parameters, 3), TarnError);
  parameters.recordingPeriod = 0;
  parameters.startTrigger->prepost = -2000000;
  EXPECT_THROW(planRecording(parameters, 1000), TarnError);
  parameters.startTrigger->prepost = 0;
  parameters.stopTrigger->typeTrigger = oTarnTrigger::kTime;
  parameters.stopTrigger->timeSeconde = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(
      test::errorOf([&] { planRecording(parameters, 3); }),
      "1 TarnAcq.StartReadingData: Stop time of 2147483647 s is too long, at most 2147483 s are possible");
}

std::string firings(std::int32_t edge, std::initializer_list<ferrox3::Value> values) {
  test::ScriptedSession session;
  auto& data = session.addEcu("E", "F", 1).addRequest("R").addData("D");
  LevelTrigger trigger(&data, edge, 50);
  std::string fired;
  for (const ferrox3::Value& value : values) {
    data.setValue(value);
    fired += trigger.evaluate() ? '!' : '.';
  }
  return fired;
}

TEST(LevelTrigger, FiresWhenTheLevelIsCrossedBetweenTwoValues) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(firings(1, {40.0, 49.0, 50.0, 60.0}), "..!.");
  EXPECT_EQ(firings(1, {80.0, 40.0, 60.0}), "..!") << "the first value cannot fire";
  EXPECT_EQ(firings(-1, {60.0, 50.0, 40.0}), ".!.");
  EXPECT_EQ(firings(0, {40.0, 60.0, 40.0}), "...");
  EXPECT_EQ(firings(1, {std::int32_t{40}, std::int32_t{50}}), ".!");
  EXPECT_EQ(firings(1, {40.0, nan, 60.0}), "..!") << "a gap does not hide the crossing";
  EXPECT_EQ(firings(1, {std::string("40"), std::string("60")}), "..");
  EXPECT_FALSE(LevelTrigger(nullptr, 1, 50).evaluate());
}

TEST(FileNames, AreMadeOfDateAndConfiguration) {
  const LocalDateTime evening{2026, 11, 16, 19, 5, 7};
  const LocalDateTime newYear{2027, 1, 2, 0, 0, 0};
  EXPECT_EQ(recordBaseName(evening, ".txt", {}), "16-11-26_19h05mn07.txt");
  EXPECT_EQ(recordBaseName(newYear, ".XML", {}), "2-1-27_00h00mn00.XML");
  EXPECT_EQ(looseEventName(evening, ".txt", {}), "event_16-11-26__19h05mn07.txt");
  EXPECT_EQ(recordEventName(2, "16-11-26_19h05mn07.txt"), "event2_16-11-26_19h05mn07.txt");
  EXPECT_EQ(numberedName("a.xml", ".xml", 2), "a_2.xml");
}

}  // namespace
}  // namespace tarnlog
