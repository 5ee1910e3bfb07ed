#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalBlocker>
#include <QTest>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

#include "platform/controls/CWButton.h"
#include "platform/controls/CWGraph.h"
#include "platform/controls/CWNumEdit.h"
#include "platform/controls/CWSlide.h"
#include "platform/controls/GraphFrame.h"
#include "platform/controls/Readable.h"

namespace tarnlog {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

QImage pictureOf(QWidget& widget) { return widget.grab().toImage(); }

/// Of a place of the widget, whatever the screen's pixels.
QColor colourAt(const QImage& picture, int x, int y) {
  const QPointF pixel = QPointF(x, y) * picture.devicePixelRatio();
  return picture.pixelColor(pixel.toPoint());
}

int countOf(const QColor& colour, const QImage& picture) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == colour;
  return count;
}

QImage around(const QImage& picture, const QPointF& place, int reach) {
  const qreal ratio = picture.devicePixelRatio();
  const QPoint corner = ((place - QPointF(reach, reach)) * ratio).toPoint();
  return picture.copy(QRect(corner, QSize(2 * reach + 1, 2 * reach + 1) * ratio));
}

/// Curves that cross, with gaps and a value that stands alone between two.
void fill(CWGraph& graph, int from, int to) {
  for (int i = from; i < to; ++i) {
    graph.chartY(1, i % 60 == 0 || i % 60 == 2 ? kNaN : 50 + 45 * std::sin(i / 17.0));
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

/// Without the left edge, where a line from a point that has been dropped may still stand.
QImage withoutEdge(CWGraph& graph) {
  const QImage picture = pictureOf(graph);
  const qreal left = (graph.placeOf(1, graph.firstPoint() + 1).x() + 4) * picture.devicePixelRatio();
  return picture.copy(qCeil(left), 0, picture.width() - qCeil(left), picture.height());
}

TEST(CWGraph, ScrollsToThePictureOfAFullRedraw) {
  for (const int history : {100, 500, 5000}) {
    CWGraph scrolled;
    CWGraph drawn;
    prepare(scrolled, history);
    prepare(drawn, history);
    int point = 0;
    const auto play = [&](int points) {
      for (const int end = point + points; point < end; point += 13) {
        fill(scrolled, point, point + 13);
        fill(drawn, point, point + 13);
        scrolled.grab();
      }
      drawn.setAxisGrid(CWGraph::YAxis, true);  // has it drawn anew
      return withoutEdge(scrolled) == withoutEdge(drawn);
    };
    EXPECT_TRUE(play(history / 2)) << history << " filling";
    EXPECT_TRUE(play(history + 37)) << history;
    for (CWGraph* const graph : {&scrolled, &drawn}) graph->resize(317, 180);
    EXPECT_TRUE(play(30)) << history << " after a change of size";
    for (CWGraph* const graph : {&scrolled, &drawn}) graph->setAxisRange(CWGraph::YAxis, -20, 60);
    EXPECT_TRUE(play(30)) << history << " after a change of axis";
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 34));
    dark.setColor(QPalette::Text, Qt::white);
    const QImage light = pictureOf(scrolled);
    for (CWGraph* const graph : {&scrolled, &drawn}) graph->setPalette(dark);
    EXPECT_LT(countOf(Qt::white, pictureOf(scrolled)), countOf(Qt::white, light) / 4);
    EXPECT_TRUE(play(30)) << history << " after a change of palette";
  }
}

TEST(CWGraph, DrawsTheEndsOfTheAxisInTheOutermostPixels) {
  CWGraph graph;
  prepare(graph, 10);
  for (int i = 0; i < 12; ++i) {
    graph.chartY(1, 100);
    graph.chartY(2, 0);
  }
  const QImage picture = pictureOf(graph);
  const auto ratio = static_cast<int>(picture.devicePixelRatio());
  const QRect area(graph.plotArea().topLeft() * ratio, graph.plotArea().size() * ratio);
  const int x = area.center().x();
  const auto rowsOf = [&](const QColor& colour) {
    std::vector<int> rows;
    for (int y = 0; y < picture.height(); ++y)
      if (picture.pixelColor(x, y) == colour) rows.push_back(y);
    return rows;
  };
  std::vector<int> top(static_cast<std::size_t>(ratio));
  std::iota(top.begin(), top.end(), area.top());
  std::vector<int> bottom(static_cast<std::size_t>(ratio));
  std::iota(bottom.begin(), bottom.end(), area.bottom() - ratio + 1);
  EXPECT_EQ(rowsOf(Qt::red), top) << "a line as wide as a point of the layout";
  EXPECT_EQ(rowsOf(Qt::blue), bottom);
}

TEST(CWGraph, DrawsXYInOrderWithGapsAndForgetsOldPoints) {
  CWGraph graph;
  graph.setXY(true);
  prepare(graph, 5);
  graph.setAxisAutoscale(CWGraph::XAxis, true);
  const double points[][2] = {{10, 90}, {0, 10}, {40, 10}, {40, 60}, {kNaN, 60}, {80, 60}, {100, 90}};
  for (const auto& [x, y] : points) graph.plotXY(1, x, y);
  const QImage picture = pictureOf(graph);
  EXPECT_EQ(graph.axisMinimum(CWGraph::XAxis), 40) << "of the points that are kept";
  EXPECT_EQ(graph.axisMaximum(CWGraph::XAxis), 100);
  const auto reds = [&](const QPointF& place) { return countOf(Qt::red, around(picture, place, 2)); };
  const auto between = [&](int one, int other) {
    return (graph.placeOf(1, one) + graph.placeOf(1, other)) / 2;
  };
  EXPECT_GT(reds(between(2, 3)), 0);
  EXPECT_EQ(reds(between(3, 5)), 0) << "a gap";
  EXPECT_GT(reds(between(5, 6)), 0);
  EXPECT_GT(reds(graph.placeOf(1, 6)), reds(between(5, 6))) << "the newest is marked";
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
      EXPECT_GT(countOf(Qt::red, around(picture, place, 1)), 0) << point << " of " << points;
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
    EXPECT_EQ(pictureOf(frozen), pictureOf(free));
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

TEST(GraphFrame, NumbersAtLeastTwoMarksWhereTheyHaveRoom) {
  const QFontMetrics metrics{QFont()};
  const int line = metrics.height();
  GraphFrame frame;
  GraphAxis x;
  x.labels = false;
  GraphAxis y;
  for (const AxisRange& range : {AxisRange{-20, 30}, {-1, 9}, {1, 9}, {0.2, 0.7}, {-7, 1234}}) {
    for (int height = 2 * line + 2; height < 8 * line; ++height) {
      y.fixed = range;
      frame.layOut({400, height}, metrics, QLocale::c(), x, y);
      EXPECT_GE(frame.texts().size(), 2U)
          << range.minimum << " to " << range.maximum << ", " << height << " pixels";
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
  const QPoint place = graph.placeOf(2, 5).toPoint();
  EXPECT_EQ(colourAt(pictureOf(graph), place.x(), place.y()).rgb(), readableCurve(Qt::blue, night).rgb());
}

TEST(CWSlide, KeepsValuesOutsideTheAxisAndShowsTheBarInside) {
  CWSlide slide;
  slide.resize(216, 30);
  slide.setAxisRange(0, 100);
  slide.setPointerFillColour(1, Qt::red);
  slide.setValue(50);
  const QImage half = pictureOf(slide);
  EXPECT_EQ(colourAt(half, 60, 6), QColor(Qt::red));
  EXPECT_NE(colourAt(half, 160, 6), QColor(Qt::red));
  slide.setValue(250);
  EXPECT_EQ(slide.value(), 250);
  EXPECT_EQ(colourAt(pictureOf(slide), 160, 6), QColor(Qt::red));
  slide.setValue(kNaN);
  slide.setPointerValue(4, 1);
  slide.resize(1, 1);
  slide.grab();
}

TEST(CWSlide, ShowsMarkersInsideAnyAxis) {
  CWSlide slide;
  slide.resize(216, 40);
  slide.setPointerColour(2, Qt::red);
  slide.setPointerColour(3, Qt::blue);
  const auto marks = [&](const QColor& colour, int from, int to) {
    const QImage picture = pictureOf(slide);
    const auto ratio = static_cast<int>(picture.devicePixelRatio());
    return countOf(colour, picture.copy(from * ratio, 0, (to - from) * ratio, picture.height()));
  };
  const std::pair<double, double> axes[] = {{0, 100}, {100, 0}, {50, 50}, {kNaN, 3}, {-kInfinity, kInfinity}};
  for (const auto& [from, to] : axes) {
    slide.setAxisRange(from, to);
    slide.setPointerValue(2, -1e308);
    slide.setPointerValue(3, kInfinity);
    EXPECT_GT(marks(Qt::red, 0, 16), 5) << from << ' ' << to;
    EXPECT_GT(marks(Qt::blue, 200, 216), 5) << from << ' ' << to;
    EXPECT_EQ(marks(Qt::red, 16, 216) + marks(Qt::blue, 0, 200), 0) << from << ' ' << to;
  }
  slide.setPointerValue(2, kNaN);
  EXPECT_EQ(marks(Qt::red, 0, 216), 0);
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
  EXPECT_EQ(access->valueInterface()->currentValue().toDouble(), 12.5) << "as in the picture";
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

TEST(CWNumEdit, TakesWhatIsTypedWhenItIsFinished) {
  CWNumEdit edit;
  edit.setLocale(QLocale(QLocale::French));
  edit.setRange(-10, 200);
  std::vector<double> changes;
  QObject::connect(&edit, &CWNumEdit::valueChanged, [&](double value) { changes.push_back(value); });
  const auto typed = [&](const char* keys) {
    edit.selectAll();
    QTest::keyClicks(&edit, QLatin1String(keys));
    QTest::keyClick(&edit, Qt::Key_Return);
    return edit.text();
  };
  EXPECT_EQ(typed("12.5"), QStringLiteral("12,5")) << "the point of the number pad";
  EXPECT_EQ(typed("1,25e2"), QStringLiteral("125"));
  EXPECT_EQ(typed("300"), QStringLiteral("200")) << "not 30, its last digit refused";
  EXPECT_EQ(typed("-"), QStringLiteral("200"));
  EXPECT_EQ(typed("0,0000001"), QStringLiteral("0,0000001"));
  EXPECT_EQ(typed("1e"), QStringLiteral("0,0000001"));
  EXPECT_EQ(typed("-99"), QStringLiteral("-10"));
  EXPECT_EQ(changes, (std::vector<double>{12.5, 125, 200, 1e-7, -10}));
  changes.clear();
  edit.setKeyboardTracking(true);
  edit.setSuffix(QStringLiteral(" km/h"));
  EXPECT_EQ(typed("300"), QStringLiteral("200 km/h"));
  EXPECT_EQ(changes, (std::vector<double>{3, 30, 200}));
}

/// Keys that were refused one by one left digits that made another number.
TEST(CWNumEdit, ReadsTheWholeEntryOrRefusesItAsAWhole) {
  struct Case {
    QLocale::Language language;
    int decimals;
    const char* keys;
    double value;
    bool refused;
  };
  constexpr double kBefore = 7;
  const Case cases[] = {
      {QLocale::English, 12, "1.5", 1.5, false},
      {QLocale::English, 12, "1,5", 1.5, false},
      {QLocale::English, 12, "0,500", 0.5, false},
      {QLocale::English, 12, "1234,500", 1234.5, false},
      {QLocale::English, 12, "-,25", -0.25, false},
      {QLocale::English, 12, "1,500", kBefore, true},
      {QLocale::English, 12, "1.234,5", kBefore, true},
      {QLocale::English, 12, "1.2.3", kBefore, true},
      {QLocale::English, 12, "1 500", kBefore, true},
      {QLocale::English, 12, "12x", kBefore, true},
      {QLocale::English, 12, "nan", kBefore, true},
      {QLocale::English, 12, "1e", kBefore, false},
      {QLocale::German, 12, "1.5", 1.5, false},
      {QLocale::German, 12, "-1.500", kBefore, true},
      {QLocale::English, 0, "2.7", kBefore, true},
      {QLocale::English, 0, "2,7", kBefore, true},
      {QLocale::English, 0, "12.0", 12, false},
      {QLocale::English, 0, "1,000", kBefore, true},
      {QLocale::French, 0, "30", 30, false},
      {QLocale::English, 0, "-", kBefore, false},
  };
  for (const bool tracking : {false, true}) {
    for (const Case& each : cases) {
      SCOPED_TRACE(each.keys);
      CWNumEdit edit;
      edit.setLocale(QLocale(each.language));
      edit.setDecimals(each.decimals);
      edit.setRange(-5000, 5000);
      edit.setKeyboardTracking(tracking);
      edit.setValue(kBefore);
      double heard = kBefore;
      QObject::connect(&edit, &CWNumEdit::valueChanged, [&](double value) { heard = value; });
      edit.selectAll();
      QTest::keyClicks(&edit, QLatin1String(each.keys));
      EXPECT_EQ(edit.text(), QLatin1String(each.keys)) << "what is typed stands there";
      EXPECT_EQ(edit.refuses(), each.refused);
      QTest::keyClick(&edit, Qt::Key_Return);
      EXPECT_EQ(edit.value(), each.value);
      EXPECT_EQ(heard, each.value);
      EXPECT_EQ(edit.text(), edit.textFromValue(each.value));
      EXPECT_FALSE(edit.refuses());
    }
  }
}

TEST(CWButton, ShowsItsStateAndTogglesByKeyAndMouse) {
  const auto plain = [](const QColor& colour) {
    QPixmap picture(32, 32);
    picture.setDevicePixelRatio(2);
    picture.fill(colour);
    return QIcon(picture);
  };
  CWButton button;
  button.resize(60, 40);
  button.setPictures(plain(Qt::green), plain(Qt::red));
  const auto shown = [&] { return colourAt(pictureOf(button), 30, 20); };
  EXPECT_EQ(shown(), QColor(Qt::green));
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_TRUE(button.isChecked());
  EXPECT_EQ(shown(), QColor(Qt::red));
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&button)->state().checked);
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_FALSE(button.isChecked());
  {
    const QSignalBlocker silent(button);
    button.setChecked(true);
  }
  EXPECT_EQ(shown(), QColor(Qt::red)) << "whoever hears of it";
  button.setEnabled(false);
  EXPECT_NE(shown(), QColor(Qt::red)) << "pale";
}

}  // namespace
}  // namespace tarnlog
