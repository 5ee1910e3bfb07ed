#include <gtest/gtest.h>

#include <QFileSystemModel>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "platform/files/SystemFileSystem.h"
#include "tests/support/TempFolder.h"
#include "tests/ui/param/ParamFixture.h"
#include "ui/param/TarnParam.h"

using namespace tarnlog;

namespace {

class TarnParamTest : public testing::Test, protected test::ParamFixture {
 protected:
  TarnParamTest() {
    for (const char* name : {"run1.txt", "run2.xml"}) std::ofstream(folder / name) << "x";
    std::filesystem::create_directory(folder / "below");
    parameters->fileFolder = folder.path();
    parameters->startTrigger->DataIndex = 2;
    screen.setParameters(parameters);
    screen.resize(900, 600);
    screen.show();
  }

  template <class T>
  T& control(const char* name) {
    T* const found = screen.findChild<T*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  void type(const char* name, const char* text) {
    auto& input = control<QAbstractSpinBox>(name);
    input.selectAll();
    QTest::keyClicks(&input, text);
  }
  oTarnTrigger& start() { return *parameters->startTrigger; }
  oTarnTrigger& stop() { return *parameters->stopTrigger; }
  QStringList filesShown() {
    return static_cast<QStringListModel*>(control<QListView>("SaveFile").model())->stringList();
  }

  test::TempFolder folder;
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
  auto& channels = control<QComboBox>("TrgStartChannel");
  EXPECT_EQ(channels.count(), 3);
  EXPECT_EQ(channels.currentText(), "[Injection] Load (Block2)");
  parameters->RemoveAll();
  screen.setParameters(parameters);
  EXPECT_EQ(channels.currentText(), "[No Channel]");
  EXPECT_FALSE(control<QRadioButton>("TrgStartType1").isEnabled());
}

TEST_F(TarnParamTest, WhatIsTypedCountsAtOnce) {
  QTest::keyClicks(&control<QPlainTextEdit>("tb_userComment"), "Hot start");
  type("ValPeriod", "12");
  type("TrgStartLevel", "3000");
  type("TrgStartPrePost", "5");
  type("TrgStopTime", "30");
  EXPECT_EQ(parameters->userDescription, "Hot start");
  EXPECT_EQ(parameters->recordingPeriod, 12);
  EXPECT_EQ(setting("Period"), "12");
  EXPECT_EQ(start().level, 3000) << "a level may lie beyond what can be stepped to";
  EXPECT_EQ(start().prepost, -5) << "a time before the start is negative";
  EXPECT_EQ(stop().timeSeconde, 30);
  EXPECT_EQ(stop().typeTrigger, oTarnTrigger::kManual);
  EXPECT_GT(edited.count(), 0);
}

TEST_F(TarnParamTest, KeysStepWithinTheBounds) {
  auto& level = control<CWNumEdit>("TrgStopLevel");
  QTest::keyClick(&level, Qt::Key_Down);
  EXPECT_EQ(stop().level, 0);
  QTest::keyClick(&level, Qt::Key_PageUp);
  QTest::keyClick(&level, Qt::Key_Up);
  EXPECT_EQ(stop().level, 6);
  level.setValue(-40);
  QTest::keyClick(&level, Qt::Key_Down);
  EXPECT_EQ(stop().level, -41);
  QTest::keyClick(&control<CWNumEdit>("TrgStopPrePost"), Qt::Key_Down);
  EXPECT_EQ(stop().prepost, 0);
}

TEST_F(TarnParamTest, TriggersFollowListAndOptions) {
  auto& channels = control<QComboBox>("TrgStartChannel");
  control<QRadioButton>("TrgStartType1").click();
  EXPECT_EQ(start().DataIndex, 1) << "the option begins with the first channel";
  EXPECT_EQ(start().edge, 1);
  QTest::keyClick(&channels, Qt::Key_Down);
  EXPECT_EQ(start().DataIndex, 2);
  control<CWButton>("TrgStartEdge").click();
  EXPECT_EQ(start().edge, -1);
  QTest::keyClick(&channels, Qt::Key_Home);
  EXPECT_EQ(start().typeTrigger, oTarnTrigger::kManual);
  EXPECT_TRUE(control<QRadioButton>("TrgStartType0").isChecked());

  control<QRadioButton>("TrgStopType2").click();
  EXPECT_EQ(stop().typeTrigger, oTarnTrigger::kChannel);
  control<QRadioButton>("TrgStopType1").click();
  EXPECT_EQ(stop().typeTrigger, oTarnTrigger::kTime);
  EXPECT_EQ(stop().timeSeconde, 60);
  EXPECT_EQ(edited.count(), 6);
  channels.setCurrentIndex(2);  // as assistive tools do
  control<QRadioButton>("TrgStartType0").setChecked(true);
  EXPECT_EQ(start().typeTrigger, oTarnTrigger::kManual);
  QTest::keyClick(&channels, Qt::Key_End);
  emit channels.activated(2);
  EXPECT_EQ(start().typeTrigger, oTarnTrigger::kChannel) << "the selected channel was chosen";
  EXPECT_EQ(start().DataIndex, 2);
  EXPECT_EQ(edited.count(), 9);
}

TEST_F(TarnParamTest, RecordsGoWhereTheFrameSays) {
  EXPECT_EQ(filesShown(), QStringList("run1.txt"));
  QTest::keyClicks(&control<QLineEdit>("SavePrefix"), "run");
  EXPECT_EQ(control<QLabel>("SaveExample").text().toStdString(), folder.path() + "\\ run01012001_01h12.txt");
  QTest::keyClick(&control<QComboBox>("SaveFormat"), Qt::Key_Down);
  EXPECT_EQ(filesShown(), QStringList("run2.xml"));
  EXPECT_EQ(setting("Format"), ".xml");

  auto& tree = control<QTreeView>("SaveDir");
  const auto& folders = *static_cast<QFileSystemModel*>(tree.model());
  EXPECT_EQ(folders.filePath(tree.currentIndex()).toStdString(), folder.path());
  tree.setCurrentIndex(folders.index(QString::fromStdString(folder / "below")));
  EXPECT_EQ(parameters->fileFolder, folder / "below");
  EXPECT_EQ(parameters->filePrefix, "run");
  EXPECT_EQ(setting("PathName"), folder / "below");
  EXPECT_TRUE(filesShown().isEmpty());
  EXPECT_EQ(edited.count(), 5);
}

TEST_F(TarnParamTest, SaysInPlaceThatTheFolderIsGone) {
  auto& notice = *screen.findChild<Notice*>();
  EXPECT_FALSE(notice.isVisible());
  const std::string below = folder / "below";
  parameters->fileFolder = below;
  screen.setParameters(parameters);
  std::filesystem::remove(below);
  screen.hide();
  screen.show();
  EXPECT_TRUE(notice.isVisible());
  EXPECT_TRUE(notice.text().contains(QString::fromStdString(below)));
  control<QTreeView>("SaveDir").setFocus();
  EXPECT_EQ(parameters->fileFolder, below) << "looking at the tree chooses nothing";
  EXPECT_EQ(edited.count(), 0);
}

TEST_F(TarnParamTest, OffersDrivesWhenThereAreSeveral) {
  auto& drives = control<QComboBox>("SaveDrive");
  screen.setDrives({"/"});
  EXPECT_FALSE(drives.isVisible());
  screen.setDrives({"/", folder.path()});
  EXPECT_TRUE(drives.isVisible());
  EXPECT_EQ(drives.currentIndex(), 1);
  QTest::keyClick(&drives, Qt::Key_Up);
  EXPECT_EQ(parameters->fileFolder, files.currentFolder());
}

}  // namespace
