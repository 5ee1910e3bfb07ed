#include "ui/param/TarnParam.h"

#include <gtest/gtest.h>

#include <QFileSystemModel>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <fstream>

#include "platform/files/SystemFileSystem.h"
#include "tests/support/BrokenStore.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WidgetText.h"
#include "ui/param/Drives.h"

namespace tarnlog {
namespace {

/// The screen on a configuration with two data items.
struct TarnParamTest : testing::Test {
  TarnParamTest() {
    for (const std::string name : {"Speed", "Load"}) {
      oTarnScope& item = parameters->Add(name);
      item.EcuName = "Injection";
      item.DataName = name;
      item.RequestName = "Block" + std::to_string(parameters->Count());
      item.index = parameters->Count();
    }
    for (const char* name : {"run1.txt", "run2.xml"}) std::ofstream(folder / name) << "x";
    std::filesystem::create_directory(below);
    parameters->fileFolder = folder.path();
    start().DataIndex = 2;
    screen.setParameters(parameters);
    screen.resize(900, 600);
    screen.show();
  }

  template <class T>
  T& control(const char* name) {
    return test::childOf<T>(screen, name);
  }
  void choose(const char* option) { control<QRadioButton>(option).click(); }
  void type(const char* name, const char* text) {
    auto& input = control<QAbstractSpinBox>(name);
    input.selectAll();
    QTest::keyClicks(&input, text);
  }
  void key(const char* name, Qt::Key key) { QTest::keyClick(&control<QWidget>(name), key); }
  std::string filesShown() { return test::itemsText(control<QListView>("SaveFile")); }

  oTarnTrigger& start() const { return *parameters->startTrigger; }
  oTarnTrigger& stop() const { return *parameters->stopTrigger; }

  MemorySettingsStore settings;
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
  test::TempFolder folder;
  const std::string below = folder / "below";
  SystemFileSystem files;
  TarnParam screen{settings, files};
  QSignalSpy edited{&screen, &TarnParam::edited};
};

TEST_F(TarnParamTest, ShowingAConfigurationWritesNothing) {
  parameters->userDescription = "Cold start\n2nd gear";
  parameters->recordingPeriod = 20000;
  start().prepost = 5;
  start().edge = 0;
  stop().typeTrigger = oTarnTrigger::kTime;
  screen.setParameters(parameters);
  EXPECT_EQ(edited.count(), 0);
  EXPECT_EQ(start().edge, 0);
  EXPECT_EQ(control<QPlainTextEdit>("tb_userComment").toPlainText(), "Cold start\n2nd gear");
  EXPECT_EQ(control<CWNumEdit>("ValPeriod").value(), 20000) << "files may go beyond the limits of entry";
  EXPECT_EQ(control<CWNumEdit>("TrgStartPrePost").value(), 5);
  EXPECT_TRUE(control<QRadioButton>("TrgStopType1").isChecked());
  const auto& channels = control<QComboBox>("TrgStartChannel");
  EXPECT_EQ(channels.count(), 3);
  EXPECT_EQ(channels.currentText(), "[Injection] Load (Block2)");
  parameters->RemoveAll();
  screen.setParameters(parameters);
  EXPECT_EQ(channels.currentText(), "[No Channel]");
  EXPECT_FALSE(control<QRadioButton>("TrgStartType1").isEnabled());
}

TEST_F(TarnParamTest, WhatIsTypedCountsAtOnceAndKeysStepWithinTheBounds) {
  QTest::keyClicks(&control<QPlainTextEdit>("tb_userComment"), "Hot start");
  type("ValPeriod", "12");
  type("TrgStartLevel", "3000");
  type("TrgStartPrePost", "5");
  type("TrgStopTime", "30");
  EXPECT_EQ(parameters->userDescription, "Hot start");
  EXPECT_EQ(settings.read("Period"), "12");
  EXPECT_EQ(start().level, 3000) << "a level may lie beyond what can be stepped to";
  EXPECT_EQ(start().prepost, -5) << "a time before the start is negative";
  EXPECT_EQ(stop().timeSeconde, 30);
  EXPECT_EQ(stop().typeTrigger, oTarnTrigger::kManual);
  EXPECT_GT(edited.count(), 0);

  for (const Qt::Key step : {Qt::Key_Down, Qt::Key_PageUp, Qt::Key_Up}) key("TrgStopLevel", step);
  EXPECT_EQ(stop().level, 6) << "from 0";
  control<CWNumEdit>("TrgStopLevel").setValue(-40);
  key("TrgStopLevel", Qt::Key_Down);
  EXPECT_EQ(stop().level, -41);
  key("TrgStopPrePost", Qt::Key_Down);
  EXPECT_EQ(stop().prepost, 0);
}

TEST_F(TarnParamTest, TriggersFollowListAndOptions) {
  choose("TrgStartType1");
  EXPECT_EQ(start().DataIndex, 1) << "the option begins with the first channel";
  key("TrgStartChannel", Qt::Key_Down);
  EXPECT_EQ(start().DataIndex, 2);
  control<CWButton>("TrgStartEdge").click();
  EXPECT_EQ(start().edge, -1);
  key("TrgStartChannel", Qt::Key_Home);
  EXPECT_EQ(start().typeTrigger, oTarnTrigger::kManual);
  EXPECT_TRUE(control<QRadioButton>("TrgStartType0").isChecked());

  control<QComboBox>("TrgStopChannel").setCurrentIndex(2);
  choose("TrgStopType0");
  choose("TrgStopType2");
  EXPECT_EQ(stop().typeTrigger, oTarnTrigger::kChannel);
  EXPECT_EQ(stop().DataIndex, 2) << "the option keeps the selected channel";
  choose("TrgStopType1");
  EXPECT_EQ(stop().typeTrigger, oTarnTrigger::kTime);
  EXPECT_EQ(stop().timeSeconde, 60);
  EXPECT_EQ(edited.count(), 8);
  auto& channels = control<QComboBox>("TrgStartChannel");
  channels.setCurrentIndex(2);  // as assistive tools do
  control<QRadioButton>("TrgStartType0").setChecked(true);
  EXPECT_EQ(start().typeTrigger, oTarnTrigger::kManual);
  emit channels.activated(2);
  EXPECT_EQ(start().typeTrigger, oTarnTrigger::kChannel) << "the selected channel was chosen";
  EXPECT_EQ(start().DataIndex, 2);
  EXPECT_EQ(edited.count(), 11);
}

TEST_F(TarnParamTest, RecordsGoWhereTheFrameSays) {
  EXPECT_EQ(filesShown(), "run1.txt");
  QTest::keyClicks(&control<QLineEdit>("SavePrefix"), "run");
  EXPECT_EQ(control<QLabel>("SaveExample").text().toStdString(), folder.path() + "\\ run01012001_01h12.txt");
  key("SaveFormat", Qt::Key_Down);
  EXPECT_EQ(filesShown(), "run2.xml");
  EXPECT_EQ(settings.read("Format"), ".xml");

  auto& tree = control<QTreeView>("SaveDir");
  const auto& folders = *static_cast<QFileSystemModel*>(tree.model());
  EXPECT_EQ(folders.filePath(tree.currentIndex()).toStdString(), folder.path());
  tree.setCurrentIndex(folders.index(QString::fromStdString(below)));
  EXPECT_EQ(parameters->fileFolder, below);
  EXPECT_EQ(settings.read("PathName"), below);
  EXPECT_EQ(filesShown(), "");
  EXPECT_EQ(edited.count(), 5);

  const auto& notice = *screen.findChild<Notice*>();
  EXPECT_FALSE(notice.isVisible());
  std::filesystem::remove(below);
  screen.hide();
  screen.show();
  EXPECT_TRUE(notice.isVisible() && notice.text().contains(QString::fromStdString(below)));
  tree.setFocus();
  EXPECT_EQ(parameters->fileFolder, below) << "looking at the tree chooses nothing";

  auto& drives = control<QComboBox>("SaveDrive");
  screen.setDrives({"/"});
  EXPECT_FALSE(drives.isVisible());
  screen.setDrives({"/", folder.path()});
  EXPECT_TRUE(drives.isVisible());
  EXPECT_EQ(drives.currentIndex(), 1);
  key("SaveDrive", Qt::Key_Up);
  EXPECT_EQ(parameters->fileFolder, files.currentFolder());
}

/// The rules behind the screen, on files in memory.
struct ParamRulesTest : testing::Test {
  ParamRulesTest() { rules.setParameters(parameters); }

  test::MemoryFileSystem files;
  MemorySettingsStore settings;
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
  ParamRules rules{settings, files};
};

TEST_F(ParamRulesTest, TakesWhatFilesHoldAndRefusesWhatIsNoPeriod) {
  using Entry = ParamRules::PeriodEntry;
  for (const double none : {-1.0, 3e9, std::nan("")}) EXPECT_EQ(rules.setPeriod(none), Entry::refused);
  EXPECT_EQ(rules.setPeriod(5), Entry::changed);
  EXPECT_EQ(rules.setPeriod(5), Entry::same);
  EXPECT_TRUE(rules.start().setPrepost(-2.5) && rules.start().setRestart(false));
  EXPECT_EQ(parameters->startTrigger->prepost, -2);
  EXPECT_FALSE(parameters->startTrigger->restart);

  rules.save().setFolder("/rec");
  const auto other = std::make_shared<oTarnParameters>(MemorySettingsStore());
  other->fileFormat = ".dat";
  other->startTrigger->edge = -1;
  other->stopTrigger->DataIndex = 7;
  rules.setParameters(other);
  EXPECT_EQ(rules.save().folder(), "/rec") << "an empty folder moves nothing";
  EXPECT_EQ(rules.save().pattern(), "*.dat");
  EXPECT_EQ(rules.save().formats(), (std::vector<std::string>{".txt", ".xml", ".dat"}));
  EXPECT_TRUE(rules.start().falling());
  EXPECT_EQ(rules.stop().channel(), 0) << "there is no item 7";
}

TEST_F(ParamRulesTest, SaysWhereARecordWouldGoAndWhatStandsInItsWay) {
  using Problem = SaveRules::Problem;
  SaveRules& save = rules.save();
  EXPECT_EQ(save.folder(), "/cwd");
  EXPECT_EQ(save.problem(), Problem::none);
  files.readOnlyFolders.insert("/cwd");
  EXPECT_EQ(save.problem(), Problem::folderReadOnly);
  save.setFolder("/gone");
  EXPECT_EQ(save.problem(), Problem::folderMissing);
  save.setPrefix("a");
  EXPECT_EQ(parameters->fileFolder, "/gone") << "another change does not lose a folder that is not there now";
  save.setFolder("/rec");
  save.setPrefix("sub/run");
  EXPECT_EQ(save.problem(), Problem::prefixNamesFolder);
  EXPECT_EQ(save.example(), "/rec\\ sub/run01012001_01h12.txt");
}

TEST_F(ParamRulesTest, WithoutParametersOrSettingsNothingFails) {
  test::BrokenStore broken;
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
  EXPECT_EQ(drives, (std::vector<std::string>{"/", "/data", "/mnt/lab"}));
  EXPECT_EQ(driveOf("/data/records", drives), 1);
  EXPECT_EQ(driveOf("/database", drives), 0);
  EXPECT_EQ(driveOf("C:\\rec", drives), -1);
  rules.save().setDrive("/data", drives);
  EXPECT_EQ(parameters->fileFolder, "/data");
  rules.save().setDrive("/", drives);
  EXPECT_EQ(parameters->fileFolder, "/cwd");
}

}  // namespace
}  // namespace tarnlog
