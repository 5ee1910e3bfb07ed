#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "apps/common/LoadedConfiguration.h"
#include "apps/tarnlog/AcqWindow.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/SteppedClock.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

/// The program's window on the example car, with time and timer in the test's hands.
class ExampleWindow {
 public:
  explicit ExampleWindow(const std::string& configuration) {
    const std::string examples = std::string(TARNLOG_SOURCE_DIR) + "/examples/";
    vehicle = host::openVehicle(examples + "road-car.vehicle.json", files, {}, linkClock, [this] {
      if (whileWaiting) whileWaiting();
    });
    const auto loaded = loadToRecord(files, examples + configuration, vehicle->session());
    loaded.parameters->fileFolder = folder.path();
    window.acq().setFileFinishedHandler([this](const std::string& path) { finished.push_back(path); });
    window.show();
    window.acq().setSession(&vehicle->session());
    window.acq().StartReadingData(loaded.parameters);
  }

  void tick() {
    timer.fire();
    linkClock.step(1000);
  }
  template <class Condition>
  bool tickUntil(Condition condition) {
    for (int i = 0; i < 20000 && !condition(); ++i) tick();
    return condition();
  }
  bool recordFor(int seconds) {
    if (!tickUntil([&] { return window.acq().hasRow(); })) return false;
    QTest::mouseClick(window.findChild<QPushButton*>("CommandStartStop"), Qt::LeftButton);
    const Milliseconds from = clock.milliseconds();
    return tickUntil([&] { return millisecondsBetween(from, clock.milliseconds()) > seconds * 1000; });
  }
  std::string recorded() const {
    std::ifstream file(finished.at(0), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  test::TempFolder folder;
  SystemFileSystem files;
  test::SteppedClock clock;
  test::ManualLinkClock linkClock{&clock};
  test::ManualTimer timer;
  std::function<void()> whileWaiting;
  std::unique_ptr<host::OpenedVehicle> vehicle;
  std::vector<std::string> finished;
  AcqWindow window{{clock, timer, files, UserLocale{}, "tarnlog.xsl"}};
};

TEST(AcqWindow, RecordsADriveOfTheExampleCar) {
  ExampleWindow example("road-car.xml");
  ASSERT_TRUE(example.tickUntil([&] { return !example.finished.empty(); })) << "the triggers did not fire";
  const std::string text = example.recorded();
  EXPECT_NE(text.find("\"Engine speed(rpm)\""), std::string::npos);
  EXPECT_NE(text.find("Start"), std::string::npos);
  EXPECT_NE(text.find("Stop"), std::string::npos);
  EXPECT_TRUE(text.ends_with("\r\n"));
}

TEST(AcqWindow, ClosingItEndsTheAcquisitionWhateverTheTickIsDoing) {
  for (const bool insideATick : {false, true}) {
    SCOPED_TRACE(insideATick);
    ExampleWindow example("road-car-manual.xml");
    ASSERT_TRUE(example.recordFor(3));
    ASSERT_TRUE(example.window.acq().Recording());
    if (insideATick) {
      example.whileWaiting = [&] {
        example.whileWaiting = nullptr;
        example.window.close();
        example.window.close();
        QApplication::processEvents();
        EXPECT_TRUE(example.window.isVisible()) << "it goes when the tick has ended";
      };
    } else {
      example.window.close();
    }
    example.tick();
    EXPECT_EQ(example.finished.size(), 1U);
    EXPECT_EQ(example.window.acq().AcqState(), TarnAcq::kIdle);
    EXPECT_FALSE(example.timer.enabled());
    QApplication::processEvents();
    EXPECT_FALSE(example.window.isVisible());
    EXPECT_TRUE(example.recorded().ends_with("\r\n"));
  }
}

TEST(AcqWindow, ClosesAtOnceWhereNothingIsAcquired) {
  ExampleWindow example("road-car-manual.xml");
  example.window.acq().AskStopAcqNow();
  example.window.close();
  QApplication::processEvents();
  EXPECT_FALSE(example.window.isVisible());
}

}  // namespace
}  // namespace tarnlog
