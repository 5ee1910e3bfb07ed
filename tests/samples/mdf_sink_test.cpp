#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MdfRig.h"
#include "SourceDir.h"
#include "platform/files/SystemFileSystem.h"

using namespace tarnlog;
using namespace tarnlog::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr char kWhole[] = "/rec/16-11-26_19h05mn07_all.mf4";

}  // namespace

TEST(MdfSink, WritesWhatTheLinkDeliveredWithItsTimes) {
  MdfRig rig;
  rig.start();
  rig.cycles(10);
  rig.acq.RecordUserEvent();
  rig.clock.setUtcBy(2'500'000'000);
  rig.cycles(2);
  rig.slow.failing.next("no answer");
  rig.cycles(1);
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.slow.exchange = {{ferrox3::Exchange::Outcome::NotAsked}};
  rig.cycles(2);
  rig.slow.exchange = {
      {ferrox3::Exchange::Outcome::Answered, rig.clock.microseconds() + 7, rig.clock.microseconds() + 1234}};
  rig.cycles(1);
  rig.acq.AskStopAcqNow();
  rig.timer.fire();

  const MdfContent content = rig.content(kWhole);
  EXPECT_TRUE(content.finished);
  EXPECT_EQ(content.zoneMinutes, 60);
  for (const char* const text : {"<TX>Tarnlog2001 1.0</TX>", "<e name=\"acquisition id\">01000000",
                                 "<e name=\"VIN\">WVW&lt;1&gt;</e>", "<e name=\"configuration\">&lt;?xml"})
    EXPECT_THAT(content.comment, HasSubstr(text));
  ASSERT_EQ(content.groups.size(), 6U);
  const MdfContent::Group& engine = content.groups[0];
  EXPECT_EQ(engine.name + " " + engine.source + " " + engine.sourcePath, "Engine/Status Engine Injection");
  EXPECT_EQ(engine.channels[3].unit, "km/h");
  EXPECT_EQ(engine.channels[3].bits, 16U);
  EXPECT_EQ(engine.channels[3].range, std::pair(0.0, 400.0));
  EXPECT_EQ(MdfRig::rows(engine), rig.delivered[0]);
  EXPECT_EQ(MdfRig::rows(content.groups[1]), rig.delivered[1]);
  EXPECT_EQ(rig.delivered[0].size() - rig.delivered[1].size(), 3U);
  EXPECT_THAT(MdfRig::rows(content.groups[2]), ElementsAre(HasSubstr("Event 0 event_16-11-26")));
  EXPECT_EQ(content.groups[3].records, 1U);
  EXPECT_THAT(MdfRig::rows(content.groups[4]), ElementsAre(HasSubstr(" Brakes/21 81 no answer")));
  EXPECT_THAT(MdfRig::rows(content.groups[5]), ElementsAre(HasSubstr(" 2.5")));
  EXPECT_THAT(content.events, ElementsAre(HasSubstr("6 Event "), HasSubstr("6 Clock step +2.500 s "),
                                          testing::MatchesRegex("2 Gap .*[.][.].*")));
}

TEST(MdfSink, ARecordingsFileBeginsWithItsPreTriggerAndTakesAFreeName) {
  MdfRig rig;
  rig.parameters->recordingPeriod = 1;
  rig.parameters->startTrigger->prepost = -2;
  for (int second = 10; second < 20; ++second)
    rig.mdfFiles.files["/rec/16-11-26_19h05mn" + std::to_string(second) + ".mf4"] = "another's";
  rig.start();
  rig.cycles(250);
  rig.acq.ToggleRecording();
  rig.cycles(80);
  const std::string record = rig.acq.RecordPath();
  rig.acq.ToggleRecording();
  rig.cycles(80);

  ASSERT_THAT(rig.closed, ElementsAre(record.substr(0, record.size() - 4) + "_2.mf4"));
  const MdfContent content = rig.content(rig.closed[0]);
  EXPECT_THAT(content.comment, HasSubstr("<e name=\"recording id\">02000000"));
  EXPECT_THAT(content.comment, HasSubstr("<e name=\"record file\">" + record.substr(5) + "</e>"));
  EXPECT_THAT(content.events, ElementsAre(StartsWith("3 Start 2.0"), StartsWith("4 Stop ")));
  const std::vector<std::string>& speeds = content.groups[0].channels[3].values;
  EXPECT_LT(std::stod(content.groups[0].channels[0].values[0]), 0.022);
  EXPECT_GT(speeds.size(), 120U);
  std::vector<std::string> all;
  for (const std::string& row : rig.delivered[0]) all.push_back(test::words(row)[3]);
  EXPECT_NE(std::search(all.begin(), all.end(), speeds.begin(), speeds.end()), all.end());
}

TEST(MdfSink, BlocksSpanATenthOfASecondAndAFullDiskTakesThemWhole) {
  MdfRig rig;
  rig.start();
  for (int i = 0; i < 20; ++i) {
    rig.cycles(1, 30);
    const MdfContent soFar = rig.content(kWhole);
    const std::int64_t behind = rig.clock.microseconds() - rig.began;
    EXPECT_EQ(soFar.cutBytes, 0U);
    if (i <= 4) continue;
    EXPECT_GT(std::stod(soFar.groups[0].channels[0].values.back()) * 1e6 + 100'000, behind);
  }
  const std::size_t before = rig.content(kWhole).groups[1].records;
  rig.mdfFiles.writeError = "disk full";
  rig.cycles(20);
  rig.mdfFiles.writeError.clear();
  rig.cycles(20);
  rig.acq.AskStopAcqNow();
  rig.timer.fire();
  const MdfContent content = rig.content(kWhole);
  const std::size_t lost = rig.delivered[1].size() - content.groups[1].records;
  EXPECT_TRUE(content.finished);
  EXPECT_GT(before, 0U);
  EXPECT_GT(lost, 10U);
  EXPECT_EQ(rig.sink.lostRecords(), 2 * lost);
  EXPECT_EQ(MdfRig::rows(content.groups[1]).back(), rig.delivered[1].back());
}

TEST(MdfSink, MakesNoFileWhereNothingCanBeWritten) {
  MdfRig rig;
  rig.mdfFiles.writeError = "disk full";
  rig.start();
  rig.cycles(20);
  rig.acq.AskStopAcqNow();
  rig.timer.fire();
  EXPECT_TRUE(rig.mdfFiles.files.empty());
  EXPECT_TRUE(rig.closed.empty());
}

/// To a byte, so that nothing changes in files without somebody noticing.
TEST(MdfSink, AFileIsToTheByteWhatItWas) {
  MdfRig rig;
  rig.start();
  rig.cycles(4);
  rig.acq.RecordUserEvent();
  rig.cycles(1);
  rig.acq.AskStopAcqNow();
  rig.timer.fire();
  const std::string golden = TARNLOG_SOURCE_DIR "/tests/data/small.mf4";
  EXPECT_TRUE(rig.mdfFiles.files.at(kWhole) == SystemFileSystem().readAll(golden))
      << "compare " << golden << " with what is written now";
}
