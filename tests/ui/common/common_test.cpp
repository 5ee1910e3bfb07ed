#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "platform/text/DateText.h"
#include "ui/common/DesktopLocale.h"
#include "ui/common/QtTimer.h"

namespace tarnlog {
namespace {

/// Lets events run until another timer with the same interval has ticked three times.
void letATickBecomeDue() {
  int passed = 0;
  QTimer other;
  other.callOnTimeout([&] { ++passed; });
  other.start(1);
  ASSERT_TRUE(QTest::qWaitFor([&] { return passed >= 3; }));
}

TEST(QtTimer, NeverTicksInsideATickThatLetsEventsRunAndGoesOnAfterOneThatRaises) {
  QtTimer timer;
  int ticks = 0;
  bool ticking = false;
  timer.setInterval(1);
  timer.setTickHandler([&] {
    EXPECT_FALSE(std::exchange(ticking, true));
    // As the recorder does: off and on again, with clicks let in meanwhile.
    timer.setEnabled(false);
    timer.setEnabled(true);
    letATickBecomeDue();
    ticking = false;
    if (++ticks == 2) throw std::runtime_error("lost");
    if (ticks == 3) timer.setEnabled(false);
  });
  timer.setEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 3; }));
  letATickBecomeDue();
  EXPECT_EQ(ticks, 3);
}

std::string shown(const char* name) {
  const UserLocale locale = desktopLocale(QLocale(name));
  const LocalDateTime moment{2026, 1, 6, 19, 5, 7};
  return std::string(1, locale.decimalSeparator) + " " + shortDateText(moment, locale) + " " +
         timeOfDayText(moment, locale);
}

TEST(DesktopLocale, WritesNumbersAndDatesAsTheDesktopDoes) {
  EXPECT_EQ(shown("de_DE"), ", 06.01.26 19:05:07");
  EXPECT_EQ(shown("fr_FR"), ", 06/01/2026 19:05:07");
  EXPECT_EQ(shown("en_US"), ". 1/6/26 19:05:07");
  EXPECT_EQ(shown("sv_SE"), ", 2026-01-06 19:05:07");
  EXPECT_EQ(shown("bg_BG"), ", 6.01.26 \u0433. 19:05:07 \u0447.");
  EXPECT_EQ(shown("eu_ES"), ", 26/1/6 19:05:07");
  EXPECT_EQ(shown("C"), ". 1/6/2026 19:05:07");
}

}  // namespace
}  // namespace tarnlog
