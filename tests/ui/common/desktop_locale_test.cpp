#include <gtest/gtest.h>

#include "platform/text/DateText.h"
#include "ui/common/DesktopLocale.h"

namespace tarnlog {
namespace {

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
