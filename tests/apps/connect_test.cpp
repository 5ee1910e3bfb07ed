#include <gmock/gmock.h>

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <fstream>

#include "apps/tarnlog/ConnectDialog.h"
#include "apps/tarnlog/OpeningProgress.h"
#include "tests/apps/WindowRig.h"
#include "tests/support/TempFolder.h"
#include "ui/common/Notice.h"

namespace tarnlog {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(LinkChoices, BeginWithWhatIsPluggedIn) {
  const test::TempFolder folder;
  const std::filesystem::path root(folder.path());
  for (const char* const name : {"ttyUSB10", "ttyUSB2", "rfcomm0", "ttyS0", "null"})
    std::ofstream(root / name).put('x');
  for (const auto& [name, type] : {std::pair("eth0", 1), std::pair("vcan0", 280)}) {
    std::filesystem::create_directory(root / name);
    std::ofstream(root / name / "type") << type << "\n";
  }
  const CarDevices devices = findCarDevices(root, root);
  EXPECT_THAT(devices.canInterfaces, ElementsAre("vcan0"));
  std::vector<std::string> urls;
  for (const LinkChoice& choice : linkChoices(devices)) urls.push_back(choice.url);
  EXPECT_THAT(
      urls, ElementsAre("elm327://" + (root / "rfcomm0").string(), "elm327://" + (root / "ttyUSB2").string(),
                        "elm327://" + (root / "ttyUSB10").string(), "isotp://vcan0",
                        "elm327://192.168.0.10:35000", "doip://*", "replay:"));
  EXPECT_EQ(linkChoices(findCarDevices(root / "none", root / "none")).size(), 5U);
}

/// A car on a trace, and a user who connects to it.
struct ConnectTest : ::testing::Test, test::WindowRig {
  ConnectTest() {
    files.files["/drive.trace"] =
        "# tarnlog trace 1\n"
        "0.0 > 2016 OBD-II 01 00\n0.1 < 41 00 00 08 00 00\n"
        "0.2 > 2016 OBD-II 01 0D\n0.3 < 41 0D 20\n";
    open();
  }
  void TearDown() override { window.reset(); }  // before what it uses
  void open() {
    window.reset();
    const auto openCar = [this](const CarConnection& car, const LinkHooks& hooks) {
      if (whileOpening) std::exchange(whileOpening, nullptr)();
      hooks.whileWaiting();
      host::LinkOptions link;
      link.url = car.link;
      link.openAtOnce = true;
      link.stopAsked = hooks.stopAsked;
      link.phase = hooks.phase;
      return host::openVehicle(car.vehicle, files, {}, linkClock, hooks.whileWaiting, link);
    };
    window.emplace(WindowEnvironment{{clock, timer, files, settings, dialogs, {}}, openCar});
    window->show();
  }
  ConnectDialog& dialog() {
    if (find<ConnectDialog>() == nullptr) find<QAction>("connectToCar")->trigger();
    return *find<ConnectDialog>();
  }
  void connectOver(const QString& link) {
    dialog().findChild<QLineEdit*>("link")->setText(link);
    press("connect");
  }
  std::string failure() { return fromQString(dialog().findChild<Notice*>()->text()); }

  const std::string connected = "New configuration[*] - OBD car over replay:/drive.trace - Tarnlog2001";
  std::function<void()> whileOpening;
};

TEST_F(ConnectTest, SaysInPlaceWhatIsWrongAndRemembersWhatWorked) {
  connectOver("elm327:");
  EXPECT_THAT(failure(), HasSubstr("expected a serial port like /dev/ttyUSB0"));
  connectOver("replay:/none.trace");
  EXPECT_THAT(failure(), HasSubstr("/none.trace"));
  press("described");
  EXPECT_FALSE(find<QPushButton>("connect")->isEnabled()) << "no description is named";
  EXPECT_EQ(failure(), "") << "it was about another choice";
  press("askCar");
  dialogs.filesToOpen = {"/drive.trace"};
  find<QListWidget>("links")->setCurrentRow(4);
  press("browseLink");
  press("connect");
  EXPECT_EQ(title(), connected);
  EXPECT_FALSE(dialog().isVisible());

  open();
  auto* const known = find<QListWidget>("vehicles");
  EXPECT_EQ(known->item(0)->text(), "OBD car\nreplay:/drive.trace");
  emit known->itemActivated(known->item(0));
  EXPECT_EQ(title(), connected);
  EXPECT_EQ(dialog().connection().link, "replay:/drive.trace");
  EXPECT_EQ(find<QListWidget>("links")->item(0)->text(), "OBD car, as before\nreplay:/drive.trace");
}

TEST_F(ConnectTest, KeepsWhatThereIsWhenTheUserCancels) {
  whileOpening = [&] {
    auto* const progress = find<QProgressDialog>("openingProgress");
    EXPECT_TRUE(QTest::qWaitFor([&] { return progress->isVisible(); }, 5000));
    EXPECT_THAT(fromQString(progress->labelText()), HasSubstr("replay:/drive.trace"));
    progress->findChild<QPushButton*>()->click();
  };
  connectOver("replay:/drive.trace");
  EXPECT_TRUE(dialog().isVisible());
  EXPECT_EQ(failure(), "");
  EXPECT_TRUE(window->isEnabled());
  EXPECT_EQ(title(), "Tarnlog2001");
  EXPECT_THAT(dialogs.asked, IsEmpty());
  connectOver("replay:/drive.trace");
  EXPECT_EQ(title(), connected);
}

}  // namespace
}  // namespace tarnlog
