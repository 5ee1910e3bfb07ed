#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalBlocker>
#include <QTest>
#include <cmath>
#include <limits>
#include <optional>
#include <tuple>

#include "platform/controls/CWButton.h"
#include "platform/controls/CWGraph.h"
#include "platform/controls/CWNumEdit.h"
#include "platform/controls/CWSlide.h"
#include "platform/controls/GraphFrame.h"
#include "platform/controls/PaintPacer.h"
#include "platform/controls/Readable.h"
#include "tests/support/Pixels.h"

namespace tarnlog::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

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
  while (graph.plotCount() < 2) graph.addPlot();
  graph.setPlotColour(1, Qt::red);
  graph.setPlotColour(2, Qt::blue);
}

struct PreparedGraph : CWGraph {
  explicit PreparedGraph(int history = 100) { prepare(*this, history); }
};

/// Without the left edge, where a line from a point that has been dropped may still stand.
QImage withoutEdge(CWGraph& graph) {
  const QImage picture = pictureOf(graph);
  const qreal left = (graph.placeOf(1, graph.firstPoint() + 1).x() + 4) * picture.devicePixelRatio();
  return picture.copy(qCeil(left), 0, picture.width() - qCeil(left), picture.height());
}

TEST(CWGraph, ScrollsToThePictureOfAFullRedraw) {
  const QPalette dark(QColor(30, 30, 34));
  for (const int history : {100, 500, 5000}) {
    CWGraph scrolled;
    CWGraph drawn;
    const auto both = [&](const auto& change) {
      change(scrolled);
      change(drawn);
    };
    both([&](CWGraph& graph) { prepare(graph, history); });
    int point = 0;
    const auto play = [&](int points) {
      for (const int end = point + points; point < end; point += 13) {
        both([&](CWGraph& graph) { fill(graph, point, point + 13); });
        scrolled.grab();
      }
      drawn.setAxisGrid(CWGraph::YAxis, true);  // has it drawn anew
      return withoutEdge(scrolled) == withoutEdge(drawn);
    };
    EXPECT_TRUE(play(history / 2)) << history << " filling";
    EXPECT_TRUE(play(history + 37)) << history;
    both([](CWGraph& graph) { graph.resize(317, 180); });
    EXPECT_TRUE(play(30)) << history << " after a change of size";
    both([](CWGraph& graph) { graph.setAxisRange(CWGraph::YAxis, -20, 60); });
    EXPECT_TRUE(play(30)) << history << " after a change of axis";
    const QImage light = pictureOf(scrolled);
    both([&](CWGraph& graph) { graph.setPalette(dark); });
    EXPECT_LT(countOf(Qt::white, pictureOf(scrolled)), countOf(Qt::white, light) / 4);
    EXPECT_TRUE(play(30)) << history << " after a change of palette";
  }
}

TEST(CWGraph, DrawsTheEndsOfTheAxisInTheOutermostPixels) {
  PreparedGraph graph(10);
  for (int i = 0; i < 12; ++i) {
    graph.chartY(1, 100);
    graph.chartY(2, 0);
  }
  const QImage picture = pictureOf(graph);
  const auto ratio = static_cast<int>(picture.devicePixelRatio());
  const QRect area(graph.plotArea().topLeft() * ratio, graph.plotArea().size() * ratio);
  const QImage column = picture.copy(area.center().x(), 0, 1, picture.height());
  EXPECT_EQ(column.pixelColor(0, area.top()), QColor(Qt::red));
  EXPECT_EQ(column.pixelColor(0, area.bottom()), QColor(Qt::blue));
  EXPECT_EQ(countOf(Qt::red, column), ratio) << "a line as wide as a point of the layout";
  EXPECT_EQ(countOf(Qt::blue, column), ratio);
}

TEST(CWGraph, DrawsXYInOrderWithGapsAndForgetsOldPoints) {
  CWGraph graph;
  graph.setXY(true);
  prepare(graph, 5);
  graph.setAxisAutoscale(CWGraph::XAxis, true);
  const double points[][2] = {{10, 90}, {0, 10}, {40, 10}, {40, 60}, {kNaN, 60}, {80, 60}, {100, 90}};
  for (const auto& [x, y] : points) graph.plotXY(1, x, y);
  const QImage picture = pictureOf(graph);
  EXPECT_EQ(graph.axisMinimum(CWGraph::XAxis), 35) << "of the points that are kept";
  EXPECT_EQ(graph.axisMaximum(CWGraph::XAxis), 105);
  const auto reds = [&](const QPointF& place) { return countOf(Qt::red, around(picture, place, 2)); };
  const auto between = [&](int one, int other) {
    return (graph.placeOf(1, one) + graph.placeOf(1, other)) / 2;
  };
  EXPECT_GT(reds(between(2, 3)), 0);
  EXPECT_EQ(reds(between(3, 5)), 0) << "a gap";
  EXPECT_GT(reds(between(5, 6)), 0);
  EXPECT_GT(reds(graph.placeOf(1, 6)), reds(between(5, 6))) << "the newest is marked";
}

TEST(CWGraph, PlacesPointsWhereItDrawsAndFindsThem) {
  for (const int points : {4, 10, 27}) {
    PreparedGraph graph(10);
    for (int i = 0; i < points; ++i) graph.chartY(1, i == points - 2 ? 90 : 10, i * 0.5);
    const QImage picture = pictureOf(graph);
    EXPECT_EQ(std::tuple(graph.firstPoint(), graph.endPoint()), std::tuple(std::max(points - 10, 0), points));
    for (std::int64_t point = graph.firstPoint(); point < points; ++point) {
      const QPoint place = graph.placeOf(1, point).toPoint();
      EXPECT_EQ(graph.pointAt(place), point);
      EXPECT_EQ(graph.times().momentOf(point), static_cast<double>(point) * 0.5);
      EXPECT_GT(countOf(Qt::red, around(picture, place, 1)), 0) << point << " of " << points;
    }
  }
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
    for (CWGraph* const graph : {&frozen, &free}) {
      fill(*graph, 50, 270);
      graph->addPlot();
      graph->chartY(3, 50);
    }
    EXPECT_EQ(pictureOf(frozen), before);
    EXPECT_EQ(frozen.endPoint(), 50);
    EXPECT_EQ(frozen.keptPoints().begin, 0) << "what was shown stays, however long it stands";
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
      for (const double value : {kNaN, kInfinity, -kInfinity, 1e308, -1e308, 0.0}) {
        graph.plotXY(1, value, value);
        graph.chartY(7, value);
        graph.grab();
      }
      graph.setAxisAutoscale(CWGraph::YAxis, true);
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
  y.fixed = {-10, 220};
  y.names = {{0, "Off"}, {37, "Half"}, {38, "No room"}, {201, "On"}, {300, "Outside"}};
  frame.layOut({400, 8 * line}, metrics, QLocale::c(), x, y);
  QString names;
  for (const GraphFrame::Text& text : frame.texts()) names += text.text.text() + ' ';
  EXPECT_EQ(names, "Off Half On ") << "wherever the ticks are";
}

TEST(Readable, DarkCurvesAreSeenOnADarkDesktopInTheirHue) {
  const QColor night(30, 30, 34);
  for (const QColor colour : {QColor(Qt::blue), QColor(Qt::black), QColor(Qt::darkRed)})
    EXPECT_GE(contrastOf(readableCurve(colour, night), night), 3) << colour.name().toStdString();
  EXPECT_EQ(readableCurve(Qt::blue, night).hue(), QColor(Qt::blue).hue());
  EXPECT_EQ(readableCurve(Qt::blue, Qt::white), QColor(Qt::blue));
  CWGraph graph;
  graph.setPalette(QPalette(night));  // graphs are black on it
  prepare(graph, 10);
  for (int i = 0; i < 10; ++i) graph.chartY(2, 50);
  const QImage picture = pictureOf(graph);
  const QRect line = QRect(graph.placeOf(2, 5).toPoint() - QPoint(0, 2), QSize(1, 5));
  EXPECT_GT(countOf(Qt::blue, picture), 100) << "as it is configured";
  double rim = 1;
  for (int y = line.top(); y <= line.bottom(); ++y)
    rim = std::max(rim, contrastOf(colourAt(picture, line.left(), y), Qt::black));
  EXPECT_GE(rim, 5) << "with a pale rim";
}

TEST(CWGraph, TellsTimesAndPauses) {
  PreparedGraph graph;
  graph.setTimeGrid(true);
  double moment = 0;
  for (int i = 0; i < 100; ++i) {
    moment += i == 50 ? 3000 : 100;  // an outage in the middle
    graph.chartY(1, 50, moment);
    graph.chartY(2, 50);
  }
  const QImage plain = pictureOf(graph);
  const auto blues = [&](double point) {
    const int x =
        static_cast<int>((graph.plotArea().left() + graph.chartX(point)) * plain.devicePixelRatio());
    return countOf(Qt::blue, plain.copy(x, 0, 1, plain.height()));
  };
  EXPECT_GT(blues(48.5), 0);
  EXPECT_EQ(blues(49.5), 0) << "the line is broken";
  graph.setTimeLabels(true);
  EXPECT_NE(pictureOf(graph), plain);
  graph.setTimeGrid(false);
  EXPECT_NE(pictureOf(graph), plain);
}

TEST(GraphOverlay, HasTheTextsOfTheNewestFlagsThatAreSeen) {
  TimeLine times;
  times.setCapacity(2000);
  double moment = 0;
  for (int i = 0; i < 1250; ++i) times.append(moment += i % 5 == 4 ? 3000 : 50);
  const std::vector<GraphMark> marks = {{100, QStringLiteral("Start"), Qt::green},
                                        {1200, QStringLiteral("Stop"), Qt::red}};
  GraphOverlay overlay;
  const auto all = overlay.flags(times, marks, {0, 1250, 0, 1, 600});
  ASSERT_EQ(all.size(), 202U) << "250 pauses are too many to be told apart";
  EXPECT_EQ(all[199].point, 1248.5);
  EXPECT_EQ(all[200].point, 100);
  const std::uint32_t* const stop = all[201].stamp.pixels.data();
  const auto part = overlay.flags(times, marks, {900, 1250, 0, 1, 600});
  EXPECT_EQ(part.front().point, 553.5) << "what begins at the left may reach into the picture";
  EXPECT_EQ(part[part.size() - 2].point, 1248.5) << "Start is out of sight";
  EXPECT_EQ(part.back().stamp.pixels.data(), stop) << "not made again";
}

TEST(CWGraph, LooksBackAtWhatItKeepsWithoutLosingWhatComes) {
  CWGraph graph;
  graph.setKept(5000);
  prepare(graph, 100);
  graph.setAxisAutoscale(CWGraph::YAxis, true);
  const auto feed = [&](int from, int to) {
    for (int i = from; i < to; ++i) {
      graph.chartY(1, i);
      graph.chartY(2, 3);
    }
  };
  feed(0, 3000);
  const QImage live = pictureOf(graph);
  graph.setView(TimeView{0, 500});
  EXPECT_EQ(pictureOf(graph), live) << "only a frozen picture looks back";
  graph.setFrozen(true);
  EXPECT_EQ(pictureOf(graph), live);
  graph.setView(TimeView{1000, 500});
  EXPECT_EQ(graph.firstPoint(), 1000);
  EXPECT_GE(graph.axisMaximum(CWGraph::YAxis), 1499) << "the axis follows";
  EXPECT_LT(graph.axisMaximum(CWGraph::YAxis), 2000);
  const QImage back = pictureOf(graph);
  EXPECT_EQ(graph.pointAt(graph.placeOf(1, 1234).toPoint()), 1234);
  EXPECT_GT(countOf(Qt::red, around(back, graph.placeOf(1, 1234), 1)), 0);
  feed(3000, 9000);
  EXPECT_EQ(graph.keptPoints().begin, 2900) << "the memory is bounded; what was shown stays";
  for (const double count : {4.0, 7.5, 100.0}) {
    graph.setView(TimeView{2950 - count / 2, count});
    pictureOf(graph);
    EXPECT_EQ(graph.pointAt(graph.placeOf(1, 2950).toPoint()), 2950);
  }
  graph.setFrozen(false);
  EXPECT_EQ(graph.firstPoint(), 8900);
  EXPECT_EQ(graph.valueOf(1, 4001), 4001) << "kept for the next look back";

  graph.setOwnScales(true);
  graph.setFrozen(true);
  graph.setView(TimeView{5000, 1000});
  const int high = graph.plotArea().height();
  EXPECT_LT(graph.placeOf(1, 5999).y(), graph.plotArea().top() + high / 5) << "each scale follows, too";
  EXPECT_GT(graph.placeOf(1, 5000).y(), graph.plotArea().bottom() - high / 5);
  EXPECT_NEAR(graph.axisMaximum(CWGraph::YAxis), 6050, 100);
  graph.setFrozen(false);
  EXPECT_GT(graph.axisMinimum(CWGraph::YAxis), 8800) << "of now, as before the look back";
}

TEST(CWGraph, GivesEachCurveItsOwnScale) {
  PreparedGraph graph;
  for (int i = 0; i < 100; ++i) {
    graph.chartY(1, 1000 + i);
    graph.chartY(2, i % 2);
  }
  graph.setOwnScales(true);
  const int high = graph.plotArea().height();
  for (const int plot : {1, 2}) {
    EXPECT_LT(graph.placeOf(plot, 99).y(), graph.plotArea().top() + high / 5) << plot;
    EXPECT_GT(graph.placeOf(plot, 0).y(), graph.plotArea().bottom() - high / 5) << plot;
  }
  EXPECT_GT(graph.axisMaximum(CWGraph::YAxis), 1098);
  graph.chooseScale(2);
  EXPECT_LT(graph.axisMaximum(CWGraph::YAxis), 2) << "the axis is the chosen curve's";
  EXPECT_GT(countOf(Qt::red, around(pictureOf(graph), graph.placeOf(1, 98), 1)), 0);
  graph.setOwnScales(false);
  EXPECT_EQ(graph.axisMaximum(CWGraph::YAxis), 100);
}

TEST(CWSlide, ShowsTheBarInsideTheAxisFreezesAndIsSpoken) {
  CWSlide slide;
  slide.setLocale(QLocale(QLocale::French));
  slide.resize(216, 30);
  slide.setAxisRange(0, 100);
  slide.setPointerFillColour(1, Qt::red);
  slide.setValue(50.5);
  const QImage half = pictureOf(slide);
  EXPECT_EQ(colourAt(half, 60, 6), QColor(Qt::red));
  EXPECT_NE(colourAt(half, 160, 6), QColor(Qt::red));
  slide.setFrozen(true);
  slide.setValue(250);
  EXPECT_EQ(pictureOf(slide), half);
  QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&slide);
  ASSERT_NE(access->valueInterface(), nullptr);
  EXPECT_EQ(access->text(QAccessible::Value), "50,5") << "as in the picture";
  EXPECT_EQ(access->valueInterface()->currentValue().toDouble(), 50.5);
  EXPECT_EQ(access->valueInterface()->maximumValue().toDouble(), 100);
  slide.setFrozen(false);
  EXPECT_EQ(colourAt(pictureOf(slide), 160, 6), QColor(Qt::red));
  EXPECT_EQ(access->valueInterface()->currentValue().toDouble(), 250) << "not limited to the axis";
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
  slide.setAxisRange(0, 100);
  slide.setPointerValue(2, 50);
  const int whole = marks(Qt::red, 0, 216);
  const std::pair<double, double> axes[] = {{0, 100}, {100, 0}, {50, 50}, {kNaN, 3}, {-kInfinity, kInfinity}};
  for (const auto& [from, to] : axes) {
    slide.setAxisRange(from, to);
    slide.setPointerValue(2, -1e308);
    slide.setPointerValue(3, kInfinity);
    EXPECT_EQ(marks(Qt::red, 0, 16), whole) << from << ' ' << to;
    EXPECT_EQ(marks(Qt::blue, 200, 216), whole) << from << ' ' << to;
    EXPECT_EQ(marks(Qt::red, 16, 216) + marks(Qt::blue, 0, 200), 0) << from << ' ' << to;
  }
  slide.setPointerValue(2, kNaN);
  EXPECT_EQ(marks(Qt::red, 0, 216), 0);
}

/// Keys that were refused one by one left digits that made another number.
TEST(CWNumEdit, StepsByKeysWithinLimitsInTheUsersLocale) {
  CWNumEdit edit;
  edit.setLocale(QLocale(QLocale::French));
  edit.setRange(0, 20);
  edit.setSingleStep(0.5);
  edit.setFastStep(8);
  const auto after = [&](Qt::Key key) {
    QTest::keyClick(&edit, key);
    return edit.text().toStdString();
  };
  EXPECT_EQ(after(Qt::Key_Up), "0,5");
  EXPECT_EQ(after(Qt::Key_PageUp), "8,5");
  EXPECT_EQ(after(Qt::Key_PageUp), "16,5");
  EXPECT_EQ(after(Qt::Key_PageUp), "20");
}

TEST(CWNumEdit, ReadsTheWholeEntryOrRefusesItAsAWhole) {
  struct Case {
    QLocale::Language language;
    int decimals;
    std::vector<std::pair<const char*, std::optional<double>>> entries;  ///< no value: refused
  };
  constexpr double kBefore = 7;
  const Case cases[] = {
      {QLocale::English, 12, {{"1.5", 1.5}, {"1,5", 1.5}, {"0,500", 0.5}, {"1234,500", 1234.5}}},
      {QLocale::English, 12, {{"-,25", -0.25}, {"9000", 5000}, {"-9000", -5000}, {"1e", kBefore}}},
      {QLocale::English, 12, {{"1,500", {}}, {"1.234,5", {}}, {"1.2.3", {}}, {"1 500", {}}}},
      {QLocale::English, 12, {{"12x", {}}, {"nan", {}}}},
      {QLocale::German, 12, {{"1.5", 1.5}, {"-1.500", {}}}},
      {QLocale::French, 12, {{"1,25e2", 125}, {"0,0000001", 1e-7}, {"12.5", 12.5}}},
      {QLocale::English, 0, {{"2.7", {}}, {"2,7", {}}, {"12.0", 12}, {"1,000", {}}, {"-", kBefore}}},
      {QLocale::French, 0, {{"30", 30}}},
  };
  for (const Case& each : cases) {
    for (const auto& [keys, value] : each.entries) {
      for (const bool tracking : {false, true}) {
        SCOPED_TRACE(keys);
        CWNumEdit edit;
        edit.setLocale(QLocale(each.language));
        edit.setDecimals(each.decimals);
        edit.setRange(-5000, 5000);
        edit.setKeyboardTracking(tracking);
        edit.setSuffix(QStringLiteral(" km/h"));
        edit.setValue(kBefore);
        std::vector<double> heard = {kBefore};
        QObject::connect(&edit, &CWNumEdit::valueChanged, [&](double now) { heard.push_back(now); });
        edit.selectAll();
        QTest::keyClicks(&edit, QLatin1String(keys));
        EXPECT_TRUE(edit.text().startsWith(QLatin1String(keys))) << "what is typed stands there";
        EXPECT_EQ(edit.refuses(), !value);
        QTest::keyClick(&edit, Qt::Key_Return);
        EXPECT_EQ(edit.value(), value.value_or(kBefore));
        EXPECT_EQ(heard.back(), value.value_or(kBefore));
        EXPECT_TRUE(tracking || heard.size() <= 2) << "told when the entry is finished";
        EXPECT_EQ(edit.text(), edit.textFromValue(edit.value()) + " km/h");
        EXPECT_FALSE(edit.refuses());
      }
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
  const QSignalBlocker silent(button);
  button.setChecked(true);
  EXPECT_EQ(shown(), QColor(Qt::red)) << "whoever hears of it";
  button.setEnabled(false);
  EXPECT_NE(shown(), QColor(Qt::red)) << "pale";
}

/// A window whose screen shows a picture when told to; it has rested for a while.
struct PaintPacing : testing::Test {
  PaintPacing() {
    window.resize(200, 100);
    window.show();
    QApplication::processEvents();
    showPictures(window, 100);
    spy.times = 0;
  }
  QWidget window;
  QWidget paper{&window};
  PaintSpy spy{paper};
};

TEST_F(PaintPacing, PaintsOnceAPictureAllThatCameInBetween) {
  auto pacer = std::make_unique<PaintPacer>(&paper);
  const auto request = [&](const QRect& area) {
    pacer->request(area);
    QEvent now(QEvent::UpdateRequest);
    QApplication::sendEvent(&window, &now);
  };
  request({0, 0, 10, 10});
  EXPECT_EQ(spy.times, 1) << "at once after a rest";
  spy.painted = {};
  request({20, 0, 10, 10});
  request({40, 0, 10, 10});
  EXPECT_EQ(spy.times, 1) << "polls are faster than pictures";
  showPictures(window, 1);
  EXPECT_EQ(spy.times, 2);
  EXPECT_EQ(spy.painted.boundingRect(), QRect(20, 0, 30, 10)) << "and none is lost";
  request({0, 0, 10, 10});
  pacer.reset();
  showPictures(window, 1);
  EXPECT_EQ(spy.times, 2) << "who waited has gone";
}

TEST_F(PaintPacing, PaintsTextsTenTimesASecond) {
  PaintPacer pacer(&paper, PaintPacer::Pace::Texts);
  const auto pictures = std::lround(window.screen()->refreshRate()) * 2;
  for (int i = 0; i < pictures; ++i) {
    pacer.request(paper.rect());
    showPictures(window, 1);
  }
  EXPECT_NEAR(spy.times, 20, 2);
}

}  // namespace
}  // namespace tarnlog::test
