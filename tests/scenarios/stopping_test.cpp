#include <gmock/gmock.h>

#include "tests/scenarios/Scenario.h"

namespace tarnlog {
namespace {

using test::Recipe;
using test::Scenario;
using testing::ElementsAre;

const std::string kRecord = "/rec/16-11-26_19h05mn08.txt";
const std::string kEvent = "/rec/event1_16-11-26_19h05mn08.txt";

Recipe recordedFrom1100() { return {.speed = "0:40 1100:60", .latency = 50, .start = "rising 50"}; }

void expectOver(const Scenario& car) {
  EXPECT_EQ(car.stopped, 1);
  EXPECT_EQ(car.acq.AcqState(), TarnAcq::kIdle);
  EXPECT_FALSE(car.timer.enabled());
  EXPECT_FALSE(car.acq.Recording());
  EXPECT_TRUE(car.screen.rows.empty());
}

TEST(Stopping, IsAnsweredOnceInEveryStateBetweenTicksAtOnceAndInATickWhenItEnds) {
  for (const auto state : {TarnAcq::kInitialise, TarnAcq::kWaitAfterInit, TarnAcq::kStartSessions,
                           TarnAcq::kWaitBeforePolling, TarnAcq::kCommunicate}) {
    Scenario car({.latency = 50, .started = false});
    car.acq.StartReadingData(car.parameters);
    car.tickUntil(state);
    ASSERT_EQ(car.acq.AcqState(), state);
    if (state != TarnAcq::kWaitAfterInit && state != TarnAcq::kWaitBeforePolling) {
      int asked = 0;
      car.whileWaiting = [&] {
        car.acq.AskStopAcqNow();
        ++asked;
        EXPECT_EQ(car.stopped, 0);
      };
      car.timer.fire();
      EXPECT_GT(asked, 1) << "the wait is longer than one idle interval";
      expectOver(car);
      car.whileWaiting = [] {};
      car.acq.StartReadingData(car.parameters);
      car.tickUntil(state);
      car.stopped = 0;
    }
    car.acq.AskStopAcqNow();
    expectOver(car);
    EXPECT_TRUE(car.finished.empty());
  }
}

TEST(Stopping, ClosesTheFilesOfARecordingAndItsEventInATickOrByOneMore) {
  for (const bool inTick : {true, false}) {
    Scenario car(recordedFrom1100());
    car.run("1000 1100");
    car.acq.RecordUserEvent();
    if (inTick) car.whileWaiting = [&] { car.acq.AskStopAcqNow(); };
    if (!inTick) car.acq.AskStopAcqNow();
    EXPECT_EQ(car.stopped, 0) << "files are closed by one more tick";
    car.run("1200");
    expectOver(car);
    EXPECT_THAT(car.finished, ElementsAre(kRecord, kEvent));
    EXPECT_THAT(car.rows(kRecord), ElementsAre("0|\"Start\"|60"))
        << "of an interrupted cycle there is no row";
    EXPECT_THAT(car.rows(kEvent, 1), ElementsAre("-0.1|\"\"|40", "0|\"event\"|60"));
  }
}

TEST(Stopping, ClosesAFileWhoseRecordingHasNotBegun) {
  for (const bool inTick : {true, false}) {
    Scenario car({.latency = 50});
    car.run("1000");
    const auto pressAndStop = [&] {
      car.press();
      car.acq.AskStopAcqNow();
    };
    if (inTick) car.whileWaiting = pressAndStop;
    if (!inTick) pressAndStop();
    car.run("1100");
    expectOver(car);
    EXPECT_THAT(car.finished, ElementsAre(kRecord));
    EXPECT_THAT(car.rows(kRecord), ElementsAre("0|\"Start\"|0"));
    EXPECT_THAT(car.screen.logTexts(), testing::Not(testing::Contains("Start record")));
  }
}

TEST(Stopping, LeavesNothingToTheNextAcquisition) {
  Recipe recipe = recordedFrom1100();
  recipe.period = 1;
  Scenario car(recipe);
  car.run("1000 1100");
  car.acq.RecordUserEvent();
  car.press();
  car.end();
  expectOver(car);
  // The link was closed: the simulated car begins anew, some 1.2 s later.
  car.start();
  EXPECT_EQ(car.screen.eventCaption, "Event");
  car.run("2000 2500");
  EXPECT_TRUE(car.acq.Recording());
  car.run("3500 4500");
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|60", "1|\"\"|60", "2|\"\"|60"));
  car.end();
  EXPECT_EQ(car.stopped, 2);
  car.acq.AskStopAcqNow();
  EXPECT_EQ(car.stopped, 3) << "idle, it only answers";
}

}  // namespace
}  // namespace tarnlog
