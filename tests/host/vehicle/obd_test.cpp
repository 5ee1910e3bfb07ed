#include <gmock/gmock.h>

#include "host/link/doip/DoipLink.h"
#include "host/link/elm/Elm327Link.h"
#include "host/service/HexText.h"
#include "host/service/Services.h"
#include "host/vehicle/Vehicle.h"
#include "host/vehicle/description/DescriptionWriter.h"
#include "host/vehicle/description/ObdPids.h"
#include "host/vehicle/obd/ObdScan.h"
#include "platform/base/TarnError.h"
#include "tests/support/DoipPeer.h"
#include "tests/support/Elm327Peer.h"
#include "tests/support/FailureOf.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/PeerStream.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using test::Elm327Peer;
using test::failureOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// A car of which nothing is known but its link.
struct UnknownCar {
  std::unique_ptr<OpenedVehicle> open(std::unique_ptr<Link> link) {
    return openVehicle(std::string(kObdCar), files, {}, clock, {}, std::move(link));
  }
  /// The PIDs that its ECUs offer, "Engine: 0C 0D; ", or why there are none.
  std::string offered(std::unique_ptr<Link> link) {
    std::string text;
    const std::string failure = failureOf([&] {
      const auto vehicle = open(std::move(link));
      for (std::size_t i = 0; i < vehicle->session().ecuCount(); ++i) {
        const ferrox3::Ecu& ecu = vehicle->session().ecu(i);
        text += ecu.name() + ":";
        for (std::size_t j = 0; j < ecu.requestCount(); ++j) text += ecu.request(j).name().substr(3);
        text += "; ";
      }
    });
    return failure == "none" ? text : failure;
  }

  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
};

/// It is behind an adapter in memory; its engine offers PIDs 04, 05, 0C, 0D, 24, 69 and its gearbox 0D.
struct Car : UnknownCar {
  Car() {
    engine.answers = {{"0100", {"410018180001"}}, {"0120", {"412010000001"}}, {"0140", {"414000000001"}},
                      {"0160", {"416000800000"}}, {"0104", {"410480"}},       {"0105", {"41057B"}},
                      {"010C", {"410C1AF8"}},     {"010D", {"410D20"}},       {"0124", {"412480004000"}},
                      {"0169", {"4169010203"}}};
    gearbox.answers = {{"0100", {"410000080000"}}, {"010D", {"410D21"}}};
  }

  std::unique_ptr<Link> makeLink() {
    return std::make_unique<Elm327Link>(test::streamTo(adapter, clock), std::nullopt, clock);
  }
  std::unique_ptr<OpenedVehicle> open() { return UnknownCar::open(makeLink()); }
  std::string offered() { return UnknownCar::offered(makeLink()); }

  Elm327Peer adapter;
  Elm327Peer::Ecu& engine = adapter.addEcu(0x7E8);
  Elm327Peer::Ecu& gearbox = adapter.addEcu(0x7E9);
};

/// PIDs of the first ECU as a poll set sends them.
struct Poll {
  Poll(VehicleSession& session, const std::vector<std::string>& names)
      : list(session.createAcquisitionList()) {
    for (const std::string& name : names) {
      requests.push_back(session.ecu(0).findRequest(name));
      list->add(requests.back()->data(0));
    }
    set = list->pollSet();
    set->protocol().initialiseAll();
  }
  /// The texts of all their data.
  std::string cycle() {
    for (std::size_t i = 0; i < set->requestCount(); ++i) set->request(i).send();
    std::string texts;
    for (const ferrox3::Request* const request : requests)
      for (std::size_t i = 0; i < request->dataCount(); ++i) texts += request->data(i).valueText() + "; ";
    return texts;
  }

  std::unique_ptr<ferrox3::AcquisitionList> list;
  std::vector<ferrox3::Request*> requests;
  std::unique_ptr<ferrox3::PollSet> set;
};

TEST(Obd, OffersWhatTheCarSaysItHas) {
  Car car;
  EXPECT_EQ(car.offered(), "Engine: 04 05 0C 0D 24 69; Transmission: 0D; ");
  const auto heard = static_cast<std::ptrdiff_t>(car.adapter.heard.size());
  const auto vehicle = car.open();
  const ferrox3::Ecu& engine = vehicle->session().ecu(0);
  EXPECT_EQ(engine.functionName(), "Engine control");
  EXPECT_EQ(engine.findRequest("PID 24")->data(0).name(), "Oxygen sensor bank 1 sensor 1 equivalence ratio");
  EXPECT_EQ(engine.findRequest("PID 69")->data(0).name(), "PID 69 bytes");
  EXPECT_EQ(vehicle->session().facts().at(1).text, "ELM327 v1.5");
  std::uint64_t sent = 0;
  for (const ferrox3::ServiceCount& count : vehicle->session().servicesSent()) sent += count.sent;
  const auto isRequest = [](const std::string& line) { return line.size() >= 2 && line.starts_with("0"); };
  EXPECT_EQ(sent, std::count_if(car.adapter.heard.begin() + heard, car.adapter.heard.end(), isRequest))
      << "the search for the bus and for what the car offers is counted";
  // What is kept as a file opens as the same car.
  const std::string file = writeVehicleDescription(vehicle->description());
  EXPECT_EQ(parseVehicleDescription(file, "car.json", {}).ecus, vehicle->description().ecus);

  Poll poll(vehicle->session(), {"PID 0C", "PID 24", "PID 69"});
  EXPECT_EQ(poll.cycle(), "1726; 1.000; 2.000; 01 02 03; ");
}

TEST(Obd, LeavesOutWhatTheCarDoesNotGive) {
  for (const bool several : {false, true}) {
    Car car;
    car.adapter.severalPids = several;
    // No answer, never; not now, which may change.
    car.engine.answers["0105"] = {"7F0112"};
    car.engine.answers["010D"] = {"7F0122"};
    car.engine.answers.erase("010C");
    EXPECT_EQ(car.offered(), "Engine: 04 0D 24 69; Transmission: 0D; ") << several;
  }
  // An ECU that gives nothing of all that it lists.
  Car mute;
  mute.gearbox.answers.erase("010D");
  EXPECT_THAT(mute.open()->description().notes,
              ElementsAre("the ECU at address 0x7E1 gives none of the data that it lists (1 PID): no answer: "
                          "the adapter says NO DATA"));
  EXPECT_EQ(mute.offered(), "Engine: 04 05 0C 0D 24 69; ");
  // The gearbox does not become the engine because that gives nothing.
  mute.engine.answers = {{"0100", {"4100BE3FA813"}}};
  mute.gearbox.answers = {{"0100", {"410000180000"}}, {"010C", {"410C1AF8"}}, {"010D", {"410D21"}}};
  EXPECT_EQ(mute.offered(), "Transmission: 0C 0D; ");
  // What could not be tried is believed.
  Car gone;
  gone.adapter.instead["010C"] = {"LV RESET\r\r>"};
  EXPECT_EQ(gone.offered(), "Engine: 04 05 0C 0D 24 69; Transmission: 0D; ");
}

TEST(Obd, NamesTheCarByItsVin) {
  const std::string onCan = "4902015756575A5A5A314B5A4157303030303031";
  const auto vinOf = [](Car& car) { return car.open()->description().vin; };
  Car can;
  can.gearbox.answers["0900"] = {"490055400000"};
  can.gearbox.answers["0902"] = {onCan};
  std::vector<OpeningPhase> phases;
  const auto link = can.makeLink();
  const auto scanned = scanObdVehicle(*link, can.clock, [&](OpeningPhase phase) { phases.push_back(phase); });
  EXPECT_EQ(scanned.vin, "WVWZZZ1KZAW000001");
  EXPECT_EQ(scanned.name, "WVWZZZ1KZAW000001 (OBD car)");
  using enum OpeningPhase;
  EXPECT_THAT(phases, ElementsAre(adapter, bus, ecus, data, ecus, data));

  Car wire;
  wire.adapter.bus = Elm327Peer::Bus::kwp;
  wire.engine.source = 0x10;
  wire.gearbox.source = 0x18;
  wire.engine.answers["0900"] = {"49000140000000"};
  auto& parts = wire.engine.answers["0902"];
  parts = {"49020100000057", "49020256575A5A", "4902035A314B5A", "49020441573030"};
  EXPECT_EQ(vinOf(wire), "") << "the last characters are missing";
  parts.push_back("49020530303031");
  EXPECT_EQ(vinOf(wire), "WVWZZZ1KZAW000001");

  // An I is in no VIN; what is not listed is not asked for.
  can.gearbox.answers["0902"] = {onCan.substr(0, onCan.size() - 2) + "49"};
  EXPECT_EQ(can.open()->description().name, "OBD car");
  can.gearbox.answers["0900"] = {"490015400000"};
  can.adapter.heard.clear();
  EXPECT_EQ(vinOf(can), "");
  EXPECT_THAT(can.adapter.heard, Not(Contains("0902")));
}

TEST(Obd, AsksForSeveralPidsAtOnceWhereTheCarAllowsIt) {
  Car car;
  const std::vector<std::string> pids{"PID 0C", "PID 0D", "PID 05", "PID 04"};
  {
    // This one does not.
    const auto vehicle = car.open();
    Poll poll(vehicle->session(), pids);
    EXPECT_EQ(poll.cycle(), "1726; 32; 83; 50.2; ");
    EXPECT_THAT(car.adapter.heard, Contains("010C0D0504"));
    car.adapter.heard.clear();
    EXPECT_EQ(poll.cycle(), "1726; 32; 83; 50.2; ");
    EXPECT_THAT(car.adapter.heard, Not(Contains("010C0D0504")));
  }
  car.adapter.severalPids = true;
  const auto vehicle = car.open();
  Poll poll(vehicle->session(), pids);
  EXPECT_EQ(poll.cycle(), "1726; 32; 83; 50.2; ");
  poll.set->request(0).send();
  car.clock.step(1s);
  poll.set->request(1).send();
  EXPECT_EQ(poll.set->request(1).lastExchange()->received, poll.set->request(0).lastExchange()->received)
      << "they are asked for together";
  poll.set->protocol().initialiseAll();
  // Each cycle gives new values; an answer that does not fit is not taken apart.
  car.engine.answers["010D"] = {"410D33"};
  for (const char* const answer : {"", "7E806410C1AF80D33\r\r>", ""}) {
    if (*answer != '\0') car.adapter.instead["010C0D05042"] = {answer};
    car.adapter.heard.clear();
    EXPECT_EQ(poll.cycle(), "1726; 51; 83; 50.2; ");
    EXPECT_EQ(car.adapter.heard.front(), "010C0D05042");
    EXPECT_EQ(car.adapter.heard.size() == 1, *answer == '\0');
  }
  // A cycle that broke off, and a new initialisation: what came before is old.
  poll.set->request(0).send();
  car.engine.answers["010D"] = {"410D34"};
  poll.set->protocol().initialiseAll();
  poll.set->request(1).send();
  EXPECT_EQ(poll.requests[1]->data(0).valueText(), "52");
}

TEST(Obd, GoesOnWithoutAPidThatIsNotGivenAnyMore) {
  Car car;
  car.adapter.severalPids = true;
  const auto vehicle = car.open();
  std::size_t notices = 0;
  vehicle->session().setNoticeHandler([&](const Notice&) { ++notices; });
  Poll poll(vehicle->session(), {"PID 0C", "PID 0D", "PID 05", "PID 04"});
  car.engine.answers["0105"] = {"7F0112"};
  car.engine.answers["010C0D0504"] = {"410C1AF80D200480"};
  for (int i = 0; i < 4; ++i) {
    car.adapter.heard.clear();
    EXPECT_EQ(poll.cycle(), "1726; 32; ---; 50.2; ");
  }
  EXPECT_THAT(car.adapter.heard, ElementsAre(StartsWith("010C0D04")));
  car.engine.answers["0105"] = {"41057B"};
  car.clock.step(5s);
  EXPECT_EQ(poll.cycle(), "1726; 32; 83; 50.2; ");
  EXPECT_EQ(notices, 2U);
}

TEST(Obd, AVehicleFileMayNameItsLink) {
  Car car;
  car.files.files["/in/a.trace"] = "# tarnlog trace 1\n0.0 > 1 OBD-II 01 0D\n0.01 < 41 0D 44\n";
  car.files.files["/in/car.json"] =
      R"({"name": "Car", "link": "replay:/in/a.trace", "ecus": [{"name": "E", "address": 1, "protocol": "OBD-II",
          "requests": [{"name": "R", "frame": "01 0D", "data": [{"name": "D", "byte": 2}]}]}]})";
  const auto vehicle = openVehicle("/in/car.json", car.files, {}, car.clock, {});
  ferrox3::Request& request = vehicle->session().ecu(0).request(0);
  request.send();
  EXPECT_EQ(request.data(0).valueText(), "68");
  EXPECT_THAT(writeVehicleDescription(vehicle->description()), HasSubstr("replay:/in/a.trace"));
}

TEST(Obd, SaysWhyThereIsNoCar) {
  Car off;
  off.adapter.bus = Elm327Peer::Bus::none;
  EXPECT_THAT(off.offered(), HasSubstr("no ECU answers (UNABLE TO CONNECT)"));
  EXPECT_THROW(openVehicle(std::string(kObdCar), off.files, {}, off.clock, {}), TarnError);
  Car late;
  late.adapter.instead["0100"] = {"SEARCHING...\rUNABLE TO CONNECT\r\r>"};
  EXPECT_EQ(late.offered(), "Engine: 04 05 0C 0D 24 69; Transmission: 0D; ");
  for (auto& ecu : late.adapter.ecus) ecu.answers = {{"0100", {"7F0111"}}};
  EXPECT_THAT(late.offered(), HasSubstr("no ECU offers current data (OBD service 01)"));
}

TEST(Obd, FindsTheEcusBehindAGateway) {
  UnknownCar car;
  test::DoipPeer peer;
  peer.ecus[0x1001] = {{"0100", {"7F0178", "410000180000"}}, {"010C", {"410C1AF8"}}, {"010D", {"410D20"}}};
  peer.ecus[0x1003] = {{"0100", {"410000080000"}}, {"010D", {"410D21"}}};
  peer.ecus[0x1004] = {{"0100", {"7F0111"}}};  // an ECU without OBD data
  peer.ecus[0x1005] = {};                      // and one that never says anything
  const auto link = [&](std::optional<std::uint16_t> ecu = std::nullopt) {
    const auto connect = [&](const std::string&, std::uint16_t) { return test::streamTo(peer, car.clock); };
    return std::make_unique<DoipLink>(DoipSettings{.host = "car", .ecu = ecu}, connect, car.clock);
  };
  EXPECT_EQ(car.offered(link()), "Engine: 0C 0D; ECU 1003: 0D; ") << "address by address: there is no group";
  EXPECT_LT(car.clock.now(), 5s);
  peer.groups = {0xE000};
  peer.heard.clear();
  EXPECT_EQ(car.offered(link()), "Engine: 0C 0D; ECU 1003: 0D; ");
  EXPECT_THAT(peer.heard, Not(Contains("1005 0100")));
  // One that is switched off leaves the others.
  peer.groups.clear();
  peer.unreachable = {0x1001};
  for (const std::optional<std::uint16_t> ecu :
       {std::optional<std::uint16_t>(), std::optional<std::uint16_t>(0x1003)})
    EXPECT_EQ(car.offered(link(ecu)), "ECU 1003: 0D; ");
  EXPECT_EQ(
      car.offered(link(0x1001)),
      "no ECU offers current data (OBD service 01): car: the ECU cannot be reached; is the ignition on?");
  peer.unreachable = {0x1001, 0x1003};
  EXPECT_THAT(car.offered(link()), HasSubstr("the gateway knows no ECU that offers OBD data"));

  // Each is asked at its own address afterwards.
  peer.unreachable.clear();
  const auto vehicle = car.open(link());
  ferrox3::Request& speed = vehicle->session().ecu(1).request(0);
  speed.send();
  EXPECT_EQ(speed.data(0).valueText(), "33");
}

TEST(ObdPids, ScaleAsTheStandardSays) {
  /// Of the standard's examples and limits: the PID and the bytes behind it, position of the datum, its
  /// value.
  struct Example {
    const char* bytes;
    std::size_t datum;
    double value;
  };
  const Example examples[] = {{"01 83 07 00 00", 0, 1},   {"01 83 07 00 00", 1, 3},  {"04 FF", 0, 100},
                              {"05 00", 0, -40},          {"06 80", 0, 0},           {"0A FF", 0, 765},
                              {"0C 1A F8", 0, 1726},      {"0E 00", 0, -64},         {"10 FF FF", 0, 655.35},
                              {"14 C8 80", 0, 1},         {"23 FF FF", 0, 655350},   {"24 80 00 40 00", 1, 2},
                              {"32 E0 00", 0, -2048},     {"34 80 00 80 00", 1, 0},  {"3C 01 90", 0, 0},
                              {"42 30 D4", 0, 12.5},      {"43 64 FF", 0, 10139.22}, {"44 80 00", 0, 1},
                              {"4F 01 02 03 04", 3, 40},  {"54 FF FF", 0, -1},       {"5D 69 00", 0, 0},
                              {"5E 00 64", 0, 5},         {"61 7D", 0, 0},           {"63 01 00", 0, 256},
                              {"66 01 01 00 00 00", 0, 8}};
  for (const auto& [bytes, datum, value] : examples) {
    const auto response = *bytesFromHex(std::string("41 ") + bytes);
    const ObdPid* const pid = findObdPid(response[1]);
    ASSERT_NE(pid, nullptr) << bytes;
    EXPECT_EQ(pid->bytes, response.size() - 2) << bytes;
    const DataLayout& layout = pid->data[datum].layout;
    EXPECT_NEAR(scaledNumber(layout, readBits(layout.field, response.data())), value, 0.01) << bytes;
  }
  for (int number = 1; number <= 0x66; ++number) {
    const auto pid = static_cast<std::uint8_t>(number);
    if (isPidMask(pid)) continue;
    ASSERT_NE(findObdPid(pid), nullptr) << number;
    for (const DataDescription& data : findObdPid(pid)->data)
      EXPECT_LE(data.layout.neededLength(), 2 + findObdPid(pid)->bytes) << data.name;
  }
}

}  // namespace
}  // namespace tarnlog::host
