#include <gtest/gtest.h>

#include <QTreeView>
#include <fstream>
#include <iterator>

#include "SourceDir.h"
#include "acquisition/TarnAcq.h"
#include "apps/tarnlog/RecorderWindow.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/settings/FileSettingsStore.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/SteppedClock.h"
#include "tests/support/TempFolder.h"
#include "ui/main/TarnMain.h"

namespace tarnlog {
namespace {

/// The example car in the program's window, from its files to the bytes of a record file; only time is in the
/// test's hands.
TEST(ExampleDrive, IsShownAndRecordedByTheTriggersOfItsConfiguration) {
  const QString examples = TARNLOG_SOURCE_DIR "/examples/";
  const test::TempFolder folder;
  SystemFileSystem files;
  test::MemoryFileSystem settingsFiles;
  FileSettingsStore settings{settingsFiles, "/cfg/settings"};
  test::SteppedClock clock;
  test::ManualLinkClock linkClock{&clock};
  test::ManualTimer timer;
  test::ScriptedDialogs dialogs;
  RecorderWindow window({{clock, timer, files, settings, dialogs, {}}, [&](const CarConnection& car, auto&) {
                           return host::openVehicle(car.vehicle, files, {}, linkClock, {});
                         }});
  window.show();
  std::vector<std::string> finished;
  window.recorder().ctlTarnAcq().setFileFinishedHandler(
      [&](const std::string& path) { finished.push_back(path); });

  window.acquire(examples + "road-car.xml", folder.path());
  window.openVehicle(examples + "road-car.vehicle.json");
  for (int tick = 0; tick < 20000 && finished.empty(); ++tick) {
    timer.fire();
    linkClock.step(std::chrono::milliseconds(1));
  }
  ASSERT_EQ(finished.size(), 1U) << "the triggers did not fire";

  const auto* const list = window.findChild<QTreeView*>("LVvisuText");
  ASSERT_EQ(list->model()->rowCount(), 27);
  EXPECT_EQ(list->model()->index(0, 0).data().toString(), "Engine : Engine speed");
  EXPECT_NE(list->model()->index(0, 1).data().toString(), "");
  EXPECT_NE(window.findChild<QWidget*>("GT1"), nullptr) << "no graph is shown";

  std::ifstream file(finished.front(), std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  EXPECT_NE(text.find("\"Engine speed(rpm)\""), std::string::npos);
  EXPECT_NE(text.find("\"Start\""), std::string::npos);
  EXPECT_NE(text.find("\"Stop\""), std::string::npos);
  EXPECT_TRUE(text.ends_with("\r\n"));
}

}  // namespace
}  // namespace tarnlog
