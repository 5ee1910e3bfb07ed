#include <gmock/gmock.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>

#include "host/link/can/IsoTpLink.h"
#include "host/link/can/IsoTpStream.h"
#include "host/link/doip/DoipLink.h"
#include "host/service/HexText.h"
#include "host/vehicle/session/Conversation.h"
#include "platform/base/TarnError.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/PeerStream.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::ManualLinkClock;

using Bytes = std::vector<std::uint8_t>;

/// One answer on its way.
struct Delivery {
  std::chrono::microseconds delay;
  Bytes bytes;
  bool cut = false;  ///< only its first half comes
};

/// An ECU that ends each answer with the number of times that it was asked this, and does wrong at random.
class FaultyEcu {
 public:
  enum class Fault : std::uint8_t { none, lost, doubled, late, copiedSoon, cut, refused, pending };

  std::vector<Fault> faults;  ///< those that it may have, one in six times
  bool knowsTesterPresent = true;
  std::map<Bytes, unsigned> asked;

  std::vector<Delivery> answer(const Bytes& request) {
    constexpr auto kUsual = 5ms;
    const unsigned count = ++asked[request];
    if (request[0] == 0x3E && !knowsTesterPresent) return {};
    Bytes bytes(request);
    bytes[0] = static_cast<std::uint8_t>(bytes[0] + 0x40);
    if (request[0] != 0x3E)
      bytes.insert(bytes.end(), {static_cast<std::uint8_t>(count >> 8), static_cast<std::uint8_t>(count)});
    switch (fault()) {
      case Fault::none:
        return {{kUsual, bytes}};
      case Fault::lost:
        return {};
      case Fault::doubled:
        return {{kUsual, bytes}, {kUsual, bytes}};
      case Fault::late:
        return {{milliseconds(150 + random_() % 400), bytes}};
      case Fault::copiedSoon:
        return {{kUsual, bytes}, {kUsual + 500us, bytes}};
      case Fault::cut:
        return {{kUsual, bytes, true}};
      case Fault::refused:
        return {{kUsual, {0x7F, request[0], 0x22}}};
      case Fault::pending:
        return {{kUsual, {0x7F, request[0], 0x78}}, {60ms, bytes}};
    }
    return {};
  }

 private:
  Fault fault() {
    return faults.empty() || random_() % 6 != 0 ? Fault::none : faults[random_() % faults.size()];
  }

  std::mt19937 random_{20260};
};

using Fault = FaultyEcu::Fault;

/// A car on Ethernet: the ECU at 1001 behind a gateway of ISO 13400-2.
struct DoipCar {
  explicit DoipCar(bool gatewayAcknowledges) : acknowledges(gatewayAcknowledges) {}

  std::unique_ptr<Link> makeLink() {
    const auto connect = [this](const std::string&, std::uint16_t) {
      auto made = std::make_unique<test::PeerStream>(
          [this](std::string_view bytes) {
            take(bytes);
            return std::string();
          },
          clock);
      stream = made.get();
      return made;
    };
    return std::make_unique<DoipLink>(DoipSettings{.host = "car", .ecu = 0x1001}, connect, clock);
  }

  void take(std::string_view message) {
    if (message[2] == 0x00) return put(0ms, "00 06", *bytesFromHex("0E 00 10 01 10 00 00 00 00"));
    const Bytes request(message.begin() + 12, message.end());
    if (acknowledges) put(1ms, "80 02", *bytesFromHex("10 01 0E 00 00"));
    for (const Delivery& each : ecu.answer(request)) {
      Bytes payload = *bytesFromHex("10 01 0E 00");
      payload.insert(payload.end(), each.bytes.begin(), each.bytes.end());
      put(each.delay, "80 01", payload, each.cut);
    }
  }

  void put(std::chrono::microseconds delay, std::string_view type, const Bytes& payload, bool cut = false) {
    Bytes bytes = *bytesFromHex("02 FD " + std::string(type) + " 00 00 00");
    bytes.push_back(static_cast<std::uint8_t>(payload.size()));
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    stream->latency = delay;
    stream->put({reinterpret_cast<const char*>(bytes.data()), cut ? bytes.size() - 2 : bytes.size()});
  }

  bool acknowledges;
  ManualLinkClock clock;
  FaultyEcu ecu;
  test::PeerStream* stream = nullptr;
};

/// A car on CAN: the ECU at 7E0, answers of one frame.
struct CanCar {
  class Port : public CanPort {
   public:
    explicit Port(CanCar& car) : car_(car) {}
    void open() override {}
    void close() override {}
    void setIdleHook(std::function<void()>) override {}
    void send(std::uint32_t, const CanPayload& frame) override {
      const auto bytes = frame.bytes();
      for (const Delivery& each : car_.ecu.answer({bytes.begin() + 1, bytes.begin() + 1 + bytes[0]}))
        coming_.push_back({car_.clock.now() + each.delay, each.bytes});
    }
    bool receive(CanPayload& frame, Moment deadline) override {
      const Moment now = car_.clock.now();
      const bool comes = !coming_.empty() && coming_.front().delay <= std::max(now, deadline);
      const Moment moment = comes ? coming_.front().delay : deadline;
      car_.clock.step(std::max(Moment(), moment - now));
      if (!comes) return false;
      frame = CanPayload();
      frame.append(static_cast<std::uint8_t>(coming_.front().bytes.size()));
      frame.append(coming_.front().bytes);
      coming_.pop_front();
      return true;
    }

   private:
    CanCar& car_;
    std::deque<Delivery> coming_;
  };

  std::unique_ptr<Link> makeLink() {
    return std::make_unique<IsoTpLink>(
        std::nullopt,
        [this](CanPair pair) {
          return std::make_unique<IsoTpStream>(std::make_unique<Port>(*this), pair, clock);
        },
        clock);
  }

  ManualLinkClock clock;
  FaultyEcu ecu;
};

template <class Car>
class Tester {
 public:
  explicit Tester(Car& car)
      : car_(car), link_(car.makeLink()), conversation_(*link_, car.clock, milliseconds(1000)) {}

  /// The number at the answer's end is the newest; "none" for silence, else the failure's text.
  std::string ask(std::string_view request, std::int32_t address) {
    const Bytes bytes = *bytesFromHex(request);
    try {
      Link::Bytes response;
      const auto outcome = conversation_.exchange({address, "UDS"}, bytes, milliseconds(100), response);
      if (outcome == Conversation::Outcome::refused) return "refused";
      if (outcome != Conversation::Outcome::answered) return "none";
      const unsigned count = response[response.size() - 2] * 0x100U + response.back();
      return count == car_.ecu.asked[bytes] ? "new" : "old";
    } catch (const TarnError& error) {
      return error.description();
    }
  }

  /// How often each outcome came.
  std::map<std::string, int> askOften(std::int32_t address, int times) {
    std::mt19937 random(7);
    std::map<std::string, int> outcomes;
    for (int i = 0; i < times; ++i) {
      ++outcomes[ask(std::array{"22 F1 90", "22 F1 91", "21 80"}[random() % 3], address)];
      if (random() % 20 == 0) car_.clock.step(milliseconds(random() % 300));
    }
    return outcomes;
  }

 private:
  Car& car_;
  std::unique_ptr<Link> link_;
  Conversation conversation_;
};

TEST(LateAnswers, AreNeverTakenForNewOnes) {
  constexpr int kTimes = 20000;
  const auto expectNew = [](const std::map<std::string, int>& outcomes) {
    EXPECT_EQ(outcomes.count("old"), 0U) << testing::PrintToString(outcomes);
    EXPECT_GT(outcomes.at("new"), kTimes / 2) << testing::PrintToString(outcomes);
  };
  for (const bool acknowledges : {true, false}) {
    DoipCar car(acknowledges);
    car.ecu.faults = {Fault::lost, Fault::doubled, Fault::late, Fault::cut, Fault::refused, Fault::pending};
    if (acknowledges) car.ecu.faults.push_back(Fault::copiedSoon);
    expectNew(Tester(car).askOften(0x1001, kTimes));
  }
  CanCar car;
  car.ecu.faults = {Fault::lost, Fault::doubled, Fault::late, Fault::refused, Fault::pending};
  expectNew(Tester(car).askOften(0x7E0, kTimes));
}

TEST(LateAnswers, CostNothingWhileNoneCome) {
  DoipCar car(true);
  EXPECT_EQ(Tester(car).askOften(0x1001, 300)["new"], 300);
  EXPECT_EQ(car.ecu.asked.size(), 3U) << "nothing but what was to be asked";

  car.ecu.faults = {Fault::doubled};
  EXPECT_EQ(Tester(car).askOften(0x1001, 300)["new"], 300);
  EXPECT_GT(car.ecu.asked.count(Bytes{0x3E, 0x00}), 0U);
}

TEST(LateAnswers, EqualRequestsDoNotFallBehindWithoutEnd) {
  DoipCar car(false);
  Tester tester(car);
  unsigned behind = 0;
  for (int i = 0; i < 2000; ++i) {
    // The copy of an answer comes behind the next, equal request; once taken, the ECU's answer is left over.
    if (i % 320 == 150) {
      const unsigned count = car.ecu.asked[*bytesFromHex("22 F1 90")];
      Bytes copy = *bytesFromHex("10 01 0E 00 62 F1 90");
      copy.insert(copy.end(), {static_cast<std::uint8_t>(count >> 8), static_cast<std::uint8_t>(count)});
      car.put(2ms, "80 01", copy);
    }
    behind += tester.ask("22 F1 90", 0x1001) == "old" ? 1 : 0;
  }
  EXPECT_GT(behind, 0U);
  EXPECT_LT(behind, 1000U);
  EXPECT_EQ(tester.ask("22 F1 90", 0x1001), "new");

  car.ecu.knowsTesterPresent = false;
  for (int i = 0; i < 500; ++i) EXPECT_EQ(tester.ask("22 F1 91", 0x1001), "new");
}

TEST(LateAnswers, AnEcuThatDoesNotKnowTesterPresentIsBelievedAgainAfterAWhile) {
  CanCar car;
  Tester tester(car);
  car.ecu.knowsTesterPresent = false;
  EXPECT_EQ(tester.ask("22 F1 90", 0x7E0), "new");
  car.ecu.faults.assign(1, Fault::lost);
  while (tester.ask("22 F1 90", 0x7E0) == "new") {
  }
  car.ecu.faults.clear();
  EXPECT_EQ(tester.ask("22 F1 90", 0x7E0), "none");
  EXPECT_EQ(tester.ask("21 80", 0x7E0), "new") << "cannot be mistaken";
  EXPECT_EQ(tester.ask("22 F1 90", 0x7E0), "new") << "all before is through";
  car.ecu.faults.assign(1, Fault::lost);
  while (tester.ask("22 F1 90", 0x7E0) == "new") {
  }
  car.ecu.faults.clear();
  const Moment before = car.clock.now();
  while (tester.ask("22 F1 90", 0x7E0) == "none") {
  }
  EXPECT_NEAR(static_cast<double>((car.clock.now() - before).count()), 5e6, 2e5);
}

TEST(LateAnswers, AMessageThatIsCutShortIsNotFilledUpWithTheNext) {
  for (const bool more : {false, true}) {
    DoipCar car(true);
    Tester tester(car);
    EXPECT_EQ(tester.ask("21 80", 0x1001), "new");
    car.ecu.faults.assign(1, Fault::cut);
    std::string outcome = "new";
    while (outcome == "new") {
      outcome = tester.ask("21 80", 0x1001);
      if (more) car.put(0ms, "00 07", {});  // "alive?" comes right behind
    }
    EXPECT_EQ(outcome, "none");
    car.ecu.faults.clear();
    EXPECT_EQ(tester.ask("21 80", 0x1001),
              more ? "car: what answers at this port does not speak diagnostics over IP"
                   : "car: the gateway broke off in the middle of a message");
    EXPECT_EQ(tester.ask("21 80", 0x1001), "new") << "over a new connection";
  }
}

}  // namespace
}  // namespace tarnlog::host
