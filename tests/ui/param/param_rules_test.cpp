#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/MemoryFileSystem.h"
#include "tests/ui/param/ParamFixture.h"
#include "ui/param/Drives.h"
#include "ui/param/ParamRules.h"

using namespace tarnlog;
using testing::ElementsAre;

namespace {

class ParamRulesTest : public testing::Test, protected test::ParamFixture {
 protected:
  ParamRulesTest() { rules.setParameters(parameters); }
  oTarnTrigger& start() { return *parameters->startTrigger; }
  oTarnTrigger& stop() { return *parameters->stopTrigger; }

  test::MemoryFileSystem files;
  ParamRules rules{settings, files};
};

TEST_F(ParamRulesTest, ShowsTheTriggersOfTheConfiguration) {
  start().typeTrigger = oTarnTrigger::kChannel;
  start().DataIndex = 2;
  start().edge = -1;
  stop().typeTrigger = oTarnTrigger::kTime;
  stop().DataIndex = 7;
  rules.setParameters(parameters);
  EXPECT_EQ(rules.start().option(), 1);
  EXPECT_EQ(rules.start().channel(), 2);
  EXPECT_TRUE(rules.start().falling());
  EXPECT_EQ(rules.stop().option(), 1);
  EXPECT_EQ(rules.stop().channel(), 0) << "there is no item 7";
}

TEST_F(ParamRulesTest, TheStartOptionBeginsWithTheFirstChannelTheStopOptionKeepsTheSelectedOne) {
  for (TriggerRules* rule : {&rules.start(), &rules.stop()}) {
    rule->chooseChannel(2);
    rule->chooseOption(0);
    EXPECT_EQ(rule->channel(), 2);
    rule->chooseOption(rule->channelOption());
  }
  EXPECT_EQ(start().DataIndex, 1);
  EXPECT_EQ(rules.start().channel(), 1);
  EXPECT_EQ(stop().DataIndex, 2);
  rules.stop().chooseChannel(0);
  rules.stop().chooseOption(2);
  EXPECT_EQ(stop().DataIndex, 1);
  EXPECT_EQ(stop().typeTrigger, oTarnTrigger::kChannel);

  rules.stop().setSeconds(30);
  EXPECT_TRUE(rules.stop().chooseOption(1));
  EXPECT_EQ(stop().typeTrigger, oTarnTrigger::kTime);
  EXPECT_EQ(stop().timeSeconde, 30);
}

TEST_F(ParamRulesTest, KeepsPeriodFolderAndFormatForTheNextConfiguration) {
  EXPECT_EQ(rules.setPeriod(5), ParamRules::PeriodEntry::changed);
  EXPECT_EQ(rules.setPeriod(5), ParamRules::PeriodEntry::same);
  for (const double none : {-1.0, 3e9, std::nan("")})
    EXPECT_EQ(rules.setPeriod(none), ParamRules::PeriodEntry::refused);
  rules.save().setFormat(".xml");
  rules.save().setFolder("/rec");
  const oTarnParameters next(settings);
  EXPECT_EQ(next.recordingPeriod, 5);
  EXPECT_EQ(next.fileFormat, ".xml");
  EXPECT_EQ(next.fileFolder, "/rec");
}

TEST_F(ParamRulesTest, ShowsTheNameThatARecordWouldGet) {
  parameters->fileFolder = "C:\\rec";
  rules.setParameters(parameters);
  EXPECT_TRUE(rules.save().setPrefix("run"));
  EXPECT_EQ(rules.save().example(), "C:\\rec\\ run01012001_01h12.txt");
  EXPECT_EQ(parameters->filePrefix, "run");
  EXPECT_EQ(setting("PathName"), "C:\\rec");
  EXPECT_EQ(setting("Format"), ".txt");

  const auto other = std::make_shared<oTarnParameters>(MemorySettingsStore());
  other->fileFormat = ".dat";
  rules.setParameters(other);
  EXPECT_EQ(rules.save().folder(), "C:\\rec") << "an empty folder moves nothing";
  EXPECT_EQ(rules.save().pattern(), "*.dat");
  EXPECT_THAT(rules.save().formats(), ElementsAre(".txt", ".xml", ".dat"));
}

TEST_F(ParamRulesTest, SaysWhatStandsInTheWayOfARecord) {
  using Problem = SaveRules::Problem;
  EXPECT_EQ(rules.save().folder(), "/cwd");
  EXPECT_EQ(rules.save().problem(), Problem::none);
  files.readOnlyFolders.insert("/cwd");
  EXPECT_EQ(rules.save().problem(), Problem::folderReadOnly);
  rules.save().setFolder("/gone");
  EXPECT_EQ(rules.save().problem(), Problem::folderMissing);
  rules.save().setPrefix("a");
  EXPECT_EQ(parameters->fileFolder, "/gone") << "another change does not lose a folder that is not there now";
  rules.save().setFolder("/rec");
  rules.save().setPrefix("sub/run");
  EXPECT_EQ(rules.save().problem(), Problem::prefixNamesFolder);
}

TEST_F(ParamRulesTest, WithoutParametersOrSettingsNothingFails) {
  class BrokenStore : public SettingsStore {
    std::optional<std::string> read(const std::string&) const override { throw TarnError(1, "", "broken"); }
    void write(const std::string&, const std::string&) override { throw TarnError(1, "", "full"); }
  } broken;
  ParamRules screen(broken, files);
  EXPECT_FALSE(screen.save().setPrefix("a") || screen.start().chooseChannel(1) || screen.setComment("x"));
  screen.setParameters(parameters);
  EXPECT_TRUE(screen.save().setPrefix("a"));
  EXPECT_EQ(screen.setPeriod(9), ParamRules::PeriodEntry::changed);
  EXPECT_EQ(parameters->filePrefix, "a");
}

TEST_F(ParamRulesTest, DrivesAreWhatAUserCanRecordOn) {
  const auto drives = driveFolders({{"/", "overlay", "overlay"},
                                    {"/proc", "proc", "proc"},
                                    {"/boot/efi", "/dev/sda1", "vfat"},
                                    {"/srv/copy", "/dev/sdb1", "ext4"},
                                    {"/data", "/dev/sdb1", "ext4"},
                                    {"/snap/core/1", "/dev/loop3", "squashfs"},
                                    {"/mnt/lab", "server:/lab", "nfs4"}});
  EXPECT_THAT(drives, ElementsAre("/", "/data", "/mnt/lab"));
  EXPECT_EQ(driveOf("/data/records", drives), 1);
  EXPECT_EQ(driveOf("/database", drives), 0);
  EXPECT_EQ(driveOf("C:\\rec", drives), -1);

  rules.save().setDrive("/data", drives);
  EXPECT_EQ(parameters->fileFolder, "/data");
  rules.save().setDrive("/", drives);
  EXPECT_EQ(parameters->fileFolder, "/cwd");
}

TEST_F(ParamRulesTest, WritesTheInputsOfATrigger) {
  EXPECT_TRUE(rules.start().setFalling(true));
  EXPECT_TRUE(rules.start().setPrepost(-2.5));
  EXPECT_TRUE(rules.start().setRestart(false));
  EXPECT_EQ(start().edge, -1);
  EXPECT_EQ(start().prepost, -2);
  EXPECT_FALSE(start().restart);
  EXPECT_FALSE(rules.start().setFalling(true));
}

}  // namespace
