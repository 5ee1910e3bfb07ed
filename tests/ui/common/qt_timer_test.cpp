#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <stdexcept>

#include "ui/common/QtTimer.h"

namespace tarnlog {
namespace {

TEST(QtTimer, NeverTicksInsideATickThatLetsEventsRun) {
  QtTimer timer;
  int ticks = 0;
  int depth = 0;
  int deepest = 0;
  timer.setInterval(1);
  timer.setTickHandler([&] {
    deepest = std::max(deepest, ++depth);
    // As the recorder does: off and on again, with clicks let in meanwhile.
    timer.setEnabled(false);
    timer.setEnabled(true);
    QTest::qWait(3);
    --depth;
    if (++ticks == 3) timer.setEnabled(false);
  });
  timer.setEnabled(true);
  ASSERT_TRUE(QTest::qWaitFor([&] { return ticks == 3; }));
  QTest::qWait(5);
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(ticks, 3);
}

TEST(QtTimer, GoesOnAfterATickThatRaises) {
  QtTimer timer;
  int ticks = 0;
  timer.setTickHandler([&] {
    if (++ticks == 1) throw std::runtime_error("lost");
    timer.setEnabled(false);
  });
  timer.setEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 2; }));
  EXPECT_FALSE(timer.enabled());
}

}  // namespace
}  // namespace tarnlog
