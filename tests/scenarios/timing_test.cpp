#include <gmock/gmock.h>

#include "tests/scenarios/Scenario.h"

namespace tarnlog {
namespace {

using test::Scenario;
using testing::ElementsAre;

TEST(Timing, EveryCycleIsARowAtPeriod0) {
  Scenario car({.speed = "0:0 1000:1 1100:2 1200:3 1300:4 1400:5"});
  car.run("1000 1100");
  car.press();
  car.press();
  EXPECT_TRUE(car.acq.startPending()) << "a second press while the start is pending is ignored";
  car.run("1205 1315");
  car.press();
  car.run("1400 1500");
  // The newest row is the start, the next cycle begins the recording, and the row of the stop is the last.
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|2", "0.22|\"\"|4", "0.3|\"Stop\"|5"));
  EXPECT_THAT(car.screen.logTexts(),
              ElementsAre("Start recording manually", "Stop recording manually",
                          "Stop Post-trigger = 0 s  = 0 points", "Init UCE Engine (KWP2000) OK",
                          "Start diag session etude Engine OK", "Start record", "Stop record"));
  EXPECT_EQ(car.screen.log.back(), "19:05:08 Stop record");
}

TEST(Timing, AButtonStartHasHistoryAndASecondStopCountsAnew) {
  Scenario car({.speed = "0:0 1000:1 1100:2 1200:3 1300:4 1400:5 1500:6", .pre = -1, .post = 1});
  car.run("1000 1100 1200 1300");
  car.press();
  for (const char* cycles : {"1400 1500", "1600 1700", "1800 1900 2000 2100"}) {
    car.run(cycles);
    car.press();
  }
  EXPECT_THAT(car.rows("/rec/16-11-26_19h05mn08.txt"),
              ElementsAre("-0.2|\"\"|2", "-0.1|\"\"|3", "0|\"Start\"|4", "0.2|\"\"|6", "0.3|\"Stop\"|6",
                          "0.4|\"\"|6", "0.5|\"Stop\"|6", "0.6|\"\"|6", "0.7|\"\"|6"));
}

TEST(Timing, RowsFollowTheScheduleBeforeAndAfterTheTriggers) {
  Scenario car({.speed = "0:0 1500:1 2000:2 3000:3 3400:60 4000:61 5000:62 5500:40 6000:41 7000:42",
                .period = 1,
                .start = "rising 50",
                .stop = "falling 50",
                .pre = -2,
                .post = 1});
  // Rows have been due at 0, 1000, 2000, ... since the start: the cycle at 1500 still serves 1000.
  car.run("1000 1500 2000 2500 3000 3400 3500 4000 4500 5000 5500 6000 7000 8000");
  EXPECT_THAT(car.rows(), ElementsAre("-1.5|\"\"|1", "-1|\"\"|2", "0|\"Start\"|3", "1|\"\"|61", "2|\"\"|62",
                                      "3|\"Stop\"|41", "4|\"\"|42"));
  EXPECT_THAT(car.screen.logTexts(),
              testing::IsSupersetOf(
                  {"Start recording automaticaly on channel trigger", "Start Pre-trigger = -2 s  = 2 points",
                   "Stop recording automaticaly on channel trigger", "Stop Post-trigger = 1 s  = 1 points"}));
  EXPECT_EQ(car.screen.timePanel, "4");
}

TEST(Timing, ALongPeriodIsNotWaitedForUnlessItsRowIsNear) {
  Scenario car({.period = 10, .post = 20});
  car.run("10000 11000");
  car.press();
  car.run("12000");
  car.press();
  car.run("13000");
  EXPECT_THAT(car.rows("/rec/16-11-26_19h05mn18.txt"), ElementsAre("0|\"Start\"|0"));
  EXPECT_EQ(car.screen.log.back(), "19:05:20 Stop record");

  car.press();
  car.run("14000 23000 32700");
  car.press();
  car.run("32750");
  EXPECT_TRUE(car.acq.Recording()) << "250 ms before the row it is near";
  car.run("33000 33100 43000");
  EXPECT_THAT(car.rows("/rec/16-11-26_19h05mn20.txt"),
              ElementsAre("0|\"Start\"|0", "10|\"\"|0", "20|\"Stop\"|0"));
  EXPECT_EQ(car.screen.log.back(), "19:05:40 Stop record");
}

TEST(Timing, TheWrapOfTheClockPassesUnnoticed) {
  Scenario car({.speed = "0:0 1500:60 2500:61 3500:62 4000:40",
                .period = 1,
                .start = "rising 50",
                .stop = "time 2",
                .clock = 0xFFFFFFFFU - 1999});
  car.run("1000 1500 1999 2500 3500 3501 4500 5000");
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|60", "1|\"\"|61", "2|\"\"|62", "3|\"Stop\"|40"));
}

}  // namespace
}  // namespace tarnlog
