#include "samples/JsonLinesSink.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "samples/JsonText.h"
#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using test::AcqRig;
using testing::ElementsAre;

/// Takes lines as long as it may.
struct TextTarget : LineTarget {
  std::string text;
  bool takes = true;

  bool take(std::string_view lines) override {
    if (takes) text += lines;
    return takes;
  }
  /// Without the seconds of the time at the beginning, which are equal in all of them.
  std::vector<std::string> lines() const {
    std::vector<std::string> found;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
      for (std::size_t at = 0; (at = line.find("17948523", at)) != std::string::npos;) line.erase(at, 8);
      found.push_back(line);
    }
    return found;
  }
};

struct JsonRig : TextTarget, JsonLinesSink, AcqRig {
  JsonRig() : JsonLinesSink(static_cast<LineTarget&>(*this)), AcqRig({this}) {}
};

TEST(JsonLines, TellAnAcquisitionInUtc) {
  JsonRig rig;
  auto& pedal = rig.status.addData("Pedal \"P\"", ferrox3::kInteger);
  rig.add(pedal.withLabels({{"Released", 0}, {"Pressed", 1}}));
  auto& name = rig.status.addData("Name", ferrox3::kString);
  auto& raw = rig.status.addData("Raw", ferrox3::kByteArray);
  rig.add(name);
  rig.add(raw);
  rig.session.known = {{"VIN", "WVWZZZ1KZAW000001"}};
  rig.start();
  pedal.setValue(std::int32_t{1});
  name.setValue(std::string("a\tb\xFF"));
  raw.setValue(ferrox3::Bytes{0x0A, 0xFF});
  rig.session.script.whileWaiting = [&] { rig.clock.stepMicroseconds(12'345); };
  rig.run("1000:812.5");
  rig.acq.ToggleRecording();
  rig.clock.setUtcBy(1'000'000'000);
  rig.speed.setValue(std::nan(""), "---");
  pedal.raisingAt("value");
  rig.status.exchange = {ferrox3::Exchange::Outcome::Refused, rig.clock.microseconds(),
                         rig.clock.microseconds()};
  rig.timer.fire();
  rig.status.exchange.reset();
  rig.status.failing.next("no \"answer\"");
  rig.timer.fire();
  rig.acq.AskStopAcqNow();
  rig.timer.fire();
  auto lines = rig.lines();
  std::erase_if(lines, [](const std::string& line) { return line.find("\"state\"") != std::string::npos; });
  EXPECT_EQ(lines.front(),
            R"({"type":"begin","t":07000000000,"acquisition":"01000000000000000000000000000000","zone":60,)"
            R"("facts":{"VIN":"WVWZZZ1KZAW000001"},"requests":[{"ecu":"Engine","request":"Status","data":[)"
            R"({"name":"Speed","unit":"km/h","type":"number","minimum":0,"maximum":100},)"
            R"({"name":"Pedal \"P\"","unit":"","type":"integer","minimum":0,"maximum":100,)"
            R"("labels":{"0":"Released","1":"Pressed"}},)"
            R"({"name":"Name","unit":"","type":"text","minimum":0,"maximum":100},)"
            R"({"name":"Raw","unit":"","type":"bytes","minimum":0,"maximum":100}]}]})");
  lines.erase(lines.begin());
  EXPECT_THAT(
      lines,
      ElementsAre(
          R"({"type":"answer","t":08012345000,"sent":08000000000,"ecu":"Engine","request":"Status","seq":1,)"
          R"("values":{"Speed":812.5,"Pedal \"P\"":1,"Name":"a\u0009b)"
          "\xEF\xBF\xBD"
          R"(","Raw":"0AFF"}})",
          R"({"type":"recording","t":08000000000,"from":08000000000,)"
          R"("recording":"02000000000000000000000000000000","path":"/rec/16-11-26_19h05mn08.txt"})",
          R"({"type":"mark","t":08000000000,"mark":"start","number":0,"path":"/rec/16-11-26_19h05mn08.txt"})",
          R"({"type":"answer","t":08012345000,"sent":08012345000,"ecu":"Engine","request":"Status","seq":2,)"
          R"("outcome":"refused","values":{"Speed":null,"Pedal \"P\"":null,"Name":"a\u0009b)"
          "\xEF\xBF\xBD"
          R"(","Raw":"0AFF"}})",
          R"({"type":"clock step","t":08024690000,"nanoseconds":1000000000})",
          R"({"type":"failure","t":08037035000,"sent":08024690000,"ecu":"Engine","request":"Status",)"
          R"("reason":"no \"answer\""})",
          R"({"type":"recording end","t":08049380000,"rows":1})", R"({"type":"end","t":08049380000})"));
}

TEST(JsonLines, CountWhatNobodyTakesAndSaySoWhereItIsMissing) {
  JsonRig rig;
  std::string told;
  rig.setLossHandler([&](bool losing, std::uint64_t lines) {
    told += (losing ? "losing " : "lost ") + std::to_string(lines) + " ";
  });
  rig.start();
  rig.text.clear();
  rig.takes = false;
  rig.run("1000:1 1100:2");
  rig.takes = true;
  rig.run("1200:3");
  EXPECT_EQ(told, "losing 0 lost 2 ");
  EXPECT_EQ(rig.text.find("{\"type\":\"lost\",\"lines\":2}\n{\"type\":\"answer\""), 0U);
  rig.takes = false;
  rig.run("1300:4");
  rig.acq.AskStopAcqNow();
  EXPECT_EQ(told, "losing 0 lost 2 losing 0 lost 3 ") << "the answer, a state and the end";
}

TEST(JsonText, IsWhatEveryReaderTakes) {
  ByteBuffer text;
  for (const double number :
       {0.1, -0.0, 1e300, 812.0, -100000.25, 0.0625, 1.0 / 3, 999999999999.999, double{INFINITY}}) {
    appendJson(text, number);
    text.append(" ");
  }
  EXPECT_EQ(text.view(), "0.1 0 1e+300 812 -100000.25 0.0625 0.3333333333333333 999999999999.999 null ");
  text.clear();
  appendJson(text, "\x7F\\\n\xC3\xA9\xC3\xF0\x9F\x9A\x97\xF0\x9F");
  EXPECT_EQ(text.view(),
            "\"\\u007f\\\\\\u000a\xC3\xA9\xEF\xBF\xBD\xF0\x9F\x9A\x97\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

}  // namespace
}  // namespace tarnlog
