#include "ui/main/TarnMain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>

#include "platform/base/TarnError.h"
#include "platform/controls/CWNumEdit.h"
#include "tests/support/ScriptedSession.h"
#include "tests/ui/main/MainRig.h"
#include "ui/init/TarnInit.h"
#include "ui/main/WhenIdle.h"

namespace tarnlog {
namespace {

using test::MainRig;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

std::string failureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const TarnError& error) {
    return error.source() + ": " + error.description();
  }
  return "";
}

TEST(TarnMain, OpensAConfigurationAndAcquiresAtOnce) {
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  EXPECT_EQ(rig.currentView(), "ACQ");
  EXPECT_EQ(rig.visibleViews(), "ctlTarnAcq");
  rig.tickUntil(TarnAcq::kCommunicate);
  EXPECT_EQ(rig.main.ctlTarnAcq().AcqState(), TarnAcq::kCommunicate);
  EXPECT_EQ(rig.log().front(), "Start recording manually");
  const auto lines = rig.log().size();

  // The configuration is put away now: the next one cannot be opened, and nothing goes on behind.
  const std::string failure = failureOf([&] { rig.main.OpenConfigFile("/c.xml"); });
  EXPECT_EQ(failure, "Tarnlog2001: Open file error : Parameters not defined");
  EXPECT_EQ(rig.visibleViews(), "ctlTarnConfigure");
  EXPECT_EQ(rig.currentView(), "CONF");
  EXPECT_EQ(rig.main.ctlTarnAcq().AcqState(), TarnAcq::kIdle);

  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
  EXPECT_THAT(rig.log(), SizeIs(lines)) << "the log is of the latest acquisition";
}

TEST(TarnMain, LeavesTheConfigurationViewWhenAFileCannotBeOpened) {
  MainRig rig;
  rig.files.files["/bad.xml"] = "<Other/>";
  EXPECT_EQ(failureOf([&] { rig.main.OpenConfigFile("/c.xml"); }),
            "TarnAcq.StartReadingData: Session not defined, unable to acquire data");
  EXPECT_EQ(rig.visibleViews(), "ctlTarnConfigure");
  rig.main.setSession(&rig.vehicle->session());
  rig.main.ctlTarnAcq().addLog("a drive");
  EXPECT_EQ(failureOf([&] { rig.main.OpenConfigFile("/bad.xml"); }),
            "Tarnlog2001: Open file error : the file /bad.xml is not a Tarnlog file");
  EXPECT_THAT(rig.log(), ElementsAre("a drive")) << "the log of the latest acquisition stays";
  EXPECT_THAT(failureOf([&] { rig.main.OpenConfigFile("/none.xml"); }),
              StartsWith("Tarnlog2001: Open file error : File : /none.xml"));
  EXPECT_EQ(rig.visibleViews(), "ctlTarnConfigure");
  EXPECT_FALSE(rig.timer.enabled());
  rig.main.OpenConfigFile("/c.xml");
  EXPECT_EQ(rig.currentView(), "ACQ");
}

/// Clicks arrive while a request waits for its answer. The acquisition view goes when the acquisition has
/// ended, not at the click.
TEST(TarnMain, SwitchesViewsWhileTheLinkWaits) {
  test::Recipe slow;
  slow.latency = 60;
  MainRig rig(slow);
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.ticks(1);
  rig.child<QAbstractButton>("CommandStartStop").click();
  rig.ticks(2);
  std::string views;
  rig.whileWaiting = [&] {
    rig.view("CONF");
    rig.endQuestion.answer(true);
    views = rig.visibleViews();
  };
  rig.ticks(1);
  EXPECT_EQ(views, "ctlTarnConfigure ctlTarnAcq");
  EXPECT_EQ(rig.visibleViews(), "ctlTarnConfigure");
  EXPECT_EQ(rig.stopped, 1);
  ASSERT_THAT(rig.recordFiles(), SizeIs(1));

  // There and back during one answer: one acquisition ends, the next begins, the view stays.
  rig.view("ACQ");
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.whileWaiting = [&] {
    rig.view("log");
    rig.view("ACQ");
  };
  rig.ticks(1);
  EXPECT_EQ(rig.visibleViews(), "ctlTarnAcq");
  EXPECT_EQ(rig.main.ctlTarnAcq().AcqState(), TarnAcq::kInitialise);
  rig.view("log");
  EXPECT_EQ(rig.visibleViews(), "logText");
}

void turnWheel(QWidget& over) {
  QWheelEvent notch({5, 5}, over.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&over, &notch);
}

/// One click, or one notch of the wheel on the way down a page, must not end a drive.
TEST(TarnMain, AsksBeforeARecordingThatRunsIsEnded) {
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.ticks(1);
  const auto press = [&] {
    rig.child<QAbstractButton>("CommandStartStop").click();
    rig.ticks(2);
  };
  press();
  turnWheel(rig.child<QTabBar>("TabSmain"));
  turnWheel(rig.child<QTabBar>("TabStripMain"));
  EXPECT_EQ(rig.endQuestion.asked, 0);
  EXPECT_EQ(rig.child<QTabBar>("TabStripMain").currentIndex(), 0);
  rig.view("log");
  rig.ticks(2);
  EXPECT_EQ(rig.currentView() + ", " + rig.visibleViews(), "ACQ, ctlTarnAcq");
  rig.endQuestion.answer(false);
  EXPECT_TRUE(rig.main.ctlTarnAcq().Recording());

  bool ended = false;
  rig.view("CONF");
  rig.main.whenRecordingMayEnd([&] { ended = true; });
  EXPECT_EQ(rig.endQuestion.asked, 2) << "one question at a time";
  press();
  EXPECT_TRUE(QTest::qWaitFor([&] { return rig.endQuestion.withdrawn == 1; }, 1000));
  rig.endQuestion.answer(true);
  EXPECT_EQ(rig.currentView(), "ACQ") << "the recording has ended by itself: nobody is asked any longer";
  EXPECT_FALSE(ended);
  rig.main.whenRecordingMayEnd([&] { ended = true; });
  EXPECT_TRUE(ended) << "nothing records";

  press();
  rig.view("log");
  rig.endQuestion.answer(true);
  rig.ticks(1);
  EXPECT_EQ(rig.currentView() + ", " + rig.visibleViews(), "log, logText");
  EXPECT_EQ(rig.stopped, 1);
}

/// Stop and event act while values are polled only; a press in an outage was forgotten without a word.
TEST(TarnMain, OffersToEndARecordingThatWaitsForTheCar) {
  MainRig rig({.faults = R"({"ecu": "Injection", "kind": "noAnswer", "from": 0.8, "to": 60})"});
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.ticks(1);
  auto& button = rig.child<QAbstractButton>("CommandStartStop");
  button.click();
  rig.tickUntil(TarnAcq::kInitialise);
  ASSERT_TRUE(rig.main.ctlTarnAcq().Recording());
  EXPECT_FALSE(rig.main.notices().isVisible());
  button.click();
  EXPECT_EQ(rig.main.notices().notice("connection"),
            "No connection to the car: the recording goes on when it is back");
  rig.ticks(3);
  rig.child<QAbstractButton>("action").click();
  EXPECT_EQ(rig.stopped, 0) << "files are closed by one more tick";
  rig.ticks(1);
  EXPECT_EQ(rig.stopped, 1);
  EXPECT_FALSE(rig.main.ctlTarnAcq().Recording());
  EXPECT_EQ(rig.main.notices().notice("connection"), "");
  EXPECT_EQ(rig.visibleViews(), "ctlTarnConfigure");
}

TEST(TarnMain, BeginsAnewWithASecondSession) {
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
  auto second = rig.openVehicle();
  rig.main.setSession(&second->session());
  rig.vehicle = std::move(second);
  EXPECT_EQ(rig.visibleViews(), "ctlTarnConfigure");
  EXPECT_EQ(rig.main.configurationFile(), "");
  EXPECT_EQ(rig.main.ctlTarnConfigure().Parameters()->Count(), 0);
  EXPECT_FALSE(rig.timer.enabled());
  rig.view("ACQ");
  EXPECT_THAT(rig.log(), ElementsAre("No data to acquire"));
  rig.view("CONF");
  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
  EXPECT_EQ(rig.main.ctlTarnAcq().AcqState(), TarnAcq::kCommunicate);
}

TEST(TarnMain, ShowsTheConfigurationWhenTheHostStopsTheAcquisition) {
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.main.stopAcquisition();
  EXPECT_EQ(rig.stopped, 1);
  EXPECT_EQ(rig.visibleViews(), "ctlTarnConfigure");
  rig.view("ACQ");
  EXPECT_EQ(rig.main.ctlTarnAcq().AcqState(), TarnAcq::kInitialise);
}

TEST(TarnMain, SaysInTheLogWhyItDoesNotStart) {
  MainRig rig;
  rig.view("ACQ");
  EXPECT_THAT(rig.log(), ElementsAre("Session not defined, unable to acquire data"));
}

/// After it was hidden while it recorded, and when there is nothing to record any more.
TEST(TarnMain, LooksIdleWhenNothingIsAcquired) {
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  const auto& button = rig.child<QAbstractButton>("CommandStartStop");
  const auto record = [&] {
    rig.tickUntil(TarnAcq::kCommunicate);
    rig.ticks(1);
    rig.child<QAbstractButton>("CommandStartStop").click();
    rig.ticks(2);
    EXPECT_EQ(button.text(), "Stop recording");
  };
  record();
  rig.main.hide();
  EXPECT_EQ(button.text(), "Stop recording");
  rig.main.show();
  EXPECT_EQ(button.text(), "Start recording");
  rig.main.ctlTarnAcq().StartReadingData();
  record();
  rig.main.ctlTarnAcq().Parameters()->RemoveAll();
  rig.main.ctlTarnAcq().StartReadingData();
  EXPECT_EQ(rig.log().back(), "No data to acquire");
  EXPECT_EQ(button.text(), "Start recording");
}

/// A session whose catalogue cannot be read is nobody's: neither the acquisition nor a screen keeps the old
/// one, which the host may delete.
TEST(TarnMain, HasNoSessionAfterOneThatCannotBeRead) {
  class Unreadable : public test::ScriptedSession {
    std::size_t ecuCount() const override { throw TarnError(7, "Session", "no catalogue"); }
  };
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
  Unreadable unreadable;
  EXPECT_EQ(failureOf([&] { rig.main.setSession(&unreadable); }), "Session: no catalogue");
  rig.vehicle.reset();
  rig.choose("TabStripMain", "initsce");
  rig.choose("TabStripMain", "data");
  rig.ticks(2);
  rig.view("ACQ");
  EXPECT_THAT(rig.log(), ElementsAre("Session not defined, unable to acquire data"));
}

/// Minimising sends the same event as hiding, but the user comes back to what he was doing.
TEST(TarnMain, KeepsItsConfigurationWhenMinimisedAndTakesItUpAgainWhenShown) {
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  QHideEvent minimised;
  QSpontaneKeyEvent::setSpontaneous(&minimised);
  qApp->notify(&rig.main.ctlTarnConfigure(), &minimised);
  EXPECT_NE(rig.main.ctlTarnConfigure().Parameters(), nullptr);
  rig.main.hide();
  EXPECT_EQ(rig.main.ctlTarnConfigure().Parameters(), nullptr);
  rig.main.show();
  EXPECT_NE(rig.main.ctlTarnConfigure().Parameters(), nullptr);
}

// --- files

TEST(Tarn2001, LoadsAndSavesThroughItsToolBar) {
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  auto& configure = rig.main.ctlTarnConfigure();
  auto& parameters = *configure.Parameters();
  auto& load = rig.child<QAction>("load");
  auto& save = rig.child<QAction>("save");
  rig.dialogs.filesToOpen = {"/c.xml"};
  load.trigger();
  EXPECT_EQ(parameters.Count(), 1);
  EXPECT_FALSE(rig.main.configurationChanged());
  load.trigger();
  EXPECT_EQ(parameters.Count(), 1) << "cancelled";
  EXPECT_EQ(rig.dialogs.asked.back(), "open Tarnlog (*.xml)|*.xml|All files|*.*");

  rig.dialogs.filesToSave = {"/saved.xml"};
  save.trigger();
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
}

TEST(Tarn2001, KeepsChangedWorkUntilTheUserGivesItUp) {
  using Changed = Dialogs::Changed;
  MainRig rig;
  rig.main.setSession(&rig.vehicle->session());
  auto& configure = rig.main.ctlTarnConfigure();
  configure.load("/c.xml");
  emit rig.child<TarnInit>("ctlTarnParamInit").edited();
  EXPECT_TRUE(rig.main.configurationChanged());
  rig.child<QAction>("load").trigger();
  EXPECT_THAT(rig.dialogs.asked, ElementsAre("changed c.xml"));

  rig.files.openError = "/c.xml: No space left on device";
  rig.dialogs.decisions = {Changed::Save};
  rig.view("log");
  EXPECT_FALSE(rig.main.configurationMayBeLost());
  EXPECT_TRUE(rig.main.configurationChanged());
  EXPECT_EQ(rig.main.notices().notice("save"), "Not saved: /c.xml: No space left on device");
  rig.files.openError.clear();
  rig.dialogs.decisions = {Changed::Discard, Changed::Save};
  EXPECT_TRUE(rig.main.configurationMayBeLost());
  EXPECT_TRUE(rig.main.configurationMayBeLost());
  EXPECT_FALSE(rig.main.configurationChanged());
  EXPECT_EQ(rig.main.notices().notice("save"), "");
  EXPECT_THAT(rig.dialogs.asked, SizeIs(4)) << "no box for the failure";
}

TEST(Tarn2001, AsksBeforeSavingLosesPartsOfTheFile) {
  using Incomplete = Dialogs::Incomplete;
  test::Recipe recipe;
  recipe.data = {"Status/Speed", "Status/Boost"};
  MainRig rig(recipe);
  const std::string original = rig.files.files["/c.xml"];
  rig.main.setSession(&rig.vehicle->session());
  auto& configure = rig.main.ctlTarnConfigure();
  configure.load("/c.xml");
  rig.dialogs.places = {Incomplete::Cancel, Incomplete::SaveAs, Incomplete::Save};
  rig.dialogs.filesToSave = {"/record.txt"};
  rig.files.files["/record.txt"] = "time\tevent\r\n";
  EXPECT_FALSE(configure.save());
  EXPECT_FALSE(configure.save());
  EXPECT_EQ(rig.dialogs.asked.back(), "save /") << "the folder, not the file";
  EXPECT_EQ(rig.main.notices().notice("save"),
            "Not saved: /record.txt is a record, whose rows would be lost: choose another name");
  EXPECT_EQ(rig.files.files["/c.xml"], original);
  EXPECT_TRUE(configure.save());
  EXPECT_NE(rig.files.files["/c.xml"], original);
  EXPECT_TRUE(configure.save()) << "nothing is left to lose";
  EXPECT_EQ(std::count(rig.dialogs.asked.begin(), rig.dialogs.asked.end(), "incomplete c.xml"), 3);

  rig.files.files["/r.xml"] = R"(<Tarnlog2000 Version="2.0"><row/></Tarnlog2000>)";
  configure.load("/r.xml");
  EXPECT_THAT(fromQString(rig.main.notices().notice("record")), StartsWith("r.xml is a record"));
  configure.save();
  EXPECT_EQ(rig.dialogs.asked.back(), "save ") << "it has no file of its own";
}

TEST(Tarn2001, LoadsAgainWhatWasLoadedBeforeThereWasAVehicle) {
  MainRig rig;
  auto& configure = rig.main.ctlTarnConfigure();
  EXPECT_FALSE(configure.fileActions().at(1)->isEnabled()) << "there is nothing to save";
  EXPECT_TRUE(configure.load("/c.xml"));
  EXPECT_EQ(rig.main.notices().notice("lacks"), "c.xml: its data are loaded as soon as there is a vehicle.");
  rig.main.setSession(&rig.vehicle->session());
  EXPECT_EQ(configure.Parameters()->Count(), 1);
  EXPECT_EQ(rig.main.configurationFile(), "/c.xml");
  EXPECT_FALSE(rig.main.notices().isVisible());
  rig.main.setSession(&rig.vehicle->session());
  EXPECT_EQ(configure.Parameters()->Count(), 0) << "once";
}

/// The click comes while the recorder waits for the car, and so does the next one, on another view. Screens
/// that are left hold no configuration.
TEST(Tarn2001, DropsTheDialogThatWaitsWhenItsViewIsLeft) {
  test::Recipe slow;
  slow.latency = 60;
  slow.start = "rising 50";
  MainRig rig(slow);
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  rig.tickUntil(TarnAcq::kCommunicate);
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
  EXPECT_THAT(rig.dialogs.asked, IsEmpty());
  EXPECT_EQ(rig.main.configurationFile(), "/c.xml");
  for (const char* const screen : {"data", "param", "scope", "initsce"}) {
    rig.view("CONF");
    rig.choose("TabStripMain", screen);
    rig.main.ctlTarnConfigure().setParameters(nullptr);
  }
}

TEST(Tarn2001, NamesWhatTheVehicleDoesNotOffer) {
  test::Recipe recipe;
  recipe.data = {"Status/Speed", "Status/Boost", "Status/Torque"};
  MainRig rig(recipe);
  rig.main.setSession(&rig.vehicle->session());
  rig.main.OpenConfigFile("/c.xml");
  EXPECT_EQ(rig.main.notices().notice("lacks"), "c.xml: 2 parts do not fit this vehicle: Boost, Torque");
  EXPECT_EQ(rig.main.notices().details("lacks").front(), "Not offered by this vehicle: Engine/Status/Boost");
  EXPECT_TRUE(rig.main.notices().isVisible());
  rig.main.setSession(&rig.vehicle->session());
  EXPECT_FALSE(rig.main.notices().isVisible());
}

}  // namespace
}  // namespace tarnlog
