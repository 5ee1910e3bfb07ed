#include <gmock/gmock.h>

#include <functional>

#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using test::AcqRig;

void expectReleased(const AcqRig& rig) {
  EXPECT_EQ(rig.session.unfinishedLists + rig.session.unfinishedPollSets, 0);
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kIdle);
  EXPECT_FALSE(rig.timer.enabled());
}

// Hiding after a stop once swallowed the answer, and stopping after a new session the session.
TEST(Ending, IsAnsweredToWhoAskedWhateverElseHappensBeforeTheTickEnds) {
  test::ScriptedSession second;
  struct Case {
    std::function<void(TarnAcq&)> calls;
    int sessions;
    int answers;
  };
  for (const Case& wanted : {Case{[](TarnAcq& acq) { acq.AskStopAcqNow(), acq.hidden(); }, 1, 1},
                             Case{[&](TarnAcq& acq) { acq.AskStopAcqNow(), acq.setSession(&second); }, 2, 1},
                             Case{[&](TarnAcq& acq) { acq.setSession(&second), acq.AskStopAcqNow(); }, 2, 1},
                             Case{[&](TarnAcq& acq) { acq.setSession(&second), acq.hidden(); }, 2, 0}})
    for (const bool inTick : {false, true}) {
      AcqRig rig;
      rig.recordFrom(50);
      rig.start();
      rig.run("1000:0 1100:60");
      if (inTick) rig.session.script.whileWaiting = [&] { wanted.calls(rig.acq); };
      if (!inTick) wanted.calls(rig.acq);
      rig.run("1200:61 1300:62");
      EXPECT_EQ(rig.stopped, wanted.answers);
      EXPECT_EQ(rig.finished.size(), 1U);
      EXPECT_EQ(rig.screen.columnRebuilds, wanted.sessions);
      expectReleased(rig);
    }
}

// A start during the end was lost, and came at the next stop; a stop during the start was a crash.
TEST(Ending, IsFollowedByWhatArrivesInsideATickAStartOrAnEnd) {
  struct Case {
    std::function<void(AcqRig&)> call;
    int waits;  ///< of the vehicle, before the one in which something arrives
    std::function<void(AcqRig&)> arriving;
    int answers;
    bool runs;
  };
  const auto stop = [](AcqRig& rig) { rig.acq.AskStopAcqNow(); };
  const auto start = [](AcqRig& rig) { rig.acq.StartReadingData(rig.parameters); };
  const auto tick = [](AcqRig& rig) { rig.timer.fire(); };
  const auto sameSession = [](AcqRig& rig) { rig.acq.setSession(&rig.session); };
  const auto stopAndStart = [](AcqRig& rig) {
    rig.acq.AskStopAcqNow();
    rig.acq.StartReadingData(rig.parameters);
    EXPECT_EQ(rig.session.unfinishedPollSets, 1);
  };
  const auto startAndHide = [](AcqRig& rig) {
    rig.acq.StartReadingData(rig.parameters);
    rig.acq.hidden();
  };
  const auto startAndSession = [](AcqRig& rig) {
    rig.acq.StartReadingData(rig.parameters);
    rig.acq.setSession(&rig.session);
  };
  const auto spoil = [](AcqRig& rig) {
    rig.parameters->recordingPeriod = -1;
    rig.acq.AskStopAcqNow();
  };
  int number = 0;
  for (const Case& wanted :
       {Case{tick, 0, stopAndStart, 0, true}, Case{stop, 0, start, 0, true}, Case{stop, 0, stop, 1, false},
        Case{sameSession, 0, start, 0, true}, Case{start, 0, stop, 1, false}, Case{start, 1, stop, 1, false},
        Case{start, 2, stop, 1, false}, Case{start, 1, start, 0, true}, Case{start, 2, sameSession, 0, false},
        Case{start, 1, spoil, 1, false}, Case{tick, 0, startAndHide, 0, false},
        Case{tick, 0, startAndSession, 0, false}}) {
    SCOPED_TRACE(number++);
    AcqRig rig;
    rig.start();
    rig.run("1000:0");
    int waits = wanted.waits;
    rig.session.script.whileWaiting = rig.session.script.whileListing = [&] {
      if (waits-- == 0) wanted.arriving(rig);
    };
    wanted.call(rig);
    EXPECT_EQ(rig.stopped, wanted.answers);
    if (!wanted.runs) {
      expectReleased(rig);
      continue;
    }
    EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kInitialise);
    EXPECT_TRUE(rig.timer.enabled());
    EXPECT_EQ(rig.session.unfinishedPollSets, 1);
  }
}

}  // namespace
}  // namespace tarnlog
