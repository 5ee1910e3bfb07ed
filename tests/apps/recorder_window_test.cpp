#include "apps/tarnlog/RecorderWindow.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressDialog>
#include <QTabBar>
#include <QTimer>
#include <QTreeView>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "apps/common/Signals.h"
#include "apps/tarnlog/EndRecordingBox.h"
#include "apps/tarnlog/FolderSettings.h"
#include "apps/tarnlog/LinkAddress.h"
#include "apps/tarnlog/LiveRecorder.h"
#include "config/RegisterParameters.h"
#include "host/link/trace/SimulatedLink.h"
#include "tests/apps/WindowRig.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/TempFolder.h"
#include "ui/common/NoticeBar.h"
#include "ui/main/Tarn2001.h"

namespace tarnlog {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::SizeIs;

struct RecorderWindowTest : ::testing::Test, test::WindowRig {
  RecorderWindowTest() {
    const test::Recipe recipe{.speed = "0:10"};
    files.files["/car.json"] = test::vehicleDescription(recipe);
    files.files["/broken.json"] = R"({"name": "Car", "ecus": 7})";
    files.files["/c.xml"] = test::configuration(recipe);
    files.files["/bad.xml"] = "<Tarnlog2000>";
    open();
  }
  void TearDown() override { window.reset(); }  // before what it uses
  /// Starts the program anew.
  void open() {
    window.reset();
    WindowEnvironment environment{
        {clock, timer, files, settings, dialogs, {}, "tarnlog.xsl", &endQuestion},
        [this](const CarConnection& car, const LinkHooks& hooks) {
          stopAsked = hooks.stopAsked;
          if (whileOpening) std::exchange(whileOpening, nullptr)();
          hooks.whileWaiting();
          const auto openOver = [&](auto link) {
            const auto idle = [this] {
              if (whileWaiting) std::exchange(whileWaiting, nullptr)();
            };
            return host::openVehicle(car.vehicle, files, {}, linkClock, idle, std::move(link));
          };
          return openLink ? openOver(openLink(car.link)) : openOver(host::LinkOptions());
        }};
    environment.folderOfVehicle = [](const std::string& folder, const host::VehicleDescription& vehicle,
                                     const auto&) { return folder + "/" + vehicle.name; };
    environment.unfinished.find = [this](const std::string& folder, bool) {
      return folder == "/rec" ? unfinished : std::vector<std::string>{};
    };
    environment.unfinished.close = [](const std::string& path) {
      if (path == "/rec/b.xml") throw TarnError(1, "repair", "no space");
      return path + ": closed\n";
    };
    window.emplace(std::move(environment));
    window->show();
  }
  void startRecording() {
    window->acquire("/c.xml");
    window->openVehicle("/car.json");
    ticks(12);
    press("CommandStartStop");
    ticks(3);
    ASSERT_THAT(recordFiles(), SizeIs(1));
  }
  /// The recording that runs may end.
  void agree() {
    for (QAbstractButton* const button : find<QMessageBox>("endRecording")->buttons())
      if (button->text() == "&End recording") button->click();
  }
  bool titled(const QString& beginning) {
    return QTest::qWaitFor([&] { return window->windowTitle().startsWith(beginning); }, 1000);
  }
  void view(int tab) { find<QTabBar>("TabSmain")->setCurrentIndex(tab); }
  bool closed() {
    return QTest::qWaitFor([&] { return !window->isVisible(); }, 1000);
  }
  std::vector<std::string> recordFiles() const {
    std::vector<std::string> paths;
    for (const auto& [path, bytes] : files.files)
      if (path.rfind("/rec/", 0) == 0) paths.push_back(path);
    return paths;
  }
  std::vector<std::string> entriesOf(const QString& menuTitle) {
    std::vector<std::string> texts;
    for (auto* const menu : window->findChildren<QMenu*>()) {
      if (menu->title().remove('&') != menuTitle) continue;
      emit menu->aboutToShow();
      for (const QAction* const action : menu->actions()) texts.push_back(fromQString(action->text()));
    }
    return texts;
  }
  std::string notice(const char* key) { return fromQString(find<NoticeBar>()->notice(key)); }

  EndRecordingBox endQuestion;
  std::function<void()> whileWaiting;  ///< these run once, where events may run
  std::function<void()> whileOpening;
  std::function<std::unique_ptr<host::Link>(const std::string&)> openLink;  ///< null: the simulation
  host::Link::StopQuestion stopAsked;  ///< of the vehicle that was opened last
  std::vector<std::string> unfinished;
  test::ScriptedPeer mute;
  bool taken = false;  ///< the port of a PortLink
};

/// From an empty window to a finished record file.
TEST_F(RecorderWindowTest, WalksFromAnEmptyWindowToARecord) {
  files.files["/cfg/settings"] = "PathName=/rec\nPeriod=0\n";
  open();
  dialogs.filesToOpen = {"/car.json"};
  press("otherVehicle");
  auto& tree = *find<QTreeView>("TreeAllData");
  tree.expandAll();
  const QModelIndexList found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, "Speed", 1,
                                                    Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1);
  tree.setCurrentIndex(found.front());
  find<QWidget>("ctlTarnSelect")->findChild<QAbstractButton*>("addData")->click();
  EXPECT_TRUE(window->isWindowModified());
  find<QTabBar>("TabStripMain")->setCurrentIndex(1);
  QTest::keyClicks(find<QLineEdit>("SavePrefix"), "walk_");
  dialogs.filesToSave = {"/walk.xml"};
  window->recorder().ctlTarnConfigure().fileActions().at(1)->trigger();
  EXPECT_EQ(title(), "walk.xml[*] - Car - Tarnlog2001");
  EXPECT_FALSE(window->isWindowModified());

  view(1);
  ticks(12);
  const auto& values = *find<QTreeView>("LVvisuText");
  EXPECT_GT(values.columnWidth(0), values.width() / 2) << "names need the most";
  press("CommandStartStop");
  ticks(4);
  press("CommandStartStop");
  ticks(2);
  view(2);
  EXPECT_THAT(recordFiles(), ElementsAre(HasSubstr("/rec/walk_16-11-26_19h05mn")));
  EXPECT_THAT(files.files[recordFiles().front()],
              MatchesRegex("time\tevent\t\"Engine\"\r\n16/11/26\t\t\"Status\"\r\n"
                           "[0-9:]*\t\t\"Speed.km/h.\"\r\n0\t\"Start\"\t10\r\n"
                           "([0-9.]*\t\"\"\t10\r\n)*[0-9.]*\t\"Stop\"\t10\r\n"));
  EXPECT_TRUE(find<QPlainTextEdit>("logText")->toPlainText().endsWith(" Stop record"));
  window->close();
  EXPECT_TRUE(closed());
  EXPECT_THAT(dialogs.asked, SizeIs(2)) << "nothing to lose";
}

TEST_F(RecorderWindowTest, RemembersVehiclesConfigurationsAndItsPlace) {
  EXPECT_EQ(title(), "Tarnlog2001");
  dialogs.filesToOpen = {"/car.json", "/c.xml"};
  press("otherVehicle");
  EXPECT_EQ(title(), "New configuration[*] - Car - Tarnlog2001");
  find<QAction>("load")->trigger();
  EXPECT_EQ(title(), "c.xml[*] - Car - Tarnlog2001");
  EXPECT_FALSE(window->isWindowModified());
  window->recorder().ctlTarnConfigure().noteEdit();
  EXPECT_TRUE(window->isWindowModified());
  window->resize(900, 500);

  dialogs.decisions = {Dialogs::Changed::Cancel, Dialogs::Changed::Discard};
  EXPECT_FALSE(window->close());
  QCoreApplication::processEvents();
  EXPECT_TRUE(window->isVisible());
  window->close();
  EXPECT_TRUE(closed());
  open();
  EXPECT_EQ(window->size(), QSize(900, 500));
  EXPECT_THAT(entriesOf("Recent vehicles"), ElementsAre("/car.json"));
  EXPECT_THAT(entriesOf("Recent configurations"), ElementsAre("/c.xml"));
  // A configuration that is opened before the vehicle waits for it.
  dialogs.filesToOpen = {"/c.xml"};
  window->recorder().ctlTarnConfigure().fileActions().front()->trigger();
  EXPECT_EQ(notice("early"), "c.xml is opened as soon as there is a vehicle.");
  auto* const vehicles = find<QListWidget>("vehicles");
  emit vehicles->itemActivated(vehicles->item(0));
  EXPECT_EQ(title(), "c.xml[*] - Car - Tarnlog2001");
  EXPECT_EQ(window->recorder().ctlTarnConfigure().Parameters()->Count(), 1);
  EXPECT_FALSE(find<NoticeBar>()->isVisible());
}

TEST_F(RecorderWindowTest, OffersToCloseRecordsThatAKillLeftOpen) {
  unfinished = {"/rec/a.xml", "/rec/b.xml"};
  files.files["/cfg/settings"] = "PathName=/rec\n";
  open();
  EXPECT_EQ(notice("unfinished"), "2 records were not closed, their recorder was killed");
  press("action");
  EXPECT_THAT(find<NoticeBar>()->details("unfinished"),
              ElementsAre("/rec/a.xml: closed", "/rec/b.xml: no space"));

  unfinished = {"/rec/c.xml"};
  files.files["/cfg/settings"] = "";
  open();
  EXPECT_EQ(notice("unfinished"), "");
  window->acquire("/c.xml");
  window->openVehicle("/car.json");
  EXPECT_THAT(notice("unfinished"), HasSubstr("/rec/c.xml")) << "the configuration's folder";
  press("action");
  EXPECT_THAT(notice("unfinished"), HasSubstr("end the acquisition first"));
}

TEST_F(RecorderWindowTest, StaysUsableWithBrokenFiles) {
  files.files["/cfg/settings"] = "no equals sign";
  open();
  EXPECT_THAT(notice("settings"), HasSubstr("/cfg/settings, line 1: expected Name=value"));
  window->acquire("/bad.xml");
  window->openVehicle("/broken.json");
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("/broken.json: /ecus: expected")));
  EXPECT_EQ(title(), "Tarnlog2001");
  window->openVehicle("/car.json");
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("Load error: Open file error : File : /bad.xml, Line : 1"));
  window->openVehicle("/none.json");
  EXPECT_EQ(title(), "New configuration[*] - Car - Tarnlog2001") << "the old vehicle stays";
  open();
  EXPECT_FALSE(find<NoticeBar>()->isVisible()) << "said once";
}

/// The box has no loop of its own: the recording goes on below it.
TEST_F(RecorderWindowTest, AsksBeforeItEndsTheRecordingAndEndsItBeforeItCloses) {
  startRecording();
  view(0);
  QPointer box = find<QMessageBox>("endRecording");
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->text(), "A recording is running. End it?");
  const auto rows = files.files[recordFiles().front()].size();
  ticks(2);
  EXPECT_GT(files.files[recordFiles().front()].size(), rows);
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_TRUE(window->recorder().recordingRuns());
  ASSERT_TRUE(QTest::qWaitFor([&] { return box == nullptr; }, 1000));
  window->close();
  EXPECT_FALSE(acq().endAsked());
  agree();
  EXPECT_NE(notice("closing"), "");
  EXPECT_TRUE(window->isVisible()) << "one more tick ends the acquisition";
  ticks(1);
  EXPECT_TRUE(closed());
  EXPECT_THAT(files.files[recordFiles().front()], HasSubstr("\r\n0\t\"Start\"\t10"));
}

/// The window must not go, nor ask anything, inside the request: its tick would have nowhere to return to.
TEST_F(RecorderWindowTest, ClosesAndChangesTheVehicleAfterTheRequestUnderWay) {
  window->acquire("/c.xml");
  window->openVehicle("/car.json");
  ticks(12);
  whileWaiting = [&] { window->openVehicle("/car.json"); };
  ticks(1);
  ASSERT_TRUE(titled("New"));
  window->acquire("/c.xml");
  ticks(12);
  window->recorder().ctlTarnConfigure().noteEdit();
  dialogs.decisions = {Dialogs::Changed::Discard};
  std::size_t asked = 0;
  whileWaiting = [&] {
    window->close();
    asked = dialogs.asked.size();
  };
  ticks(1);
  EXPECT_EQ(asked, 0U);
  EXPECT_TRUE(closed());
}

/// It used to end before there was anything in its place.
TEST_F(RecorderWindowTest, RecordsUntilTheOtherVehicleIsOpen) {
  startRecording();
  const auto running = stopAsked;
  whileOpening = [&] {
    emit find<QProgressDialog>()->canceled();
    EXPECT_TRUE(stopAsked());
    EXPECT_FALSE(running());
  };
  window->openVehicle("/car.json");
  window->openVehicle("/broken.json");
  EXPECT_THAT(dialogs.asked, SizeIs(1));
  whileOpening = [&] { ticks(1); };
  window->openVehicle("/car.json");
  EXPECT_EQ(title(), "c.xml[*] - Car - Tarnlog2001");
  ticks(1);
  agree();
  const auto rows = test::rowsOf(files.files[recordFiles().front()]);
  ticks(1);
  EXPECT_TRUE(titled("New configuration[*] - Car"));
  EXPECT_THAT(rows, SizeIs(5)) << "one while the other vehicle was opened, one while the user was asked";
  EXPECT_EQ(acq().AcqState(), TarnAcq::kIdle);
}

/// A link to a port that is taken while it is open.
class PortLink : public host::SimulatedLink {
 public:
  PortLink(host::LinkClock& clock, host::SimulatedPeer& peer, bool& taken)
      : SimulatedLink(clock, peer), taken_(taken) {}

 protected:
  void doOpen() override {
    taken_ = true;
    SimulatedLink::doOpen();
  }
  void doClose() override {
    taken_ = false;
    SimulatedLink::doClose();
  }

 private:
  bool& taken_;
};

/// The window itself used to hold the adapter that it could not connect to again.
TEST_F(RecorderWindowTest, LetsAnAdapterGoThatTheNextVehicleNeeds) {
  bool takenAtOpening = false;
  openLink = [&](const std::string& link) {
    takenAtOpening = taken;
    if (link == "elm327://box:1" || link.ends_with("00?baud=1")) throw TarnError(1, "Link", "no adapter");
    return std::make_unique<PortLink>(linkClock, mute, taken);
  };
  window->openConnection({"/car.json", "elm327://box"});
  window->acquire("/c.xml");
  ticks(2);
  ASSERT_TRUE(taken);
  window->openConnection({"/car.json", "elm327://box:1"});
  EXPECT_TRUE(takenAtOpening) << "another adapter";
  EXPECT_NE(acq().AcqState(), TarnAcq::kIdle);

  window->openConnection({"/car.json", "elm327://BOX:35000?baud=1"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return dialogs.asked.size() == 2; }, 1000));
  EXPECT_FALSE(takenAtOpening);
  EXPECT_EQ(title(), "c.xml[*] - Car over elm327://box - Tarnlog2001");
  view(1);
  ticks(2);
  EXPECT_TRUE(taken) << "the vehicle that was there is acquired again";
  window->openConnection({"/car.json", "elm327://box:35000"});
  EXPECT_TRUE(titled("New configuration[*] - Car over elm327://box:35000"));
  window->acquire("/c.xml");
  ticks(2);
  EXPECT_TRUE(taken);
}

TEST(LinkAddress, IsSharedByOnePortUnderDifferentNames) {
  const test::TempFolder folder;
  const std::string port = "elm327://" + (folder / "ttyUSB0");
  std::ofstream(folder / "ttyUSB0").put('x');
  std::filesystem::create_symlink(folder / "ttyUSB0", folder / "by-id");
  for (const auto& [one, other, shared] :
       {std::tuple(port + "?baud=9600", "elm327://" + (folder / "by-id"), true),
        {port, port + "1", false},
        {"elm327://box", "elm327://BOX:35000", true},
        {"elm327://box", "elm327://box:23", false},
        {"doip://*", "doip://10.0.0.5?ecu=1", true},
        {"doip://10.0.0.5", "elm327://10.0.0.5", false},
        {"", "", false},  // simulations
        {"replay:a.trace", "replay:a.trace", false}})
    EXPECT_EQ(shareAddress(one, other), shared) << one << " " << other;
}

/// The folder is asked for at each file, and never part of the configuration: that would grow a folder at
/// each saving. And in an outage the acquisition is nearly always in the middle of a request, whose link has
/// to be told of the end.
TEST_F(RecorderWindowTest, PutsTheFilesIntoAFolderOfTheVehicleAndWantsToEndAsSoonAsItIsClosed) {
  find<QAction>("folderPerVehicle")->trigger();
  startRecording();
  EXPECT_THAT(recordFiles(), ElementsAre(HasSubstr("/rec/Car/16-11-26")));
  EXPECT_EQ(acq().Parameters()->fileFolder, "/rec");
  whileWaiting = [&] {
    window->close();
    agree();
    EXPECT_TRUE(acq().endAsked());
    EXPECT_TRUE(stopAsked());
  };
  ticks(1);
  EXPECT_TRUE(closed());
  open();
  EXPECT_TRUE(find<QAction>("folderPerVehicle")->isChecked());
}

/// A car that is asked what it offers may take a minute.
TEST_F(RecorderWindowTest, ClosesWhenTheVehicleIsOpen) {
  whileOpening = [&] {
    EXPECT_FALSE(window->isEnabled());
    window->close();
    window->endAndClose();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->isVisible());
  };
  window->openVehicle("/car.json");
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(title(), "Tarnlog2001") << "closing cancels the opening";
  EXPECT_TRUE(closed());
}

TEST(FolderSettings, HoldUntilAnotherFolderIsChosen) {
  MemorySettingsStore stored;
  stored.write("PathName", "/home/anna");
  FolderSettings settings(stored, "/rec");
  EXPECT_EQ(oTarnParameters(settings).fileFolder, "/rec");
  SetRegisterParameter(settings, kRegisterPathName, "/rec");
  SetRegisterParameter(settings, kRegisterPeriod, "5");
  EXPECT_EQ(stored.read("PathName"), "/home/anna");
  EXPECT_EQ(oTarnParameters(settings).recordingPeriod, 5);
  SetRegisterParameter(settings, kRegisterPathName, "/other");
  EXPECT_EQ(oTarnParameters(settings).fileFolder, "/other");
}

/// What the command line asks for is opened while signals are heard.
TEST(LiveRecorder, ASignalEndsItAlsoWhileABoxIsOpen) {
  const test::TempFolder folder;
  qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder.path()));
  Signals::install();
  constexpr int kMostLooks = 100;  // a busy machine takes its time
  QTimer look;
  int looks = 0;
  QObject::connect(&look, &QTimer::timeout, [&] {
    QWidget* const box = QApplication::activeModalWidget();
    if (looks == 0 && box == nullptr) return;
    if (++looks == 1) {
      std::raise(SIGTERM);
    } else if (looks > kMostLooks) {  // for a red test that ends
      if (box != nullptr) box->close();
      QApplication::quit();
    }
  });
  look.start(200);
  LiveOptions options;
  options.vehicle = folder / "none.json";
  EXPECT_EQ(LiveRecorder(options).run(), 0);
  EXPECT_GE(looks, 1);
  EXPECT_LE(looks, kMostLooks);
}

}  // namespace
}  // namespace tarnlog
