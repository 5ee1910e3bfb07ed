#include <gmock/gmock.h>

#include "host/link/LinkUrl.h"
#include "tests/support/FailureOf.h"

namespace tarnlog::host {
namespace {

TEST(LinkUrl, TellsItsParts) {
  const LinkUrl serial("elm327:///dev/ttyUSB0?baud=38400&protocol=6");
  EXPECT_EQ(serial.scheme(), "elm327");
  EXPECT_EQ(serial.host(), "");
  EXPECT_EQ(serial.path(), "/dev/ttyUSB0");
  EXPECT_EQ(serial.numberOption("baud", 1, 1000000), 38400);
  EXPECT_EQ(*serial.option("protocol"), "6");
  EXPECT_EQ(serial.option("tester"), nullptr);

  const LinkUrl gateway("doip://[fe80::1]:13400?ecu=0x1001");
  EXPECT_EQ(gateway.host(), "fe80::1");
  EXPECT_EQ(gateway.port(), 13400);
  EXPECT_EQ(gateway.numberOption("ecu", 0, 0xFFFF), 0x1001);

  EXPECT_EQ(LinkUrl("doip://gateway").port(), std::nullopt);
  EXPECT_EQ(LinkUrl("replay:traces/cold start.txt").path(), "traces/cold start.txt");
}

std::string refusal(std::string_view url) {
  return test::failureOf([&] {
    const LinkUrl parsed(url);
    parsed.allowOptions({"baud", "protocol"});
    parsed.numberOption("baud", 9600, 2000000);
  });
}

TEST(LinkUrl, RefusesWithThePlaceAndWhatIsExpectedThere) {
  EXPECT_EQ(
      refusal("/dev/ttyUSB0"),
      "link /dev/ttyUSB0: beginning: expected a kind of link and a colon, like elm327: or replay:, found "
      "\"/dev/ttyUSB0\"");
  EXPECT_EQ(refusal("elm327://box:many"),
            "link elm327://box:many: port: expected a number from 1 to 65535, found \"many\"");
  EXPECT_EQ(refusal("elm327:///dev/x?speed=1"),
            "link elm327:///dev/x?speed=1: options: expected baud, protocol, found \"speed\"");
  EXPECT_EQ(refusal("elm327:///dev/x?baud="),
            "link elm327:///dev/x?baud=: baud: expected a number from 9600 to 2000000, found nothing");
  EXPECT_EQ(refusal("elm327:///dev/x?baud=38400&baud=9600"),
            "link elm327:///dev/x?baud=38400&baud=9600: baud: expected this option once, found \"9600\"");
}

}  // namespace
}  // namespace tarnlog::host
