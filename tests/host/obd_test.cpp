#include <gmock/gmock.h>

#include "host/link/OpenLink.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/elm/Elm327Link.h"
#include "host/link/trace/TraceLink.h"
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
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

/// A car behind an adapter in memory; its engine offers PIDs 04, 05, 0C, 0D, 24, 69 and its gearbox 0D.
struct Car {
  Car() {
    adapter.addEcu(0x7E8).answers = {{"0100", {"410018180001"}}, {"0120", {"412010000001"}},
                                     {"0140", {"414000000001"}}, {"0160", {"416000800000"}},
                                     {"0104", {"410480"}},       {"0105", {"41057B"}},
                                     {"010C", {"410C1AF8"}},     {"010D", {"410D20"}},
                                     {"0124", {"412480004000"}}, {"0169", {"4169010203"}}};
    adapter.addEcu(0x7E9).answers = {{"0100", {"410000080000"}}, {"010D", {"410D21"}}};
  }

  std::unique_ptr<Link> makeLink() {
    return std::make_unique<Elm327Link>(
        std::make_unique<test::PeerStream>([this](std::string_view text) { return adapter.accept(text); },
                                           clock),
        std::nullopt, clock);
  }
  std::unique_ptr<OpenedVehicle> open(std::unique_ptr<Link> link) {
    return openVehicle(std::string(kObdCar), files, {}, clock, {}, std::move(link));
  }

  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
  Elm327Peer adapter;
};

std::vector<std::string> offer(const VehicleSession& session) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < session.ecuCount(); ++i) {
    const ferrox3::Ecu& ecu = session.ecu(i);
    for (std::size_t j = 0; j < ecu.requestCount(); ++j)
      lines.push_back(ecu.name() + "/" + ecu.request(j).name() + "/" + ecu.request(j).data(0).name());
  }
  return lines;
}

/// Polls PIDs of the first ECU and gives the texts of all their data.
class Poll {
 public:
  Poll(VehicleSession& session, const std::vector<std::string>& names)
      : list_(session.createAcquisitionList()) {
    for (const std::string& name : names) {
      ferrox3::Request& request = *session.ecu(0).findRequest(name);
      requests_.push_back(&request);
      list_->add(request.data(0));
    }
    set_ = list_->pollSet();
    initialise();
  }
  ~Poll() {
    set_->finish();
    list_->finish();
  }
  void initialise() { set_->protocol().initialiseAll(); }
  void send(std::size_t position) { set_->request(position).send(); }
  std::vector<std::string> cycle() {
    for (std::size_t i = 0; i < set_->requestCount(); ++i) send(i);
    return texts();
  }
  std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const ferrox3::Request* const request : requests_)
      for (std::size_t i = 0; i < request->dataCount(); ++i) texts.push_back(request->data(i).valueText());
    return texts;
  }

 private:
  std::unique_ptr<ferrox3::AcquisitionList> list_;
  std::vector<ferrox3::Request*> requests_;
  std::unique_ptr<ferrox3::PollSet> set_;
};

TEST(Obd, OffersWhatTheCarSaysItHas) {
  Car car;
  const auto vehicle = car.open(car.makeLink());
  EXPECT_THAT(offer(vehicle->session()),
              ElementsAre("Engine/PID 04/Calculated engine load", "Engine/PID 05/Coolant temperature",
                          "Engine/PID 0C/Engine speed", "Engine/PID 0D/Vehicle speed",
                          "Engine/PID 24/Oxygen sensor bank 1 sensor 1 equivalence ratio",
                          "Engine/PID 69/PID 69 bytes", "Transmission/PID 0D/Vehicle speed"));
  EXPECT_EQ(vehicle->session().ecu(0).functionName(), "Engine control");
  // What is kept as a file opens as the same car.
  const std::string file = writeVehicleDescription(vehicle->description());
  EXPECT_EQ(parseVehicleDescription(file, "car.json", {}).ecus, vehicle->description().ecus);

  Poll poll(vehicle->session(), {"PID 0C", "PID 24", "PID 69"});
  EXPECT_THAT(poll.cycle(), ElementsAre("1726", "1.000", "2.000", "01 02 03"));
}

TEST(Obd, LeavesOutWhatTheCarDoesNotGive) {
  for (const bool several : {false, true}) {
    SCOPED_TRACE(several);
    Car car;
    car.adapter.severalPids = several;
    // No answer, never; not now, which may change.
    car.adapter.ecus[0].answers["0105"] = {"7F0112"};
    car.adapter.ecus[0].answers["010D"] = {"7F0122"};
    car.adapter.ecus[0].answers.erase("010C");
    const auto vehicle = car.open(car.makeLink());
    EXPECT_THAT(offer(vehicle->session()),
                ElementsAre("Engine/PID 04/Calculated engine load", "Engine/PID 0D/Vehicle speed",
                            "Engine/PID 24/Oxygen sensor bank 1 sensor 1 equivalence ratio",
                            "Engine/PID 69/PID 69 bytes", "Transmission/PID 0D/Vehicle speed"));
  }
  // An ECU that gives nothing of all that it lists.
  Car mute;
  mute.adapter.ecus[1].answers.erase("010D");
  const auto vehicle = mute.open(mute.makeLink());
  EXPECT_EQ(vehicle->session().ecuCount(), 1U);
  EXPECT_THAT(vehicle->description().notes,
              ElementsAre("the ECU at address 0x7E1 gives none of the data that it lists (1 PID): no answer: "
                          "the adapter says NO DATA"));
  // The gearbox does not become the engine because that gives nothing.
  Car headless;
  headless.adapter.ecus[0].answers = {{"0100", {"4100BE3FA813"}}};
  headless.adapter.ecus[1].answers = {
      {"0100", {"410000180000"}}, {"010C", {"410C1AF8"}}, {"010D", {"410D21"}}};
  EXPECT_EQ(headless.open(headless.makeLink())->session().ecu(0).name(), "Transmission");
  // What could not be tried is believed.
  Car gone;
  gone.adapter.instead["010C"] = {"LV RESET\r\r>"};
  EXPECT_EQ(offer(gone.open(gone.makeLink())->session()).size(), 7U);
}

TEST(Obd, NamesTheCarByItsVin) {
  const std::string onCan =
      "490201"
      "5756575A5A5A314B5A4157303030303031";
  const auto vehicleOf = [](Car& car) { return car.open(car.makeLink())->description(); };
  Car can;
  can.adapter.ecus[1].answers["0900"] = {"490055400000"};
  can.adapter.ecus[1].answers["0902"] = {onCan};
  std::vector<OpeningPhase> phases;
  const auto link = can.makeLink();
  const auto scanned = scanObdVehicle(*link, can.clock, [&](OpeningPhase phase) { phases.push_back(phase); });
  EXPECT_EQ(scanned.vin, "WVWZZZ1KZAW000001");
  EXPECT_EQ(scanned.name, "WVWZZZ1KZAW000001 (OBD car)");
  using enum OpeningPhase;
  EXPECT_THAT(phases, ElementsAre(adapter, bus, ecus, data, ecus, data));

  Car wire;
  wire.adapter.bus = Elm327Peer::Bus::kwp;
  wire.adapter.ecus[0].source = 0x10;
  wire.adapter.ecus[1].source = 0x18;
  wire.adapter.ecus[0].answers["0900"] = {"49000140000000"};
  auto& parts = wire.adapter.ecus[0].answers["0902"];
  parts = {"49020100000057", "49020256575A5A", "4902035A314B5A", "49020441573030"};
  EXPECT_EQ(vehicleOf(wire).vin, "") << "the last characters are missing";
  parts.push_back("49020530303031");
  EXPECT_EQ(vehicleOf(wire).vin, "WVWZZZ1KZAW000001");

  // An I is in no VIN; what is not listed is not asked for.
  can.adapter.ecus[1].answers["0902"] = {onCan.substr(0, onCan.size() - 2) + "49"};
  EXPECT_EQ(vehicleOf(can).name, "OBD car");
  can.adapter.ecus[1].answers["0900"] = {"490015400000"};
  can.adapter.heard.clear();
  EXPECT_EQ(vehicleOf(can).vin, "");
  EXPECT_THAT(can.adapter.heard, Not(Contains("0902")));
}

TEST(Obd, AsksForSeveralPidsAtOnceWhereTheCarAllowsIt) {
  Car car;
  auto vehicle = car.open(car.makeLink());
  const std::vector<std::string> pids{"PID 0C", "PID 0D", "PID 05", "PID 04"};
  const auto values = ElementsAre("1726", "32", "83", "50.2");
  {
    // This one does not.
    Poll poll(vehicle->session(), pids);
    EXPECT_THAT(poll.cycle(), values);
    EXPECT_THAT(car.adapter.heard, Contains("010C0D0504"));
    car.adapter.heard.clear();
    EXPECT_THAT(poll.cycle(), values);
    EXPECT_THAT(car.adapter.heard, Not(Contains("010C0D0504")));
  }
  car.adapter.severalPids = true;
  vehicle = car.open(car.makeLink());
  Poll poll(vehicle->session(), pids);
  EXPECT_THAT(poll.cycle(), values);
  car.adapter.heard.clear();
  EXPECT_THAT(poll.cycle(), values);
  EXPECT_THAT(car.adapter.heard, ElementsAre("010C0D05042"));
  // Each cycle gives new values; an answer that does not fit is not taken apart.
  car.adapter.ecus[0].answers["010D"] = {"410D33"};
  EXPECT_THAT(poll.cycle(), ElementsAre("1726", "51", "83", "50.2"));
  car.adapter.instead["010C0D05042"] = {"7E806410C1AF80D33\r\r>"};
  EXPECT_THAT(poll.cycle(), ElementsAre("1726", "51", "83", "50.2"));
  car.adapter.heard.clear();
  EXPECT_THAT(poll.cycle(), ElementsAre("1726", "51", "83", "50.2"));
  EXPECT_THAT(car.adapter.heard, ElementsAre("010C0D05042"));
  // A cycle that broke off, and a new initialisation: what came before is old.
  poll.send(0);
  car.adapter.ecus[0].answers["010D"] = {"410D34"};
  poll.initialise();
  poll.send(1);
  EXPECT_EQ(poll.texts()[1], "52");
}

TEST(Obd, GoesOnWithoutAPidThatIsNotGivenAnyMore) {
  Car car;
  car.adapter.severalPids = true;
  const auto vehicle = car.open(car.makeLink());
  std::size_t notices = 0;
  vehicle->session().setNoticeHandler([&](const Notice&) { ++notices; });
  Poll poll(vehicle->session(), {"PID 0C", "PID 0D", "PID 05", "PID 04"});
  auto& answers = car.adapter.ecus[0].answers;
  answers["0105"] = {"7F0112"};
  answers["010C0D0504"] = {"410C1AF80D200480"};
  for (int i = 0; i < 3; ++i) EXPECT_THAT(poll.cycle(), ElementsAre("1726", "32", "---", "50.2"));
  car.adapter.heard.clear();
  EXPECT_THAT(poll.cycle(), ElementsAre("1726", "32", "---", "50.2"));
  EXPECT_THAT(car.adapter.heard, ElementsAre(testing::StartsWith("010C0D04")));
  answers["0105"] = {"41057B"};
  car.clock.step(5s);
  EXPECT_THAT(poll.cycle(), ElementsAre("1726", "32", "83", "50.2"));
  EXPECT_EQ(notices, 2U);
}

TEST(Obd, ComesAgainFromItsTrace) {
  Car car;
  car.adapter.severalPids = true;
  car.adapter.bus = Elm327Peer::Bus::can29;
  car.adapter.ecus[0].source = 0x18DAF110;
  car.adapter.ecus[1].source = 0x18DAF118;
  std::vector<std::string> offered;
  std::vector<std::string> values;
  {
    const auto vehicle = car.open(
        std::make_unique<TraceLink>(car.makeLink(), car.clock, car.files.create("/rec/drive.trace")));
    offered = offer(vehicle->session());
    Poll poll(vehicle->session(), {"PID 0C", "PID 0D"});
    values = poll.cycle();
  }
  EXPECT_EQ(offered.back(), "Transmission/PID 0D/Vehicle speed");
  const auto again = car.open(openLink("replay:/rec/drive.trace", car.clock, car.files));
  EXPECT_EQ(offer(again->session()), offered);
  Poll poll(again->session(), {"PID 0C", "PID 0D"});
  EXPECT_EQ(poll.cycle(), values);
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
  const auto failure = [](Car& car) -> std::string {
    try {
      car.open(car.makeLink());
    } catch (const TarnError& error) {
      return error.description();
    }
    return "";
  };
  Car off;
  off.adapter.bus = Elm327Peer::Bus::none;
  EXPECT_THAT(failure(off), HasSubstr("no ECU answers (UNABLE TO CONNECT)"));
  Car late;
  late.adapter.instead["0100"] = {"SEARCHING...\rUNABLE TO CONNECT\r\r>"};
  EXPECT_EQ(failure(late), "");
  Car other;
  for (auto& ecu : other.adapter.ecus) ecu.answers = {{"0100", {"7F0111"}}};
  EXPECT_THAT(failure(other), HasSubstr("no ECU offers current data (OBD service 01)"));
  Car without;
  EXPECT_THROW(openVehicle(std::string(kObdCar), without.files, {}, without.clock, {}), TarnError);
}

/// The same car behind a gateway.
struct DoipCar {
  DoipCar() {
    peer.ecus[0x1001] = {{"0100", {"7F0178", "410000180000"}}, {"010C", {"410C1AF8"}}, {"010D", {"410D20"}}};
    peer.ecus[0x1003] = {{"0100", {"410000080000"}}, {"010D", {"410D21"}}};
    peer.ecus[0x1004] = {{"0100", {"7F0111"}}};  // an ECU without OBD data
    peer.ecus[0x1005] = {};                      // and one that never says anything
  }

  std::unique_ptr<Link> makeLink(std::optional<std::uint16_t> ecu = std::nullopt) {
    DoipSettings settings{.host = "car", .ecu = ecu};
    const auto connect = [this](const std::string&, std::uint16_t) {
      return std::make_unique<test::PeerStream>([this](std::string_view text) { return peer.accept(text); },
                                                clock);
    };
    return std::make_unique<DoipLink>(settings, connect, clock);
  }
  /// What it offers, or why nothing.
  std::string offered(std::unique_ptr<Link> link) {
    std::string text;
    const std::string failure = test::failureOf([&] {
      const auto vehicle = openVehicle(std::string(kObdCar), files, {}, clock, {}, std::move(link));
      for (const std::string& line : offer(vehicle->session())) text += line + "; ";
    });
    return failure == "none" ? text : failure;
  }

  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
  test::DoipPeer peer;
};

TEST(Obd, FindsTheEcusBehindAGateway) {
  const std::string all =
      "Engine/PID 0C/Engine speed; Engine/PID 0D/Vehicle speed; ECU 1003/PID 0D/Vehicle speed; ";
  DoipCar car;
  EXPECT_EQ(car.offered(car.makeLink()), all) << "address by address: this gateway has no group";
  EXPECT_LT(car.clock.now(), 5s);
  car.peer.groups = {0xE000};
  car.peer.heard.clear();
  EXPECT_EQ(car.offered(car.makeLink()), all);
  EXPECT_THAT(car.peer.heard, Not(Contains("1005 0100")));
  // One that is switched off leaves the others.
  car.peer.groups.clear();
  car.peer.unreachable = {0x1001};
  EXPECT_EQ(car.offered(car.makeLink()), "ECU 1003/PID 0D/Vehicle speed; ");
  EXPECT_EQ(car.offered(car.makeLink(0x1003)), "ECU 1003/PID 0D/Vehicle speed; ");
  EXPECT_EQ(
      car.offered(car.makeLink(0x1001)),
      "no ECU offers current data (OBD service 01): car: the ECU cannot be reached; is the ignition on?");
  car.peer.unreachable = {0x1001, 0x1003};
  EXPECT_THAT(car.offered(car.makeLink()), HasSubstr("the gateway knows no ECU that offers OBD data"));

  // Each is asked at its own address afterwards.
  car.peer.unreachable.clear();
  const auto vehicle = openVehicle(std::string(kObdCar), car.files, {}, car.clock, {}, car.makeLink());
  ferrox3::Request& speed = vehicle->session().ecu(1).request(0);
  speed.send();
  EXPECT_EQ(speed.data(0).valueText(), "33");
}

/// Of the standard's examples and limits: PID, bytes behind it, position of the datum, its value.
TEST(ObdPids, ScaleAsTheStandardSays) {
  struct Example {
    std::uint8_t pid;
    std::vector<std::uint8_t> bytes;
    std::size_t datum;
    double value;
  };
  const std::vector<Example> examples{
      {0x01, {0x83, 0x07, 0x00, 0x00}, 0, 1},
      {0x01, {0x83, 0x07, 0x00, 0x00}, 1, 3},
      {0x04, {0xFF}, 0, 100},
      {0x05, {0x00}, 0, -40},
      {0x06, {0x80}, 0, 0},
      {0x0A, {0xFF}, 0, 765},
      {0x0C, {0x1A, 0xF8}, 0, 1726},
      {0x0E, {0x00}, 0, -64},
      {0x10, {0xFF, 0xFF}, 0, 655.35},
      {0x14, {0xC8, 0x80}, 0, 1},
      {0x23, {0xFF, 0xFF}, 0, 655350},
      {0x24, {0x80, 0x00, 0x40, 0x00}, 1, 2},
      {0x32, {0xE0, 0x00}, 0, -2048},
      {0x34, {0x80, 0x00, 0x80, 0x00}, 1, 0},
      {0x3C, {0x01, 0x90}, 0, 0},
      {0x42, {0x30, 0xD4}, 0, 12.5},
      {0x43, {0x64, 0xFF}, 0, 10139.22},
      {0x44, {0x80, 0x00}, 0, 1},
      {0x4F, {1, 2, 3, 4}, 3, 40},
      {0x54, {0xFF, 0xFF}, 0, -1},
      {0x5D, {0x69, 0x00}, 0, 0},
      {0x5E, {0x00, 0x64}, 0, 5},
      {0x61, {0x7D}, 0, 0},
      {0x63, {0x01, 0x00}, 0, 256},
      {0x66, {0x01, 0x01, 0x00, 0x00, 0x00}, 0, 8},
  };
  for (const Example& example : examples) {
    const ObdPid* const pid = findObdPid(example.pid);
    ASSERT_NE(pid, nullptr);
    EXPECT_EQ(pid->bytes, example.bytes.size()) << int{example.pid};
    std::vector<std::uint8_t> response{0x41, example.pid};
    response.insert(response.end(), example.bytes.begin(), example.bytes.end());
    const DataLayout& layout = pid->data[example.datum].layout;
    EXPECT_NEAR(scaledNumber(layout, readBits(layout.field, response.data())), example.value, 0.01)
        << pid->data[example.datum].name;
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
