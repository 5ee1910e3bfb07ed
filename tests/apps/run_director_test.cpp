#include "apps/tarn-record/RunDirector.h"

#include <gmock/gmock.h>

#include "apps/tarn-record/ProgressLine.h"
#include "tests/support/AcqRig.h"

namespace tarnlog::record {
namespace {

using test::AcqRig;

/// A run of the recorder without a person.
struct DirectedRun : AcqRig {
  explicit DirectedRun(RunLimits limits) : director(acq, clock, limits) {}

  /// Ticks every 100 ms until the acquisition ends, at most for so many seconds; returns the seconds that
  /// passed. A signal comes after `stopAt` seconds.
  double drive(int seconds, int stopAt = 1000) {
    if (acq.AcqState() == TarnAcq::kIdle) acq.StartReadingData(parameters);
    for (int i = 0; i < seconds * 10; ++i) {
      director.step(i >= stopAt * 10, false);
      if (stopped > 0) return i / 10.0;
      timer.fire();
      clock.step(100);
    }
    return seconds;
  }

  RunDirector director;
};

TEST(RunDirector, StartsAtOnceAndEndsAfterTheTime) {
  DirectedRun run({.startManually = true, .duration = 2, .recordings = 1});
  EXPECT_NEAR(run.drive(10), 2.7, 0.2) << "the ECUs take half a second, the time counts from the first data";
  EXPECT_EQ(run.finished.size(), 1U);
  EXPECT_THAT(run.recordRows().front(), testing::StartsWith("0|\"Start\"|"));
  EXPECT_THAT(run.recordRows().back(), testing::HasSubstr("\"Stop\""));
  EXPECT_FALSE(run.director.nothingArrived());
}

TEST(RunDirector, RecordsAsOftenAsAskedFor) {
  DirectedRun run({.startManually = true, .duration = {}, .recordings = 2});
  run.parameters->stopTrigger->typeTrigger = oTarnTrigger::kTime;
  run.parameters->stopTrigger->timeSeconde = 1;
  EXPECT_LT(run.drive(20), 10);
  EXPECT_EQ(run.finished.size(), 2U);
}

TEST(RunDirector, ASignalKeepsThePostTriggerRowsButWaitsForNoSilentEcu) {
  const RunLimits endless{.startManually = true, .duration = {}, .recordings = {}};
  DirectedRun run(endless);
  run.parameters->recordingPeriod = 1;
  run.parameters->stopTrigger->prepost = 2;
  run.drive(20, 4);
  EXPECT_EQ(run.stopped, 1);
  const auto rows = run.recordRows();
  ASSERT_GE(rows.size(), 4U);
  EXPECT_THAT(rows[rows.size() - 3], testing::HasSubstr("\"Stop\""));

  DirectedRun silent(endless);
  silent.drive(2);
  silent.status.failing.always("no answer");
  silent.engine.failingInit.always("no answer");
  EXPECT_LT(silent.drive(5, 1), 1.5);
  EXPECT_EQ(silent.finished.size(), 1U);
}

TEST(RunDirector, EndsWhenNothingCanComeOfIt) {
  DirectedRun silent({.startManually = true, .duration = 2, .recordings = 1});
  silent.engine.failingInit.always("no answer");
  EXPECT_NEAR(silent.drive(10), 2, 0.2);
  EXPECT_TRUE(silent.director.nothingArrived());

  DirectedRun refused({.startManually = true, .duration = {}, .recordings = 1});
  refused.files.openError = "Permission denied";
  EXPECT_LT(refused.drive(3), 3) << "the file of a manual start cannot be opened";
}

// A line as wide as the terminal and cut inside a character could neither be erased nor read.
TEST(ProgressLine, IsCutBetweenCharacters) {
  EXPECT_EQ(firstCharacters("été.txt", 2), "ét");
  EXPECT_EQ(firstCharacters("été", 3), "été");
  EXPECT_EQ(firstCharacters("ab", 80), "ab");
}

}  // namespace
}  // namespace tarnlog::record
