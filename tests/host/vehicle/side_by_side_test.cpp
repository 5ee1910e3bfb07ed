#include <gmock/gmock.h>

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/link/can/IsoTpLink.h"
#include "host/link/trace/ReplayPeer.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/link/trace/TraceLink.h"
#include "host/vehicle/session/VehicleSession.h"
#include "platform/base/TarnError.h"
#include "tests/support/FailureOf.h"
#include "tests/support/FaultyCar.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScriptedBus.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using test::failureOf;
using test::FaultyCar;
using test::FaultyEcu;
using test::ManualLinkClock;
using Fault = FaultyEcu::Fault;

constexpr int kRequests = 4;
constexpr LinkHabits kSingly{.sideBySide = true, .bundles = false};

/// ECUs at 1001, 1002, ... with the requests 22 F0 00 to 22 F0 03; each answer ends with a number.
std::string description(int ecus) {
  std::string text = R"({"name":"car","timeout":100,"pendingTimeout":1000,"ecus":[)";
  for (int e = 1; e <= ecus; ++e) {
    text += (e > 1 ? "," : "") + std::string(R"({"name":"E)") + std::to_string(e) + R"(","address":)" +
            std::to_string(0x1000 + e) + R"(,"protocol":"UDS","requests":[)";
    for (int r = 0; r < kRequests; ++r)
      text += (r > 0 ? "," : "") + std::string(R"({"name":"R)") + std::to_string(r) +
              R"(","frame":"22 F0 0)" + std::to_string(r) + R"(","data":[{"name":"V","byte":3,"bytes":2}]})";
    text += "]}";
  }
  return text + "]}";
}

/// Polls such a car over a link, the requests of the ECUs in turn.
class Poller {
 public:
  Poller(Link& link, ManualLinkClock& clock, int ecus)
      : clock_(clock),
        description_(parseVehicleDescription(description(ecus), "car", {})),
        session_(description_, link, clock, {}) {
    for (std::size_t r = 0; r < kRequests; ++r)
      for (std::size_t e = 0; e < session_.ecuCount(); ++e) list_->add(session_.ecu(e).request(r).data(0));
    set_ = list_->pollSet();
    initialise();
  }

  void initialise() { set_->protocol().initialiseAll(); }
  /// Sends all, up to one that fails; gives that failure's text, or "none". `seen` looks at each answer.
  std::string cycle(
      const std::function<void(std::size_t ecu, std::size_t request, double value)>& seen = {}) {
    for (std::size_t i = 0; i < set_->requestCount(); ++i) {
      ferrox3::Request& request = set_->request(i);
      if (std::string failure = failureOf([&] { request.send(); }); failure != "none") return failure;
      const auto exchange = request.lastExchange();
      if (!seen || !exchange || exchange->outcome != ferrox3::Exchange::Outcome::Answered) continue;
      seen(i % session_.ecuCount(), i / session_.ecuCount(), number(request.data(0)));
    }
    return "none";
  }
  std::chrono::milliseconds timeOfACycle() {
    const Moment before = clock_.now();
    EXPECT_EQ(cycle(), "none");
    return std::chrono::round<std::chrono::milliseconds>(clock_.now() - before);
  }
  VehicleSession& session() { return session_; }

  static double number(const ferrox3::DataItem& item) {
    const auto* const whole = std::get_if<std::int32_t>(&item.value());
    return whole != nullptr ? *whole : std::get<double>(item.value());
  }

 private:
  ManualLinkClock& clock_;
  VehicleDescription description_;
  VehicleSession session_;
  std::unique_ptr<ferrox3::AcquisitionList> list_ = session_.createAcquisitionList();
  std::unique_ptr<ferrox3::PollSet> set_;
};

/// A simulated car: each ECU counts how often it was asked each thing, and answers after its own time.
class CountingCar : public SimulatedPeer {
 public:
  std::map<std::int32_t, std::chrono::microseconds> latency;
  std::map<std::pair<std::int32_t, std::uint8_t>, int> asked;
  std::vector<std::string> sent;
  std::string silent;  ///< "4098: 2" is not answered

  void start() override {}
  void answer(const LinkTarget& target, std::span<const std::uint8_t> request, std::chrono::microseconds,
              SimulatedAnswers& answers) override {
    sent.push_back(std::to_string(target.address) + ": " + std::to_string(request.back()));
    const int count = ++asked[{target.address, request.back()}];
    if (sent.back() == silent) return;
    const auto known = latency.find(target.address);
    answers.add(known == latency.end() ? 20ms : known->second) = {0x62, request[1], request[2],
                                                                  static_cast<std::uint8_t>(count >> 8),
                                                                  static_cast<std::uint8_t>(count)};
  }
};

TEST(SideBySide, ACycleTakesAsLongAsItsSlowestEcu) {
  ManualLinkClock clock;
  CountingCar car;
  SimulatedLink apart(clock, car, {.sideBySide = false, .bundles = false});
  EXPECT_EQ(Poller(apart, clock, 5).timeOfACycle(), 400ms);
  SimulatedLink together(clock, car, kSingly);
  Poller poller(together, clock, 5);
  EXPECT_EQ(poller.timeOfACycle(), 80ms);
  car.sent.clear();
  int wrong = 0;
  poller.cycle([&](std::size_t ecu, std::size_t request, double value) {
    wrong += value == car.asked[{static_cast<std::int32_t>(0x1001 + ecu), static_cast<std::uint8_t>(request)}]
                 ? 0
                 : 1;
  });
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(car.sent.size(), 20U);
  car.sent.resize(6);
  EXPECT_THAT(car.sent,
              testing::ElementsAre("4097: 0", "4098: 0", "4099: 0", "4100: 0", "4101: 0", "4097: 1"));
  car.latency = {{0x1001, 5ms}, {0x1002, 10ms}, {0x1004, 40ms}, {0x1005, 80ms}};
  EXPECT_EQ(poller.timeOfACycle(), 320ms);
  EXPECT_EQ(poller.timeOfACycle(), 320ms) << "nothing is left over";
}

TEST(SideBySide, ASilentEcuCostsOneTimeOutAndNothingIsTakenForALaterCycle) {
  ManualLinkClock clock;
  CountingCar car;
  SimulatedLink link(clock, car, kSingly);
  Poller poller(link, clock, 5);
  EXPECT_EQ(poller.cycle(), "none");
  car.silent = "4098: 1";
  car.sent.clear();
  const Moment before = clock.now();
  EXPECT_EQ(poller.cycle(), "E2: request 22 F0 01: no answer within 100 ms");
  EXPECT_EQ(clock.now() - before, 120ms);
  EXPECT_EQ(std::ranges::count(car.sent, "4098: 2"), 0) << "an ECU that is silent is asked nothing more";
  EXPECT_EQ(std::ranges::count(car.sent, "4097: 3"), 1);
  car.silent.clear();
  poller.initialise();
  std::map<std::string, int> sent;
  car.sent.clear();
  EXPECT_EQ(poller.cycle(), "none");
  for (const std::string& each : car.sent) ++sent[each];
  EXPECT_EQ(sent.size(), 20U);
  EXPECT_TRUE(std::ranges::all_of(sent, [](const auto& each) { return each.second == 1; }))
      << "all are asked anew";

  // What ends the communication while others are under way leaves nothing behind.
  int hooks = 0;
  link.setIdleHook([&] {
    if (++hooks == 1) poller.session().endCommunication();
  });
  EXPECT_EQ(poller.cycle(), "none");
  link.setIdleHook({});
  EXPECT_EQ(poller.timeOfACycle(), 80ms);
}

TEST(SideBySide, AGatewayThatTurnsRequestsAwayIsAskedFewerAtATime) {
  FaultyCar car(true);
  car.mostOpen = 2;
  for (std::uint16_t ecu = 0x1001; ecu <= 0x1005; ++ecu) car.ecus[ecu].usual = 20ms;
  const auto link = car.link();
  Poller poller(*link, car.clock, 5);
  EXPECT_EQ(poller.cycle(), "none");
  car.openAtMost = 0;
  EXPECT_EQ(poller.timeOfACycle(), 60ms) << "five bundles, two at a time";
  EXPECT_EQ(car.openAtMost, 2U);
  // What is asked in between is sent again, too, and waits for nothing that was told ahead.
  car.mostOpen = 1;
  const auto out = poller.session().createRawBuffer();
  const auto in = poller.session().createRawBuffer();
  out->fill("22 F1 90");
  std::chrono::milliseconds wait{};
  EXPECT_EQ(poller.cycle([&](std::size_t ecu, std::size_t request, double) {
    if (ecu > 0 || request > 0) return;
    const Moment before = car.clock.now();
    poller.session().ecu(4).exchange(*out, *in);
    wait = std::chrono::round<std::chrono::milliseconds>(car.clock.now() - before);
  }),
            "none");
  EXPECT_EQ(in->text(), "62 F1 90 00 01");
  EXPECT_LT(wait, 75ms);
  car.mostOpen = 100;
  for (int i = 0; i < 4; ++i) {
    car.clock.step(10s);
    EXPECT_EQ(poller.cycle(), "none");
  }
  EXPECT_EQ(poller.timeOfACycle(), 20ms) << "one more at a time after each ten seconds";
  car.mostOpen = 0;
  EXPECT_THAT(poller.cycle(), testing::HasSubstr("car: "));
}

TEST(SideBySide, WhatNobodyWaitsForAnyMoreIsNotSentAgain) {
  FaultyCar car(true);
  car.ecus[0x1002].usual = 1s;
  const auto link = car.link();
  Conversation conversation(*link, car.clock, 1s);
  const Link::Bytes request{0x22, 0xF0, 0x00};
  Link::Bytes response;
  const auto ask = [&] { return conversation.exchange({0x1001, "UDS"}, request, 100ms, response); };
  conversation.askAhead({0x1002, "UDS"}, request, 100ms);
  EXPECT_EQ(ask(), ExchangeOutcome::answered);
  conversation.forgetAhead();
  // Now the gateway reaches none of the two.
  car.mostOpen = 0;
  car.put(500us, 0x8003, {0x10, 0x02, 0x0E, 0x00, 0x06});
  EXPECT_EQ(ask(), ExchangeOutcome::unreachable);
  EXPECT_LT(car.clock.now(), 200ms);
}

TEST(SideBySide, AMessageThatBeginsWhileABusyEcuIsLeftAloneEndsInTime) {
  ManualLinkClock clock;
  test::ScriptedBus::Log bus;
  bus.script["03 22 F0 00 CC CC CC CC"] = {"03 7F 22 21", "10 14 62 F0 00 01 02 03"};
  IsoTpLink link(
      {}, [&] { return std::make_unique<test::ScriptedBus>(bus, clock); }, clock);
  Conversation conversation(link, clock, 1s);
  Link::Bytes response;
  const Link::Bytes request{0x22, 0xF0, 0x00};
  EXPECT_EQ(conversation.exchange({0x7E0, "UDS"}, request, 100ms, response), ExchangeOutcome::refused);
  EXPECT_LT(clock.now(), 2s);
}

TEST(SideBySide, InRandomExchangesNoValueIsRecordedThatIsNotTheNewest) {
  constexpr int kExchanges = 100'000;
  for (const bool acknowledges : {true, false}) {
    FaultyCar car(acknowledges);
    for (std::uint16_t ecu = 0x1001; ecu <= 0x1003; ++ecu) {
      car.ecus.emplace(ecu, FaultyEcu(ecu));
      car.ecus.at(ecu).usual = std::chrono::milliseconds(3 * (ecu - 0x1000));
      car.ecus.at(ecu).faults = {Fault::lost, Fault::doubled, Fault::late,
                                 Fault::cut,  Fault::refused, Fault::pending};
      if (acknowledges) car.ecus.at(ecu).faults.push_back(Fault::copiedSoon);
    }
    const auto link = car.link();
    Poller poller(*link, car.clock, 3);
    int seen = 0;
    int old = 0;
    const auto look = [&](std::size_t ecu, std::size_t request, double value) {
      const FaultyEcu& asked = car.ecus.at(static_cast<std::uint16_t>(0x1001 + ecu));
      const FaultyEcu::Bytes frame{0x22, 0xF0, static_cast<std::uint8_t>(request)};
      ++seen;
      old += value == asked.asked.at(frame) % 0x10000 ? 0 : 1;
    };
    for (int sends = 0; sends < kExchanges / 2; sends += 12)
      if (poller.cycle(look) != "none") poller.initialise();
    EXPECT_EQ(old, 0) << "of " << seen;
    EXPECT_GT(seen, kExchanges / 20);
  }
}

TEST(SideBySide, ATraceOfSuchADriveIsReplayedSideBySide) {
  ManualLinkClock clock;
  test::MemoryFileSystem files;
  CountingCar car;
  using Seen = std::vector<double>;
  const auto drive = [&](Link& link) {
    Poller poller(link, clock, 3);
    Seen seen;
    for (int i = 0; i < 5; ++i)
      poller.cycle([&](std::size_t, std::size_t, double value) { seen.push_back(value); });
    return seen;
  };
  Seen driven;
  {
    TraceLink link(std::make_unique<SimulatedLink>(clock, car, kSingly), clock, files.create("/t.trace"));
    driven = drive(link);
  }
  EXPECT_THAT(files.files["/t.trace"], testing::HasSubstr("<4097 UDS 62 F0 00 00 02"));
  for (const bool sideBySide : {true, false}) {
    ReplayPeer replay(parseTrace(files.files["/t.trace"], "t"), "t");
    SimulatedLink link(clock, replay, {.sideBySide = sideBySide, .bundles = false});
    EXPECT_EQ(drive(link), driven);
  }
}

}  // namespace
}  // namespace tarnlog::host
