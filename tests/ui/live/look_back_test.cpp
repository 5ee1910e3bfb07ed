#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QWheelEvent>

#include "LiveDisplay.h"
#include "platform/settings/SettingsStore.h"
#include "tests/support/Pixels.h"
#include "ui/live/GraphMenu.h"

namespace tarnlog::test {
namespace {

/// A graph of speed and load, and one of load, of 100 points each; a point every 50 ms.
struct TwoGraphs : LiveDisplay {
  TwoGraphs() : LiveDisplay(QSize(600, 300)) {
    widget.setSettings(&settings);
    for (const bool first : {true, false})
      add(first ? speed : load, oTarnScope::kGraph, [](oTarnScope& item) { item.ChangeAxeXNbPoints(100); });
    addCurve(load, 1);
    buildLive();
    QApplication::processEvents();
  }
  void drive(int from, int to) {
    for (int i = from; i < to; ++i) {
      speed.setValue(i);
      load.setValue(i % 10);
      refresh();
    }
  }
  CWGraph& graph(const char* name = "GT1") { return find<CWGraph>(name); }
  std::string shown() {
    const TimeView view = graph("GT2").view();
    return graph().view() == view ? std::to_string(view.first) + " " + std::to_string(view.count)
                                  : "not the same";
  }
  void choose(const char* action) {
    emit graph().customContextMenuRequested(QPoint(200, 20));
    GraphMenu* const menu = widget.findChild<GraphMenu*>();
    childOf<QAction>(*menu, action).trigger();
    delete menu;
  }

  MemorySettingsStore settings;
};

/// Eighths of a degree, away from the hand, which never goes quite straight.
void wheel(QWidget& over, const QPoint& at, int turned) {
  QWheelEvent event(at, over.mapToGlobal(QPointF(at)), {}, {turned / 4, turned}, {}, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&over, &event);
}

TEST(LookBack, MovesAllChartsThroughWhatIsKept) {
  TwoGraphs d;
  d.drive(0, 1000);
  wheel(d.graph(), QPoint(300, 50), 120);
  EXPECT_EQ(d.graph().view().count, 100) << "the picture runs";
  d.widget.setFrozen(true);
  LookBack& back = d.widget.lookBack();
  back.fitAll();
  EXPECT_EQ(d.shown(), "0.000000 1000.000000");
  EXPECT_EQ(d.widget.shownTime(), 999 * 50);
  const auto under = [&] { return d.graph().pointAt(QPoint(300, 50)); };
  const std::int64_t before = under();
  wheel(d.graph(), QPoint(300, 50), 240);
  EXPECT_NEAR(d.graph().view().count, 640, 1e-6);
  EXPECT_NEAR(static_cast<double>(under()), static_cast<double>(before), 1)
      << "what is under the mouse stays";
  QTest::mousePress(&d.graph(), Qt::LeftButton, {}, QPoint(300, 50));
  QTest::mouseMove(&d.graph(), QPoint(350, 50));
  QTest::mouseRelease(&d.graph(), Qt::LeftButton, {}, QPoint(350, 50));
  EXPECT_LT(under(), before) << "the curve follows the hand";
  const TimeView dragged = d.graph().view();
  QTest::mousePress(&d.graph(), Qt::LeftButton, {}, QPoint(300, 50));
  QMouseEvent released(QEvent::MouseMove, QPointF(350, 50), QPointF(350, 50), Qt::NoButton, {}, {});
  QApplication::sendEvent(&d.graph(), &released);
  EXPECT_EQ(d.graph().view(), dragged) << "only as long as it holds";
  const double first = d.graph().view().first;
  back.pan(1);
  EXPECT_NEAR(d.graph().view().first, first + 64, 1e-6);
  EXPECT_NE(d.shown(), "not the same");
  d.drive(1000, 1010);
  d.widget.setFrozen(false);
  EXPECT_EQ(d.shown(), "910.000000 100.000000") << "back to now, with what came meanwhile";
}

TEST(LookBack, MeasuresBetweenTwoCursors) {
  TwoGraphs d;
  LookBack& back = d.widget.lookBack();
  d.widget.setFrozen(true);
  back.setCursor(CWGraph::CursorA);
  EXPECT_FALSE(back.hasCursors()) << "there are no points";
  d.widget.setFrozen(false);
  d.drive(0, 50);
  d.widget.setFrozen(true);
  back.pan(-1);
  EXPECT_EQ(d.graph().view().count, 100) << "all is seen already";
  d.widget.setFrozen(false);
  d.drive(50, 200);
  back.setCursor(CWGraph::CursorA);
  EXPECT_FALSE(back.hasCursors()) << "only in a frozen picture";
  d.widget.setFrozen(true);
  back.setCursor(CWGraph::CursorA, 120);
  EXPECT_EQ(back.reading().text().toStdString(),
            "A: 3.95 s before the newest (19:05:13)\nSpeed (km/h): 120 km/h\nLoad (%): 0 %\nLoad (%): 0 %");
  back.setCursor(CWGraph::CursorB, 160);
  EXPECT_EQ(back.reading().text().toStdString(),
            "A to B: 2.00 s\nSpeed (km/h): 120, 160, 40, 120, 160, 140\n"
            "Load (%): 0, 0, 0, 0, 9, 4.39024\nLoad (%): 0, 0, 0, 0, 9, 4.39024");
  EXPECT_EQ(d.graph("GT2").cursor(CWGraph::CursorB), 160) << "through all graphs";
  auto& box = d.find("CursorBox");
  PaintSpy spy(box);
  d.choose("copyPicture");
  EXPECT_TRUE(box.isVisible());
  EXPECT_EQ(spy.times, 0) << "in no picture of the graph";
  back.setCursor(CWGraph::CursorA, 120);
  EXPECT_EQ(d.graph().cursor(CWGraph::CursorA), -1) << "set again, it goes";
  d.widget.setFrozen(false);
  EXPECT_FALSE(back.hasCursors());
  EXPECT_EQ(d.graph().cursor(CWGraph::CursorB), -1);
}

TEST(GraphReadout, StandsInAllChartsAndTellsTheirValues) {
  TwoGraphs d;
  d.drive(0, 41);
  d.widget.addMark("Event 1", Qt::red);
  d.drive(41, 100);
  const auto at = [&](std::int64_t point) {
    QTest::mouseMove(&d.graph(), d.graph().placeOf(1, point).toPoint());
    return d.widget.readout().reading().text().toStdString();
  };
  EXPECT_EQ(
      at(40),
      "2.95 s before the newest (19:05:09), Event 1\nSpeed (km/h): 40 km/h\nLoad (%): 0 %\nLoad (%): 0 %");
  EXPECT_EQ(d.graph("GT2").cursor(CWGraph::Readout), 40);

  // A value that cannot be read ends the cycle for the curves behind it.
  d.clock.step(50);
  d.widget.controls().LoadGraph(1)->chartY(1, 100);
  d.drive(101, 110);
  EXPECT_EQ(at(100), "0.45 s before the newest (19:05:12)\nSpeed (km/h): 100 km/h\nLoad (%): –\nLoad (%): –");
  d.clock.stepLocal(3);
  EXPECT_EQ(at(105), "0.20 s before the newest\nSpeed (km/h): 105 km/h\nLoad (%): 5 %\nLoad (%): 5 %");
  d.scope.ClearDisplay(d.widget.controls());
}

TEST(GraphChoices, AreKeptForAllGraphsAndForOne) {
  TwoGraphs d;
  EXPECT_FALSE(d.graph().timeLabels()) << "the lowest graph has the times";
  EXPECT_TRUE(d.graph("GT2").timeLabels());
  d.choose("times");
  EXPECT_FALSE(d.graph("GT2").timeLabels());
  GraphChoices(&d.settings).setAxis("of another window", 3);
  d.choose("ownScales");
  EXPECT_TRUE(d.graph().ownScales());
  QTest::mouseClick(&d.widget, Qt::LeftButton, {}, QPoint(20, d.graph().geometry().bottom() - 20));
  const GraphChoices kept(&d.settings);
  EXPECT_FALSE(kept.times());
  EXPECT_EQ(kept.axisOf("Speed (km/h), Load (%)"), 2);
  EXPECT_EQ(kept.axisOf("of another window"), 3);
  d.settings.write("GraphMegabytes", "lots");
  d.settings.write("GraphTimes", "?");
  EXPECT_EQ(GraphChoices(&d.settings).megabytes(), GraphChoices().megabytes());
  EXPECT_TRUE(GraphChoices(&d.settings).times());
}

}  // namespace
}  // namespace tarnlog::test
