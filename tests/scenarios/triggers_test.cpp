#include <gmock/gmock.h>

#include "tests/scenarios/Scenario.h"

namespace tarnlog {
namespace {

using test::Recipe;
using test::Scenario;
using testing::ElementsAre;

const std::string kCycles = "1000 1100 1200 1300 1400 1500";

std::vector<std::string> recorded(const Recipe& recipe) {
  Scenario car(recipe);
  car.run(kCycles);
  return car.acq.RecordPath().empty() ? std::vector<std::string>{} : car.rows();
}

TEST(Triggers, AreForNumbersOnly) {
  EXPECT_THAT(recorded({.data = {"Identification/Part"}, .start = "rising -1"}), ElementsAre());
  EXPECT_THAT(recorded({.speed = "0:60", .start = "rising 50"}), ElementsAre()) << "there is none before";
  // A value that is missing for a cycle neither fires nor hides the crossing.
  const char* const shortAnswer =
      R"({"ecu": "Injection", "request": "Status", "kind": "shortAnswer", "bytes": 2, "from": 1.2, "to": 1.3})";
  EXPECT_THAT(recorded({.speed = "0:40 1300:60", .faults = shortAnswer, .start = "rising 50"}),
              ElementsAre("0|\"Start\"|60", "0.1|\"\"|60", "0.2|\"\"|60"));
  EXPECT_THAT(recorded({.speed = "0:40 1100:60", .faults = shortAnswer, .start = "rising 50"}),
              ElementsAre("0|\"Start\"|60", "0.1|\"\"|---", "0.2|\"\"|60", "0.3|\"\"|60", "0.4|\"\"|60"));
}

TEST(Triggers, WatchTheirDataAlsoWhenTheVehicleLacksAnEarlierOne) {
  EXPECT_THAT(recorded({.speed = "0:40 1400:60",
                        .data = {"Status/Altitude", "Status/Pedal", "Status/Speed"},
                        .start = "rising 50",
                        .watched = 3}),
              ElementsAre("0|\"Start\"|1|60", "0.1|\"\"|1|60"));
}

TEST(Triggers, StopAfterMoreThanTheirTime) {
  Scenario car({.speed = "0:40 1100:60", .start = "rising 50", .stop = "time 2", .post = 1});
  car.run("1000 1100 3100 3101 3200 3300 3400");
  EXPECT_THAT(car.rows(),
              ElementsAre("0|\"Start\"|60", "2|\"\"|60", "2|\"Stop\"|60", "2.1|\"\"|60", "2.2|\"\"|60"));
  EXPECT_THAT(car.screen.logTexts(), testing::Contains("Stop recording after : 2 s"));
}

TEST(Triggers, StartTheNextRecordingAtTheNextCrossing) {
  // The start trigger rests while recording: what it saw last is 60, so 70 after the end is no crossing.
  Scenario car({.speed = "0:40 1100:60 1150:61 1200:5 1300:70 1400:20 2400:55 2500:60 2600:3",
                .start = "rising 50",
                .stop = "falling 5"});
  car.run("1000 1100 1150 1200 1300 1400 2400 2500 2600 2700");
  EXPECT_THAT(car.rows("/rec/16-11-26_19h05mn08.txt"),
              ElementsAre("0|\"Start\"|60", "0.05|\"\"|61", "0.1|\"Stop\"|5"));
  EXPECT_THAT(car.rows("/rec/16-11-26_19h05mn09.txt"),
              ElementsAre("0|\"Start\"|55", "0.1|\"\"|60", "0.2|\"Stop\"|3"));
  EXPECT_EQ(car.acq.finishedRecordings(), 2);
}

}  // namespace
}  // namespace tarnlog
