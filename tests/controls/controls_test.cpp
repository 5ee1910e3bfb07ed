#include <gtest/gtest.h>

#include <QTest>
#include <cmath>
#include <limits>

#include "platform/controls/CWButton.h"
#include "platform/controls/CWGraph.h"
#include "platform/controls/CWNumEdit.h"
#include "platform/controls/CWSlide.h"

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
