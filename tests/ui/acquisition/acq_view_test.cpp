#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabBar>
#include <tuple>

#include "acquisition/AcqWords.h"
#include "platform/controls/CWGraph.h"
#include "platform/controls/CWSlide.h"
#include "tests/support/Gestures.h"
#include "tests/support/Pixels.h"
#include "tests/ui/acquisition/ViewRig.h"
#include "ui/acquisition/ConnectionWatch.h"
#include "ui/acquisition/GreyableButton.h"
#include "ui/acquisition/Indicator.h"
#include "ui/acquisition/TabStrip.h"

namespace tarnlog::test {
namespace {

TEST(AcqView, EnterAndSpaceActOnceWhereverTheFocusIs) {
  for (const char* const name : {"CommandStartStop", "EventBouton", "LVvisuText", "log"}) {
    SCOPED_TRACE(name);
    ViewRig rig;
    rig.acq.StartReadingData(rig.parameters);
    rig.key(name, Qt::Key_Return);
    EXPECT_FALSE(rig.acq.startPending()) << "no vehicle answers";
    rig.start();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&rig.child(name), &held);
    EXPECT_FALSE(rig.acq.startPending());
    rig.key(name, Qt::Key_Enter);
    EXPECT_TRUE(rig.acq.startPending());
    rig.tick();
    EXPECT_TRUE(rig.acq.Recording());
    rig.key(name, Qt::Key_Space);
    EXPECT_EQ(rig.child<QPushButton>("EventBouton").text(), "Event 1");
    EXPECT_EQ(rig.files.files.size(), 2U) << "the record and its event";
  }
}

TEST(AcqView, ButtonsRecordAndTheWindowSaysItInColourSignAndWords) {
  using Sign = Indicator::Sign;
  ViewRig rig;
  rig.start();
  const auto& lamp = rig.child<Indicator>("LblRec");
  auto& button = rig.child<QPushButton>("CommandStartStop");
  const auto seen = [&] { return std::tuple(lamp.colour(), lamp.sign(), button.text().toStdString()); };
  const auto spoken = [&](const char* panel) {
    return QAccessible::queryAccessibleInterface(&rig.child(panel))->text(QAccessible::Name).toStdString();
  };
  EXPECT_EQ(rig.child<Indicator>("LblDiag").text(), "com");
  EXPECT_EQ(rig.child<Indicator>("LblDiag").colour(), words::of(TarnAcq::kCommunicate).colour);
  EXPECT_EQ(lamp.text(), "rec");
  EXPECT_EQ(seen(), std::tuple(kButtonFace, Sign::Ring, "Start recording"));
  EXPECT_EQ(spoken("Record"), "no record file");

  button.click();
  EXPECT_EQ(seen(), std::tuple(words::colourOf(RecordingFact::Requested), Sign::HalfDisc, "Start recording"));
  rig.tick();
  const std::tuple recording(words::colourOf(RecordingFact::On), Sign::Disc, "Stop recording");
  EXPECT_EQ(seen(), recording);
  EXPECT_EQ(rig.child<QLabel>("Record").text().toStdString(), rig.acq.RecordPath());
  rig.tick(2080);
  rig.tick();
  EXPECT_EQ(spoken("AcqTime"), "2.1");
  rig.files.writeError = "No space left on device";
  rig.tick();
  EXPECT_EQ(seen(), std::tuple(std::get<0>(recording), Sign::Warning, "Stop recording"));
  rig.files.writeError.clear();
  rig.tick();
  EXPECT_EQ(seen(), recording);
  QTest::mouseClick(&button, Qt::LeftButton);
  rig.tick();
  EXPECT_EQ(seen(), std::tuple(kButtonFace, Sign::Ring, "Start recording"));
  EXPECT_EQ(rig.acq.finishedRecordings(), 1);
}

TEST(AcqView, TheGraphsOfTheirTabScrollAtTheEndOfATick) {
  ViewRig rig;
  rig.addMore(20);
  rig.start();
  const auto& list = rig.child("LVvisuText");
  auto& tabs = rig.child<TabStrip>("TabStripVisu");
  EXPECT_TRUE(list.isVisible() && !rig.child("FrScroll").isVisible());
  QTest::mouseClick(&tabs.bar(), Qt::LeftButton, {}, tabs.bar().tabRect(1).center());
  EXPECT_TRUE(!list.isVisible() && rig.child("FrScroll").isVisible());
  auto& bar = rig.child<QScrollBar>("VScroll");
  const QWidget& surface = rig.child("FrGraphic");
  ASSERT_GT(bar.maximum(), 60);
  EXPECT_EQ(surface.height(), rig.child("FrScroll").height() + bar.maximum());

  bar.setValue(20);
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
  EXPECT_EQ(surface.geometry().topLeft(), QPoint(0, 0));
  EXPECT_EQ(surface.width(), rig.child("FrScroll").width());
  turnWheel(rig.child("FrScroll"));
  const int turned = bar.value();
  EXPECT_GT(turned, 0);
  QTest::keyClick(&rig.view, Qt::Key_PageDown);
  EXPECT_GT(bar.value(), turned);
}

TEST(AcqView, TimesStandInTheLowestGraphThatHasRoomForThem) {
  ViewRig rig;
  rig.addMore(20);
  rig.start();
  rig.child<TabStrip>("TabStripVisu").select("GRAPH");
  auto& bar = rig.child<QScrollBar>("VScroll");
  const QWidget& area = rig.child("FrScroll");
  const auto expectTimes = [&](const char* when) {
    QApplication::processEvents();
    std::string timed;
    int lowest = -1;
    for (const CWGraph* const graph : area.findChildren<CWGraph*>()) {
      const int bottom = graph->mapTo(&area, graph->plotArea().bottomLeft()).y();
      if (bottom < 0 || bottom >= area.height()) continue;
      if (graph->timeLabels()) timed += std::to_string(bottom) + ' ';
      lowest = std::max(lowest, bottom);
    }
    EXPECT_EQ(timed, std::to_string(lowest) + ' ') << when;
  };
  for (int scrolled = 50; scrolled >= 0; scrolled -= 10) {
    bar.setValue(scrolled);
    rig.tick();
    expectTimes("scrolled");
  }
  rig.view.resize(800, 700);
  expectTimes("in a higher window");
}

TEST(AcqView, PlacesItsControlsByItsSize) {
  ViewRig rig;
  const auto place = [&](const char* name) { return rig.child(name).geometry(); };
  auto& tabs = rig.child<TabStrip>("TabStripVisu");
  for (const QSize size : {QSize(420, 300), QSize(1300, 800), rig.view.minimumSizeHint()}) {
    rig.view.resize(size);
    const QRect client = tabs.clientArea().translated(tabs.pos());
    EXPECT_EQ(place("log").right(), tabs.geometry().right());
    EXPECT_EQ(place("LVvisuText"), client);
    EXPECT_EQ(place("FrScroll") | place("VScroll"), client);
    EXPECT_EQ(place("FrScroll").right() + 1, place("VScroll").x());
    EXPECT_TRUE(place("log").width() > 100 && client.height() > 50);
  }
  // Columns follow as well where the list has become longer than its place, and while it is not shown: the
  // scroll bar that comes while the list is resized is no drag of a column.
  rig.addMore(30);
  rig.start();
  const auto& list = rig.child<QTreeView>("LVvisuText");
  for (const char* const shown : {"LIST", "GRAPH"}) {
    rig.view.resize(1200, 800);
    tabs.select(shown);
    rig.view.resize(*shown == 'L' ? 600 : 420, 300);
    tabs.select("LIST");
    QApplication::processEvents();
    const int seventh = list.viewport()->width() / 7;
    EXPECT_NEAR(list.columnWidth(0), 4 * seventh, 3) << shown;
    EXPECT_NEAR(list.columnWidth(1), 2 * seventh, 2) << shown;
    EXPECT_TRUE(list.verticalScrollBar()->isVisible() && !list.horizontalScrollBar()->isVisible());
  }
}

TEST(AcqView, PaintsOnlyTheValuesThatChangedAndNoneWhilePaused) {
  ViewRig rig;
  rig.speed.setValue(10.0);
  rig.load.setValue(50.0);
  rig.start();
  auto& list = rig.child<QTreeView>("LVvisuText");
  PaintSpy spy(*list.viewport());
  // Values are painted ten times a second: with one of so many pictures.
  const auto paintedAfter = [&](const auto& step) {
    showPictures(rig.view, 20);
    spy.painted = {};
    step();
    rig.tick();
    showPictures(rig.view, 20);
    return spy.painted.boundingRect();
  };
  QApplication::processEvents();
  EXPECT_EQ(paintedAfter([&] { rig.load.setValue(51.5); }), list.visualRect(list.model()->index(1, 1)));
  EXPECT_EQ(itemsText(list, {0, 1, 2}), "Engine : Speed|10|km/h Engine : Load|51.5|%");

  rig.key("LVvisuText", Qt::Key_P);
  EXPECT_TRUE(rig.child("LblPaused").isVisible());
  EXPECT_TRUE(paintedAfter([&] { rig.speed.setValue(99.0); }).isEmpty());
  EXPECT_EQ(itemsText(list, {1}), "10 51.5");
  rig.key("LVvisuText", Qt::Key_Pause);
  EXPECT_EQ(itemsText(list, {1}), "99 51.5");
  EXPECT_FALSE(rig.child("LblPaused").isVisible());
}

TEST(AcqView, SaysHowOldTheValuesAreAndGreysWhatDoesNothingWhenNoAnswerComes) {
  ViewRig rig;
  auto& second = rig.engine.addRequest("Other", "21 81");
  rig.add(second.addData("Boost")).SetSlide("", 0, 2, 0);
  rig.start();
  auto& watch = *rig.view.findChild<ConnectionWatch*>();
  QSignalSpy aged(&watch, &ConnectionWatch::aged);
  QSignalSpy inVain(&rig.view, &AcqView::pressedInVain);
  const auto& mark = rig.child<QLabel>("LblSilence");
  // What is said, and what of the display is grey.
  const auto seen = [&] {
    std::string parts = mark.isVisible() ? mark.text().toStdString() + ":" : "";
    const QModelIndex value = rig.child<QTreeView>("LVvisuText").model()->index(0, 1);
    if (value.data(Qt::ForegroundRole).isValid()) parts += " list";
    if (rig.child<CWGraph>("GT1").plotColour(1) != QColor(0, 0, 255)) parts += " curve";
    if (rig.child<CWSlide>("SL1").isFaded()) parts += " bar";
    return parts;
  };
  const auto tickWithRequestsOf = [&](Milliseconds time) {
    rig.session.script.whileWaiting = [&rig, &watch, time] {
      rig.clock.step(time);
      watch.look();
    };
    rig.tick(0);
    rig.session.script.whileWaiting = nullptr;
  };

  tickWithRequestsOf(900);
  EXPECT_EQ(aged.count(), 0) << "a slow cycle is no outage while answers come";
  tickWithRequestsOf(1100);
  EXPECT_EQ(seen(), "No connection for 2 s: list curve bar") << "one request that waits";
  watch.look();
  EXPECT_EQ(seen(), "");

  // One ECU answers and the next does not: values are as old as the last complete cycle, and buttons that
  // do nothing now are grey, but answer their press.
  rig.child("log").setFocus();
  auto& button = rig.child<QPushButton>("CommandStartStop");
  const QImage acting = pictureOf(button);
  second.failing.next("no answer", 100);
  aged.clear();
  for (int i = 0; i < 100; ++i) rig.tick(100);
  for (int i = 0; i < 5; ++i) watch.look();
  EXPECT_EQ(seen(), "No connection for 10 s: list curve bar");
  EXPECT_GE(aged.count(), 2);
  EXPECT_LE(aged.count(), 10) << "painted once a second at most";
  EXPECT_NE(pictureOf(button), acting);
  QTest::mouseClick(&button, Qt::LeftButton);
  QTest::mouseClick(&rig.child("EventBouton"), Qt::LeftButton);
  rig.key("log", Qt::Key_Space);
  EXPECT_EQ(inVain.count(), 3);
  second.failing.never();
  for (int i = 0; i < 8; ++i) rig.tick(51);
  watch.look();
  rig.child("log").setFocus();
  EXPECT_EQ(seen(), "");
  EXPECT_EQ(pictureOf(button), acting);

  rig.clock.step(5000);
  watch.look();
  EXPECT_TRUE(mark.isVisible());
  rig.acq.AskStopAcqNow();
  EXPECT_FALSE(mark.isVisible()) << "there are no values";
  rig.clock.step(60'000);
  rig.acq.StartReadingData(rig.parameters);
  EXPECT_FALSE(mark.isVisible()) << "nor any of this acquisition";
}

TEST(AcqView, KeepsTheFirstLogLineAndTheNewestAndCopiesWhatIsSelected) {
  ViewRig rig;
  rig.start();
  for (int i = 1; i <= 25; ++i) rig.acq.addLog("line " + std::to_string(i));
  auto& log = rig.child<QListWidget>("log");
  const std::string lines = itemsText(log);
  EXPECT_TRUE(lines.starts_with("19:05:07 Start recording manually 19:05:07 line 6 ")) << lines;
  EXPECT_TRUE(lines.ends_with(" 19:05:07 line 25")) << lines;
  EXPECT_TRUE(log.viewport()->rect().contains(log.visualItemRect(log.item(20)).center()));
  log.setFocus();
  log.item(0)->setSelected(true);
  log.item(20)->setSelected(true);
  QTest::keyClick(&log, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "19:05:07 Start recording manually\n19:05:07 line 25");
}

TEST(AcqView, MinimisingGoesOnAndHidingOrDestroyingEnds) {
  auto rig = std::make_unique<ViewRig>();
  int finished = 0;
  rig->acq.setFileFinishedHandler([&](const std::string&) { ++finished; });
  const auto record = [&] {
    rig->start();
    EXPECT_FALSE(rig->acq.Recording() || rig->view.paused());
    EXPECT_EQ(rig->child<Indicator>("LblRec").colour(), kButtonFace);
    EXPECT_EQ(rig->child<QPushButton>("CommandStartStop").text(), "Start recording");
    EXPECT_EQ(rig->child<QLabel>("Record").text(), "no record file");
    EXPECT_NE(rig->view.findChild<QWidget*>("GT1"), nullptr);
    rig->acq.ToggleRecording();
    rig->tick();
  };
  record();
  minimise(rig->view);
  EXPECT_EQ(rig->acq.AcqState(), TarnAcq::kCommunicate);
  rig->view.setPaused(true);
  rig->view.hide();
  EXPECT_EQ(rig->acq.AcqState(), TarnAcq::kIdle);
  EXPECT_EQ(rig->child<QLabel>("LblDiag").text(), "");
  EXPECT_FALSE(rig->timer.enabled());
  EXPECT_EQ(rig->view.findChild<QWidget*>("GT1"), nullptr);
  rig->view.show();
  record();
  rig.reset();
  EXPECT_EQ(finished, 2);
}

TEST(AcqView, HelpAndFullScreenComeAndGoByKey) {
  ViewRig rig;
  rig.start();
  rig.key("CommandStartStop", Qt::Key_F1);
  const QWidget& help = rig.child("KeyboardHelp");
  EXPECT_TRUE(help.isVisible() && !help.isModal());
  QApplication::processEvents();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(rig.filesWith("event"), 1) << "the keys stay the recorder's";
  QApplication::setActiveWindow(&rig.view);
  rig.key("log", Qt::Key_F1);
  EXPECT_FALSE(help.isVisible());
  rig.key("log", Qt::Key_F11);
  rig.key("log", Qt::Key_F1);
  EXPECT_TRUE(rig.view.isFullScreen() && help.isVisible());
  QApplication::setActiveWindow(&rig.view);
  rig.key("log", Qt::Key_Escape);
  EXPECT_TRUE(rig.view.isFullScreen() && !help.isVisible());
  rig.key("log", Qt::Key_Escape);
  EXPECT_FALSE(rig.view.isFullScreen());
}

/// Caption, look and number; what the tip tells, assistive technology reads as well.
std::string eventButton(const ViewRig& rig) {
  const auto& button = static_cast<GreyableButton&>(rig.child<QPushButton>("EventBouton"));
  const bool told = !button.accessibleDescription().isEmpty();
  EXPECT_EQ(told, button.toolTip() == button.accessibleDescription());
  return button.text().toStdString() + (button.greyed() ? " grey " : " ") + std::to_string(button.count()) +
         (told ? " told" : "");
}

TEST(EventButton, CountsTheCyclesUntilAnotherEventIsPossible) {
  ViewRig rig;
  rig.start();
  EXPECT_EQ(eventButton(rig), "Event 0");
  auto& button = rig.child<QPushButton>("EventBouton");
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(eventButton(rig), "Event grey 20 told");
  const QString tip = button.toolTip();
  EXPECT_TRUE(tip.contains("20 polling cycles"));
  for (int i = 0; i < 19; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event grey 1 told");
  EXPECT_EQ(button.toolTip(), tip) << "a text each cycle would take memory";
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(rig.filesWith("event"), 1);
  EXPECT_TRUE(button.hasFocus());
  rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 0");

  // One that the end of the acquisition cuts off counts no further.
  rig.acq.ToggleRecording();
  rig.tick();
  QTest::keyClick(&button, Qt::Key_Space);
  rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 1 grey 19 told");
  rig.acq.AskStopAcqNow();
  for (int i = 0; i < 3; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 1 grey 0");
}

/// An XML file ends with its recording; the event's cycles run on without a file.
TEST(EventButton, CountsNoFurtherWhenTheFileIsClosedEarly) {
  ViewRig rig;
  rig.parameters->fileFormat = ".xml";
  const auto recordAnEvent = [&] {
    rig.acq.ToggleRecording();
    rig.tick();
    rig.acq.RecordUserEvent();
    rig.tick();
    rig.acq.ToggleRecording();
  };
  rig.start();
  recordAnEvent();
  EXPECT_EQ(eventButton(rig), "Event 1 grey 19 told");
  rig.tick();
  EXPECT_FALSE(rig.acq.Recording());
  EXPECT_EQ(eventButton(rig), "Event 1 grey 0 told");
  for (int i = 0; i < 18; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 1 0");
  recordAnEvent();
  rig.status.failing.next("no answer", 2);
  for (int i = 0; i < 2; ++i) rig.tick();
  EXPECT_EQ(eventButton(rig), "Event 2 grey 0 told") << "the link was lost while the stop was under way";
}

/// Also those of no recording, which have a file as well.
TEST(EventFlags, StandWhereAnEventBegan) {
  ViewRig rig;
  const auto flags = [&] {
    std::string texts;
    for (const GraphMark& mark : rig.child<CWGraph>("GT1").marks())
      texts += mark.text.toStdString() + '@' + std::to_string(mark.point) + ' ';
    return texts;
  };
  const auto event = [&] {
    rig.acq.RecordUserEvent();
    for (int i = 0; i < 20; ++i) rig.tick();
  };
  rig.start();
  event();
  rig.acq.ToggleRecording();
  rig.tick();
  event();
  rig.acq.ToggleRecording();
  rig.tick();
  event();
  EXPECT_EQ(flags(), "Event@0 Start 1@20 Event 1@20 Stop 1@40 Event@41 ");
  rig.acq.StartReadingData();
  for (int i = 0; i < 20; ++i) rig.tick(51);
  event();
  EXPECT_TRUE(flags().starts_with("Event@")) << "of the next acquisition: " << flags();
}

}  // namespace
}  // namespace tarnlog::test
