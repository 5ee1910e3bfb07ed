#include <gmock/gmock.h>

#include <string>

#include "publish/BrokerAccess.h"
#include "publish/BrokerAddress.h"
#include "publish/PublishSelection.h"
#include "publish/PublishTopics.h"
#include "publish/PublishedNote.h"
#include "tests/support/FailureOf.h"

namespace tarnlog {
namespace {

using test::failureOf;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(BrokerAddress, SaysWhatIsExpectedAndRepeatsNoPassword) {
  EXPECT_EQ(parseBrokerAddress("mqtt://box/fleet").text(), "mqtt://box:1883/fleet");
  EXPECT_EQ(parseBrokerAddress("mqtts://10.0.0.1/a/b/").text(), "mqtts://10.0.0.1:8883/a/b");
  EXPECT_EQ(parseBrokerAddress("mqtt://[::1]:1884/x").text(), "mqtt://[::1]:1884/x");
  EXPECT_EQ(parseBrokerAddress("mqtt://[::1]:1884/x").host, "::1");
  for (const char* const bad :
       {"", "http://h/t", "mqtt://", "mqtt://h", "mqtt://h/", "mqtt:///t", "mqtt://h:0/t", "mqtt://h:70000/t",
        "mqtt://h:1x/t", "mqtt://h/a+b", "mqtt://h/a/#", "mqtt://h/$SYS", "mqtt://h/a//b", "mqtt://h/a\x01",
        "mqtt://[::1/t"})
    EXPECT_THAT(failureOf([&] { parseBrokerAddress(bad); }), HasSubstr("expected")) << bad;
  for (const char* const secret :
       {"mqtt://me:hunter2@h/t", "mqtts://hunter2@h/t", "http://me:hunter2@h/t", "mqtt://h/t@hunter2"}) {
    EXPECT_THAT(failureOf([&] { parseBrokerAddress(secret); }), Not(HasSubstr("hunter2")));
    EXPECT_THAT(failureOf([&] { parseBrokerAddress(secret); }), HasSubstr("expected"));
  }
}

TEST(BrokerAccess, IsAFileWhoseContentStaysInIt) {
  const BrokerAccess access =
      readBrokerAccess("/etc/car/broker.json",
                       R"({"user":"u","password":"p","ca":"ca.crt","certificate":"/c.crt","key":"k"})");
  EXPECT_EQ(
      access.user + access.password + " " + access.authority + " " + access.certificate + " " + access.key,
      "up /etc/car/ca.crt /c.crt /etc/car/k");
  for (const char* const bad :
       {"", "hunter2", R"({"user":"u","password":"hunter2)", R"({"password":"hunter2"})", R"({"hunter2":1})",
        R"({"user":"u","password":["hunter2"]})", R"(["hunter2"])", R"({"certificate":"hunter2"})"}) {
    const std::string failure = failureOf([&] { readBrokerAccess("a.json", bad); });
    EXPECT_THAT(failure, HasSubstr("a.json: "));
    EXPECT_THAT(failure, Not(HasSubstr("hunter2")));
  }
}

TEST(PublishTopics, KeepNamesApartWhateverTheyAre) {
  EXPECT_EQ(PublishTopics("fleet/a", "VIN 1").description("Motor/ECU+", "PID #5"),
            "fleet/a/VIN 1/Motor%2FECU%2B/PID %235/description");
  EXPECT_EQ(topicLevel("100 %"), "100 %25");
  EXPECT_EQ(topicLevel(""), "%");
  EXPECT_EQ(topicLevel("a\tb\x7F\xC2\x85 °C"), "a%09b%7F%C2%85 °C");
  EXPECT_EQ(topicLevel("no UTF-8 \xE4"), "no UTF-8 %E4");
  EXPECT_EQ(topicLevel(std::string_view("\0", 1)), "%00");
}

TEST(PublishSelection, NamesDataAndHowOften) {
  EXPECT_EQ(textOf(parsePublishedDatum("Engine/PID 0C/Engine speed=500")), "Engine/PID 0C/Engine speed=500");
  EXPECT_EQ(parsePublishedDatum("Speed").every, std::nullopt);
  EXPECT_EQ(parsePublishedDatum("a=b").name, "a=b");
  for (const char* const bad : {"", "=5", "a=86400001", "a=99999999999999999999"})
    EXPECT_NE(failureOf([&] { parsePublishedDatum(bad); }), "none") << bad;

  PublishPace pace(std::chrono::milliseconds(100));
  std::string due;
  for (const double time : {0.0, 0.05, 0.12, 0.19, 0.2, 0.55, 0.56}) due += pace.isDue(time) ? "+" : "-";
  EXPECT_EQ(due, "+-+-++-");
}

TEST(PublishedNote, TellsHowFarAndIsEmptyWhenItCannotBeRead) {
  EXPECT_EQ(PublishedNote::pathOf("/a.b/drive_all.mf4"), "/a.b/drive_all.published");
  EXPECT_EQ(PublishedNote::pathOf("/a.b/drive"), "/a.b/drive.published");
  PublishedNote note;
  note.acquisition = "12";
  note.at("mqtt://h:1883/t") = {"mqtt://h:1883/t", "Car", {"A=5"}, 100, 77, false};
  note.at("mqtt://i:1883/t").complete = true;
  PublishedNote again = PublishedNote::parse(note.text());
  EXPECT_EQ(again.text(), note.text());
  EXPECT_EQ(again.at("mqtt://h:1883/t").acknowledged, 77U);
  for (const char* const bad :
       {"", "{}", "[1]", R"({"acquisition":1,"published":[]})", R"({"acquisition":"","published":[{}]})"})
    EXPECT_TRUE(PublishedNote::parse(bad).places.empty()) << bad;
}

}  // namespace
}  // namespace tarnlog
