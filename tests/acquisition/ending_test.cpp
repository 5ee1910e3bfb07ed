#include <gmock/gmock.h>

#include <functional>

#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using test::AcqRig;

void expectReleased(const AcqRig& rig) {
  EXPECT_EQ(rig.session.unfinishedLists, 0);
  EXPECT_EQ(rig.session.unfinishedPollSets, 0);
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kIdle);
  EXPECT_FALSE(rig.timer.enabled());
}

TEST(Ending, idleOnlyAnswers) {
  AcqRig rig;
  rig.acq.AskStopAcqNow();
  EXPECT_EQ(rig.stopped, 1);
}

// Hiding after a stop once swallowed the answer, and stopping after a new session the session.
TEST(Ending, isAnsweredToWhoAskedWhateverElseHappensBeforeTheTickEnds) {
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
      rig.triggerStart(1, 50);
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

TEST(Ending, aStartInsideATickReplacesTheAcquisitionAfterIt) {
  AcqRig rig;
  auto other = std::make_shared<oTarnParameters>(rig.settings);
  rig.start();
  rig.run("1000:0");
  bool asked = false;
  rig.session.script.whileWaiting = [&] {
    if (std::exchange(asked, true)) return;
    rig.acq.AskStopAcqNow();
    rig.acq.StartReadingData(rig.parameters);
    EXPECT_EQ(rig.session.unfinishedPollSets, 1);
  };
  rig.run("1100:1");
  EXPECT_EQ(rig.stopped, 0);
  EXPECT_EQ(rig.acq.AcqState(), TarnAcq::kInitialise);
  EXPECT_TRUE(rig.timer.enabled());
  EXPECT_EQ(rig.session.unfinishedPollSets, 1);
}

TEST(Hiding, betweenTicksLeavesTheFileToTheNextStart) {
  AcqRig rig;
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 1100:60");
  rig.acq.hidden();
  EXPECT_FALSE(rig.timer.enabled());
  EXPECT_EQ(rig.stopped, 0);
  EXPECT_TRUE(rig.finished.empty());
  rig.start();
  EXPECT_EQ(rig.finished.size(), 1U);
  rig.run("3000:0");
  rig.acq.ToggleRecording();
  rig.run("3100:1 3200:2");
  EXPECT_THAT(rig.recordRows(), testing::ElementsAre("0|\"Start\"|0", "0.2|\"\"|2"));
}

}  // namespace
}  // namespace tarnlog
