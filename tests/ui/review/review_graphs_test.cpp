#include "ui/review/ReviewGraphs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMenu>
#include <QTest>
#include <QWheelEvent>

#include "tests/support/FailureOf.h"
#include "tests/support/Pixels.h"
#include "tests/support/TempFolder.h"
#include "tests/ui/review/TableRig.h"
#include "ui/review/CurveDrag.h"
#include "ui/review/GraphKinds.h"
#include "ui/review/OverviewStrip.h"
#include "ui/review/ReviewGraphWidget.h"
#include "ui/review/ReviewPicture.h"

namespace {

using namespace tarnlog;
using namespace tarnlog::test;

class ReviewGraphsTest : public ::testing::Test {
 protected:
  ReviewGraphsTest() {
    scene.addRecord(drive("drive.txt"));
    graphs.resize(700, 500);
    graphs.show();
    QCoreApplication::processEvents();
  }
  ReviewGraphWidget& graph(std::size_t number = 0) { return *graphs.graphs()[number]; }
  /// Of a time, in the first graph.
  QPoint at(double time) {
    const QRect area = graph().plotArea();
    const double part = (time - scene.span().from) / scene.span().length();
    return {area.left() + qRound(part * area.width()), area.center().y()};
  }
  void wheel(QWidget& over, const QPoint& place, int notches, Qt::KeyboardModifiers modifiers = {}) {
    QWheelEvent turn(place, over.mapToGlobal(QPointF(place)), {}, {0, 120 * notches}, {}, modifiers,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&over, &turn);
  }
  static void drag(QWidget& over, const QPoint& from, const QPoint& to,
                   Qt::KeyboardModifiers modifiers = {}) {
    QTest::mousePress(&over, Qt::LeftButton, modifiers, from);
    for (int i = 1; i <= 4; ++i) {
      QMouseEvent move(QEvent::MouseMove, from + (to - from) * i / 4, over.mapToGlobal(to), Qt::NoButton,
                       Qt::LeftButton, modifiers);
      QApplication::sendEvent(&over, &move);
    }
    QTest::mouseRelease(&over, Qt::LeftButton, modifiers, to);
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&graph(), key, modifiers); }
  std::string span() const {
    return std::to_string(qRound(scene.span().from)) + " to " + std::to_string(qRound(scene.span().till));
  }

  ReviewScene scene;
  ReviewGraphs graphs{scene};
};

TEST_F(ReviewGraphsTest, MouseZoomsPansSelectsAndReadsOut) {
  wheel(graph(), at(80), 1);
  EXPECT_EQ(span(), "16 to 96");
  wheel(graph(), at(50), -1, Qt::ShiftModifier);
  EXPECT_EQ(span(), "20 to 100") << "later, as far as there is something";
  drag(graph(), at(60), at(70));
  EXPECT_EQ(span(), "10 to 90");
  drag(graph(), at(30), at(50), Qt::ShiftModifier);
  EXPECT_EQ(span(), "30 to 50");
  press(Qt::Key_Backspace);
  EXPECT_EQ(span(), "10 to 90");

  scene.fit();
  const int curve = countOf(QColor::fromRgb(scene.graphs()[0].curves[0].colour), pictureOf(graph()));
  EXPECT_GT(curve, 400) << "a pixel a column";
  QTest::mouseClick(&graph(), Qt::LeftButton, {}, at(30));
  ASSERT_TRUE(scene.cursor(ReviewCursor::Readout));
  EXPECT_NEAR(*scene.cursor(ReviewCursor::Readout), 30, 0.2);
  scene.setCursor(ReviewCursor::Readout, 30);
  EXPECT_THAT(graph().accessibleDescription().toStdString(), ::testing::HasSubstr("Speed: 30"));
  EXPECT_THAT(graph(2).accessibleDescription().toStdString(),
              ::testing::AllOf(::testing::HasSubstr("(19:05:38)"), ::testing::HasSubstr("Gear: Neutral")));
  press(Qt::Key_A);
  drag(graph(), at(30), at(60));
  EXPECT_NEAR(*scene.cursor(ReviewCursor::A), 60, 0.5) << "a cursor's line is dragged";
  EXPECT_EQ(span(), "0 to 100");
  scene.addRecord(drive("other.txt"));
  drag(graph(), at(50), at(30), Qt::ControlModifier);
  EXPECT_NEAR(scene.records()[1].offset, -20, 0.5) << "the record that is laid over";
}

TEST_F(ReviewGraphsTest, KeysDoAllThatTheMouseDoes) {
  std::string walk;
  for (const auto& [key, modifiers] :
       std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>>{{Qt::Key_Plus, {}},
                                                              {Qt::Key_Right, {}},
                                                              {Qt::Key_Home, {}},
                                                              {Qt::Key_End, {}},
                                                              {Qt::Key_Minus, {}}}) {
    press(key, modifiers);
    walk += span() + ", ";
  }
  EXPECT_EQ(walk, "10 to 90, 18 to 98, 0 to 80, 20 to 100, 0 to 100, ");
  scene.setCursor(ReviewCursor::Readout, 40);
  press(Qt::Key_Right, Qt::ControlModifier);
  press(Qt::Key_Right, Qt::ControlModifier);
  press(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_NEAR(*scene.cursor(ReviewCursor::Readout), 40.1, 1e-6) << "row by row";
  press(Qt::Key_B);
  press(Qt::Key_Escape);
  EXPECT_FALSE(scene.cursor(ReviewCursor::Readout));
  EXPECT_TRUE(scene.cursor(ReviewCursor::B));
  press(Qt::Key_Escape);
  EXPECT_FALSE(scene.cursor(ReviewCursor::B));
  press(Qt::Key_Down);
  EXPECT_EQ(scene.chosen(), (ReviewScene::Chosen{0, 1}));
  press(Qt::Key_Delete);
  EXPECT_EQ(graphsText(scene), "Speed | Coolant | states Brake Gear ");
}

TEST_F(ReviewGraphsTest, CurvesAreChosenTakenAwayAndDropped) {
  QTest::mouseClick(&graph(1), Qt::LeftButton, {}, {30, 6});
  EXPECT_EQ(scene.chosen(), (ReviewScene::Chosen{1, 0})) << "by the name";
  QTest::mouseDClick(&graph(1), Qt::LeftButton, {}, {30, 6});
  QCoreApplication::processEvents();
  EXPECT_EQ(graphsText(scene), "Speed Wheel speed | states Brake Gear ");
  const auto drop = [&](int y, const std::vector<CurvePlace>& places, QWidget* over = nullptr) {
    QWidget& on = over == nullptr ? static_cast<QWidget&>(graph()) : *over;
    const std::unique_ptr<QMimeData> data(curvePayload(places));
    QDragEnterEvent enter({200, y}, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&on, &enter);
    QDropEvent dropped(QPointF(200, y), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&on, &dropped);
  };
  drop(100, {{0, 0, 2}});
  drop(2, {{0, 0, 2}});
  drop(100, {{0, 0, 99}, {7, 0, 0}});
  EXPECT_EQ(graphsText(scene), "Coolant | Speed Wheel speed Coolant | states Brake Gear ");
  QCoreApplication::processEvents();
  drop(graph(1).mapTo(&graphs, QPoint()).y() - 2, {{0, 0, 2}}, &graphs);
  EXPECT_EQ(graphsText(scene), "Coolant | Coolant | Speed Wheel speed Coolant | states Brake Gear ");
  scene.removeGraph(1);
  EXPECT_EQ(graphs.graphs().size(), 3U);
  const QPoint name = graph(2).plotArea().topLeft() + QPoint(20, 4);
  QTest::mouseDClick(&graph(2), Qt::LeftButton, {}, name + QPoint(0, graph().fontMetrics().height() + 4));
  EXPECT_EQ(scene.graphs()[2].curves.size(), 2U) << "inside a bar, somebody reads out twice";
  QTest::mouseDClick(&graph(2), Qt::LeftButton, {}, name);
  EXPECT_EQ(scene.graphs()[2].curves.size(), 1U);
}

TEST_F(ReviewGraphsTest, MenuGivesScalesAndAnotherDatumToGraphsOver) {
  const auto menu = [&] {
    QContextMenuEvent ask(QContextMenuEvent::Mouse, {30, 6}, graph().mapToGlobal(QPoint(30, 6)));
    QApplication::sendEvent(&graph(), &ask);
    return std::unique_ptr<QMenu>(graph().findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
  };
  const auto choose = [&](const char* name, int position = 0) {
    menu()->findChildren<QAction*>(QLatin1String(name))[position]->trigger();
  };
  choose("ownScales");
  choose("axis", 1);
  EXPECT_TRUE(scene.graphs()[0].ownScales);
  EXPECT_EQ(scene.graphs()[0].axis, 1U);
  choose("over", 2);
  EXPECT_EQ(scene.graphs()[0].x, (CurvePlace{0, 0, 2}));
  choose("overTime");
  choose("removeCurve");
  EXPECT_EQ(graphsText(scene), "Wheel speed | Coolant | states Brake Gear ");
  choose("removeGraph");
  EXPECT_EQ(graphsText(scene), "Coolant | states Brake Gear ");
  choose("onlyGraph");
  EXPECT_EQ(graphsText(scene), "Coolant ");
  choose("resetGraphs");
  EXPECT_EQ(graphsText(scene), "Speed Wheel speed | Coolant | states Brake Gear ");
  EXPECT_FALSE(scene.canResetGraphs());
  choose("removeGraph");
  choose("removeGraph");
  choose("asCurves");
  EXPECT_EQ(graphsText(scene), "Brake Gear ");
  choose("asBars");
  EXPECT_EQ(graphsText(scene), "states Brake Gear ");
  const auto open = menu();
  EXPECT_TRUE(open->isVisible());
  scene.addGraph(graphOf(scene, {{0, 0, 0}}), 0);
  EXPECT_FALSE(open->isVisible()) << "its graph is another one now";
}

TEST_F(ReviewGraphsTest, OverviewMovesAndResizesWhatIsSeen) {
  OverviewStrip strip(scene);
  strip.resize(500, 50);
  scene.show({20, 40});
  drag(strip, {150, 20}, {200, 20});
  EXPECT_EQ(span(), "30 to 50") << "the window";
  drag(strip, {250, 20}, {350, 20});
  EXPECT_EQ(span(), "30 to 70") << "its right end";
  drag(strip, {150, 20}, {100, 20});
  EXPECT_EQ(span(), "20 to 70");
  QTest::mouseClick(&strip, Qt::LeftButton, {}, {450, 20});
  EXPECT_EQ(span(), "50 to 100") << "a click beside it brings it there";
  QTest::keyClick(&strip, Qt::Key_F);
  EXPECT_EQ(span(), "0 to 100");
  EXPECT_GT(countOf(QColor::fromRgb(scene.graphs()[0].curves[0].colour), pictureOf(strip)), 300);
}

TEST_F(ReviewGraphsTest, AGraphOverAnotherDatumIsReadOutAtItsNearestPoint) {
  scene.setGraphs({{"", GraphKind::XY, {{{0, 0, 2}, {}, 0x2E7BD6}}, CurvePlace{0, 0, 0}, false, 0}});
  pictureOf(graph());
  const QRect area = graph().plotArea();
  QTest::mouseClick(&graph(), Qt::LeftButton, {}, area.topLeft() + QPoint(5, 5));
  EXPECT_FALSE(scene.cursor(ReviewCursor::Readout)) << "nothing is near";
  QTest::mouseClick(&graph(), Qt::LeftButton, {}, area.center());
  ASSERT_TRUE(scene.cursor(ReviewCursor::Readout));
  EXPECT_NEAR(*scene.cursor(ReviewCursor::Readout), 50, 1.5);
}

/// All kinds of graphs, of two records, in colours of a dark desktop; nothing is left of them in the file.
TEST_F(ReviewGraphsTest, PictureFilesShowWhatIsSeen) {
  scene.addRecord(drive("other.txt", 0.5));
  scene.layOver(true);
  scene.addGraph({"Warm-up", GraphKind::XY, {{{0, 0, 2}, {}, 0}}, CurvePlace{0, 0, 0}, false, 0});
  scene.addGraph({"", GraphKind::Time, {{{0, 0, 0}, CurvePlace{1, 0, 0}, 0}}, {}, false, 0});
  scene.setOwnScales(0, true);
  const TempFolder folder;
  const auto path = [&](const char* name) { return QString::fromStdString(folder / name); };
  writePicture(scene, path("seen.svg"), {800, 200});
  QFile file(path("seen.svg"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const std::string svg = file.readAll().toStdString();
  for (const char* const part :
       {"drive.txt, (2) other.txt, ", ">Speed<", ">Wheel speed (2)<", ">Coolant (2)<", "Neutral", "polyline",
        "Event 1", "Warm-up", "Speed − Speed (2)", "1 min"})
    EXPECT_THAT(svg, ::testing::HasSubstr(part));
  EXPECT_LT(svg.size(), 200'000U);
  writePicture(scene, path("seen.PNG"), {800, 200});
  const QImage image(path("seen.PNG"));
  EXPECT_EQ(image.width(), 800);
  EXPECT_GT(image.height(), 500) << "five graphs that can be read";
  EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
  EXPECT_THAT(failureOf([&] {
                writePicture(scene, path("none/seen.svg"), {800, 600});
              }),
              ::testing::HasSubstr("none/seen.svg could not be written: "));
  EXPECT_THAT(failureOf([&] {
                writePicture(scene, path("seen.pdf"), {800, 600});
              }),
              ::testing::HasSubstr("must end with .svg or .png"));
}

}  // namespace
