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

TEST(LinkUrl, UnderstandsWhatPeopleType) {
  EXPECT_EQ(LinkUrl("192.168.0.10:35000").text(), "elm327://192.168.0.10:35000");
  EXPECT_EQ(LinkUrl(" 192.168.0.10\n").host(), "192.168.0.10");
  EXPECT_EQ(LinkUrl("adapter:35000?protocol=6").port(), 35000);
  EXPECT_EQ(LinkUrl("/dev/pts/1?baud=9600").path(), "/dev/pts/1");
  EXPECT_EQ(LinkUrl("ELM327:///dev/ttyUSB0").scheme(), "elm327");
  EXPECT_EQ(LinkUrl("Replay:Drive.trace").path(), "Drive.trace");
  EXPECT_EQ(LinkUrl("replay:2026").scheme(), "replay");
}

std::string refusal(std::string_view url) {
  return test::failureOf([&] {
    const LinkUrl parsed(url);
    parsed.allowOptions({"baud", "protocol"});
    parsed.numberOption("baud", 9600, 2000000);
  });
}

TEST(LinkUrl, RefusesWithThePlaceAndWhatIsExpectedThere) {
  EXPECT_EQ(refusal("/tmp/x"),
            "link /tmp/x: beginning: expected a kind of link and a colon, like elm327: or replay:, found "
            "\"/tmp/x\"");
  for (const char* const port : {"COM3", "com12:", "elm327://COM3", "elm327:COM3?baud=9600"})
    EXPECT_THAT(refusal(port), testing::HasSubstr("as this is no Windows"));
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
