#include <gmock/gmock.h>

#include "acquisition/Indicators.h"
#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using test::AcqRig;
using testing::ElementsAre;

TEST(Recording, aButtonStartBeginsWithTheNewestRowAndSkipsACycle) {
  AcqRig rig;
  rig.start();
  rig.run("1000:0 1100:1 1200:2");
  rig.acq.ToggleRecording();
  rig.acq.ToggleRecording();
  EXPECT_TRUE(rig.acq.startPending()) << "a second press while the start is pending is ignored";
  rig.run("1300:3 1400:4 1500:5");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|2", "0.2|\"\"|4", "0.3|\"\"|5"));
  EXPECT_EQ(rig.screen.recordingColours.back(), indicator::kRecording);
  EXPECT_EQ(rig.screen.startStopCaption, "Stop recording");
  EXPECT_EQ(rig.screen.timePanel, "0.3");
}

TEST(Recording, aTriggerStartBeginsInItsOwnCycle) {
  AcqRig rig;
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:80 1100:40 1200:60 1300:70");
  EXPECT_EQ(rig.files.files.at("/rec/16-11-26_19h05mn08.txt"),
            "time\tevent\t\"Engine\"\r\n"
            "16/11/26\t\t\"Status\"\r\n"
            "19:05:08\t\t\"Speed(km/h)\"\r\n"
            "0\t\"Start\"\t60\r\n"
            "0.1\t\"\"\t70\r\n");
  EXPECT_EQ(rig.screen.recordPanel, "/rec/16-11-26_19h05mn08.txt");
}

TEST(Recording, historyComesFirstAndTimesCountFromItsNewestRow) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 1;
  rig.triggerStart(1, 50);
  rig.parameters->startTrigger->prepost = -2;
  rig.start();
  // The schedule began with the start of the acquisition: rows are due at 0, 1000, 2000, ...
  rig.run("300:1 1000:2 1500:2.5 2000:3 3000:4 3300:60 3600:61 4000:62 5000:63");
  EXPECT_THAT(rig.recordRows(),
              ElementsAre("-2|\"\"|2", "-1|\"\"|3", "0|\"Start\"|4", "1|\"\"|62", "2|\"\"|63"));
}

TEST(Recording, lateCyclesCatchUpOneRowEach) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 1;
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 2000:60 5500:1 5600:2 5700:3 5800:4 6000:5");
  EXPECT_THAT(rig.recordRows(),
              ElementsAre("0|\"Start\"|60", "3.5|\"\"|1", "3.6|\"\"|2", "3.7|\"\"|3", "4|\"\"|5"));
}

TEST(Recording, aSendErrorKeepsTheFileAndASecondStopArmsAgain) {
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

// The schedule of period 0 stands still: half a turn of the clock later it once seemed to lie ahead.
TEST(Recording, everyCycleIsARowAlsoAfterWeeks) {
  AcqRig rig;
  rig.start();
  rig.run("1000:0");
  rig.acq.ToggleRecording();
  rig.run("1100:1 1200:2 2200000000:3");
  EXPECT_EQ(rig.recordRows().size(), 3U);
}

TEST(Recording, cellsHoldValuesWhereTheListShowsTexts) {
  AcqRig rig;
  auto& pedal = rig.status.addData("Pedal", ferrox3::kInteger).withLabels({{"Released", 0}, {"Pressed", 1}});
  auto& bytes = rig.status.addData("Raw", ferrox3::kByteArray);
  auto& text = rig.status.addData("Part", ferrox3::kString);
  for (auto* item : {&pedal, &bytes, &text}) rig.add(*item);
  rig.triggerStart(1, 50);
  rig.start();
  pedal.setValue(std::int32_t{1});
  bytes.setValue(ferrox3::Bytes{0x0A, 0x1B});
  text.setValue(std::string("8200\t12"));
  rig.run("1000:0 1100:60");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60|1|0A 1B|8200 12"));
  EXPECT_EQ(rig.screen.rows[1].value, "Pressed");
}

TEST(Recording, namesWhyAFileCannotBeOpened) {
  AcqRig rig;
  rig.start();
  rig.run("1000:0");
  rig.files.openError = "Permission denied";
  rig.acq.ToggleRecording();
  EXPECT_EQ(rig.screen.recordPanel, "Open error : Permission denied");
  EXPECT_EQ(rig.screen.recordingColours.back(), indicator::kRequested);
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
