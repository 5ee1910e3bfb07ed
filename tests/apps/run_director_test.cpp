#include "apps/tarn-record/RunDirector.h"

#include <gmock/gmock.h>

#include "apps/tarn-record/ProgressLine.h"
#include "tests/support/AcqRig.h"

namespace tarnlog::record {
namespace {

using test::AcqRig;
using testing::ElementsAre;

/// Ticks every 100 ms until the acquisition ends, at most for so many seconds; returns the seconds that
/// passed.
double drive(AcqRig& rig, RunDirector& director, double seconds, double stopAt = 1e9) {
  const int steps = static_cast<int>(seconds * 10);
  for (int i = 0; i < steps; ++i) {
    director.step(i >= stopAt * 10, false);
    if (rig.stopped > 0) return i / 10.0;
    rig.timer.fire();
    rig.clock.step(100);
  }
  return seconds;
}

TEST(RunDirector, StartsAtOnceAndEndsAfterTheTime) {
  AcqRig rig;
  rig.acq.StartReadingData(rig.parameters);
  RunDirector director(rig.acq, rig.clock, {.startManually = true, .duration = 2, .recordings = 1});
  EXPECT_NEAR(drive(rig, director, 10), 2.7, 0.2)
      << "the ECUs take half a second, the time counts from the first data";
  EXPECT_EQ(rig.finished.size(), 1U);
  EXPECT_THAT(rig.recordRows().front(), testing::StartsWith("0|\"Start\"|"));
  EXPECT_THAT(rig.recordRows().back(), testing::HasSubstr("\"Stop\""));
  EXPECT_FALSE(director.nothingArrived());
}

TEST(RunDirector, RecordsAsOftenAsAskedFor) {
  AcqRig rig;
  rig.parameters->stopTrigger->typeTrigger = oTarnTrigger::kTime;
  rig.parameters->stopTrigger->timeSeconde = 1;
  rig.acq.StartReadingData(rig.parameters);
  RunDirector director(rig.acq, rig.clock, {.startManually = true, .duration = {}, .recordings = 2});
  EXPECT_LT(drive(rig, director, 20), 10);
  EXPECT_EQ(rig.finished.size(), 2U);
}

TEST(RunDirector, ASignalKeepsThePostTriggerRows) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 1;
  rig.parameters->stopTrigger->prepost = 2;
  rig.acq.StartReadingData(rig.parameters);
  RunDirector director(rig.acq, rig.clock, {.startManually = true, .duration = {}, .recordings = {}});
  drive(rig, director, 20, 4);
  EXPECT_EQ(rig.stopped, 1);
  const auto rows = rig.recordRows();
  ASSERT_GE(rows.size(), 4U);
  EXPECT_THAT(rows[rows.size() - 3], testing::HasSubstr("\"Stop\""));
}

TEST(RunDirector, ASilentEcuDoesNotKeepASignalWaiting) {
  AcqRig rig;
  rig.acq.StartReadingData(rig.parameters);
  RunDirector director(rig.acq, rig.clock, {.startManually = true, .duration = {}, .recordings = {}});
  drive(rig, director, 2);
  rig.status.failing.always("no answer");
  rig.engine.failingInit.always("no answer");
  EXPECT_LT(drive(rig, director, 5, 1), 1.5);
  EXPECT_EQ(rig.finished.size(), 1U);
}

TEST(RunDirector, TellsWhenNoDataArrivedInTime) {
  AcqRig rig;
  rig.engine.failingInit.always("no answer");
  rig.acq.StartReadingData(rig.parameters);
  RunDirector director(rig.acq, rig.clock, {.startManually = true, .duration = 2, .recordings = 1});
  EXPECT_NEAR(drive(rig, director, 10), 2, 0.2);
  EXPECT_TRUE(director.nothingArrived());
}

TEST(RunDirector, EndsWhenTheFileOfAManualStartCannotBeOpened) {
  AcqRig rig;
  rig.files.openError = "Permission denied";
  rig.acq.StartReadingData(rig.parameters);
  RunDirector director(rig.acq, rig.clock, {.startManually = true, .duration = {}, .recordings = 1});
  drive(rig, director, 3);
  EXPECT_EQ(rig.screen.recordPanel, "Open error : Permission denied");
  EXPECT_EQ(rig.stopped, 1) << "nothing can come of this run any more";
}

// A line as wide as the terminal and cut inside a character could neither be erased nor read.
TEST(ProgressLine, IsCutBetweenCharacters) {
  EXPECT_EQ(firstCharacters("été.txt", 2), "ét");
  EXPECT_EQ(firstCharacters("été", 3), "été");
  EXPECT_EQ(firstCharacters("ab", 80), "ab");
}

}  // namespace
}  // namespace tarnlog::record
