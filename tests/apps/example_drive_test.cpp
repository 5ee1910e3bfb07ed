#include <gmock/gmock.h>

#include <QScrollBar>
#include <QTreeView>

#include "SourceDir.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/apps/WindowRig.h"
#include "tests/support/TempFolder.h"
#include "ui/acquisition/TabStrip.h"

namespace tarnlog {
namespace {

using testing::ElementsAre;
using testing::Gt;

/// The example car in the program's window, from its files to the bytes of a record file; only time is in the
/// test's hands.
TEST(ExampleDrive, IsShownAndRecordedByTheTriggersOfItsConfiguration) {
  const QString examples = TARNLOG_SOURCE_DIR "/examples/";
  const test::TempFolder folder;
  SystemFileSystem disk;
  std::string finished;
  test::WindowRig rig;
  rig.window.emplace(WindowEnvironment{{rig.clock, rig.timer, disk, rig.settings, rig.dialogs, {}},
                                       [&](const CarConnection& car, auto&) {
                                         return host::openVehicle(car.vehicle, disk, {}, rig.linkClock, {});
                                       }});
  rig.window->show();
  rig.acq().setFileFinishedHandler([&](const std::string& path) { finished = path; });

  rig.window->acquire(examples + "road-car.xml", folder.path());
  rig.window->openVehicle(examples + "road-car.vehicle.json");
  for (int tick = 0; tick < 20000 && finished.empty(); ++tick) {
    rig.timer.fire();
    rig.linkClock.step(std::chrono::milliseconds(1));
  }
  ASSERT_NE(finished, "") << "the triggers did not fire";

  const auto& list = *rig.find<QTreeView>("LVvisuText")->model();
  ASSERT_EQ(list.rowCount(), 27);
  EXPECT_EQ(list.index(0, 0).data().toString(), "Engine : Engine speed");
  EXPECT_NE(list.index(0, 1).data().toString(), "");
  EXPECT_NE(rig.find<QWidget>("GT1"), nullptr) << "no graph is shown";

  auto& surface = *rig.find<QWidget>("FrGraphic");
  auto& bar = *rig.find<QScrollBar>("VScroll");
  rig.find<TabStrip>("TabStripVisu")->select("GRAPH");
  std::vector<int> heights;
  for (const int height : {400, 1600, 400, 1600, 400}) {
    bar.setValue(bar.maximum());
    rig.window->resize(900, height);
    QCoreApplication::processEvents();
    heights.push_back(surface.height());
    EXPECT_EQ(surface.height(), rig.find<QWidget>("FrScroll")->height() + bar.maximum());
    EXPECT_EQ(surface.y(), 0);
  }
  const int least = heights[0];
  EXPECT_THAT(heights, ElementsAre(least, Gt(least), least, Gt(least), least))
      << "graphs share at once what a larger window offers, and give it back";

  const std::string record = disk.readAll(finished);
  for (const char* part : {"\"Engine speed(rpm)\"", "\"Start\"", "\"Stop\""})
    EXPECT_THAT(record, testing::HasSubstr(part));
}

}  // namespace
}  // namespace tarnlog
