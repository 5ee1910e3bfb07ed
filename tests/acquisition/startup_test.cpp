#include <gmock/gmock.h>

#include "tests/support/AcqRig.h"
#include "tests/support/FailureOf.h"

namespace tarnlog {
namespace {

using test::AcqRig;
using test::errorOf;
using testing::ElementsAre;

TEST(StartReadingData, NeedsSessionConfigurationAndData) {
  AcqRig rig;
  EXPECT_EQ(errorOf([&] { rig.acq.StartReadingData(); }),
            "1 TarnAcq.StartReadingData: Parameters not defined, unable to acquire data");
  rig.acq.setSession(nullptr);
  EXPECT_EQ(errorOf([&] { rig.acq.StartReadingData(rig.parameters); }),
            "1 TarnAcq.StartReadingData: Session not defined, unable to acquire data");
  rig.acq.setParameters(rig.parameters);
  EXPECT_FALSE(rig.timer.enabled());
  rig.acq.setSession(&rig.session);
  EXPECT_EQ(rig.screen.recording.front(), RecordingFact::Cleared);
  rig.acq.setParameters(rig.parameters);
  EXPECT_TRUE(rig.timer.enabled());
  EXPECT_EQ(rig.timer.interval, 1);
  EXPECT_EQ(rig.screen.recordPanel + ", " + rig.screen.timePanel, "no record file, 0");
  rig.parameters->Item(1)->DataName = "Unknown";
  rig.acq.StartReadingData(rig.parameters);
  EXPECT_THAT(rig.screen.logTexts(), ElementsAre("No data to acquire"));
  EXPECT_FALSE(rig.timer.enabled());
}

// The scenario was walked while a click could empty it: the walk read freed memory.
TEST(Startup, GoesThroughItsStatesAndSendsTheScenarioAsItWas) {
  AcqRig rig;
  for (const auto& [request, address] :
       {std::pair("Clear", 0x10), {"Unknown", 0x10}, {"Clear", 0x77}, {"Clear", 0x10}})
    rig.parameters->initScenario->Add(request, address == 0x10 ? "Engine" : "Nobody",
                                      static_cast<std::int16_t>(address));
  rig.engine.addRequest("Clear", "14 FF").answer = "54";
  rig.session.script.whileWaiting = [&] {
    if (rig.session.script.calls.back() == "send Engine Clear")
      rig.parameters->initScenario = std::make_shared<oScenario>();
  };
  rig.acq.StartReadingData(rig.parameters);
  std::string states;
  for (int i = 0; i < 10 && rig.acq.AcqState() != TarnAcq::kCommunicate; ++i) {
    states += rig.screen.state + " ";
    rig.timer.fire();
    rig.clock.step(51);
  }
  EXPECT_EQ(states, "init Wait Wait Start Wait Wait ");
  EXPECT_THAT(rig.screen.logTexts(6),
              ElementsAre("Init UCE Engine (KWP2000) OK", "Start diag session etude Engine OK",
                          "Init scenario start", "Injection Init request : Clear send=14 FF receive=54",
                          "Injection Init request : Clear send=14 FF receive=54", "Init scenario done"));
  EXPECT_THAT(rig.session.script.calls,
              ElementsAre("init Engine", "session Engine A0", "send Engine Clear", "send Engine Clear"));
}

TEST(Startup, RepeatsAnInitialisationThatFails) {
  AcqRig rig;
  rig.engine.failingInit.next("no answer");
  rig.acq.StartReadingData(rig.parameters);
  rig.timer.fire();
  EXPECT_EQ(rig.screen.logTexts().back(), "    Init error :  Engine (KWP2000) => no answer");
  rig.session.failingInit.next("adapter gone");
  rig.timer.fire();
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kInitialise) << "raising without a report is a failure too";
  rig.timer.fire();
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kWaitAfterInit);
}

TEST(Startup, SendsTheStartSessionToEveryEcuOrItsOwnToThoseOfKwp2000) {
  AcqRig rig;
  rig.add(rig.session.addEcu("ABS", "Brakes", 0x28, "OBD-II").addRequest("Wheels").addData("Wheel"));
  rig.engine.failingSession.next("busy");
  rig.start();
  EXPECT_EQ(rig.screen.logTexts().back(), "Start diag session error : busy");
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kCommunicate);
  rig.engine.failingExchange.next("refused");
  for (const auto& [text, wrong] : {std::pair("10 C0", ""), {"hello", " error : no hexadecimal text"}}) {
    rig.parameters->startSession = text;
    rig.start();
    const std::string engine = std::string(wrong).empty() ? " error : refused" : wrong;
    EXPECT_THAT(rig.screen.logTexts(2),
                ElementsAre(std::string("Injection Global init request : ") + text + engine,
                            std::string("Brakes Global init request : ") + text + wrong));
  }
}

}  // namespace
}  // namespace tarnlog
