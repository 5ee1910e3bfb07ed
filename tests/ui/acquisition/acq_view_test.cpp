#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QHideEvent>
#include <QLabel>
#include <QListWidget>
#include <QPaintEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabBar>
#include <QTreeView>

#include "acquisition/AcqWords.h"
#include "platform/controls/CWGraph.h"
#include "platform/controls/CWSlide.h"
#include "tests/ui/acquisition/ViewRig.h"
#include "ui/acquisition/ConnectionWatch.h"
#include "ui/acquisition/Indicator.h"
#include "ui/acquisition/TabStrip.h"

namespace tarnlog {
namespace {

using test::ViewRig;
using ::testing::ElementsAre;

std::vector<std::string> logLines(const ViewRig& rig) {
  const auto& log = rig.child<QListWidget>("log");
  std::vector<std::string> lines;
  for (int row = 0; row < log.count(); ++row) lines.push_back(log.item(row)->text().mid(9).toStdString());
  return lines;
}

std::string shownValue(const ViewRig& rig, int row) {
  return rig.child<QTreeView>("LVvisuText").model()->index(row, 1).data().toString().toStdString();
}

TEST(AcqView, EnterAndSpaceActOnceWhereverTheFocusIs) {
  for (const char* const name : {"CommandStartStop", "EventBouton", "LVvisuText", "log"}) {
    SCOPED_TRACE(name);
    ViewRig rig;
    rig.start();
    QWidget& focused = rig.child(name);
    QTest::keyClick(&focused, Qt::Key_Return);
    EXPECT_TRUE(rig.view.acq().startPending());
    rig.tick();
    EXPECT_TRUE(rig.view.acq().Recording());
    QTest::keyClick(&focused, Qt::Key_Space);
    EXPECT_EQ(rig.filesWith("event"), 1);
    EXPECT_EQ(rig.child<QPushButton>("EventBouton").text(), "Event 1");
    EXPECT_EQ(rig.filesWith(".txt"), 2);
  }
}

TEST(AcqView, KeysOfTheViewItselfNeedAVehicleThatAnswers) {
  ViewRig rig;
  rig.view.acq().StartReadingData(rig.parameters);
  QKeyEvent early(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&rig.view, &early);
  EXPECT_FALSE(early.isAccepted());
  rig.start();
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(&rig.view, &held);
  EXPECT_FALSE(rig.view.acq().startPending());
  QKeyEvent pressed(QEvent::KeyPress, Qt::Key_Enter, Qt::KeypadModifier);
  QApplication::sendEvent(&rig.view, &pressed);
  EXPECT_TRUE(pressed.isAccepted());
  EXPECT_TRUE(rig.view.acq().startPending());
}

TEST(AcqView, ButtonsRecordAndIndicatorsSayItInColourSignAndWords) {
  ViewRig rig;
  rig.start();
  const auto& lamp = rig.child<Indicator>("LblRec");
  const auto& state = rig.child<Indicator>("LblDiag");
  auto& button = rig.child<QPushButton>("CommandStartStop");
  EXPECT_EQ(state.text(), "com");
  EXPECT_EQ(state.colour(), words::colourOf(RecordingFact::Opened));
  EXPECT_EQ(lamp.text(), "rec");
  EXPECT_EQ(lamp.colour(), kButtonFace);
  EXPECT_EQ(button.text(), "Start recording");

  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(lamp.colour(), words::colourOf(RecordingFact::Requested));
  const QString requested = lamp.toolTip();
  rig.tick();
  EXPECT_EQ(lamp.colour(), words::colourOf(RecordingFact::On));
  EXPECT_EQ(lamp.sign(), Indicator::Sign::Disc);
  EXPECT_NE(lamp.toolTip(), requested);
  EXPECT_EQ(button.text(), "Stop recording");
  EXPECT_EQ(rig.child<QLabel>("Record").text().toStdString(), rig.view.acq().RecordPath());
  rig.tick(2080);
  rig.tick();
  EXPECT_EQ(rig.child<QLabel>("AcqTime").text(), "2.1");
  rig.files.writeError = "No space left on device";
  rig.tick();
  EXPECT_EQ(lamp.colour(), words::colourOf(RecordingFact::On)) << "the state of the recording is the same";
  EXPECT_EQ(lamp.sign(), Indicator::Sign::Warning);
  rig.files.writeError.clear();
  rig.tick();
  EXPECT_EQ(lamp.sign(), Indicator::Sign::Disc);
  QTest::mouseClick(&button, Qt::LeftButton);
  rig.tick();
  EXPECT_EQ(lamp.colour(), kButtonFace);
  EXPECT_EQ(rig.view.acq().finishedRecordings(), 1);
}

TEST(AcqView, AssistiveTechnologyReadsWhatTheStatusBarSays) {
  ViewRig rig;
  rig.start();
  const auto read = [&](const char* panel) {
    return QAccessible::queryAccessibleInterface(&rig.child(panel))->text(QAccessible::Name).toStdString();
  };
  EXPECT_EQ(read("Record"), "no record file");
  rig.view.acq().ToggleRecording();
  rig.tick(2000);
  rig.tick();
  EXPECT_EQ(read("Record"), rig.view.acq().RecordPath());
  EXPECT_EQ(read("AcqTime"), rig.child<QLabel>("AcqTime").text().toStdString());
}

TEST(AcqView, TabsShowListOrGraphs) {
  ViewRig rig;
  auto& tabs = rig.child<TabStrip>("TabStripVisu");
  const auto shown = [&] {
    std::vector<std::string> names;
    for (const char* const name : {"LVvisuText", "FrScroll", "VScroll"})
      if (rig.child(name).isVisible()) names.emplace_back(name);
    return names;
  };
  EXPECT_THAT(shown(), ElementsAre("LVvisuText"));
  QTest::mouseClick(&tabs.bar(), Qt::LeftButton, {}, tabs.bar().tabRect(1).center());
  EXPECT_EQ(tabs.currentKey(), "GRAPH");
  EXPECT_THAT(shown(), ElementsAre("FrScroll", "VScroll"));
  tabs.select("NONE");
  EXPECT_THAT(shown(), ElementsAre("FrScroll", "VScroll"));
  tabs.select("LIST");
  EXPECT_THAT(shown(), ElementsAre("LVvisuText"));
}

TEST(AcqView, AScrollDuringATickMovesTheGraphsAtItsEnd) {
  ViewRig rig;
  for (int i = 0; i < 20; ++i) {
    auto& data = rig.status.addData("More " + std::to_string(i));
    rig.add(data).SetGraph("", false, 0, 100, 100, 0xFF0000);
  }
  rig.start();
  auto& bar = rig.child<QScrollBar>("VScroll");
  const QWidget& surface = rig.child("FrGraphic");
  ASSERT_GT(bar.maximum(), 60);
  EXPECT_EQ(surface.height(), rig.child("FrScroll").height() + bar.maximum());

  bar.setValue(20);
  EXPECT_EQ(surface.y(), -20);
  rig.session.script.whileWaiting = [&] {
    bar.setValue(60);
    EXPECT_EQ(surface.y(), -20);
  };
  rig.child("log").setFocus();
  rig.tick();
  rig.session.script.whileWaiting = nullptr;
  EXPECT_EQ(surface.y(), -60);
  EXPECT_EQ(rig.view.focusWidget(), &rig.child("CommandStartStop"));

  rig.view.resize(700, 400);
  EXPECT_EQ(bar.value(), 0);
  EXPECT_EQ(surface.y(), 0);
  EXPECT_EQ(surface.width(), rig.child("FrScroll").width());
  rig.child<TabStrip>("TabStripVisu").select("GRAPH");
  QTest::keyClick(&rig.view, Qt::Key_PageDown);
  QWheelEvent wheel({5, 5}, rig.view.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&rig.child("FrScroll"), &wheel);
  EXPECT_GT(bar.value(), 0);
}

TEST(AcqView, PlacesItsControlsByItsSize) {
  ViewRig rig;
  for (const QSize size : {QSize(420, 300), QSize(1300, 800), rig.view.minimumSizeHint()}) {
    rig.view.resize(size);
    const auto& tabs = rig.child<TabStrip>("TabStripVisu");
    const QRect client = tabs.clientArea().translated(tabs.pos());
    const int right = tabs.geometry().right();
    EXPECT_EQ(rig.child("log").geometry().right(), right);
    EXPECT_EQ(rig.child("LVvisuText").geometry(), client);
    EXPECT_EQ(rig.child("VScroll").geometry().right(), client.right());
    EXPECT_EQ(rig.child("VScroll").height(), client.height());
    EXPECT_EQ(rig.child("FrScroll").geometry().right() + 1, rig.child("VScroll").x());
    EXPECT_GT(rig.child("log").width(), 100);
    EXPECT_GT(client.height(), 50);
  }
  rig.view.resize(1300, 800);
  const auto& list = rig.child<QTreeView>("LVvisuText");
  const int seventh = list.viewport()->width() / 7;
  EXPECT_NEAR(list.columnWidth(0), 4 * seventh, 3);
  EXPECT_NEAR(list.columnWidth(1), 2 * seventh, 2);
  EXPECT_NEAR(list.columnWidth(2), seventh, 8);
  // They follow as well where the list has become longer than its place, and while it is not shown.
  for (int i = 0; i < 60; ++i) rig.add(rig.status.addData("More " + std::to_string(i)));
  rig.start();
  QTest::qWait(1);
  for (const char* const shown : {"LIST", "GRAPH"}) {
    rig.child<TabStrip>("TabStripVisu").select(shown);
    rig.view.resize(*shown == 'L' ? 600 : 420, 400);
    rig.child<TabStrip>("TabStripVisu").select("LIST");
    EXPECT_NEAR(list.columnWidth(0), 4 * (list.viewport()->width() / 7), 3) << shown;
    EXPECT_FALSE(list.horizontalScrollBar()->isVisible());
  }
}

/// The scroll bar that comes while the list is resized is no drag of a column.
TEST(AcqView, ColumnsStayInSightWhenTheWindowShrinksWhileGraphsAreShown) {
  ViewRig rig;
  for (int i = 0; i < 40; ++i) rig.add(rig.status.addData("More " + std::to_string(i)));
  rig.view.resize(1200, 800);
  rig.start();
  rig.child<TabStrip>("TabStripVisu").select("GRAPH");
  rig.view.resize(600, 300);
  rig.child<TabStrip>("TabStripVisu").select("LIST");
  QTest::qWait(1);
  const auto& list = rig.child<QTreeView>("LVvisuText");
  EXPECT_TRUE(list.verticalScrollBar()->isVisible());
  EXPECT_NEAR(list.columnWidth(0), 4 * (list.viewport()->width() / 7), 3);
}

/// What of a widget was painted.
class PaintSpy : public QObject {
 public:
  explicit PaintSpy(QWidget& widget) { widget.installEventFilter(this); }
  QRegion painted;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

TEST(AcqView, PaintsOnlyTheValuesThatChangedAndNoneWhilePaused) {
  ViewRig rig;
  rig.speed.setValue(10.0);
  rig.load.setValue(50.0);
  rig.start();
  auto& list = rig.child<QTreeView>("LVvisuText");
  EXPECT_EQ(list.model()->index(0, 0).data().toString(), "Engine : Speed");
  EXPECT_EQ(list.model()->index(0, 2).data().toString(), "km/h");
  QTest::qWait(50);

  PaintSpy spy(*list.viewport());
  rig.load.setValue(51.5);
  rig.tick();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !spy.painted.isEmpty(); }));
  EXPECT_EQ(spy.painted.boundingRect(), list.visualRect(list.model()->index(1, 1)));
  EXPECT_EQ(shownValue(rig, 1), "51.5");

  QTest::keyClick(&list, Qt::Key_P);
  EXPECT_TRUE(rig.view.paused());
  EXPECT_TRUE(rig.child("LblPaused").isVisible());
  QTest::qWait(50);
  spy.painted = {};
  rig.speed.setValue(99.0);
  rig.tick();
  QTest::qWait(50);
  EXPECT_TRUE(spy.painted.isEmpty());
  EXPECT_EQ(shownValue(rig, 0), "10");
  QTest::keyClick(&list, Qt::Key_Pause);
  EXPECT_EQ(shownValue(rig, 0), "99");
  EXPECT_FALSE(rig.child("LblPaused").isVisible());
}

/// What of the display is grey.
std::string greyParts(const ViewRig& rig) {
  const auto& list = *rig.child<QTreeView>("LVvisuText").model();
  std::string parts;
  if (list.index(0, 1).data(Qt::ForegroundRole).isValid()) parts += "list ";
  if (rig.child<CWGraph>("GT1").plotColour(1) != QColor(0, 0, 255)) parts += "curve ";
  if (rig.child<CWSlide>("SL1").isFaded()) parts += "bar ";
  return parts;
}

TEST(AcqView, SaysHowOldTheValuesAreWhenNoAnswerComes) {
  ViewRig rig;
  auto& second = rig.engine.addRequest("Other", "21 81");
  rig.add(second.addData("Boost")).SetSlide("", 0, 2, 0);
  rig.start();
  auto& watch = *rig.view.findChild<ConnectionWatch*>();
  QSignalSpy aged(&watch, &ConnectionWatch::aged);
  const auto& mark = rig.child<QLabel>("LblSilence");
  const auto waitAtEachRequest = [&](Milliseconds time) {
    rig.session.script.whileWaiting = [&rig, &watch, time] {
      rig.clock.step(time);
      watch.look();
    };
  };

  waitAtEachRequest(900);
  rig.tick(0);
  EXPECT_EQ(aged.count(), 0) << "a slow cycle is no outage while answers come";

  waitAtEachRequest(1100);
  rig.tick(0);
  EXPECT_EQ(mark.text(), "No connection for 2 s") << "one request that waits";
  EXPECT_EQ(greyParts(rig), "list curve bar ");
  rig.session.script.whileWaiting = nullptr;
  watch.look();
  EXPECT_FALSE(mark.isVisible());
  EXPECT_EQ(greyParts(rig), "");

  // One ECU answers and the next does not: values are as old as the last complete cycle.
  second.failing.next("no answer", 100);
  aged.clear();
  for (int i = 0; i < 100; ++i) rig.tick(100);
  for (int i = 0; i < 5; ++i) watch.look();
  EXPECT_EQ(mark.text(), "No connection for 10 s");
  EXPECT_GE(aged.count(), 2);
  EXPECT_LE(aged.count(), 10) << "painted once a second at most";
  EXPECT_EQ(greyParts(rig), "list curve bar ");
  second.failing.never();
  for (int i = 0; i < 8; ++i) rig.tick(51);
  watch.look();
  EXPECT_EQ(greyParts(rig), "");

  rig.session.script.whileWaiting = nullptr;
  rig.clock.step(5000);
  watch.look();
  EXPECT_TRUE(mark.isVisible());
  rig.view.acq().AskStopAcqNow();
  EXPECT_FALSE(mark.isVisible()) << "there are no values";
  rig.clock.step(60'000);
  rig.view.acq().StartReadingData(rig.parameters);
  EXPECT_FALSE(mark.isVisible()) << "nor any of this acquisition";
}

TEST(AcqView, GreysButtonsThatDoNothingNowAndAnswersTheirPress) {
  ViewRig rig;
  QSignalSpy inVain(&rig.view, &AcqView::pressedInVain);
  auto& button = rig.child<QPushButton>("CommandStartStop");
  auto& event = rig.child<QPushButton>("EventBouton");
  button.click();
  EXPECT_EQ(inVain.count(), 0) << "nothing runs";
  rig.start();
  button.click();
  rig.tick();
  rig.child("log").setFocus();
  const QImage acting = button.grab().toImage();
  rig.status.failing.next("no answer");
  rig.tick();
  EXPECT_NE(button.grab().toImage(), acting);
  QTest::mouseClick(&button, Qt::LeftButton);
  QTest::mouseClick(&event, Qt::LeftButton);
  QTest::keyClick(&rig.child("log"), Qt::Key_Space);
  EXPECT_EQ(inVain.count(), 3);
  EXPECT_TRUE(rig.view.acq().Recording());
  for (int i = 0; i < 8; ++i) rig.tick(51);
  rig.child("log").setFocus();
  EXPECT_EQ(button.grab().toImage(), acting);
}

TEST(AcqView, KeepsTheFirstLogLineAndTheNewestAndCopiesWhatIsSelected) {
  ViewRig rig;
  rig.start();
  const std::size_t before = logLines(rig).size();
  for (int i = 1; i <= 25; ++i) rig.view.acq().addLog("line " + std::to_string(i));
  ASSERT_GT(before, 1U);
  const auto lines = logLines(rig);
  EXPECT_EQ(lines.size(), 21U);
  EXPECT_EQ(lines.front(), "Start recording manually");
  EXPECT_EQ(lines[1], "line 6");
  EXPECT_EQ(lines.back(), "line 25");

  auto& log = rig.child<QListWidget>("log");
  EXPECT_TRUE(log.viewport()->rect().contains(log.visualItemRect(log.item(20)).center()));
  log.setFocus();
  log.item(0)->setSelected(true);
  log.item(20)->setSelected(true);
  QTest::keyClick(&log, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "19:05:07 Start recording manually\n19:05:07 line 25");
  QTest::mouseDClick(log.viewport(), Qt::LeftButton);
  QTest::mouseDClick(rig.child<QTreeView>("LVvisuText").viewport(), Qt::LeftButton, {}, {5, 150});
}

TEST(AcqView, MinimisingGoesOnAndHidingEnds) {
  ViewRig rig;
  rig.start();
  QHideEvent minimised;
  QSpontaneKeyEvent::setSpontaneous(&minimised);
  QApplication::instance()->notify(&rig.view, &minimised);
  EXPECT_EQ(rig.view.acq().AcqState(), TarnAcq::kCommunicate);
  rig.view.acq().ToggleRecording();
  rig.tick();
  rig.view.setPaused(true);
  rig.view.hide();
  EXPECT_EQ(rig.view.acq().AcqState(), TarnAcq::kIdle);
  EXPECT_EQ(rig.child<QLabel>("LblDiag").text(), "");
  EXPECT_FALSE(rig.timer.enabled());
  EXPECT_EQ(rig.view.findChild<QWidget*>("GT1"), nullptr);

  rig.view.show();
  rig.start();
  EXPECT_FALSE(rig.view.acq().Recording());
  EXPECT_FALSE(rig.view.paused());
  EXPECT_EQ(rig.child<Indicator>("LblRec").colour(), kButtonFace);
  EXPECT_EQ(rig.child<QPushButton>("CommandStartStop").text(), "Start recording");
  EXPECT_EQ(rig.child<QLabel>("Record").text(), "no record file");
  EXPECT_NE(rig.view.findChild<QWidget*>("GT1"), nullptr);
}

TEST(AcqView, DestroyingItEndsTheAcquisitionAndClosesItsFiles) {
  std::vector<std::string> finished;
  {
    ViewRig rig;
    rig.view.acq().setFileFinishedHandler([&](const std::string& path) { finished.push_back(path); });
    rig.start();
    rig.view.acq().ToggleRecording();
    rig.tick();
  }
  EXPECT_EQ(finished.size(), 1U);
}

TEST(AcqView, HelpAndFullScreenComeAndGoByKey) {
  ViewRig rig;
  rig.start();
  QTest::keyClick(&rig.child("CommandStartStop"), Qt::Key_F1);
  QWidget& help = rig.child("KeyboardHelp");
  EXPECT_TRUE(help.isVisible());
  EXPECT_FALSE(help.isModal());
  rig.tick();
  EXPECT_TRUE(help.isVisible());
  rig.view.activateWindow();
  QTest::keyClick(&rig.view, Qt::Key_F1);
  EXPECT_FALSE(help.isVisible());
  QTest::keyClick(&rig.view, Qt::Key_F11);
  EXPECT_TRUE(rig.view.isFullScreen());
  QTest::keyClick(&rig.view, Qt::Key_Escape);
  EXPECT_FALSE(rig.view.isFullScreen());
  EXPECT_EQ(rig.view.acq().AcqState(), TarnAcq::kCommunicate);
}

}  // namespace
}  // namespace tarnlog
