#include "ui/main/TarnMain.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTabBar>
#include <algorithm>

#include "platform/controls/CWNumEdit.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/FailureOf.h"
#include "tests/support/Gestures.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/ScriptedSession.h"
#include "tests/support/WidgetText.h"
#include "ui/common/NoticeBar.h"
#include "ui/init/TarnInit.h"
#include "ui/main/EndQuestion.h"
#include "ui/main/LogView.h"
#include "ui/main/MainEnvironment.h"
#include "ui/main/Tarn2001.h"
#include "ui/main/WhenIdle.h"

namespace tarnlog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

/// A host that lets the test answer when it likes.
class ScriptedEndQuestion : public EndQuestion {
 public:
  int asked = 0;
  int withdrawn = 0;
  std::function<void(bool end)> answer;

  void ask(QWidget*, std::function<void(bool end)> given) override {
    ++asked;
    answer = std::move(given);
  }
  void withdraw() override { ++withdrawn; }
};

/// The recorder control in a shown window, on a simulated car with one ECU, "Engine", whose speed is
/// `recipe.speed`. Time is stepped; files are in memory: /c.xml records the speed into /rec.
struct MainRig : SteppedParts {
  explicit MainRig(const Recipe& recipe = {}) {
    files.files["/car.json"] = vehicleDescription(recipe);
    files.files["/c.xml"] = configuration(recipe);
    vehicle = openVehicle();
    main.resize(800, 600);
    main.show();
    plugIn();
  }

  std::unique_ptr<host::OpenedVehicle> openVehicle() {
    return host::openVehicle("/car.json", files, {}, linkClock, [this] {
      if (whileWaiting) std::exchange(whileWaiting, nullptr)();
    });
  }
  void plugIn() { main.setSession(&vehicle->session()); }
  /// Opens the configuration, until values are polled.
  void acquire() {
    main.OpenConfigFile("/c.xml");
    tickUntil(TarnAcq::kCommunicate);
    ticks(1);
  }
  /// Starts or ends a recording.
  void pressRecord() {
    child<QAbstractButton>("CommandStartStop").click();
    ticks(2);
  }

  template <class Widget>
  Widget& child(const char* name) {
    return childOf<Widget>(main, name);
  }
  /// A click on a tab of the strip, by the tab's key.
  void choose(const char* strip, const QString& key) {
    auto& tabs = child<QTabBar>(strip);
    for (int tab = 0; tab < tabs.count(); ++tab)
      if (tabs.tabData(tab) == key) tabs.setCurrentIndex(tab);
  }
  void view(const QString& key) { choose("TabSmain", key); }
  /// The tab that is chosen, and the views that are shown: "CONF: ctlTarnConfigure".
  std::string views() {
    const auto& tabs = child<QTabBar>("TabSmain");
    std::string names = fromQString(tabs.tabData(tabs.currentIndex()).toString()) + ":";
    for (const char* const name : {"ctlTarnConfigure", "ctlTarnAcq", "logText"})
      if (child<QWidget>(name).isVisible()) names += std::string(" ") + name;
    return names;
  }
  std::string notice(const char* subject) { return fromQString(main.notices().notice(subject)); }
  TarnAcq::State state() { return main.ctlTarnAcq().AcqState(); }

  void tickUntil(TarnAcq::State wanted) { SteppedParts::tickUntil(main.ctlTarnAcq(), wanted); }

  /// The lines of the log view, without times of day.
  std::vector<std::string> log() {
    std::vector<std::string> lines;
    const QStringList all = toQString(child<LogView>("logText").pane().text()).split("\r\n");
    for (const QString& line : all.mid(1)) lines.push_back(fromQString(line.mid(9)));
    return lines;
  }

  MemorySettingsStore settings;
  ScriptedDialogs dialogs;
  ScriptedEndQuestion endQuestion;
  std::function<void()> whileWaiting;  ///< runs once, while the recorder waits for the car
  std::unique_ptr<host::OpenedVehicle> vehicle;
  TarnMain main{MainEnvironment{clock, timer, files, settings, dialogs, {}, "tarnlog.xsl", &endQuestion}};
  QSignalSpy stopped{&main, &TarnMain::acquisitionStopped};
};

TEST(TarnMain, OpensAConfigurationAndAcquiresAtOnceUntilItIsStopped) {
  MainRig rig;
  rig.acquire();
  EXPECT_EQ(rig.views(), "ACQ: ctlTarnAcq");
  EXPECT_EQ(rig.log().front(), "Start recording manually");
  const auto lines = rig.log().size();

  // The configuration is put away now: the next one cannot be opened, and nothing goes on behind.
  EXPECT_EQ(failureOf([&] { rig.main.OpenConfigFile("/c.xml"); }),
            "Open file error : Parameters not defined");
  EXPECT_EQ(rig.views(), "CONF: ctlTarnConfigure");
  EXPECT_EQ(rig.state(), TarnAcq::kIdle);

  rig.acquire();
  EXPECT_THAT(rig.log(), SizeIs(lines)) << "the log is of the latest acquisition";
  rig.stopped.clear();
  rig.main.stopAcquisition();
  EXPECT_EQ(rig.stopped.count(), 1);
  EXPECT_EQ(rig.views(), "CONF: ctlTarnConfigure");
  rig.view("ACQ");
  EXPECT_EQ(rig.state(), TarnAcq::kInitialise);
}

TEST(TarnMain, LeavesTheConfigurationViewWhenAFileCannotBeOpened) {
  MainRig rig;
  rig.files.files["/bad.xml"] = "<Other/>";
  const auto failure = [&](const char* file) { return errorOf([&] { rig.main.OpenConfigFile(file); }); };
  rig.main.setSession(nullptr);
  EXPECT_THAT(failure("/c.xml"),
              HasSubstr("TarnAcq.StartReadingData: Session not defined, unable to acquire data"));
  rig.view("ACQ");
  EXPECT_THAT(rig.log(), ElementsAre("Session not defined, unable to acquire data"));
  rig.view("CONF");
  rig.main.ctlTarnConfigure().load("/c.xml");
  EXPECT_EQ(rig.notice("lacks"), "c.xml: its data are loaded as soon as there is a vehicle.");
  rig.plugIn();
  EXPECT_EQ(rig.main.ctlTarnConfigure().Parameters()->Count(), 1);
  rig.main.ctlTarnAcq().addLog("a drive");
  EXPECT_THAT(failure("/bad.xml"),
              HasSubstr("Tarnlog2001: Open file error : the file /bad.xml is not a Tarnlog file"));
  EXPECT_THAT(failure("/none.xml"), HasSubstr("Tarnlog2001: Open file error : File : /none.xml"));
  EXPECT_EQ(rig.log().back(), "a drive") << "the log of the latest acquisition stays";
  EXPECT_EQ(rig.views(), "CONF: ctlTarnConfigure");
  EXPECT_FALSE(rig.timer.enabled());
}

/// Clicks arrive while a request waits for its answer. The acquisition view goes when the acquisition has
/// ended, not at the click.
TEST(TarnMain, SwitchesViewsWhileTheLinkWaits) {
  MainRig rig({.latency = 60});
  rig.acquire();
  rig.pressRecord();
  std::string views;
  rig.whileWaiting = [&] {
    rig.view("CONF");
    rig.endQuestion.answer(true);
    views = rig.views();
  };
  rig.ticks(1);
  EXPECT_EQ(views, "CONF: ctlTarnConfigure ctlTarnAcq");
  EXPECT_EQ(rig.views(), "CONF: ctlTarnConfigure");
  EXPECT_EQ(rig.stopped.count(), 1);

  // There and back during one answer: one acquisition ends, the next begins, the view stays.
  rig.view("ACQ");
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.whileWaiting = [&] {
    rig.view("log");
    rig.view("ACQ");
  };
  rig.ticks(1);
  EXPECT_EQ(rig.views(), "ACQ: ctlTarnAcq");
  EXPECT_EQ(rig.state(), TarnAcq::kInitialise);
}

/// One click, or one notch of the wheel on the way down a page, must not end a drive.
TEST(TarnMain, AsksBeforeARecordingThatRunsIsEnded) {
  MainRig rig;
  rig.acquire();
  rig.pressRecord();
  turnWheel(rig.child<QTabBar>("TabSmain"));
  turnWheel(rig.child<QTabBar>("TabStripMain"));
  EXPECT_EQ(rig.endQuestion.asked, 0);
  EXPECT_EQ(rig.child<QTabBar>("TabStripMain").currentIndex(), 0);
  rig.view("log");
  rig.ticks(2);
  EXPECT_EQ(rig.views(), "ACQ: ctlTarnAcq");
  rig.endQuestion.answer(false);
  EXPECT_TRUE(rig.main.ctlTarnAcq().Recording());

  bool ended = false;
  rig.view("CONF");
  rig.main.whenRecordingMayEnd([&] { ended = true; });
  EXPECT_EQ(rig.endQuestion.asked, 2) << "one question at a time";
  rig.pressRecord();
  EXPECT_TRUE(QTest::qWaitFor([&] { return rig.endQuestion.withdrawn == 1; }));
  rig.endQuestion.answer(true);
  EXPECT_EQ(rig.views(), "ACQ: ctlTarnAcq")
      << "the recording has ended by itself: nobody is asked any longer";
  EXPECT_FALSE(ended);
  rig.main.whenRecordingMayEnd([&] { ended = true; });
  EXPECT_TRUE(ended) << "nothing records";

  rig.pressRecord();
  rig.view("log");
  rig.endQuestion.answer(true);
  rig.ticks(1);
  EXPECT_EQ(rig.views(), "log: logText");
  EXPECT_EQ(rig.stopped.count(), 1);
}

/// Stop and event act while values are polled only; a press in an outage was forgotten without a word.
TEST(TarnMain, OffersToEndARecordingThatWaitsForTheCar) {
  MainRig rig({.faults = R"({"ecu": "Injection", "kind": "noAnswer", "from": 0.8, "to": 60})"});
  rig.acquire();
  rig.pressRecord();
  rig.tickUntil(TarnAcq::kInitialise);
  ASSERT_TRUE(rig.main.ctlTarnAcq().Recording());
  EXPECT_FALSE(rig.main.notices().isVisible());
  rig.pressRecord();
  EXPECT_EQ(rig.notice("connection"), "No connection to the car: the recording goes on when it is back");
  rig.ticks(1);
  rig.child<QAbstractButton>("action").click();
  EXPECT_EQ(rig.stopped.count(), 0) << "files are closed by one more tick";
  rig.ticks(1);
  EXPECT_EQ(rig.stopped.count(), 1);
  EXPECT_EQ(rig.notice("connection"), "");
  EXPECT_EQ(rig.views(), "CONF: ctlTarnConfigure");
}

/// A session whose catalogue cannot be read is nobody's: neither the acquisition nor a screen keeps the old
/// one, which the host may delete.
TEST(TarnMain, BeginsAnewWithASecondSessionAndHasNoneWhenItCannotBeRead) {
  class Unreadable : public ScriptedSession {
    std::size_t ecuCount() const override { throw TarnError(7, "Session", "no catalogue"); }
  };
  MainRig rig;
  rig.acquire();
  auto second = rig.openVehicle();
  rig.main.setSession(&second->session());
  rig.vehicle = std::move(second);
  EXPECT_EQ(rig.views(), "CONF: ctlTarnConfigure");
  EXPECT_EQ(rig.main.configurationFile(), "");
  EXPECT_EQ(rig.main.ctlTarnConfigure().Parameters()->Count(), 0);
  EXPECT_FALSE(rig.timer.enabled());
  rig.view("ACQ");
  EXPECT_THAT(rig.log(), ElementsAre("No data to acquire"));
  rig.view("CONF");
  rig.acquire();
  EXPECT_EQ(rig.state(), TarnAcq::kCommunicate);
  Unreadable unreadable;
  EXPECT_EQ(failureOf([&] { rig.main.setSession(&unreadable); }), "no catalogue");
  rig.vehicle.reset();
  rig.choose("TabStripMain", "initsce");
  rig.choose("TabStripMain", "data");
  rig.ticks(2);
  rig.view("ACQ");
  EXPECT_THAT(rig.log(), ElementsAre("Session not defined, unable to acquire data"));
}

/// After it was hidden while it recorded, and when there is nothing to record any more.
TEST(TarnMain, LooksIdleWhenNothingIsAcquired) {
  MainRig rig;
  rig.acquire();
  const auto& button = rig.child<QAbstractButton>("CommandStartStop");
  rig.pressRecord();
  rig.main.hide();
  EXPECT_EQ(button.text(), "Stop recording");
  rig.main.show();
  EXPECT_EQ(button.text(), "Start recording");
  rig.main.ctlTarnAcq().StartReadingData();
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.ticks(1);
  rig.pressRecord();
  EXPECT_EQ(button.text(), "Stop recording");
  rig.main.ctlTarnAcq().Parameters()->RemoveAll();
  rig.main.ctlTarnAcq().StartReadingData();
  EXPECT_EQ(rig.log().back(), "No data to acquire");
  EXPECT_EQ(button.text(), "Start recording");

  // Minimising sends the same event as hiding, but the user comes back to what he was doing.
  rig.view("CONF");
  Tarn2001& configure = rig.main.ctlTarnConfigure();
  minimise(configure);
  EXPECT_NE(configure.Parameters(), nullptr);
  rig.main.hide();
  EXPECT_EQ(configure.Parameters(), nullptr);
  rig.main.show();
  EXPECT_NE(configure.Parameters(), nullptr);
}

// --- files

TEST(Tarn2001, LoadsAndSavesThroughItsToolBar) {
  MainRig rig;
  auto& configure = rig.main.ctlTarnConfigure();
  auto& parameters = *configure.Parameters();
  auto& load = rig.child<QAction>("load");
  rig.dialogs.filesToOpen = {"/c.xml"};
  load.trigger();
  EXPECT_EQ(parameters.Count(), 1);
  load.trigger();
  EXPECT_EQ(parameters.Count(), 1) << "cancelled";
  EXPECT_EQ(rig.dialogs.asked.back(), "open Tarnlog (*.xml)|*.xml|All files|*.*");
  rig.dialogs.filesToSave = {"/saved.xml"};
  rig.child<QAction>("save").trigger();
  EXPECT_THAT(rig.files.files["/saved.xml"], HasSubstr(R"(href="tarnlog.xsl")"));
  EXPECT_EQ(rig.main.configurationFile(), "/saved.xml");

  rig.choose("TabStripMain", "param");
  auto& period = rig.child<CWNumEdit>("ValPeriod");
  period.setFocus();
  period.selectAll();
  QTest::keyClicks(&period, "99999");
  configure.save();
  EXPECT_EQ(parameters.recordingPeriod, 10000) << "a number that is being typed is saved within its limits";
  rig.choose("TabStripMain", "initsce");
  auto& session = rig.child<QLineEdit>("TxStartSession");
  session.setFocus();
  QTest::keyClicks(&session, " 7 ");
  configure.save();
  EXPECT_EQ(parameters.startSession, "07") << "and a text is completed";
  EXPECT_FALSE(rig.main.configurationChanged());

  rig.files.files["/bad.xml"] = "<Other/>";
  rig.dialogs.filesToOpen = {"/bad.xml"};
  load.trigger();
  EXPECT_EQ(rig.dialogs.asked.back(),
            "Load error: Error when loading configuration file\r\nthe file /bad.xml is not a Tarnlog file");
  EXPECT_EQ(parameters.Count(), 0);
  EXPECT_EQ(rig.main.configurationFile(), "") << "nothing must be written over the file from before";
}

TEST(Tarn2001, KeepsChangedWorkUntilTheUserGivesItUp) {
  using Changed = Dialogs::Changed;
  MainRig rig;
  rig.main.ctlTarnConfigure().load("/c.xml");
  emit rig.child<TarnInit>("ctlTarnParamInit").edited();
  EXPECT_TRUE(rig.main.configurationChanged());
  rig.child<QAction>("load").trigger();
  EXPECT_THAT(rig.dialogs.asked, ElementsAre("changed c.xml"));

  rig.files.openError = "/c.xml: No space left on device";
  rig.dialogs.decisions = {Changed::Save};
  rig.view("log");
  EXPECT_FALSE(rig.main.configurationMayBeLost());
  EXPECT_EQ(rig.notice("save"), "Not saved: /c.xml: No space left on device");
  EXPECT_EQ(rig.main.configurationFile(), "/c.xml");
  rig.files.openError.clear();
  rig.dialogs.decisions = {Changed::Discard, Changed::Save};
  EXPECT_TRUE(rig.main.configurationMayBeLost());
  EXPECT_TRUE(rig.main.configurationMayBeLost());
  EXPECT_FALSE(rig.main.configurationChanged());
  EXPECT_EQ(rig.notice("save"), "");
  EXPECT_THAT(rig.dialogs.asked, SizeIs(4)) << "no box for the failure";
}

TEST(Tarn2001, NamesWhatTheVehicleDoesNotOfferAndAsksBeforeSavingLosesIt) {
  using Incomplete = Dialogs::Incomplete;
  MainRig rig({.data = {"Status/Speed", "Status/Boost", "Status/Torque"}});
  const std::string original = rig.files.files["/c.xml"];
  auto& configure = rig.main.ctlTarnConfigure();
  configure.load("/c.xml");
  EXPECT_EQ(rig.notice("lacks"), "c.xml: 2 parts do not fit this vehicle: Boost, Torque");
  EXPECT_EQ(rig.main.notices().details("lacks").front(), "Not offered by this vehicle: Engine/Status/Boost");
  rig.dialogs.places = {Incomplete::Cancel, Incomplete::SaveAs, Incomplete::Save};
  rig.dialogs.filesToSave = {"/record.txt"};
  rig.files.files["/record.txt"] = "time\tevent\r\n";
  EXPECT_FALSE(configure.save());
  EXPECT_FALSE(configure.save());
  EXPECT_EQ(rig.dialogs.asked.back(), "save /") << "the folder, not the file";
  EXPECT_EQ(rig.notice("save"),
            "Not saved: /record.txt is a record, whose rows would be lost: choose another name");
  EXPECT_EQ(rig.files.files["/c.xml"], original);
  EXPECT_TRUE(configure.save());
  EXPECT_NE(rig.files.files["/c.xml"], original);
  EXPECT_TRUE(configure.save()) << "nothing is left to lose";
  EXPECT_EQ(std::count(rig.dialogs.asked.begin(), rig.dialogs.asked.end(), "incomplete c.xml"), 3);

  rig.files.files["/r.xml"] = R"(<Tarnlog2000 Version="2.0"><row/></Tarnlog2000>)";
  configure.load("/r.xml");
  EXPECT_THAT(rig.notice("record"), HasSubstr("r.xml is a record"));
  configure.save();
  EXPECT_EQ(rig.dialogs.asked.back(), "save ") << "it has no file of its own";
  rig.plugIn();
  EXPECT_FALSE(rig.main.notices().isVisible());
}

/// The click comes while the recorder waits for the car, and so does the next one, on another view. Screens
/// that are left hold no configuration.
TEST(Tarn2001, DropsTheDialogThatWaitsWhenItsViewIsLeft) {
  MainRig rig({.latency = 60, .start = "rising 50"});
  rig.acquire();
  rig.dialogs.filesToOpen = {"/c.xml"};
  rig.whileWaiting = [&] {
    rig.view("CONF");
    rig.child<QAction>("load").trigger();
    rig.view("log");
  };
  rig.ticks(1);
  for (auto* const waiting : rig.main.findChildren<WhenIdle*>()) {
    QTimerEvent lookAgain(0);
    QApplication::sendEvent(waiting, &lookAgain);
  }
  EXPECT_TRUE(rig.dialogs.asked.empty());
  EXPECT_EQ(rig.main.configurationFile(), "/c.xml");
  for (const char* const screen : {"data", "param", "scope", "initsce"}) {
    rig.view("CONF");
    rig.choose("TabStripMain", screen);
    rig.main.ctlTarnConfigure().setParameters(nullptr);
  }
}

}  // namespace
}  // namespace tarnlog::test
