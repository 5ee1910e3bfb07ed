#include "platform/text/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

namespace tarnlog {
namespace {

std::string fileText(double value, char separator = '.') {
  std::string text;
  appendNumber(text, value, separator);
  return text;
}

TEST(Numbers, HaveTheDecimalsAskedFor) {
  const auto text = [](double value, int decimals) {
    std::string out;
    appendFixed(out, value, decimals, ',');
    return out;
  };
  EXPECT_EQ(text(1239.75, 1) + ' ' + text(5, 2) + ' ' + text(-0.04, 1) + ' ' + text(0.25, 1),
            "1239,8 5,00 0,0 0,2");
}

TEST(Numbers, FileTextHasFifteenDigitsAndNoExponentInTheMiddle) {
  EXPECT_EQ(fileText(0.1 * 3), "0.3");
  EXPECT_EQ(fileText(-12.5, ','), "-12,5");
  EXPECT_EQ(fileText(-0.0), "0");
  EXPECT_EQ(fileText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(fileText(2.0 / 3 * 100), "66.6666666666667");
  EXPECT_EQ(fileText(1e6), "1000000");
  EXPECT_EQ(fileText(0.00001), "0.00001");
  EXPECT_EQ(fileText(123456789012345.6), "123456789012346");
}

TEST(Numbers, FileTextHasAnExponentOutside) {
  EXPECT_EQ(fileText(1e15), "1E+15");
  EXPECT_EQ(fileText(999999999999999.9), "1E+15");
  EXPECT_EQ(fileText(0.0000015, ','), "1,5E-06");
  EXPECT_EQ(fileText(-1.5e300), "-1.5E+300");
  EXPECT_EQ(fileText(std::numeric_limits<double>::quiet_NaN()), "nan");
  EXPECT_EQ(fileText(-HUGE_VAL), "-inf");
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
    ASSERT_EQ(leadingNumber(fileText(value)), leadingNumber(expected)) << expected;
    ASSERT_EQ(leadingNumber(exactNumberText(value)), value) << expected;
  }
}

TEST(Numbers, LeadingNumberStopsAtWhatIsNone) {
  EXPECT_EQ(leadingNumber("  -1.5e2 km"), -150);
  EXPECT_EQ(leadingNumber("+.5"), 0.5);
  EXPECT_EQ(leadingNumber("3,7"), 3);
  EXPECT_EQ(leadingNumber("2e"), 2);
  for (const char* none : {"", " ", "-", ".", "inf", "nan", "x1", "--1", "e5"})
    EXPECT_EQ(leadingNumber(none), 0) << none;
  EXPECT_EQ(leadingNumber("-1e999"), std::numeric_limits<double>::lowest());
  EXPECT_EQ(leadingNumber("1e-999"), 0);
}

TEST(Numbers, IntegersRoundHalvesToEvenAndStayIn32Bits) {
  EXPECT_EQ(leadingInteger("2.5"), 2);
  EXPECT_EQ(leadingInteger("3.5 V"), 4);
  EXPECT_EQ(leadingInteger("-9999999999"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(roundHalfEven(std::nan("")), 0);
  EXPECT_EQ(wholeInteger(" -1.5 "), -2);
  EXPECT_EQ(wholeInteger("1e3"), 1000);
  EXPECT_EQ(wholeInteger("2147483647.4"), 2147483647);
  for (const char* none : {"", "12 V", "2147483648", "1,5", "1e999", "abc"})
    EXPECT_EQ(wholeInteger(none), std::nullopt) << none;
}

TEST(Numbers, SecondsAreRoundedWithHalvesToEven) {
  const auto two = [](std::int32_t ms) {
    std::string text;
    appendSeconds2(text, ms, '.');
    return text;
  };
  const auto one = [](std::int32_t ms) {
    std::string text;
    appendSeconds1(text, ms, ',');
    return text;
  };
  EXPECT_EQ(two(5), "0");
  EXPECT_EQ(two(-5), "0");
  EXPECT_EQ(two(15), "0.02");
  EXPECT_EQ(two(25), "0.02");
  EXPECT_EQ(two(-20), "-0.02");
  EXPECT_EQ(two(-996), "-1");
  EXPECT_EQ(two(12300), "12.3");
  EXPECT_EQ(two(std::numeric_limits<std::int32_t>::min()), "-2147483.65");
  EXPECT_EQ(one(50), "0");
  EXPECT_EQ(one(150), "0,2");
  EXPECT_EQ(one(61049), "61");
}

TEST(Numbers, ExactTextIsShortAndHasAPoint) {
  EXPECT_EQ(exactNumberText(0.1), "0.1");
  EXPECT_EQ(exactNumberText(0.1 * 3), "0.30000000000000004");
  EXPECT_EQ(exactNumberText(1e6), "1000000");
  EXPECT_EQ(exactNumberText(-2e20), "-200000000000000000000");
}

}  // namespace
}  // namespace tarnlog
