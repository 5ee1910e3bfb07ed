#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/text/DateText.h"
#include "platform/text/TextEncoding.h"
#include "platform/text/UserLocale.h"

namespace tarnlog {
namespace {

constexpr LocalDateTime kEvening{2026, 11, 6, 9, 5, 7};

TEST(DateText, RendersThePatternsOfFileNamesAndHeaders) {
  UserLocale german;
  german.dateSeparator = '.';
  german.timeSeparator = '-';
  EXPECT_EQ(formatDateTime(kEvening, "d-m-yy_Hh", german), "6-11-26_09");
  EXPECT_EQ(formatDateTime(kEvening, "d-m-yy__Hh", german), "6-11-26__09");
  EXPECT_EQ(formatDateTime(kEvening, "d/m/yy", german), "6.11.26");
  EXPECT_EQ(formatDateTime(kEvening, "Hh:Nn:ss", german), "09-05-07");
  EXPECT_EQ(formatDateTime(kEvening, "DD MM YYYY h", german), "06 11 2026 9");
  EXPECT_EQ(shortDateText(kEvening, UserLocale()), "11/6/2026");
  EXPECT_EQ(timeOfDayText(kEvening, UserLocale()), "9:05:07");
}

std::string windows1252(std::string_view utf8) {
  std::string bytes;
  appendWindows1252(bytes, utf8);
  return bytes;
}

TEST(TextEncoding, ConvertsWhatHasACode) {
  EXPECT_EQ(windows1252("Temp\u00E9rature de l\u2019eau \u20AC \u00B0C"),
            "Temp\xE9rature de l\x92"
            "eau \x80 \xB0"
            "C");
  EXPECT_EQ(windows1252("\u03A9 \U0001F600 \uFFFD \u0081"), "? ? ? ?");
  EXPECT_EQ(windows1252("a\xFFz\xC3"), "a?z?");
}

TEST(TextEncoding, EveryCodeComesBack) {
  for (int code = 0; code < 256; ++code) {
    const std::string byte(1, static_cast<char>(code));
    const std::string utf8 = utf8FromWindows1252(byte);
    EXPECT_TRUE(isUtf8(utf8));
    const bool none = code == 0x81 || code == 0x8D || code == 0x8F || code == 0x90 || code == 0x9D;
    EXPECT_EQ(windows1252(utf8), none ? "?" : byte) << code;
  }
}

TEST(TextEncoding, TellsUtf8) {
  EXPECT_TRUE(isUtf8("plain, \u00E9, \u20AC, \U0001F600"));
  for (const char* broken : {"\xE9t\xE9", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                             "long enough to be scanned by eights \xC3"})
    EXPECT_FALSE(isUtf8(broken)) << broken;
  EXPECT_TRUE(isAscii("twelve bytes"));
  EXPECT_FALSE(isAscii("twelve byt\xE9s"));
}

TEST(UserLocale, EnvironmentWithoutALocaleGivesTheDefaults) {
  setenv("LC_ALL", "xx_XX.nowhere", 1);
  const UserLocale locale = systemLocale();
  unsetenv("LC_ALL");
  EXPECT_EQ(locale.decimalSeparator, '.');
  EXPECT_EQ(locale.shortDatePattern, "m/d/yyyy");
  EXPECT_EQ(locale.timePattern, "h:Nn:ss");
}

}  // namespace
}  // namespace tarnlog
