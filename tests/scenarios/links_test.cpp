// The values that a car sends over a wire are the values in the file.

#include <gmock/gmock.h>

#include "host/link/can/IsoTpLink.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/elm/Elm327Link.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/DoipPeer.h"
#include "tests/support/Elm327Peer.h"
#include "tests/support/PeerStream.h"
#include "tests/support/ScriptedBus.h"

namespace tarnlog::test {
namespace {

using ::testing::ElementsAre;

using Answers = std::map<std::string, std::vector<std::string>>;

/// One recording with a row per cycle, a cycle each tenth of a second; the values of its rows.
std::vector<std::string> recordedValues(const Recipe& recipe, std::string* trace = nullptr) {
  Scenario car(recipe);
  car.run("400");
  car.press();
  car.run("500 600 700 800");
  car.end();
  if (trace != nullptr) *trace = car.files.readAll("/rec/drive.trace");
  std::vector<std::string> values;
  for (const std::string& row : car.rows())
    values.push_back(row.substr(row.find('|', row.find('|') + 1) + 1));
  return values;
}

/// What the ECU answers, where the speed is 1 km/h higher each time.
struct CountingEcu {
  void count(Answers& answers) {
    answers["1081"] = {"5081"};
    answers["10A0"] = {"50A0"};
    answers["2180"] = {"6180" + Elm327Peer::hex(speed += 100, 4) + "7B81000000"};
  }
  unsigned speed = 0;
};

TEST(Links, ARecordingOverEthernetHoldsWhatTheCarSent) {
  CountingEcu ecu;
  DoipPeer gateway;
  const auto answer = [&](std::string_view bytes) {
    if (bytes.ends_with("\x21\x80") || gateway.ecus.empty()) ecu.count(gateway.ecus[0x10]);
    return gateway.accept(bytes);
  };
  Recipe recipe;
  recipe.makeLink = [&](ManualLinkClock& clock) {
    const auto connect = [&](const std::string&, std::uint16_t) {
      return std::make_unique<PeerStream>(answer, clock);
    };
    return std::make_unique<host::DoipLink>(host::DoipSettings(), connect, clock);
  };
  EXPECT_THAT(recordedValues(recipe), ElementsAre("2", "4", "5", "6"));
}

TEST(Links, ARecordingOverAnAdapterHoldsWhatTheCarSent) {
  CountingEcu ecu;
  Elm327Peer adapter;
  adapter.bus = Elm327Peer::Bus::kwp;
  Answers& answers = adapter.addEcu(0x10).answers;
  adapter.onLine = [&](const std::string& line) {
    if (line.starts_with("2180") || answers.empty()) ecu.count(answers);
  };
  Recipe recipe;
  recipe.makeLink = [&](ManualLinkClock& clock) {
    return std::make_unique<host::Elm327Link>(
        std::make_unique<PeerStream>([&](std::string_view text) { return adapter.accept(text); }, clock),
        std::nullopt, clock);
  };
  EXPECT_THAT(recordedValues(recipe), ElementsAre("2", "4", "5", "6"));
}

TEST(Links, ARecordingOverCanHoldsWhatTheCarSent) {
  ScriptedBus::Log bus;
  bus.script["02 10 81 CC CC CC CC CC"] = {"02 50 81"};
  bus.script["02 10 A0 CC CC CC CC CC"] = {"02 50 A0"};
  bus.script["02 21 80 CC CC CC CC CC"] = {"10 09 61 80 01 F4 7B 81"};
  bus.script["30 00 00 CC CC CC CC CC"] = {"21 00 00 00"};
  Recipe recipe;
  recipe.makeLink = [&bus](ManualLinkClock& clock) {
    const auto open = [&] { return std::make_unique<ScriptedBus>(bus, clock); };
    return std::make_unique<host::IsoTpLink>(std::nullopt, open, clock);
  };
  EXPECT_THAT(recordedValues(recipe), ElementsAre("5", "5", "5", "5"));
}

TEST(Links, ARecordingMadeAgainFromItsTraceHoldsTheSameRows) {
  Recipe recipe{.speed = "0:10 500:20 600:30 700:40", .data = {"Status/Speed", "Identification/Part"}};
  recipe.link.trace = "/rec/drive.trace";
  std::string trace;
  const auto values = recordedValues(recipe, &trace);
  EXPECT_THAT(values, ElementsAre("10|8200\xE9", "30|8200\xE9", "40|8200\xE9", "40|8200\xE9"));
  recipe = {.data = recipe.data, .inputs = {{"/in/drive.trace", trace}}};
  recipe.link.url = "replay:/in/drive.trace";
  EXPECT_EQ(recordedValues(recipe), values);
}

}  // namespace
}  // namespace tarnlog::test
