#include <gtest/gtest.h>

#include <QClipboard>
#include <QFileDialog>
#include <QTest>
#include <limits>

#include "LiveDisplay.h"
#include "tests/support/TempFolder.h"
#include "ui/live/GraphMenu.h"
#include "ui/live/ValueText.h"

namespace tarnlog::test {
namespace {

/// A graph of speed and brake with four points 50 ms apart; the third has no speed.
struct ReadGraph : LiveDisplay {
  ReadGraph() {
    widget.setLocale(QLocale(QLocale::French));
    brake.withLabels({{"Released", 0}, {"Pressed", 1}});
    add(speed, oTarnScope::kGraph, [](oTarnScope& item) { item.ChangeAxeXNbPoints(10); });
    addCurve(brake, 1);
    buildLive();
    for (const double value : {12.5, 20.0, std::nan(""), 1.0 / 3}) {
      brake.setValue(std::int32_t{value == 20});
      feed(value);
    }
  }
  CWGraph& graph() { return find<CWGraph>("GT1"); }
  void point(std::int64_t number) { QTest::mouseMove(&graph(), graph().placeOf(2, number).toPoint()); }
  std::string said() {
    return widget.readout().isShown() ? widget.readout().reading().text().toStdString() : "nothing";
  }
  /// Of the curves only.
  std::string after(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&graph(), key, modifiers);
    return said().substr(said().find('\n') + 1);
  }
  void choose(const char* action) {
    emit graph().customContextMenuRequested(QPoint(200, 20));
    childOf<QAction>(*widget.findChild<GraphMenu*>(), action).trigger();
  }
};

TEST(GraphReadout, TellsTheValuesOfEveryCurveByMouseAndKeys) {
  ReadGraph d;
  d.point(1);
  EXPECT_EQ(d.said(), "0,10 s before the newest (19:05:07)\nSpeed (km/h): 20 km/h\nBrake: Pressed");
  d.point(2);
  EXPECT_EQ(d.said(), "0,05 s before the newest (19:05:07)\nSpeed (km/h): –\nBrake: Released");
  d.refresh();
  d.refresh();
  QApplication::processEvents();
  d.graph().grab();
  QApplication::processEvents();
  EXPECT_EQ(d.said(), "0,15 s before the newest (19:05:07)\nSpeed (km/h): –\nBrake: Released");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&d.graph(), &leave);
  EXPECT_EQ(d.said(), "nothing");

  QApplication::setActiveWindow(&d.window);
  d.graph().setFocus();
  EXPECT_EQ(d.after(Qt::Key_End), "Speed (km/h): 0,333333333333333 km/h\nBrake: Released");
  EXPECT_EQ(d.after(Qt::Key_Left, Qt::ControlModifier), "Speed (km/h): 12,5 km/h\nBrake: Released");
  EXPECT_EQ(d.after(Qt::Key_Right), "Speed (km/h): 20 km/h\nBrake: Pressed");
  EXPECT_EQ(d.graph().accessibleDescription().toStdString(), d.said());
  EXPECT_EQ(d.after(Qt::Key_Escape), "nothing");

  d.point(1);
  d.graph().grab();
  EXPECT_TRUE(d.graph().hasFocus());
  d.scope.ClearDisplay(d.widget.controls());
  QApplication::processEvents();
  EXPECT_EQ(d.said(), "nothing") << "it ends with its graph, which loses the focus while it goes";
  d.widget.grab();
}

TEST(GraphMenu, TheAxisHasTheNumbersOrNamesOfTheChosenCurve) {
  ReadGraph d;
  d.choose("ownScales");
  const auto expectAxisOf = [&](int plot) {
    EXPECT_EQ(d.graph().chosenScale(), plot);
    const QImage axis = d.graph().grab(QRect(0, 0, d.graph().plotArea().left(), 100)).toImage();
    d.choose("times");  // each choice writes all axes anew
    EXPECT_EQ(axis, d.graph().grab(QRect(0, 0, d.graph().plotArea().left(), 100)).toImage()) << plot;
  };
  QTest::mouseClick(&d.widget, Qt::LeftButton, {}, QPoint(20, d.graph().geometry().bottom() - 20));
  expectAxisOf(2);  // by a click on its label
  emit d.graph().customContextMenuRequested(QPoint(200, 20));
  for (QAction* const action : d.graph().findChildren<QAction*>())
    if (action->text() == "Speed (km/h)") action->trigger();
  expectAxisOf(1);
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
  auto& graph = d.find<CWGraph>("GT1");
  graph.grab();  // its axes follow the points
  QTest::mouseMove(&graph, graph.placeOf(1, 1).toPoint() + QPoint(9, -9));
  EXPECT_EQ(d.widget.readout().reading().text().toStdString(),
            "1 point before the newest\nLoad (%): 20 %\nSpeed (km/h): 40 km/h");
}

TEST(GraphMenu, CopiesPointsForASpreadsheetAndSavesThePictureOfItsMoment) {
  ReadGraph d;
  const auto& clipboard = *QGuiApplication::clipboard();
  d.choose("copyPoints");
  EXPECT_EQ(clipboard.text().toStdString(),
            "Time (s)\tSpeed (km/h)\tBrake\n0\t12,5\t0\n0,05\t20\t1\n0,1\t\t0\n0,15\t0,333333333333333\t0\n");
  d.widget.setFrozen(true);
  d.refresh();
  d.graph().setView(TimeView{0.5, 2});
  d.choose("copyPoints");
  EXPECT_EQ(clipboard.text().toStdString(), "Time (s)\tSpeed (km/h)\tBrake\n0\t20\t1\n0,05\t\t0\n")
      << "what is seen";

  d.choose("copyPicture");
  EXPECT_EQ(clipboard.image().size(), QSize(600, d.graph().height()));
  d.choose("savePicture");
  auto* const dialog = d.window.findChild<QFileDialog*>();
  ASSERT_NE(dialog, nullptr);
  d.scope.ClearDisplay(d.widget.controls());
  const TempFolder folder;
  const QString path = QString::fromStdString(folder / "speed.png");
  emit dialog->fileSelected(path);
  EXPECT_EQ(QImage(path).width(), 600) << "though the graph has gone";
  emit dialog->fileSelected(path + "/no/such.png");
  EXPECT_FALSE(d.window.findChildren<QDialog*>().isEmpty()) << "the failure is told";
}

TEST(ValueText, WritesNumbersForReadersAndForSpreadsheets) {
  const QLocale french(QLocale::French);
  const ValueDescription speed{"Speed", "km/h"};
  EXPECT_EQ(valueText(0.1 * 3, speed, french), "0,3 km/h");
  EXPECT_EQ(valueText(123456789, speed, french), "123456789 km/h");
  ValueDescription level{"Level", "%"};
  level.decimals = 1;
  EXPECT_EQ(valueText(1234.56, level, french), "1234,6 %") << "as the value list has it";
  EXPECT_EQ(valueText(-0.04, level, french), "0,0 %");
  EXPECT_EQ(valueText(-std::numeric_limits<double>::infinity(), {}, french), "-∞");
  EXPECT_EQ(cellText(1234567.25, french), "1234567,25");
}

}  // namespace
}  // namespace tarnlog::test
