#include <gtest/gtest.h>

#include <QApplication>
#include <QPaintEvent>
#include <QScreen>
#include <QTimerEvent>
#include <QWidget>
#include <cmath>
#include <memory>

#include "platform/controls/CWSlide.h"
#include "platform/controls/PaintBeat.h"
#include "platform/controls/PaintPacer.h"

namespace tarnlog {
namespace {

/// Notes what is painted.
class Paper : public QWidget {
 public:
  explicit Paper(QWidget* parent) : QWidget(parent) { resize(100, 20); }
  int times = 0;
  QRegion painted;

 protected:
  void paintEvent(QPaintEvent* event) override {
    ++times;
    painted = event->region();
  }
};

/// A window whose screen shows a picture when told to.
class PaintPacing : public ::testing::Test {
 protected:
  PaintPacing() {
    window.resize(200, 100);
    window.show();
    QApplication::processEvents();
    for (int i = 0; i < 100; ++i) nextPicture();  // until the beat rests
    paper.times = 0;
  }
  void flush() {
    QEvent now(QEvent::UpdateRequest);
    QApplication::sendEvent(&window, &now);
  }
  void nextPicture() {
    QTimerEvent tick(0);
    QApplication::sendEvent(PaintBeat::of(window.screen()), &tick);
    flush();
  }

  QWidget window;
  Paper paper{&window};
};

TEST_F(PaintPacing, PaintsOnceAPictureAllThatCameInBetween) {
  PaintPacer pacer(&paper);
  const auto request = [&](const QRect& area) {
    pacer.request(area);
    flush();
  };
  request({0, 0, 10, 10});
  EXPECT_EQ(paper.times, 1) << "at once after a rest";
  request({20, 0, 10, 10});
  request({40, 0, 10, 10});
  EXPECT_EQ(paper.times, 1) << "polls are faster than pictures";
  nextPicture();
  EXPECT_EQ(paper.times, 2);
  EXPECT_EQ(paper.painted.boundingRect(), QRect(20, 0, 30, 10)) << "and none is lost";
  nextPicture();
  EXPECT_EQ(paper.times, 2);
}

TEST_F(PaintPacing, PaintsTextsTenTimesASecond) {
  PaintPacer pacer(&paper, PaintPacer::Pace::Texts);
  const int pictures = static_cast<int>(std::lround(window.screen()->refreshRate())) * 2;
  for (int i = 0; i < pictures; ++i) {
    pacer.request(paper.rect());
    nextPicture();
  }
  EXPECT_NEAR(paper.times, 20, 2);
}

TEST_F(PaintPacing, OutlivesAWidgetThatWaits) {
  auto pacer = std::make_unique<PaintPacer>(&paper);
  for (int i = 0; i < 2; ++i) pacer->request(paper.rect());
  nextPicture();
  pacer->request(paper.rect());
  pacer.reset();
  nextPicture();
  EXPECT_EQ(paper.times, 1);
}

TEST_F(PaintPacing, AMarkerBeyondTheAxisIsPaintedOnce) {
  CWSlide slide(&window);
  slide.setGeometry(0, 30, 200, 40);
  slide.show();
  flush();
  const auto beyond = [&] {
    slide.setPointerValue(2, 0);
    slide.setPointerColour(2, Qt::red);
  };
  beyond();
  nextPicture();
  Paper above(&slide);
  above.setGeometry(slide.rect());
  above.show();
  flush();
  above.times = 0;
  for (int i = 0; i < 5; ++i) beyond();
  nextPicture();
  EXPECT_EQ(above.times, 0);
}

}  // namespace
}  // namespace tarnlog
