#include <gmock/gmock.h>

#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using test::AcqRig;
using test::ScriptedData;
using testing::ElementsAre;

TEST(Recording, AButtonStartBeginsWithTheNewestRowAndSkipsACycle) {
  AcqRig rig;
  rig.start();
  rig.run("1000:0 1100:1 1200:2");
  rig.acq.ToggleRecording();
  rig.acq.ToggleRecording();
  EXPECT_TRUE(rig.acq.startPending()) << "a second press while the start is pending is ignored";
  rig.run("1300:3 1400:4 1500:5");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|2", "0.2|\"\"|4", "0.3|\"\"|5"));
  EXPECT_EQ(rig.screen.recording.back(), RecordingFact::On);
  EXPECT_EQ(rig.screen.timePanel, "0.3");
}

TEST(Recording, LateCyclesCatchUpOneRowEach) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 1;
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 2000:60 5500:1 5600:2 5700:3 5800:4 6000:5");
  EXPECT_THAT(rig.recordRows(),
              ElementsAre("0|\"Start\"|60", "3.5|\"\"|1", "3.6|\"\"|2", "3.7|\"\"|3", "4|\"\"|5"));
}

TEST(Recording, ASendErrorKeepsTheFileAndASecondStopArmsAgain) {
  AcqRig rig;
  rig.triggerStart(1, 50);
  rig.parameters->stopTrigger->prepost = 1;
  rig.start();
  rig.run("1000:0 1100:60");
  rig.status.failing.next("no answer");
  rig.run("1200:61");
  EXPECT_EQ(rig.screen.logTexts().back(), "Send error : no answer UCE=Engine");
  EXPECT_EQ(rig.screen.state, "init");
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.run("2000:62");
  rig.acq.ToggleRecording();
  rig.run("2100:63 2200:64");
  rig.acq.ToggleRecording();
  rig.run("2300:65 2400:66 2500:67 2600:68");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60", "0.9|\"\"|62", "1|\"Stop\"|63", "1.1|\"\"|64",
                                            "1.2|\"Stop\"|65", "1.3|\"\"|66", "1.4|\"\"|67"));
}

// A datum that could not be read cost the whole row, and a recording with an armed stop never ended.
TEST(Recording, GoesOnAroundADatumThatCannotBeRead) {
  AcqRig rig;
  ScriptedData& other = rig.status.addData("Other", ferrox3::kDouble);
  rig.add(other);
  rig.triggerStart(1, 50);
  rig.parameters->stopTrigger->prepost = 1;
  rig.start();
  rig.run("1000:0");
  rig.speed.raisingAt("value");
  rig.run("1100:99");
  EXPECT_FALSE(rig.acq.startPending() || rig.acq.Recording());
  rig.speed.raisingAt("");
  rig.run("1200:60");
  other.raisingAt("value").setValue(7.0);
  rig.run("1300:61");
  rig.acq.ToggleRecording();
  rig.run("1400:62");
  EXPECT_EQ(rig.screen.rows[1].value, "7") << "its text can be read";
  rig.speed.raisingAt("valueText");
  rig.run("1500:63");
  EXPECT_EQ(rig.screen.rows[0].value, "---");
  rig.speed.raisingAt("");
  rig.run("1600:63 1700:64");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60|0", "0.1|\"\"|61|---", "0.2|\"Stop\"|62|---",
                                            "0.3|\"\"|63|---", "0.4|\"\"|63|---"));
  EXPECT_EQ(rig.screen.rows[0].value, "64");
  EXPECT_FALSE(rig.acq.Recording());
}

// The schedule of period 0 stands still: half a turn of the clock later it once seemed to lie ahead, and
// times were below 0 from then on.
TEST(Recording, EveryCycleIsARowAlsoAfterWeeks) {
  AcqRig rig;
  rig.parameters->stopTrigger->typeTrigger = oTarnTrigger::kTime;
  rig.parameters->stopTrigger->timeSeconde = 2147000;
  rig.start();
  rig.run("1000:0");
  rig.acq.ToggleRecording();
  rig.run("1100:1 1200:2 2000000000:3 2200001000:4");
  EXPECT_THAT(rig.recordRows(),
              ElementsAre("0|\"Start\"|0", "0.2|\"\"|2", "1999999|\"\"|3", "2200000|\"Stop\"|4"));
  EXPECT_EQ(rig.screen.timePanel, "2200000");
}

TEST(Recording, NamesWhyAFileCannotBeOpened) {
  AcqRig rig;
  rig.start();
  rig.run("1000:0");
  rig.files.openError = "Permission denied";
  rig.acq.ToggleRecording();
  EXPECT_EQ(rig.screen.recordPanel, "Open error : Permission denied");
  EXPECT_EQ(rig.screen.recording.back(), RecordingFact::Requested);
  rig.files.openError.clear();
  rig.files.noStream = true;
  rig.acq.ToggleRecording();
  EXPECT_EQ(rig.screen.recordPanel, "Error : Unable to create file");
  rig.parameters->fileFormat = ".xml";
  rig.files.openError = "Permission denied";
  rig.acq.ToggleRecording();
  EXPECT_EQ(rig.screen.recordPanel, "Open error : Permission denied");
  EXPECT_FALSE(rig.acq.startPending());
}

}  // namespace
}  // namespace tarnlog
