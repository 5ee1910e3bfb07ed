#include <gtest/gtest.h>

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QTest>
#include <limits>

#include "LiveDisplay.h"
#include "tests/support/TempFolder.h"
#include "ui/live/GraphMenu.h"
#include "ui/live/ValueText.h"

namespace tarnlog::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A graph of speed and brake with four points 50 ms apart; the third has no speed.
struct ReadGraph : LiveDisplay {
  ReadGraph() {
    widget.setLocale(QLocale(QLocale::French));
    brake.withLabels({{"Released", 0}, {"Pressed", 1}});
    add(speed, oTarnScope::kGraph, [](oTarnScope& item) { item.ChangeAxeXNbPoints(10); });
    addCurve(brake, 1);
    buildLive();
    for (const double value : {12.5, 20.0, kNaN, 1.0 / 3}) {
      speed.setValue(value);
      brake.setValue(std::int32_t{value == 20});
      refresh();
    }
  }
  CWGraph& graph() { return *find<CWGraph>("GT1"); }
  QPoint at(std::int64_t point) { return graph().placeOf(2, point).toPoint(); }
  void point(std::int64_t number) { QTest::mouseMove(&graph(), at(number)); }
  std::string said() {
    return widget.readout().isShown() ? widget.readout().reading().text().toStdString() : "nothing";
  }
  /// Of the curves only.
  std::string values() { return said().substr(said().find('\n') + 1); }
  GraphMenu* menu() {
    emit graph().customContextMenuRequested(QPoint(200, 20));
    return widget.findChild<GraphMenu*>();
  }
  void choose(const char* action) { menu()->findChild<QAction*>(QLatin1String(action))->trigger(); }
};

TEST(GraphReadout, TellsTheValuesOfEveryCurveUnderTheMouse) {
  ReadGraph d;
  d.point(1);
  EXPECT_EQ(d.said(), "0,10 s ago (19:05:07)\nSpeed (km/h): 20 km/h\nBrake: Pressed");
  d.point(2);
  EXPECT_EQ(d.said(), "0,05 s ago (19:05:07)\nSpeed (km/h): –\nBrake: Released");
  d.refresh();
  d.refresh();
  QTest::qWait(0);
  d.graph().grab();
  QTest::qWait(0);
  EXPECT_EQ(d.said(), "0,15 s ago (19:05:07)\nSpeed (km/h): –\nBrake: Released") << "points came meanwhile";
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&d.graph(), &leave);
  EXPECT_EQ(d.said(), "nothing");
}

TEST(GraphReadout, MovesAlongThePointsByKey) {
  ReadGraph d;
  d.graph().setFocus();
  QTest::keyClick(&d.graph(), Qt::Key_Left);
  EXPECT_EQ(d.values(), "Speed (km/h): –\nBrake: Released");
  QTest::keyClick(&d.graph(), Qt::Key_End);
  EXPECT_EQ(d.values(), "Speed (km/h): 0,333333333333333 km/h\nBrake: Released");
  QTest::keyClick(&d.graph(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(d.values(), "Speed (km/h): 12,5 km/h\nBrake: Released");
  EXPECT_EQ(d.graph().accessibleDescription().toStdString(), d.said());
  QTest::keyClick(&d.graph(), Qt::Key_Escape);
  EXPECT_EQ(d.said(), "nothing");
}

TEST(GraphReadout, EndsWithItsGraph) {
  ReadGraph d;
  d.point(1);
  d.graph().grab();
  d.scope.ClearDisplay(d.widget.controls());
  QTest::qWait(0);
  EXPECT_EQ(d.said(), "nothing");
  d.widget.grab();
}

TEST(GraphReadout, FindsTheNearestPointOfAnXYGraph) {
  LiveDisplay d;
  d.add(d.speed, oTarnScope::kGraph);
  d.add(d.load, oTarnScope::kGraphAxeX, [](oTarnScope& item) { item.SetGraphAxeX("", false, 0, 100, 1); });
  d.buildLive();
  for (const double value : {80.0, 20.0, 50.0}) {
    d.load.setValue(value);
    d.speed.setValue(value * 2);
    d.refresh();
  }
  auto* const graph = d.find<CWGraph>("GT1");
  graph->grab();  // its axes follow the points
  QTest::mouseMove(graph, graph->placeOf(1, 1).toPoint() + QPoint(9, -9));
  EXPECT_EQ(d.widget.readout().reading().text().toStdString(),
            "1 point ago\nLoad (%): 20 %\nSpeed (km/h): 40 km/h");
}

TEST(GraphMenu, CopiesPointsForASpreadsheet) {
  ReadGraph d;
  d.choose("copyPoints");
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            "Time (s)\tSpeed (km/h)\tBrake\n0\t12,5\t0\n0,05\t20\t1\n0,1\t\t0\n0,15\t0,333333333333333\t0\n");
  d.widget.setFrozen(true);
  d.refresh();
  d.choose("copyPoints");
  EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), 5) << "what is seen is copied";
}

TEST(GraphMenu, SavesThePictureOfItsMomentEvenWhenTheGraphGoes) {
  ReadGraph d;
  const TempFolder folder;
  d.choose("copyPicture");
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(600, d.graph().height()));
  d.choose("savePicture");
  auto* const dialog = d.window.findChild<QFileDialog*>();
  ASSERT_NE(dialog, nullptr);
  d.scope.ClearDisplay(d.widget.controls());
  const QString path = QString::fromStdString(folder / "speed.png");
  emit dialog->fileSelected(path);
  EXPECT_EQ(QImage(path).width(), 600);
  emit dialog->fileSelected(path + "/no/such.png");
  EXPECT_FALSE(d.window.findChildren<QDialog*>().isEmpty()) << "the failure is told";
}

TEST(ValueText, WritesNumbersForReadersAndForSpreadsheets) {
  const QLocale french(QLocale::French);
  const ValueDescription speed{"Speed", "km/h"};
  EXPECT_EQ(valueText(0.1 * 3, speed, french), "0,3 km/h");
  EXPECT_EQ(valueText(123456789, speed, french), "123456789 km/h");
  EXPECT_EQ(valueText(kNaN, speed, french), "–");
  ValueDescription level{"Level", "%"};
  level.decimals = 1;
  EXPECT_EQ(valueText(1234.56, level, french), "1234,6 %") << "as the value list has it";
  EXPECT_EQ(valueText(20, level, french), "20,0 %");
  EXPECT_EQ(valueText(-0.04, level, french), "0,0 %");
  EXPECT_EQ(valueText(-std::numeric_limits<double>::infinity(), {}, french), "-∞");
  EXPECT_EQ(cellText(1234567.25, french), "1234567,25");
  EXPECT_EQ(cellText(kNaN, french), "");
}

}  // namespace
}  // namespace tarnlog::test
