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
  const auto plan = [&] { return planRecording(parameters, 1000); };
  parameters.startTrigger->prepost = 5;
  EXPECT_EQ(plan().preTriggerPoints, 0);
  parameters.recordingPeriod = 2147484;
  EXPECT_THROW(plan(), TarnError);
  parameters.recordingPeriod = 0;
  parameters.startTrigger->prepost = -2000000;
  EXPECT_THROW(plan(), TarnError);
  *parameters.stopTrigger = {1, oTarnTrigger::kTime, 0, true, std::numeric_limits<std::int32_t>::max(), 0, 0,
                             0};
  parameters.startTrigger->prepost = 0;
  EXPECT_EQ(
      test::errorOf(plan),
      "1 TarnAcq.StartReadingData: Stop time of 2147483647 s is too long, at most 2147483 s are possible");
}

TEST(LevelTrigger, FiresOnNumbersWithAnEdgeOnly) {
  EXPECT_FALSE(LevelTrigger(nullptr, 1, 50).evaluate());
  test::ScriptedSession session;
  auto& data = session.addEcu("E", "F", 1).addRequest("R").addData("D");
  LevelTrigger rising(&data, 1, 50);
  LevelTrigger never(&data, 0, 50);
  std::string fired;
  for (const ferrox3::Value& value :
       {ferrox3::Value(80.0), {40.0}, {std::int32_t{50}}, {std::string("60")}}) {
    data.setValue(value);
    fired += rising.evaluate() ? '!' : '.';
    EXPECT_FALSE(never.evaluate());
  }
  EXPECT_EQ(fired, "..!.");
}

TEST(FileNames, HaveDaysWithoutAndTimesWithZeros) {
  EXPECT_EQ(recordBaseName({2027, 1, 2, 0, 0, 0}, ".XML", {}), "2-1-27_00h00mn00.XML");
}

}  // namespace
}  // namespace tarnlog
