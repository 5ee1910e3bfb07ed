#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>
#include <cmath>
#include <limits>

#include "platform/controls/CWButton.h"
#include "platform/controls/CWGraph.h"
#include "platform/controls/CWNumEdit.h"
#include "platform/controls/CWSlide.h"
#include "platform/controls/Readable.h"

namespace tarnlog {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

QImage pictureOf(QWidget& widget) { return widget.grab().toImage(); }

void fill(CWGraph& graph, int from, int to) {
  for (int i = from; i < to; ++i) {
    graph.chartY(1, i % 60 == 0 ? kNaN : 50 + 45 * std::sin(i / 17.0));
    graph.chartY(2, i % 50);
  }
}

void prepare(CWGraph& graph, int history) {
  graph.resize(400, 150);
  graph.setHistory(history);
  graph.setAxisRange(CWGraph::YAxis, 0, 100);
  for (int plot = graph.addPlot(); plot < 2; plot = graph.addPlot()) {
  }
  graph.setPlotColour(1, Qt::red);
  graph.setPlotColour(2, Qt::blue);
}

int differences(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y);
  return count;
}

TEST(CWGraph, PaintingColumnByColumnGivesThePictureOfAFullRedraw) {
  for (const int history : {100, 500, 5000}) {
    CWGraph stepwise;
    CWGraph atOnce;
    prepare(stepwise, history);
    prepare(atOnce, history);
    for (int i = 0; i < history * 2 + 37; i += 13) {
      fill(stepwise, i, i + 13);
      fill(atOnce, i, i + 13);
      if (history < 5000 || i > 9000) stepwise.grab();
    }
    // Where curves cross, the order of drawing may differ; so may a line cut at the left edge.
    EXPECT_LT(differences(pictureOf(stepwise), pictureOf(atOnce)), 300) << history;
  }
}

TEST(CWGraph, ReadsValuesUnderTheMouse) {
  CWGraph graph;
  prepare(graph, 100);
  for (int i = 0; i < 150; ++i) graph.chartY(1, i);
  EXPECT_EQ(graph.valueAt(1, graph.plotArea().left()), 50);
  EXPECT_GE(graph.valueAt(1, graph.plotArea().right()), 148);
  EXPECT_TRUE(std::isnan(graph.valueAt(2, graph.plotArea().left())));
  EXPECT_TRUE(std::isnan(graph.valueAt(9, 0)));
}

TEST(CWGraph, PlacesPointsWhereItDrawsAndFindsThem) {
  for (const int points : {4, 10, 27}) {
    CWGraph graph;
    prepare(graph, 10);
    for (int i = 0; i < points; ++i) graph.chartY(1, i == points - 2 ? 90 : 10, i * 0.5);
    const QImage picture = pictureOf(graph);
    EXPECT_EQ(graph.endPoint(), points);
    EXPECT_EQ(graph.firstPoint(), std::max(points - 10, 0));
    for (std::int64_t point = graph.firstPoint(); point < points; ++point) {
      const QPoint place = graph.placeOf(1, point).toPoint();
      EXPECT_EQ(graph.pointAt(place), point);
      EXPECT_EQ(graph.momentOf(point), static_cast<double>(point) * 0.5);
      const QImage around = picture.copy(place.x() - 1, place.y() - 1, 3, 3);
      int red = 0;
      for (int i = 0; i < 9; ++i) red += around.pixelColor(i % 3, i / 3) == QColor(Qt::red);
      EXPECT_GT(red, 0) << point << " of " << points;
    }
  }
  CWGraph graph;
  graph.resize(300, 200);
  graph.setXY(true);
  graph.addPlot();
  graph.setAxisRange(CWGraph::XAxis, 0, 10);
  EXPECT_EQ(graph.pointAt(graph.plotArea().center()), -1);
  for (const double x : {9.0, kNaN, 2.0, 5.0}) graph.plotXY(1, x, 0.5);
  EXPECT_EQ(graph.pointAt(graph.plotArea().center()), 3);
  EXPECT_EQ(graph.pointAt(graph.plotArea().topRight()), 0);
  EXPECT_EQ(graph.xValueOf(1, 3), 5);
}

TEST(CWGraph, FrozenShowsTheMomentAndLosesNothing) {
  for (const bool xy : {false, true}) {
    CWGraph frozen;
    CWGraph free;
    for (CWGraph* const graph : {&frozen, &free}) {
      graph->setXY(xy);
      prepare(*graph, 100);
      graph->setAxisAutoscale(CWGraph::XAxis, true);
      fill(*graph, 0, 50);
    }
    const QImage before = pictureOf(frozen);
    frozen.setFrozen(true);
    fill(frozen, 50, 270);
    fill(free, 50, 270);
    EXPECT_EQ(pictureOf(frozen), before);
    EXPECT_EQ(frozen.endPoint(), 50);
    EXPECT_NE(pictureOf(free), before);
    frozen.resize(500, 150);
    frozen.resize(400, 150);
    EXPECT_EQ(pictureOf(frozen), before) << "drawn anew, still of that moment";
    frozen.setFrozen(false);
    EXPECT_LT(differences(pictureOf(frozen), pictureOf(free)), 300);
    EXPECT_EQ(frozen.endPoint(), 270);
  }
}

TEST(CWGraph, DrawsSomethingSensibleFromAnything) {
  for (const bool xy : {false, true}) {
    for (const QSize size : {QSize(1, 1), QSize(300, 1), QSize(1, 300), QSize(300, 200)}) {
      CWGraph graph;
      graph.setXY(xy);
      graph.setHistory(xy ? -4 : 1);
      graph.addPlot();
      graph.setAxisRange(CWGraph::XAxis, 5, 5);
      graph.setAxisRange(CWGraph::YAxis, kInfinity, kNaN);
      graph.resize(size);
      graph.grab();
      for (const double value : {kNaN, kInfinity, -kInfinity, 1e308, -1e308, 0.0}) {
        graph.plotXY(1, value, value);
        graph.chartY(7, value);
        graph.grab();
      }
      graph.setAxisAutoscale(CWGraph::YAxis, true);
      graph.plotXY(1, -1e308, 1e308);
      graph.grab();
    }
  }
}

TEST(Readable, DarkCurvesAreSeenOnADarkDesktopInTheirHue) {
  const QColor night(30, 30, 34);
  for (const QColor colour : {QColor(Qt::blue), QColor(Qt::black), QColor(Qt::darkRed)})
    EXPECT_GE(contrastOf(readableCurve(colour, night), night), 3) << colour.name().toStdString();
  EXPECT_EQ(readableCurve(Qt::blue, night).hue(), QColor(Qt::blue).hue());
  EXPECT_EQ(readableCurve(Qt::blue, Qt::white), QColor(Qt::blue));
  CWGraph graph;
  QPalette palette;
  palette.setColor(QPalette::Base, night);
  graph.setPalette(palette);
  prepare(graph, 10);
  for (int i = 0; i < 10; ++i) graph.chartY(2, 50);
  EXPECT_EQ(pictureOf(graph).pixel(graph.placeOf(2, 5).toPoint()), readableCurve(Qt::blue, night).rgb());
}

TEST(CWSlide, KeepsValuesOutsideTheAxisAndShowsTheBarInside) {
  CWSlide slide;
  slide.resize(216, 30);
  slide.setAxisRange(0, 100);
  slide.setPointerFillColour(1, Qt::red);
  slide.setValue(50);
  const QImage half = pictureOf(slide);
  EXPECT_EQ(half.pixelColor(60, 6), QColor(Qt::red));
  EXPECT_NE(half.pixelColor(160, 6), QColor(Qt::red));
  slide.setValue(250);
  EXPECT_EQ(slide.value(), 250);
  EXPECT_EQ(pictureOf(slide).pixelColor(160, 6), QColor(Qt::red));
  slide.setValue(kNaN);
  slide.setPointerValue(4, 1);
  slide.resize(1, 1);
  slide.grab();
}

TEST(CWSlide, FreezesAndIsSpoken) {
  CWSlide slide;
  slide.setLocale(QLocale(QLocale::French));
  slide.resize(216, 30);
  slide.setAxisRange(0, 100);
  slide.setValue(12.5);
  const QImage before = pictureOf(slide);
  slide.setFrozen(true);
  slide.setValue(80);
  EXPECT_EQ(pictureOf(slide), before);
  QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&slide);
  ASSERT_NE(access->valueInterface(), nullptr);
  EXPECT_EQ(access->text(QAccessible::Value), QStringLiteral("12,5"));
  EXPECT_EQ(access->valueInterface()->maximumValue().toDouble(), 100);
  slide.setFrozen(false);
  EXPECT_NE(pictureOf(slide), before);
  EXPECT_EQ(access->valueInterface()->currentValue().toDouble(), 80);
}

TEST(CWNumEdit, StepsByKeysWithinLimitsInTheUsersLocale) {
  CWNumEdit edit;
  edit.setLocale(QLocale(QLocale::French));
  edit.setRange(0, 20);
  edit.setSingleStep(0.5);
  edit.setFastStep(8);
  QTest::keyClick(&edit, Qt::Key_Up);
  EXPECT_EQ(edit.text(), QStringLiteral("0,5"));
  QTest::keyClick(&edit, Qt::Key_PageUp);
  EXPECT_EQ(edit.value(), 8.5);
  QTest::keyClick(&edit, Qt::Key_PageUp);
  QTest::keyClick(&edit, Qt::Key_PageUp);
  EXPECT_EQ(edit.text(), QStringLiteral("20"));
}

TEST(CWButton, TogglesByKeyAndMouse) {
  CWButton button;
  QPixmap off(16, 16);
  QPixmap on(16, 16);
  off.fill(Qt::green);
  on.fill(Qt::red);
  button.setPictures(off, on);
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_TRUE(button.isChecked());
  EXPECT_EQ(pictureOf(button).pixelColor(button.rect().center()), QColor(Qt::red));
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_FALSE(button.isChecked());
}

}  // namespace
}  // namespace tarnlog
