#include <gmock/gmock.h>

#include "tests/support/AcqRig.h"
#include "tests/support/FailureOf.h"

namespace tarnlog {
namespace {

using test::AcqRig;
using test::errorOf;
using testing::ElementsAre;
using Strings = std::vector<std::string>;

TEST(StartReadingData, NeedsSessionConfigurationAndData) {
  AcqRig rig;
  rig.acq.setSession(nullptr);
  EXPECT_EQ(errorOf([&] { rig.acq.StartReadingData(rig.parameters); }),
            "1 TarnAcq.StartReadingData: Session not defined, unable to acquire data");
  AcqRig other;
  EXPECT_EQ(errorOf([&] { other.acq.StartReadingData(); }),
            "1 TarnAcq.StartReadingData: Parameters not defined, unable to acquire data");
  other.parameters->Item(1)->DataName = "Unknown";
  other.acq.StartReadingData(other.parameters);
  EXPECT_THAT(other.screen.logTexts(), ElementsAre("No data to acquire"));
  EXPECT_FALSE(other.timer.enabled());
}

TEST(StartReadingData, ParametersStartOnceASessionIsPresent) {
  AcqRig rig;
  rig.acq.setSession(nullptr);
  rig.acq.setParameters(rig.parameters);
  EXPECT_FALSE(rig.timer.enabled());
  rig.acq.setSession(&rig.session);
  EXPECT_EQ(rig.screen.recording.front(), RecordingFact::Cleared);
  rig.acq.setParameters(rig.parameters);
  EXPECT_TRUE(rig.timer.enabled());
  EXPECT_EQ(rig.timer.interval, 1);
  EXPECT_EQ(rig.screen.state, "init");
}

TEST(StartReadingData, LogsWhatIsPlanned) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 2;
  rig.triggerStart(1, 50);
  rig.parameters->startTrigger->prepost = -3;
  rig.parameters->stopTrigger->typeTrigger = oTarnTrigger::kTime;
  rig.acq.StartReadingData(rig.parameters);
  EXPECT_THAT(rig.screen.log, ElementsAre("19:05:07 Start recording automaticaly on channel trigger",
                                          "19:05:07 Start Pre-trigger = -3 s  = 2 points",
                                          "19:05:07 Stop recording after : 60 s",
                                          "19:05:07 Stop Post-trigger = 0 s  = 0 points"));
  EXPECT_EQ(rig.screen.recordPanel, "no record file");
  EXPECT_EQ(rig.screen.timePanel, "0");
}

TEST(Startup, GoesThroughItsStatesAndTellsWhatItSends) {
  AcqRig rig;
  rig.parameters->initScenario->Add("Clear", "Engine", 0x10);
  rig.parameters->initScenario->Add("Unknown", "Engine", 0x10);
  rig.parameters->initScenario->Add("Clear", "Nobody", 0x77);
  rig.engine.addRequest("Clear", "14 FF").answer = "54";
  rig.acq.StartReadingData(rig.parameters);
  std::string states;
  for (int i = 0; i < 10 && rig.acq.AcqState() != TarnAcq::kCommunicate; ++i) {
    states += rig.screen.state + " ";
    rig.timer.fire();
    rig.clock.step(51);
  }
  EXPECT_EQ(states, "init Wait Wait Start Wait Wait ");
  const Strings log = rig.screen.logTexts();
  EXPECT_THAT(
      Strings(log.begin() + 3, log.end()),
      ElementsAre("Init UCE Engine (KWP2000) OK", "Start diag session etude Engine OK", "Init scenario start",
                  "Injection Init request : Clear send=14 FF receive=54", "Init scenario done"));
  EXPECT_THAT(rig.session.script.calls, ElementsAre("init Engine", "session Engine A0", "send Engine Clear"));
}

// The scenario was walked while a click could empty it: the walk read freed memory.
TEST(Startup, SendsTheScenarioAsItWasWhenAnotherConfigurationIsLoadedMeanwhile) {
  AcqRig rig;
  rig.engine.addRequest("Clear", "14 FF");
  rig.parameters->initScenario->Add("Clear", "Engine", 0x10);
  rig.parameters->initScenario->Add("Clear", "Engine", 0x10);
  rig.session.script.whileWaiting = [&] {
    if (rig.session.script.calls.back() == "send Engine Clear")
      rig.parameters->initScenario = std::make_shared<oScenario>();
  };
  rig.start();
  EXPECT_THAT(rig.session.script.calls,
              ElementsAre("init Engine", "session Engine A0", "send Engine Clear", "send Engine Clear"));
}

TEST(Startup, RepeatsAnInitialisationThatFails) {
  AcqRig rig;
  rig.engine.failingInit.next("no answer");
  rig.acq.StartReadingData(rig.parameters);
  rig.timer.fire();
  EXPECT_EQ(rig.screen.log.back(), "19:05:07     Init error :  Engine (KWP2000) => no answer");
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kInitialise);
  rig.session.failingInit.next("adapter gone");
  rig.timer.fire();
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kInitialise) << "raising without a report is a failure too";
  rig.timer.fire();
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kWaitAfterInit);
}

TEST(Startup, SendsTheGlobalInitToEveryEcuAndGoesOnAfterFailures) {
  AcqRig rig;
  auto& brakes = rig.session.addEcu("ABS", "Brakes", 0x28, "OBD-II");
  rig.add(brakes.addRequest("Wheels").addData("Wheel"));
  rig.parameters->startSession = "10 C0";
  rig.engine.failingExchange.next("refused");
  rig.start();
  const Strings log = rig.screen.logTexts();
  EXPECT_THAT(Strings(log.end() - 2, log.end()),
              ElementsAre("Injection Global init request : 10 C0 error : refused",
                          "Brakes Global init request : 10 C0"));
  AcqRig bad;
  bad.parameters->startSession = "hello";
  bad.start();
  EXPECT_EQ(bad.screen.logTexts().back(),
            "Injection Global init request : hello error : no hexadecimal text");
}

TEST(Startup, OnlyKwp2000GetsADiagnosticSession) {
  AcqRig rig;
  rig.add(rig.session.addEcu("ABS", "Brakes", 0x28, "OBD-II").addRequest("Wheels").addData("Wheel"));
  rig.engine.failingSession.next("busy");
  rig.start();
  EXPECT_EQ(rig.screen.logTexts().back(), "Start diag session error : busy");
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kCommunicate);
}

}  // namespace
}  // namespace tarnlog
