#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/link/trace/SimulatedLink.h"
#include "host/service/HexText.h"
#include "host/vehicle/session/VehicleSession.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ManualLinkClock.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

/// An ECU that is asked for identifiers F001 to F006, several at once.
class Identifiers : public SimulatedPeer {
 public:
  std::map<std::uint8_t, std::string> data{{1, "11"},       {2, "22 22"}, {3, "33"},
                                           {4, "44 44 44"}, {5, "55"},    {6, "66"}};
  std::size_t most = 64;               ///< at once
  std::uint8_t refusal = 0x13;         ///< of more than that
  bool backwards = false;              ///< the answer's order
  std::string behind;                  ///< bytes at the end of answers to several
  std::set<std::uint8_t> spoils;       ///< an identifier that makes it refuse all
  std::set<std::uint8_t> longAnswers;  ///< which do not fit into one answer all
  std::size_t longest = 4095;          ///< bytes of a request that reach it
  std::set<std::uint8_t> leavesOut;    ///< of answers to several
  bool silent = false;                 ///< when it is asked for several
  bool dead = false;                   ///< whatever it is asked
  std::vector<std::string> sent;

  void start() override {}
  void answer(const LinkTarget&, std::span<const std::uint8_t> request, std::chrono::microseconds,
              SimulatedAnswers& answers) override {
    sent.push_back(hexText(request.subspan(1)));
    if (dead) return;
    if (request.size() > longest) throw EcuUnreachable(1, "Identifiers", "no flow control");
    if (request.size() > 3 && silent) return;
    Link::Bytes& bytes = answers.add(10ms);
    std::vector<std::uint8_t> asked;
    for (std::size_t at = 2; at < request.size(); at += 2) asked.push_back(request[at]);
    bytes = {0x7F, 0x22, refusal};
    const auto isLong = [&](std::uint8_t each) { return longAnswers.contains(each); };
    if (asked.size() > most || std::ranges::count_if(asked, isLong) > 1) return;
    bytes[2] = 0x31;
    if (std::ranges::any_of(asked, [&](std::uint8_t each) { return spoils.contains(each); })) return;
    if (backwards) std::ranges::reverse(asked);
    Link::Bytes positive{0x62};
    for (const std::uint8_t each : asked) {
      if (!data.contains(each) || (asked.size() > 1 && leavesOut.contains(each))) continue;
      positive.insert(positive.end(), {0xF0, each});
      const auto own = *bytesFromHex(data[each]);
      positive.insert(positive.end(), own.begin(), own.end());
    }
    if (positive.size() == 1) return;
    if (asked.size() > 1) {
      const auto more = *bytesFromHex(behind);
      positive.insert(positive.end(), more.begin(), more.end());
    }
    bytes = positive;
  }
};

/// Polls them.
struct Car {
  Car() {
    std::string text = R"({"name":"car","ecus":[{"name":"E","address":1,"protocol":"UDS","requests":[)";
    for (int i = 1; i <= 6; ++i)
      text += (i > 1 ? "," : "") + std::string(R"({"name":"R)") + std::to_string(i) +
              R"(","frame":"22 F0 0)" + std::to_string(i) + R"(","data":[{"name":"V","byte":3}]})";
    description = parseVehicleDescription(text + R"(]}]})", "car", {});
    session.emplace(description, link, clock, UserLocale{});
    list = session->createAcquisitionList();
    for (std::size_t i = 0; i < 6; ++i) list->add(session->ecu(0).request(i).data(0));
    set = list->pollSet();
  }
  /// The values in hexadecimal, "--" where there is none.
  std::string cycle() {
    peer.sent.clear();
    std::string values;
    for (std::size_t i = 0; i < set->requestCount(); ++i) {
      const std::string failure = test::failureOf([&] { set->request(i).send(); });
      if (failure != "none") return failure;
      const auto* const whole = std::get_if<std::int32_t>(&set->request(i).data(0).value());
      values += whole != nullptr ? hexText(std::vector{static_cast<std::uint8_t>(*whole)}) : "--";
    }
    return values;
  }
  void cycles(int count) {
    for (int i = 0; i < count; ++i) cycle();
  }

  test::ManualLinkClock clock;
  Identifiers peer;
  SimulatedLink link{clock, peer};
  VehicleDescription description;
  std::optional<VehicleSession> session;
  std::unique_ptr<ferrox3::AcquisitionList> list;
  std::unique_ptr<ferrox3::PollSet> set;
};

constexpr const char* kAll = "112233445566";
constexpr const char* kTogether = "F0 01 F0 02 F0 03 F0 04 F0 05 F0 06";

TEST(IdentifierBundle, AsksForAllAtOnceOnceTheirLengthsAreKnown) {
  Car car;
  EXPECT_EQ(car.cycle(), kAll);
  EXPECT_EQ(car.peer.sent.size(), 6U) << "each alone, to learn how long it is";
  EXPECT_EQ(car.cycle(), kAll);
  EXPECT_THAT(car.peer.sent, ElementsAre(kTogether));
  car.peer.backwards = true;
  car.peer.data[2] = "2A 22";
  EXPECT_EQ(car.cycle(), "112A33445566");
  EXPECT_THAT(car.peer.sent, ElementsAre(kTogether));
}

TEST(IdentifierBundle, FindsOutHowManyTheEcuTakes) {
  for (const int refusal : {0x13, 0x14}) {
    Car car;
    car.peer.most = 2;
    car.peer.refusal = static_cast<std::uint8_t>(refusal);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(car.cycle(), kAll);
    EXPECT_EQ(car.cycle(), kAll);
    EXPECT_THAT(car.peer.sent, ElementsAre("F0 01 F0 02", "F0 03 F0 04", "F0 05 F0 06"));
    car.peer.most = 1;
    car.cycles(2);
    EXPECT_EQ(car.cycle(), kAll);
    EXPECT_EQ(car.peer.sent.size(), 6U);
    // The ECU's limit is remembered when an acquisition begins anew.
    car.set = car.list->pollSet();
    car.cycles(2);
    EXPECT_EQ(car.peer.sent.size(), 6U);
  }
}

TEST(IdentifierBundle, AFewThatAreTooMuchTogetherDoNotLimitTheOthers) {
  Car car;
  car.peer.most = 4;
  car.cycles(3);
  EXPECT_EQ(car.cycle(), kAll);
  EXPECT_THAT(car.peer.sent, ElementsAre("F0 01 F0 02 F0 03", "F0 04 F0 05 F0 06"));
  car.peer.longAnswers = {5, 6};
  for (int i = 0; i < 3; ++i) EXPECT_EQ(car.cycle(), kAll);
  EXPECT_THAT(car.peer.sent, ElementsAre("F0 01 F0 02 F0 03", "F0 04 F0 05", "F0 06"));
}

TEST(IdentifierBundle, LeavesOutWhatIsMissingOrRefusedAndTakesItBack) {
  Car car;
  car.cycles(2);
  car.peer.data.erase(3);
  EXPECT_EQ(car.cycle(), "1122--445566");
  EXPECT_THAT(car.peer.sent, ElementsAre(kTogether, "F0 03"));
  EXPECT_EQ(car.cycle(), "1122--445566");
  EXPECT_THAT(car.peer.sent, ElementsAre("F0 01 F0 02 F0 04 F0 05 F0 06"));
  car.peer.data[3] = "3A";
  car.clock.step(6s);
  EXPECT_EQ(car.cycle(), "11223A445566");
  EXPECT_EQ(car.cycle(), "11223A445566");
  EXPECT_THAT(car.peer.sent, ElementsAre(kTogether));

  // One bad identifier lets the ECU refuse all of them.
  car.peer.spoils = {5};
  EXPECT_EQ(car.cycle(), "11223A44--66");
  EXPECT_EQ(car.cycle(), "11223A44--66");
  EXPECT_THAT(car.peer.sent, ElementsAre("F0 01 F0 02 F0 03 F0 04 F0 06"));
  car.peer.spoils.clear();
  car.clock.step(6s);
  car.cycles(2);
  EXPECT_THAT(car.peer.sent, ElementsAre(kTogether));

  // It goes, is missed three times in a row, and comes back.
  car.peer.leavesOut = {2};
  car.cycles(4);
  EXPECT_THAT(car.peer.sent, ElementsAre("F0 01 F0 03 F0 04 F0 05 F0 06", "F0 02"))
      << "it is answered alone only";
  car.peer.data.erase(2);
  car.cycles(2);
  car.peer.leavesOut.clear();
  car.peer.data[2] = "22 22";
  car.clock.step(6s);
  car.cycles(2);
  EXPECT_THAT(car.peer.sent, ElementsAre(kTogether));
}

TEST(IdentifierBundle, NeverRecordsAWrongSplit) {
  Car car;
  car.cycles(2);
  // A length that changes, bytes behind the last one, an answer that is cut.
  car.peer.data[2] = "2B 22 22";
  EXPECT_EQ(car.cycle(), "112B33445566");
  EXPECT_EQ(car.peer.sent.size(), 7U);
  EXPECT_EQ(car.cycle(), "112B33445566");
  EXPECT_EQ(car.cycle(), "112B33445566");
  EXPECT_THAT(car.peer.sent, ElementsAre(kTogether));
  car.peer.behind = "AA AA";
  for (int i = 0; i < 8; ++i) EXPECT_EQ(car.cycle(), "112B33445566");
  EXPECT_EQ(car.peer.sent.size(), 6U) << "singly from now on";
  for (const auto after : {31s, 61s}) {
    car.clock.step(after);
    if (after > 60s) car.peer.behind.clear();
    car.cycles(2);
    EXPECT_EQ(car.cycle(), "112B33445566");
    EXPECT_EQ(car.peer.sent.size(), after > 60s ? 1U : 6U) << "tried again after a while";
  }
}

TEST(IdentifierBundle, DoesNotEndThePollingOfWhatCanOnlyBeAskedForAlone) {
  Car car;
  car.peer.longest = 7;
  for (int i = 0; i < 4; ++i) EXPECT_EQ(car.cycle(), kAll) << "longer requests do not reach the ECU";
  EXPECT_THAT(car.peer.sent, ElementsAre("F0 01 F0 02 F0 03", "F0 04 F0 05 F0 06"));

  // When nothing reaches the ECU, the length of the requests does not matter.
  car.peer.longest = 0;
  for (int i = 0; i < 3; ++i) EXPECT_THAT(car.cycle(), testing::HasSubstr("no flow control"));
  car.peer.longest = 7;
  car.cycle();
  EXPECT_THAT(car.peer.sent, ElementsAre("F0 01 F0 02 F0 03", "F0 04 F0 05 F0 06"));

  car.peer.silent = true;
  EXPECT_THAT(car.cycle(), testing::HasSubstr("no answer"));
  EXPECT_EQ(car.peer.sent.size(), 1U) << "one time-out, no second one for the same alone";
  // What was received before the failure is not used after it.
  car.peer.silent = false;
  car.set->protocol().initialiseAll();
  car.peer.data[2] = "2C 22";
  EXPECT_EQ(car.cycle(), "112C33445566");

  // An ECU that is silent whatever it is asked says nothing about asking for several at once.
  car.peer.dead = true;
  car.cycles(20);
  car.peer.dead = false;
  car.clock.step(6s);
  car.cycles(2);
  EXPECT_EQ(car.peer.sent.size(), 2U);
}

}  // namespace
}  // namespace tarnlog::host
