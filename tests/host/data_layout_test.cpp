#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/service/HexText.h"
#include "host/service/ResponseCheck.h"
#include "host/vehicle/description/DataLayout.h"

namespace tarnlog::host {
namespace {

struct FieldCase {
  const char* what;
  BitField field;
  const char* response;
  std::int64_t raw;
};

constexpr ByteOrder kBig = ByteOrder::big;
constexpr ByteOrder kLittle = ByteOrder::little;

// byte, bytes, bit, bits, order, signed
const FieldCase kFields[] = {
    {"one byte", {2, 1, 0, 8, kBig, false}, "61 80 FE", 0xFE},
    {"one byte signed", {2, 1, 0, 8, kBig, true}, "61 80 FE", -2},
    {"most significant first", {2, 2, 0, 16, kBig, false}, "61 80 13 5F", 0x135F},
    {"least significant first", {2, 2, 0, 16, kLittle, false}, "61 80 13 5F", 0x5F13},
    {"three bytes signed", {1, 3, 0, 24, kBig, true}, "61 FF FF 85", -123},
    {"four bytes", {0, 4, 0, 32, kBig, false}, "FF FF FF FE", 0xFFFFFFFE},
    {"four bytes signed", {0, 4, 0, 32, kLittle, true}, "00 00 00 80", -2147483648LL},
    {"the top bit", {1, 1, 7, 1, kBig, false}, "61 80", 1},
    {"a bit of a 16-bit word", {1, 2, 8, 1, kBig, false}, "61 01 00", 1},
    {"a bit of a little-endian word", {1, 2, 8, 1, kLittle, false}, "61 00 01", 1},
    {"bits across bytes", {0, 2, 6, 4, kBig, true}, "02 40", -7},
    {"31 bits from bit 1", {0, 4, 1, 31, kBig, false}, "FF FF FF FF", 0x7FFFFFFF},
};

TEST(BitField, ReadsAndWritesWhatStandsInTheResponse) {
  for (const FieldCase& test : kFields) {
    SCOPED_TRACE(test.what);
    const auto response = *bytesFromHex(test.response);
    const std::uint32_t pattern = readBits(test.field, response.data());
    EXPECT_EQ(rawNumber(test.field, pattern), test.raw);
    EXPECT_GE(test.raw, test.field.lowest());
    EXPECT_LE(test.raw, test.field.highest());

    // Written into all ones and all zeros, it reads back and leaves the other bits.
    for (const std::uint8_t filling : {std::uint8_t{0}, std::uint8_t{0xFF}}) {
      std::vector<std::uint8_t> other(response.size(), filling);
      writeBits(test.field, pattern, other.data());
      EXPECT_EQ(readBits(test.field, other.data()), pattern);
      writeBits(test.field, filling == 0 ? 0 : 0xFFFFFFFF, other.data());
      EXPECT_EQ(other, std::vector<std::uint8_t>(response.size(), filling));
    }
  }
}

TEST(DataLayout, ScalesBothWays) {
  DataLayout layout;
  layout.kind = DataKind::real;
  layout.field = {2, 2, 0, 16, kBig, false};
  layout.divisor = 4;
  EXPECT_EQ(scaledNumber(layout, 0x135F), 1239.75);  // engine speed of ISO 15031-5
  EXPECT_EQ(patternOf(layout, 1239.8), 0x135FU);
  EXPECT_EQ(patternOf(layout, 1e300), 0xFFFFU);
  EXPECT_EQ(patternOf(layout, -1), 0U);
  EXPECT_EQ(patternOf(layout, std::numeric_limits<double>::quiet_NaN()), 0U);

  layout.field.isSigned = true;
  layout.offset = -40;
  layout.divisor = 1;
  layout.notAvailable = {{0x8000, 0x8000}};
  EXPECT_EQ(patternOf(layout, -41), 0xFFFFU);
  EXPECT_EQ(patternOf(layout, std::numeric_limits<double>::quiet_NaN()), 0x8000U);
  EXPECT_TRUE(meansNotAvailable(layout, 0x8000));

  layout.kind = DataKind::integer;
  layout.factor = 0.5;
  layout.offset = 0;
  EXPECT_EQ(scaledNumber(layout, 5), 2);  // 2.5: halves to even
  EXPECT_EQ(scaledNumber(layout, 7), 4);
}

TEST(DataLayout, TextsEndAtAZeroAndLoseTheirBlanks) {
  const auto decoded = [](CharacterSet characters, const char* hex) {
    std::string text = "old";
    decodeText(characters, *bytesFromHex(hex), text);
    return text;
  };
  EXPECT_EQ(decoded(CharacterSet::ascii, "20 41 42 20 20"), "AB");
  EXPECT_EQ(decoded(CharacterSet::ascii, "41 00 42"), "A");
  EXPECT_EQ(decoded(CharacterSet::ascii, "41 E9 09"), "A??");
  EXPECT_EQ(decoded(CharacterSet::latin1, "E9 85"), "é?");
  EXPECT_EQ(decoded(CharacterSet::ascii, "20 20"), "");
  EXPECT_EQ(hexText(encodeText(CharacterSet::latin1, "Aé€")), "41 E9 3F");
  EXPECT_EQ(hexText(encodeText(CharacterSet::ascii, "é")), "3F");
}

TEST(ResponseCheck, TellsWhatBelongsToARequest) {
  const auto classify = [](const char* request, const char* response) {
    return classifyResponse(*bytesFromHex(request), *bytesFromHex(response));
  };
  EXPECT_EQ(classify("01 0C", "41 0C 13 5F"), ResponseClass::positive);
  EXPECT_EQ(classify("01 0C", "41 0D 13"), ResponseClass::foreign);
  EXPECT_EQ(classify("01 0C", "41"), ResponseClass::foreign);
  EXPECT_EQ(classify("22 F1 90", "62 F1 91"), ResponseClass::foreign);
  EXPECT_EQ(classify("22 F1 90", "62 F1 90"), ResponseClass::positive);
  EXPECT_EQ(classify("1A 80", "5A 81"), ResponseClass::foreign);
  EXPECT_EQ(classify("10 81", "50"), ResponseClass::positive);
  EXPECT_EQ(classify("21 80", "7F 21 78"), ResponseClass::pending);
  EXPECT_EQ(classify("21 80", "7F 21 31"), ResponseClass::negative);
  EXPECT_EQ(classify("21 80", "7F 22 31"), ResponseClass::foreign);
  EXPECT_EQ(classify("21 80", "7F 21"), ResponseClass::foreign);
  EXPECT_EQ(classify("21 80", ""), ResponseClass::foreign);
  EXPECT_EQ(negativeResponseText(0x31), "request out of range");
  EXPECT_EQ(negativeResponseText(0xFF), "reason not known");
}

TEST(HexText, TakesBytesOnly) {
  EXPECT_EQ(hexText(*bytesFromHex(" 2180  fF ")), "21 80 FF");
  for (const char* const bad : {"2", "21 8", "2 1", "21,80", "0x21", "G0"})
    EXPECT_FALSE(bytesFromHex(bad)) << bad;
}

}  // namespace
}  // namespace tarnlog::host
