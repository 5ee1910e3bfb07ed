#include <gtest/gtest.h>

#include <string>

#include "host/service/HexText.h"
#include "host/service/ResponseCheck.h"

namespace tarnlog::host {
namespace {

TEST(ResponseCheck, TellsWhatBelongsToARequest) {
  using enum ResponseClass;
  struct Case {
    const char* request;
    const char* response;
    ResponseClass kind;
  };
  const Case cases[] = {
      {"01 0C", "41 0C 13 5F", positive}, {"01 0C", "41 0D 13", foreign},     {"01 0C", "41", foreign},
      {"22 F1 90", "62 F1 91", foreign},  {"22 F1 90", "62 F1 90", positive}, {"1A 80", "5A 81", foreign},
      {"10 81", "50", positive},          {"21 80", "7F 21 78", pending},     {"21 80", "7F 21 31", negative},
      {"21 80", "7F 22 31", foreign},     {"21 80", "7F 21", foreign},        {"21 80", "", foreign}};
  for (const auto& [request, response, kind] : cases)
    EXPECT_EQ(classifyResponse(*bytesFromHex(request), *bytesFromHex(response)), kind)
        << request << " / " << response;
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
