#include <gmock/gmock.h>

#include <array>
#include <map>
#include <random>

#include "host/service/HexText.h"
#include "host/vehicle/session/Conversation.h"
#include "tests/support/FailureOf.h"
#include "tests/support/FaultyCar.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

using Bytes = std::vector<std::uint8_t>;
using Fault = test::FaultyEcu::Fault;

/// The ECU at 1001, and whoever asks it.
class Car : public test::FaultyCar {
 public:
  using FaultyCar::FaultyCar;

  test::FaultyEcu& ecu = ecus[0x1001];

  /// "new" when the number at the answer's end is the newest, "none" for silence, else the failure's text.
  std::string ask(std::string_view request) {
    const Bytes bytes = *bytesFromHex(request);
    Link::Bytes response;
    auto outcome = Conversation::Outcome::silent;
    const std::string failure = test::failureOf([&] {
      outcome = conversation_.exchange({0x1001, "UDS"}, bytes, milliseconds(100), response);
    });
    if (outcome == Conversation::Outcome::refused) return "refused";
    if (outcome != Conversation::Outcome::answered) return failure;
    const unsigned count = response[response.size() - 2] * 0x100U + response.back();
    return count == ecu.asked[bytes] ? "new" : "old";
  }

  /// How often each outcome came.
  std::map<std::string, int> askOften(int times) {
    std::mt19937 random(7);
    std::map<std::string, int> outcomes;
    for (int i = 0; i < times; ++i) {
      ++outcomes[ask(std::array{"22 F1 90", "22 F1 91", "21 80"}[random() % 3])];
      if (random() % 20 == 0) clock.step(milliseconds(random() % 300));
    }
    return outcomes;
  }

  /// Asks until an answer is lost.
  void loseOne(std::string_view request) {
    ecu.faults.assign(1, Fault::lost);
    while (ask(request) == "new") {
    }
    ecu.faults.clear();
  }

 private:
  std::unique_ptr<DoipLink> link_ = link(0x1001);
  Conversation conversation_{*link_, clock, milliseconds(1000)};
};

TEST(LateAnswers, AreNeverTakenForNewOnes) {
  constexpr int kTimes = 20000;
  for (const bool acknowledges : {true, false}) {
    Car car(acknowledges);
    car.ecu.faults = {Fault::lost, Fault::doubled, Fault::late, Fault::cut, Fault::refused, Fault::pending};
    if (acknowledges) car.ecu.faults.push_back(Fault::copiedSoon);
    const auto outcomes = car.askOften(kTimes);
    EXPECT_EQ(outcomes.count("old"), 0U) << testing::PrintToString(outcomes);
    EXPECT_GT(outcomes.at("new"), kTimes / 2) << testing::PrintToString(outcomes);
  }
}

TEST(LateAnswers, CostNothingWhileNoneCome) {
  Car car(true);
  EXPECT_EQ(car.askOften(300)["new"], 300);
  EXPECT_EQ(car.ecu.asked.size(), 3U) << "nothing but what was to be asked";

  car.ecu.faults = {Fault::doubled};
  EXPECT_EQ(car.askOften(300)["new"], 300);
  EXPECT_GT(car.ecu.asked.count(Bytes{0x3E, 0x00}), 0U);
}

TEST(LateAnswers, EqualRequestsDoNotFallBehindWithoutEnd) {
  Car car(false);
  unsigned behind = 0;
  for (int i = 0; i < 2000; ++i) {
    // The copy of an answer comes behind the next, equal request; once taken, the ECU's answer is left over.
    if (i % 320 == 150) {
      const unsigned count = car.ecu.asked[*bytesFromHex("22 F1 90")];
      Bytes copy = *bytesFromHex("10 01 0E 00 62 F1 90");
      copy.insert(copy.end(), {static_cast<std::uint8_t>(count >> 8), static_cast<std::uint8_t>(count)});
      car.put(2ms, 0x8001, copy);
    }
    behind += car.ask("22 F1 90") == "old" ? 1 : 0;
  }
  EXPECT_GT(behind, 0U);
  EXPECT_LT(behind, 1000U);
  EXPECT_EQ(car.ask("22 F1 90"), "new");

  car.ecu.knowsTesterPresent = false;
  for (int i = 0; i < 500; ++i) EXPECT_EQ(car.ask("22 F1 91"), "new");
}

TEST(LateAnswers, AnEcuThatDoesNotKnowTesterPresentIsBelievedAgainAfterAWhile) {
  Car car(true);
  car.ecu.knowsTesterPresent = false;
  EXPECT_EQ(car.ask("22 F1 90"), "new");
  car.loseOne("22 F1 90");
  EXPECT_EQ(car.ask("22 F1 90"), "none");
  EXPECT_EQ(car.ask("21 80"), "new") << "cannot be mistaken";
  EXPECT_EQ(car.ask("22 F1 90"), "new") << "all before is through";
  car.loseOne("22 F1 90");
  const Moment before = car.clock.now();
  while (car.ask("22 F1 90") == "none") {
  }
  EXPECT_NEAR(static_cast<double>((car.clock.now() - before).count()), 5e6, 2e5);

  // What nobody will answer is not waited for without end: after TesterPresent itself, and a doubled answer.
  EXPECT_EQ(car.ask("3E 00"), "none");
  EXPECT_EQ(car.ask("22 F1 90"), "new");
  car.ecu.faults = {Fault::doubled};
  EXPECT_GT(car.askOften(200)["new"], 190);
}

TEST(LateAnswers, AMessageThatIsCutShortIsNotFilledUpWithTheNext) {
  for (const bool more : {false, true}) {
    Car car(true);
    EXPECT_EQ(car.ask("21 80"), "new");
    car.ecu.faults.assign(1, Fault::cut);
    for (std::string outcome = "new"; outcome != "none";) {
      outcome = car.ask("21 80");
      if (more) car.put(0ms, 0x0007, {});  // "alive?" comes right behind
    }
    car.ecu.faults.clear();
    EXPECT_EQ(car.ask("21 80"), more ? "car: what answers at this port does not speak diagnostics over IP"
                                     : "car: the gateway broke off in the middle of a message");
    EXPECT_EQ(car.ask("21 80"), "new") << "over a new connection";
  }
}

}  // namespace
}  // namespace tarnlog::host
