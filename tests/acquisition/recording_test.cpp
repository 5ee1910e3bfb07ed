#include <gmock/gmock.h>

#include "acquisition/Indicators.h"
#include "platform/xml/XmlDocument.h"
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

TEST(Recording, stopsAfterItsTimeWithPostTriggerRows) {
  AcqRig rig;
  rig.triggerStart(1, 50);
  rig.parameters->stopTrigger->typeTrigger = oTarnTrigger::kTime;
  rig.parameters->stopTrigger->timeSeconde = 1;
  rig.parameters->stopTrigger->prepost = 1;
  rig.start();
  rig.run("1000:0 1500:60 2500:61 2501:62 2600:63 2700:64 2800:65");
  EXPECT_THAT(rig.recordRows(),
              ElementsAre("0|\"Start\"|60", "1|\"\"|61", "1|\"Stop\"|62", "1.1|\"\"|63", "1.2|\"\"|64"));
  EXPECT_EQ(rig.screen.logTexts().back(), "Stop record");
  EXPECT_THAT(rig.finished, ElementsAre("/rec/16-11-26_19h05mn08.txt"));
}

TEST(Recording, theNextOneNeedsANewCrossing) {
  AcqRig rig;
  rig.triggerStart(1, 50);
  rig.triggerStop(-1, 10);
  rig.start();
  // The start trigger's memory rests at 60 while recording: 70 after the end is no crossing.
  rig.run("1000:0 1100:60 1150:61 1200:5 1300:70 1400:20 2400:55");
  EXPECT_EQ(rig.acq.finishedRecordings(), 1);
  EXPECT_EQ(rig.files.files.size(), 2U);
  EXPECT_TRUE(rig.acq.Recording());
}

TEST(Recording, aLongPeriodDoesNotWaitForTheNextRow) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 10;
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("10000:0 11000:60 12000:61");
  rig.acq.ToggleRecording();
  rig.run("13000:62");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60"));
  EXPECT_EQ(rig.screen.logTexts().back(), "Stop record");
  rig.run("14000:0 15000:60 16000:61 25000:62");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60", "10|\"\"|62"))
      << "without the mark that was dropped";
}

TEST(Recording, justBeforeALongRowTheRowStillComes) {
  AcqRig rig;
  rig.parameters->recordingPeriod = 10;
  rig.triggerStart(1, 50);
  rig.parameters->stopTrigger->prepost = 20;
  rig.start();
  rig.run("10000:0 11000:60 20800:61");
  rig.acq.ToggleRecording();
  rig.run("20900:62 21000:63 21100:64");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60", "10|\"Stop\"|63"));
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

TEST(Recording, aSendErrorEndsARecordingWhoseStopIsArmed) {
  AcqRig rig;
  rig.triggerStart(1, 50);
  rig.parameters->stopTrigger->prepost = 5;
  rig.start();
  rig.run("1000:0 1100:60");
  rig.acq.ToggleRecording();
  rig.run("1200:61");
  rig.status.failing.next("no answer");
  rig.run("1300:62 1400:63");
  EXPECT_FALSE(rig.acq.Recording());
  EXPECT_EQ(rig.finished.size(), 1U);
  EXPECT_THAT(rig.screen.logTexts(), testing::Not(testing::Contains("Stop record")));
}

TEST(Recording, survivesTheWrapOfTheClock) {
  AcqRig rig;
  rig.clock.step(0xFFFFFFFFU - rig.clock.milliseconds() - 1500);
  rig.parameters->recordingPeriod = 1;
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 1100:60 2100:61 3100:62");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60", "1|\"\"|61", "2|\"\"|62"));
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
  for (auto* item : {&pedal, &bytes, &text}) rig.add(*item, "Injection");
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

TEST(Recording, aFullDiskDoesNotStopThePolling) {
  AcqRig rig;
  std::vector<std::string> failures;
  rig.files.setWriteFailureHandler(
      [&](const std::string& path, const std::string& why) { failures.push_back(path + " " + why); });
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 1100:60");
  rig.files.writeError = "No space left on device";
  rig.run("1200:61 1300:62");
  rig.files.writeError.clear();
  rig.run("1400:63");
  EXPECT_THAT(rig.recordRows(), ElementsAre("0|\"Start\"|60", "0.3|\"\"|63"));
  EXPECT_EQ(failures.at(0), "/rec/16-11-26_19h05mn08.txt No space left on device");
}

TEST(Recording, aMissingFolderIsReplacedByTheCurrentOne) {
  AcqRig rig;
  rig.parameters->fileFolder = "/gone";
  rig.start();
  rig.run("1000:0");
  rig.acq.ToggleRecording();
  EXPECT_EQ(rig.acq.RecordPath(), "/cwd/16-11-26_19h05mn08.txt");
  EXPECT_EQ(rig.parameters->fileFolder, "/cwd");
}

TEST(Recording, writesXmlThatHoldsConfigurationAndRows) {
  AcqRig rig;
  rig.parameters->fileFormat = ".xml";
  rig.parameters->filePrefix = "p_";
  rig.files.files["/rec/p_16-11-26_19h05mn08.xml"] = "taken";
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 1100:60 1200:61");
  rig.acq.AskStopAcqNow();
  rig.timer.fire();
  EXPECT_EQ(rig.files.files["/rec/p_16-11-26_19h05mn08.xml"], "taken");
  XmlDocument document;
  ASSERT_FALSE(document.parse(rig.files.files.at("/rec/p_16-11-26_19h05mn08_2.xml")));
  const XmlElement root = document.selectSingleNode("Tarnlog2000");
  EXPECT_EQ(root.attributeOrEmpty("Version"), "2.0");
  EXPECT_EQ(root.firstChild("Description").text(), "Data file");
  EXPECT_EQ(root.firstChild("File").text(), "16-11-26_19h05mn08_2.xml");
  EXPECT_EQ(root.firstChild("Date").text(), "11/16/2026");
  EXPECT_EQ(root.firstChild("Time").text(), "19:05:08");
  EXPECT_TRUE(root.selectSingleNode("Parameters/Recording/Trigger/Start/Channel[@level='50']"));
  EXPECT_EQ(root.selectNodes("Datas/Data").size(), 1U);
  EXPECT_EQ(root.selectSingleNode("row[1]").attributeOrEmpty("Event"), "Start");
  EXPECT_EQ(root.selectSingleNode("row[2]").attributeOrEmpty("Time"), "0.1");
  EXPECT_EQ(root.selectSingleNode("row[2]").attributeOrEmpty("C1"), "61");
}

}  // namespace
}  // namespace tarnlog
