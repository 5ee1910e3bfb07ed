#include <gmock/gmock.h>

#include "tests/scenarios/Scenario.h"

namespace tarnlog {
namespace {

using test::Scenario;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

const std::string kSilence = R"({"ecu": "Injection", "kind": "noAnswer", "from": 2.9, "to": 4})";
const std::string kSilenceAndReturn = "3000 3200 4000 4110 4120 4230";

TEST(Failures, TheSameFileGoesOnWhenTheEcuAnswersAgain) {
  Scenario car({.speed = "0:40 1100:60", .faults = kSilence, .period = 1, .start = "rising 50"});
  car.run("1000 1100 2100 3000");
  EXPECT_EQ(car.screen.state, "init");
  car.run("3200 4000 4110 4120 4230 4300 4310 4320 5100");
  // The row of 3100 comes as soon as there is one, the row of 4100 with the cycle behind it.
  EXPECT_THAT(car.rows(),
              ElementsAre("0|\"Start\"|60", "1|\"\"|60", "3.2|\"\"|60", "3.21|\"\"|60", "4|\"\"|60"));
  EXPECT_TRUE(car.finished.empty());
  EXPECT_THAT(
      car.screen.logTexts(5),
      ElementsAre("Start record", "Send error : Engine: request 21 80: no answer within 100 ms UCE=Engine",
                  "    Init error :  Engine (KWP2000) => no answer to 10 81 within 100 ms",
                  "Init UCE Engine (KWP2000) OK", "Start diag session etude Engine OK"));
}

TEST(Failures, EndARecordingWhoseStopIsArmed) {
  Scenario car({.speed = "0:40 1100:60", .faults = kSilence, .period = 1, .start = "rising 50", .post = 5});
  car.run("1000 1100");
  car.press();
  car.run("2100");
  EXPECT_EQ(car.rows().back(), "1|\"Stop\"|60");
  car.acq.RecordUserEvent();
  car.run(kSilenceAndReturn);
  EXPECT_FALSE(car.acq.Recording());
  EXPECT_EQ(car.finished.size(), 1U);
  EXPECT_EQ(car.acq.finishedRecordings(), 1) << "a run that counts recordings ends";
  EXPECT_EQ(car.screen.recording.back(), RecordingFact::Off);
  EXPECT_THAT(car.screen.logTexts(), Not(Contains("Stop record")));
  car.run("4300");
  car.press();
  car.run("4310 5300");
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|60", "1|\"\"|60")) << "without a mark of the one before";
}

TEST(Failures, ARefusedRequestIsNotAvailableAndTheOthersGoOn) {
  Scenario car(
      {.speed = "0:40 6000:60",
       .faults =
           R"({"ecu": "Injection", "request": "Status", "kind": "negativeResponse", "from": 1.05, "to": 2})",
       .data = {"Status/Speed", "Identification/Raw"},
       .start = "rising 50"});
  car.run("1000 1100 2100");
  EXPECT_EQ(car.screen.rows[0].value, "---");
  EXPECT_EQ(car.screen.state, "com");
  car.run("6200 6300");
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|60|0A 1B", "0.1|\"\"|60|0A 1B"))
      << "the trigger remembers the value before the gap";
  EXPECT_THAT(car.screen.logTexts(), Not(Contains(StartsWith("Send error"))));
}

TEST(Failures, WhileTheEcuStartsAreToldAndPassedOver) {
  const std::string refused =
      R"({"ecu": "Injection", "kind": "negativeResponse", "code": "0x12", "from": 0.1, "to": 0.3})";
  Scenario car({.faults = refused,
                .head = "<StartSession>10 C0</StartSession><InitScenario>"
                        "<Request Name=\"Reset\" EcuName=\"Engine\" Address=\"16\"/>"
                        "<Request Name=\"Unknown\" EcuName=\"Engine\" Address=\"16\"/></InitScenario>"});
  EXPECT_THAT(
      car.screen.logTexts(4),
      ElementsAre(StartsWith("Injection Global init request : 10 C0 error : Engine: request 10 C0 refused"),
                  "Init scenario start",
                  StartsWith("Injection Init request : Reset error : Engine: request 30 01 refused"),
                  "Init scenario done"));
  Scenario kwp({.faults = refused});
  EXPECT_THAT(kwp.screen.logTexts().back(),
              StartsWith("Start diag session error : Engine: request 10 A0 refused"));
  kwp.run("1000");
  EXPECT_EQ(kwp.screen.rows[0].value, "0");
}

}  // namespace
}  // namespace tarnlog
