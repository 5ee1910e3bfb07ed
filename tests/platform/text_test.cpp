#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <random>
#include <string>

#include "platform/text/DateText.h"
#include "platform/text/Numbers.h"
#include "platform/text/TextEncoding.h"
#include "platform/text/UserLocale.h"
#include "tests/support/TempFolder.h"

/// The C library keeps the path of LOCPATH for ever, once for each category of a locale.
extern "C" const char* __lsan_default_suppressions() { return "leak:__argz_add_sep"; }

namespace tarnlog {
namespace {

constexpr LocalDateTime kEvening{2026, 11, 6, 9, 5, 7};

TEST(DateText, RendersThePatternsOfFileNamesAndHeaders) {
  UserLocale german;
  german.dateSeparator = '.';
  german.timeSeparator = '-';
  EXPECT_EQ(formatDateTime(kEvening, "d-m-yy_Hh d-m-yy__Hh d/m/yy Hh:Nn:ss DD MM YYYY h", german),
            "6-11-26_09 6-11-26__09 6.11.26 09-05-07 06 11 2026 9");
  EXPECT_EQ(formatDateTime(kEvening, "dddd, d. mmm | ddd mmmm 'd''''m' d''y", UserLocale()),
            "Friday, 6. Nov | Fri November d'm 6'26");
  EXPECT_EQ(shortDateText(kEvening, UserLocale()), "11/6/2026");
  EXPECT_EQ(timeOfDayText(kEvening, UserLocale()), "9:05:07");
}

std::string windows1252(std::string_view utf8) {
  std::string bytes;
  appendWindows1252(bytes, utf8);
  return bytes;
}

TEST(TextEncoding, ConvertsWhatHasACodeAndEveryCodeComesBack) {
  EXPECT_EQ(windows1252("\u03A9 \U0001F600 \uFFFD \u0081"), "? ? ? ?");
  EXPECT_EQ(windows1252("eau \u20AC \u2019 a\xFFz\xC3"), "eau \x80 \x92 a?z?");
  for (int code = 0; code < 256; ++code) {
    const std::string byte(1, static_cast<char>(code));
    const std::string utf8 = utf8FromWindows1252(byte);
    EXPECT_TRUE(isUtf8(utf8));
    const bool none = code == 0x81 || code == 0x8D || code == 0x8F || code == 0x90 || code == 0x9D;
    EXPECT_EQ(windows1252(utf8), none ? "?" : byte) << code;
  }
  for (const char* broken : {"\xE9t\xE9", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                             "long enough to be scanned by eights \xC3"})
    EXPECT_FALSE(isUtf8(broken)) << broken;
  EXPECT_TRUE(isUtf8("plain, \u00E9, \u20AC, \U0001F600"));
  EXPECT_TRUE(isAscii("twelve bytes"));
  EXPECT_FALSE(isAscii("twelve byt\xE9s"));
}

/// The evening in a locale of the system, made from its sources; nothing where those are not installed.
std::string eveningIn(const std::string& name, const std::string& charset) {
  const test::TempFolder folder;
  const std::string command = "localedef -i " + name + " -f " + charset + " " + (folder / name);
  if (std::system((command + " > /dev/null 2>&1").c_str()) != 0) return {};
  setenv("LOCPATH", folder.path().c_str(), 1);
  setenv("LC_ALL", name.c_str(), 1);
  const UserLocale locale = systemLocale();
  unsetenv("LC_ALL");
  unsetenv("LOCPATH");
  return shortDateText(kEvening, locale) + " | " + timeOfDayText(kEvening, locale);
}

TEST(UserLocale, DatesFollowTheSystemsShortFormatWithItsNamesAndWords) {
  const std::array<const char*, 3> expected[] = {
      {"nb_NO", "UTF-8", "06. nov. 2026 | kl. 09.05"},
      {"eu_ES", "UTF-8", "or., 2026.eko azaren 06a | 09:05:07"},
      {"cs_CZ", "UTF-8", "6.11.2026 | 09:05:07"},
      {"en_DK", "UTF-8", "2026-11-06 | 09:05:07"},
      {"is_IS", "ISO-8859-1", "f\u00F6s 6.n\u00F3v 2026 | 09:05:07"}};
  for (const auto& [name, charset, evening] : expected) {
    const std::string text = eveningIn(name, charset);
    if (text.empty()) GTEST_SKIP() << "no sources of locales here";
    EXPECT_EQ(text, evening) << name;
  }
}

TEST(UserLocale, EnvironmentWithoutALocaleGivesTheDefaults) {
  setenv("LC_ALL", "xx_XX.nowhere", 1);
  const UserLocale locale = systemLocale();
  unsetenv("LC_ALL");
  EXPECT_EQ(locale.decimalSeparator + locale.shortDatePattern + locale.timePattern, ".m/d/yyyyh:Nn:ss");
}

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();

/// These numbers as `append` writes them.
template <class Number, class Append>
std::string texts(std::initializer_list<Number> numbers, Append append) {
  std::string all;
  for (const Number number : numbers) {
    if (!all.empty()) all += ' ';
    append(all, number);
  }
  return all;
}

std::string fileTexts(std::initializer_list<double> numbers, char separator = '.') {
  return texts(numbers,
               [separator](std::string& text, double value) { appendNumber(text, value, separator); });
}

TEST(Numbers, FileTextHasFifteenDigitsAndAnExponentOutside) {
  EXPECT_EQ(fileTexts({0.1 * 3, -0.0, 1.0 / 3, 2.0 / 3 * 100, 1e6, 0.00001, 123456789012345.6}),
            "0.3 0 0.333333333333333 66.6666666666667 1000000 0.00001 123456789012346");
  EXPECT_EQ(fileTexts({1e15, 999999999999999.9, -1.5e300, std::nan(""), -HUGE_VAL}),
            "1E+15 1E+15 -1.5E+300 nan -inf");
  EXPECT_EQ(fileTexts({-12.5, 0.0000015}, ','), "-12,5 1,5E-06");
  const auto fixed = [](std::string& text, double value) { appendFixed(text, value, 1, ','); };
  EXPECT_EQ(texts({1239.75, 5.0, -0.04, 0.25}, fixed), "1239,8 5,0 0,0 0,2");
  const auto exact = [](std::string& text, double value) { text += exactNumberText(value); };
  EXPECT_EQ(texts({0.1, 0.1 * 3, 1e6, -2e20}, exact),
            "0.1 0.30000000000000004 1000000 -200000000000000000000");
}

TEST(Numbers, FileTextIsTheSameNumberToFifteenDigits) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isnormal(value)) continue;
    char expected[40];
    std::snprintf(expected, sizeof expected, "%.14e", value);
    ASSERT_EQ(leadingNumber(fileTexts({value})), leadingNumber(expected)) << expected;
    ASSERT_EQ(leadingNumber(exactNumberText(value)), value) << expected;
  }
}

TEST(Numbers, AreReadUpToWhatIsNone) {
  EXPECT_EQ(leadingNumber("  -1.5e2 km"), -150);
  EXPECT_EQ(leadingNumber("+.5"), 0.5);
  EXPECT_EQ(leadingNumber("3,7"), 3);
  EXPECT_EQ(leadingNumber("2e"), 2);
  for (const char* none : {"", " ", "-", ".", "inf", "nan", "x1", "--1", "e5", "1e-999"})
    EXPECT_EQ(leadingNumber(none), 0) << none;
  EXPECT_EQ(leadingNumber("-1e999"), std::numeric_limits<double>::lowest());
  // Integers round halves to even and stay in 32 bits.
  EXPECT_EQ(leadingInteger("2.5"), 2);
  EXPECT_EQ(leadingInteger("3.5 V"), 4);
  EXPECT_EQ(leadingInteger("-9999999999"), kLowest);
  EXPECT_EQ(roundHalfEven(std::nan("")), 0);
  EXPECT_EQ(wholeInteger(" -1.5 "), -2);
  EXPECT_EQ(wholeInteger("1e3"), 1000);
  EXPECT_EQ(wholeInteger("2147483647.4"), 2147483647);
  for (const char* none : {"", "12 V", "2147483648", "1,5", "1e999", "abc"})
    EXPECT_EQ(wholeInteger(none), std::nullopt) << none;
}

TEST(Numbers, SecondsAreRoundedWithHalvesToEven) {
  const auto two = [](std::string& text, std::int32_t ms) { appendSeconds2(text, ms, '.'); };
  EXPECT_EQ(texts({5, -5, 15, 25, -20, -996, 12300, kLowest}, two),
            "0 0 0.02 0.02 -0.02 -1 12.3 -2147483.65");
  const auto one = [](std::string& text, std::int32_t ms) { appendSeconds1(text, ms, ','); };
  EXPECT_EQ(texts({50, 150, 61049}, one), "0 0,2 61");
}

}  // namespace
}  // namespace tarnlog
