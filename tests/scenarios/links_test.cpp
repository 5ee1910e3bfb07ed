// The values that a car sends over a wire are the values in the file.

#include <gmock/gmock.h>

#include "host/link/can/IsoTpLink.h"
#include "host/link/can/IsoTpStream.h"
#include "host/link/elm/Elm327Link.h"
#include "host/service/HexText.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/Elm327Peer.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/PeerStream.h"
#include "tests/support/ScriptedBus.h"

namespace tarnlog::test {
namespace {

using ::testing::ElementsAre;

using Bytes = std::vector<std::uint8_t>;

/// One recording with a row per cycle, a cycle each tenth of a second; only the values of its rows.
std::vector<std::string> recordedValues(const Recipe& recipe, int cycles = 4) {
  Scenario car(recipe);
  car.start();
  car.run("400");
  car.press();
  car.runEvery(100, 500, 400 + 100 * cycles);
  car.end();
  std::vector<std::string> values;
  for (const std::string& row : car.rows())
    values.push_back(row.substr(row.find('|', row.find('|') + 1) + 1));
  return values;
}

/// What the ECU answers; "21 80" gives a speed that is 1 km/h higher each time.
class CountingEcu {
 public:
  Bytes answer(const Bytes& request) {
    if (request != Bytes{0x21, 0x80}) return Bytes{static_cast<std::uint8_t>(request[0] + 0x40), request[1]};
    speed_ += 100;
    return {0x61,
            0x80,
            static_cast<std::uint8_t>(speed_ >> 8),
            static_cast<std::uint8_t>(speed_),
            0x7B,
            0x81,
            0x00,
            0x00,
            0x00};
  }

 private:
  int speed_ = 0;
};

/// A gateway of ISO 13400-2 for the ECU at address 0010.
void serveDoip(LoopbackConnection& tester, CountingEcu& ecu) {
  for (Bytes header(8); tester.read(header);) {
    Bytes payload(header[7]);
    if (!tester.read(payload)) return;
    if (header[2] == 0x00) {
      tester.write(*host::bytesFromHex("02 FD 00 06 00 00 00 09 0E 00 10 00 10 00 00 00 00"));
      continue;
    }
    const Bytes answer = ecu.answer(Bytes(payload.begin() + 4, payload.end()));
    Bytes message = *host::bytesFromHex("02 FD 80 02 00 00 00 05 00 10 0E 00 00 02 FD 80 01 00 00 00");
    message.push_back(static_cast<std::uint8_t>(4 + answer.size()));
    const Bytes addresses = *host::bytesFromHex("00 10 0E 00");
    message.insert(message.end(), addresses.begin(), addresses.end());
    message.insert(message.end(), answer.begin(), answer.end());
    tester.write(message);
  }
}

TEST(Links, ARecordingOverEthernetHoldsWhatTheCarSent) {
  CountingEcu ecu;
  LoopbackServer gateway([&](LoopbackConnection& tester) { serveDoip(tester, ecu); });
  Recipe recipe;
  recipe.link.url = "doip://127.0.0.1:" + std::to_string(gateway.port());
  EXPECT_THAT(recordedValues(recipe), ElementsAre("1", "3", "4", "5"));
}

TEST(Links, ARecordingOverCanHoldsWhatTheCarSent) {
  ScriptedBus::Log bus;
  bus.script["02 10 81 CC CC CC CC CC"] = {"02 50 81"};
  bus.script["02 10 A0 CC CC CC CC CC"] = {"02 50 A0"};
  bus.script["02 21 80 CC CC CC CC CC"] = {"10 09 61 80 01 F4 7B 81"};
  bus.script["30 00 00 CC CC CC CC CC"] = {"21 00 00 00"};
  Recipe recipe;
  recipe.makeLink = [&bus](ManualLinkClock& clock) {
    return std::make_unique<host::IsoTpLink>(
        std::nullopt,
        [&](host::CanPair pair) {
          return std::make_unique<host::IsoTpStream>(std::make_unique<ScriptedBus>(bus, clock), pair, clock);
        },
        clock);
  };
  EXPECT_THAT(recordedValues(recipe, 2), ElementsAre("5", "5"));
}

TEST(Links, ARecordingOverAnAdapterHoldsWhatTheCarSent) {
  Elm327Peer adapter;
  adapter.bus = Elm327Peer::Bus::kwp;
  Elm327Peer::Ecu& ecu = adapter.addEcu(0x10);
  ecu.answers = {{"1081", {"5081"}}, {"10A0", {"50A0"}}};
  int speed = 0;
  adapter.onLine = [&](const std::string& line) {
    if (line.starts_with("2180"))
      ecu.answers["2180"] = {"6180" + Elm327Peer::hex(static_cast<unsigned>(speed += 100), 4) + "7B81000000"};
  };
  Recipe recipe;
  recipe.makeLink = [&adapter](ManualLinkClock& clock) {
    return std::make_unique<host::Elm327Link>(
        std::make_unique<PeerStream>([&](std::string_view text) { return adapter.accept(text); }, clock),
        std::nullopt, clock);
  };
  EXPECT_THAT(recordedValues(recipe), ElementsAre("1", "3", "4", "5"));
}

TEST(Links, ARecordingMadeAgainFromItsTraceHoldsTheSameRows) {
  const auto record = [](const Recipe& recipe, std::string* trace) {
    Scenario car(recipe);
    car.start();
    car.run("400");
    car.press();
    car.runEvery(100, 500, 800);
    car.end();
    if (trace != nullptr) *trace = car.files.files.at("/rec/drive.trace");
    return car.rows();
  };
  Recipe recipe{.speed = "0:10 500:20 600:30 700:40"};
  recipe.data = {"Status/Speed", "Identification/Part"};
  recipe.link.trace = "/rec/drive.trace";
  std::string trace;
  const auto rows = record(recipe, &trace);
  EXPECT_GE(rows.size(), 4u);

  Recipe again{.speed = "0:0"};
  again.data = recipe.data;
  again.inputs["/in/drive.trace"] = trace;
  again.link.url = "replay:/in/drive.trace";
  EXPECT_EQ(record(again, nullptr), rows);
}

}  // namespace
}  // namespace tarnlog::test
