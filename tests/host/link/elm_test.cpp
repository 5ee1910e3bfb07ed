#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "host/link/PatientLink.h"
#include "host/link/elm/Elm327Link.h"
#include "host/link/elm/ElmFrames.h"
#include "tests/support/Asking.h"
#include "tests/support/Elm327Peer.h"
#include "tests/support/SerialPeerStream.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::Elm327Peer;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

using Bus = Elm327Peer::Bus;
using Answers = std::map<std::string, std::vector<std::string>>;

const LinkTarget kEngine{0x7E0, "OBD-II"};
const LinkTarget kGearbox{0x7E1, "OBD-II"};
constexpr const char* kSpeed = "41 0C 1A F8; ";
constexpr const char* kVin = "49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33 34 35 36; ";

/// A link to an adapter in memory, on a serial line of this rate.
struct Rig {
  explicit Rig(std::optional<char> protocol = {}, int baud = 0) {
    connect(protocol, baud);
    engine.answers = {{"0100", {"4100BE3FA813"}},
                      {"010C", {"410C1AF8"}},
                      {"010D", {"410D20"}},
                      {"0902", {"4902013144344750303052353542313233343536"}}};
  }
  /// A car with these ECUs only.
  Rig(Bus bus, const std::map<std::uint32_t, Answers>& ecus) : Rig() {
    adapter.bus = bus;
    adapter.ecus.clear();
    for (const auto& [source, answers] : ecus) adapter.addEcu(source).answers = answers;
  }

  void connect(std::optional<char> protocol, int baud, bool mayBeFaster = true) {
    auto made = std::make_unique<test::SerialPeerStream>(adapter, baud, clock);
    stream = made.get();
    link = std::make_unique<PatientLink>(
        std::make_unique<Elm327Link>(std::move(made), protocol, clock, mayBeFaster), clock);
    link->setIdleHook([this] { ++idled; });
  }
  std::string ask(const LinkTarget& target, std::string_view request, int timeout = 1000) {
    return test::ask(*link, target, request, milliseconds(timeout));
  }
  std::string ecus() {
    link->open();
    std::string text;
    for (const LinkTarget& target : link->findEcus()) text += std::to_string(target.address) + " ";
    return text;
  }
  long heard(std::string_view line) const {
    return std::count(adapter.heard.begin(), adapter.heard.end(), line);
  }

  test::ManualLinkClock clock;
  Elm327Peer adapter;
  Elm327Peer::Ecu& engine = adapter.addEcu(0x7E8);
  test::SerialPeerStream* stream = nullptr;
  std::unique_ptr<Link> link;
  int idled = 0;
};

TEST(Elm327, SetsUpFindsTheBusAndAsks) {
  Rig rig;
  rig.adapter.addEcu(0x7E9).answers["0100"] = {"410088180010"};
  EXPECT_EQ(rig.ecus(), "2016 2017 ");
  EXPECT_EQ(rig.ask(kGearbox, "01 00"), "41 00 88 18 00 10; ");
  EXPECT_TRUE(rig.link->takesSeveralPids(kEngine));
  // The second time the adapter is told how many frames to expect.
  for (const int round : {0, 1}) {
    EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
    EXPECT_EQ(rig.ask(kEngine, "09 02"), kVin);
    EXPECT_EQ(rig.heard("010C1") + rig.heard("09023"), 2 * round);
  }
  EXPECT_GT(rig.idled, 0);
}

TEST(Elm327, WorksWithEveryKindOfAnswerForm) {
  const test::ElmForm forms[] = {
      {.lineEnd = "\r\n"},
      {.lineEnd = std::string("\r\0", 2)},
      {.unknown = {"E0"}, .keepsEcho = true},
      {.unknown = {"S0"}, .keepsBlanks = true},
      {.unknown = {"H"}},
      {.countsFrames = false},
      {.unknown = {"AT", "SH", "ST", "CAF", "M", "L", "DP", "SPA", "I", "RV"}},
      {.unknown = {"AT", "ST", "CAF", "M", "L", "DP", "SP", "I", "RV", "E", "S0", "H", "CP", "Z"},
       .keepsEcho = true,
       .keepsBlanks = true,
       .lineEnd = "\r\n"},
  };
  for (const test::ElmForm& form : forms) {
    SCOPED_TRACE(&form - forms);
    Rig rig;
    static_cast<test::ElmForm&>(rig.adapter) = form;
    for (int round = 0; round < 3; ++round) {
      EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
      EXPECT_EQ(rig.ask(kEngine, "09 02"), kVin);
    }
  }
}

TEST(Elm327, SpeaksOverEveryBus) {
  for (const bool misnamed : {false, true}) {
    Rig can(Bus::can29, {{0x18DAF110, {{"0100", {"4100BE3FA813"}}, {"010C", {"410C1AF8"}}}},
                         {0x18DAF11D, {{"0100", {"410088180010"}}}}});
    if (misnamed) can.adapter.instead["ATDPN"] = {"A6\r\r>"};
    EXPECT_EQ(can.ecus(), "16 29 ");
    EXPECT_EQ(can.ask({16, "OBD-II"}, "01 0C"), kSpeed);
    EXPECT_EQ(can.heard("ATSHDA10F1"), 1);
    // An address that this bus does not have: OBD reaches the ECU all the same, nothing else is sent to all.
    EXPECT_EQ(can.ask(kEngine, "01 0C"), kSpeed);
    EXPECT_THAT(can.ask({0x7E0, "UDS"}, "22 F1 90"), HasSubstr("ECU address 0x7E0 does not exist"));
  }
  for (const Bus bus : {Bus::kwp, Bus::iso9141}) {
    Rig wire(bus, {{0x11, {{"0100", {"4100BE3FA813"}}, {"010C", {"410C1AF8"}}}},
                   {0x18, {{"0100", {"410088180010"}}, {"010C", {"410C0000"}}}}});
    EXPECT_EQ(wire.ecus(), "17 24 ");
    EXPECT_FALSE(wire.link->takesSeveralPids({17, "OBD-II"}));
    EXPECT_EQ(wire.ask({24, "OBD-II"}, "01 0C"), "41 0C 00 00; ");
    EXPECT_EQ(wire.ask({17, "OBD-II"}, "01 0C"), kSpeed);
  }
}

TEST(Elm327, AsksEcusOfTheKLineEachForItself) {
  const LinkTarget first{0x28, "KWP2000"};
  std::string longAnswer = "5A80";  // 70 bytes: its length has a byte of its own
  while (longAnswer.size() < 140) longAnswer += "11";
  Rig rig(Bus::kwp, {{0x28, {{"1081", {"5081"}}, {"2180", {"61800102"}}, {"1A80", {longAnswer}}}},
                     {0x10, {{"2180", {"7F2178", "618099"}}}}});
  EXPECT_EQ(rig.ask(first, "10 81"), "50 81; ");
  EXPECT_EQ(rig.ask(first, "21 80"), "61 80 01 02; ");
  EXPECT_EQ(rig.ask({0x10, "KWP2000"}, "21 80"), "7F 21 78; 61 80 99; ");
  EXPECT_EQ(rig.heard("ATSP5") + rig.heard("ATPC") + rig.heard("ATWM8128F13E"), 3);
  EXPECT_EQ(rig.ask(first, "1A 80"), hexText(*bytesFromHex(longAnswer)) + "; ");
  // A silent ECU may have ended the communication: it is started again, once.
  EXPECT_EQ(rig.ask(first, "21 81"), "");
  EXPECT_EQ(rig.heard("ATPC"), 2);
  // Dots come while the adapter starts the bus again, the line ends seconds later.
  rig.stream->betweenBytes = 200ms;
  rig.adapter.instead["21801"] = {"BUS INIT: ...OK\r83F12861800B88\r\r>"};
  EXPECT_EQ(rig.ask(first, "21 80", 200), "61 80 0B; ");
}

TEST(Elm327, ReachesEcusBesideThoseOfEmissions) {
  Rig rig('6');
  rig.adapter.addEcu(0x752).answers["22F190"] = {"62F190414243"};
  rig.adapter.addEcu(0x758).answers["22F190"] = {"62F190515253"};
  EXPECT_EQ(rig.ask({0x74A, "UDS"}, "22 F1 90"), "62 F1 90 41 42 43; ");
  EXPECT_THAT(rig.adapter.heard, AllOf(Contains("ATCRA752"), Contains("ATFCSH74A"), Contains("ATFCSM1"),
                                       Not(Contains("ATSP0"))));
  // Some take the filter back by one command, some by another.
  for (const char* const unknown : {"AR", "none"}) {
    rig.adapter.unknown = {unknown};
    if (rig.adapter.unknown.contains("none")) rig.adapter.instead["ATCRA"] = {"?\r\r>"};
    EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
    EXPECT_EQ(rig.ask({0x74A, "UDS"}, "22 F1 90"), "62 F1 90 41 42 43; ");
  }
  EXPECT_THAT(rig.ask(kEngine, "22 F1 90 F1 91 F1 92 F1 93"),
              HasSubstr("9 bytes is too long: an ELM327 sends at most 7"));
}

/// An adapter that cannot show who answers, and a car with two ECUs.
struct HeadlessRig : Rig {
  explicit HeadlessRig(std::optional<char> protocol = {}) : Rig(protocol) {
    adapter.unknown = {"H"};
    adapter.addEcu(0x7E9).answers = {{"0100", {"410088180010"}}, {"010C", {"410C0000"}}};
  }
};

TEST(Elm327, NeverTakesOneEcusAnswerForAnothers) {
  const auto mixed = HasSubstr("their values cannot be told apart");
  HeadlessRig alone;
  EXPECT_EQ(alone.ecus(), "2016 2017 ");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(alone.ask(kEngine, "01 0C"), kSpeed);
    EXPECT_EQ(alone.ask(kGearbox, "01 0C"), "41 0C 00 00; ");
    EXPECT_EQ(alone.ask(kGearbox, "01 0D"), "") << "the engine would give it";
  }
  // No command reaches one alone, or it is only said to; the K line has none.
  for (const bool known : {false, true}) {
    for (const std::optional<char> protocol : {std::optional<char>(), std::optional('6')}) {
      HeadlessRig all(protocol);
      all.adapter.ignoresAddress = known;
      all.adapter.unknown.insert(known ? "CRA" : "SH");
      EXPECT_THAT(all.ask(kGearbox, "01 0C"), mixed);
      EXPECT_EQ(all.ecus(), "");
      EXPECT_THAT(all.link->obstacle(), mixed);
    }
  }
  HeadlessRig wire;
  wire.adapter.bus = Bus::iso9141;
  EXPECT_THAT(wire.ask({0x10, "OBD-II"}, "01 0C"), mixed);
  // The other one was silent while the bus was looked for.
  HeadlessRig sleepy;
  sleepy.adapter.unknown.insert("SH");
  sleepy.adapter.ecus.back().answers.erase("0100");
  EXPECT_THAT(sleepy.ask(kEngine, "01 0C"), mixed);
  // A gearbox that this car does not have.
  HeadlessRig one;
  one.adapter.ecus.pop_back();
  EXPECT_EQ(one.ask(kEngine, "01 0C"), kSpeed);
  EXPECT_THAT(one.ask(kGearbox, "01 0D"), mixed);
}

TEST(Elm327, CountsSilencesAnewAfterAnAnswerAndTellsTheirReason) {
  Rig rig;
  rig.ask(kEngine, "01 0D");
  const long searches = rig.heard("0100");
  const auto said = [&](const char* answer) {
    rig.adapter.instead["010C"].assign(8, answer);
    EXPECT_EQ(rig.ask(kEngine, "01 0C"), "") << answer;
    rig.adapter.instead.clear();
    return rig.link->silence();
  };
  for (int round = 0; round < 8; ++round) {
    EXPECT_EQ(said("NO DATA\r\r>"), "the adapter says NO DATA");
    EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  }
  EXPECT_EQ(rig.heard("0100"), searches) << "the bus is not looked for again";
  for (int silence = 0; silence < 8; ++silence) said("NO DATA\r\r>");
  EXPECT_GT(rig.heard("0100"), searches) << "after eight in a row it is";
  EXPECT_EQ(said("BUFFER FULL\r\r>"), "the adapter says BUFFER FULL");
  EXPECT_EQ(said("\x1B[2J\r\r>"), "the adapter says \"\\x1B[2J\"");
  EXPECT_EQ(said("?\r\r>"), "the adapter does not understand the request");
  EXPECT_EQ(said("7E80562F1904142\r\r>"), "what came is 62 F1 90 41 42");
  rig.stream->latency = 5s;
  EXPECT_EQ(said("NO DATA\r\r>"), "") << "nothing came in time";
}

TEST(Elm327, WaitsLongerBeforeItBelievesASilence) {
  Rig searching;
  searching.adapter.instead["0100"] = {"SEARCHING...\rNO DATA\r\r>"};
  EXPECT_EQ(searching.ask(kEngine, "01 0C"), kSpeed);
  EXPECT_THAT(searching.adapter.heard, Contains("ATSTFF"));

  Rig rig;
  rig.adapter.addEcu(0x7EA).answers = {{"010D", {"410D22"}}};
  rig.ask(kEngine, "01 00");
  EXPECT_EQ(rig.ask(kGearbox, "01 0D"), "") << "only another ECU gives it";
  EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  EXPECT_THAT(rig.adapter.heard, Contains("ATSTFA"));
}

TEST(Elm327, ReachesAnEcuThatNoAddressReaches) {
  for (const bool found : {true, false}) {
    Rig rig;
    rig.engine.onlyByDefault = true;
    if (found) {
      EXPECT_EQ(rig.ecus(), "2016 ");
    }
    EXPECT_EQ(rig.ask(kEngine, "01 0C", 3000), kSpeed);
    EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
    // Told apart from others only by its description, an address is tried first.
    EXPECT_EQ(rig.heard("ATZ"), found ? 1 : 2);
  }
}

TEST(Elm327, BreaksASearchOffForWhoeverWantsToEnd) {
  Rig rig;
  rig.adapter.instead["0100"] = {"SEARCHING..."};
  rig.link->setStopQuestion([] { return true; });
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "stopped while the adapter was awaited");
  EXPECT_LT(rig.clock.now(), 2s);
  // The adapter is interrupted; after a failure nobody waits for the next attempt.
  EXPECT_EQ(rig.adapter.newest, " ");
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "stopped before the next attempt");
}

TEST(Elm327, AsksAgainWhenTheAnswerWasDamagedUnlessThatMightActTwice) {
  for (const char* const damage : {"BUFFER FULL\r\r>", "STOPPED\r\r>", "7E8 04 41 0C 1A <RX ERROR\r\r>",
                                   "DATA ERROR\r\r>", "CAN ERROR\r\r>", "7E8 04 41 0D 20\r\r>", "?\r\r>",
                                   "\r>", "#%!\r\r>", "7E80441\r>", "ACT ALERT\r>"}) {
    SCOPED_TRACE(damage);
    Rig rig;
    rig.ask(kEngine, "01 00");
    for (const char* const request : {"010C", "010C1"}) {
      rig.adapter.instead[request] = {damage};
      EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
    }
    rig.adapter.instead["010C0D"] = {"?\r\r>", "?\r\r>"};
    EXPECT_EQ(rig.ask(kEngine, "01 0C 0D"), "") << "the adapter does not know it";
    rig.adapter.instead["1101"] = {damage, "7E8025101\r\r>"};
    EXPECT_THAT(rig.ask(kEngine, "11 01"), Not(HasSubstr("51 01")));
    EXPECT_EQ(rig.heard("1101"), 1);
    EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  }
}

TEST(Elm327, WaitsForAPendingAnswerAndALatePrompt) {
  Rig rig;
  rig.ask(kEngine, "01 00");
  // The adapter waits itself; the adapter gives up and must be asked again; the answer comes unasked.
  rig.adapter.instead["010C"] = {"7E8037F0178\r7E804410C0001\r\r>", "7E8037F0178\r\r>", "7E8037F0178\r\r>"};
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "7F 01 78; 41 0C 00 01; ");
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "7F 01 78; 7F 01 78; 41 0C 1A F8; ");
  rig.adapter.instead["010D"] = {"7E8037F0178\r\r>7E803410D33\r"};
  EXPECT_EQ(rig.ask(kEngine, "01 0D"), "7F 01 78; 41 0D 33; ");

  rig.stream->latency = 900ms;
  EXPECT_EQ(rig.ask(kEngine, "01 0C", 200), "");
  // The answer that was late belongs to nobody.
  rig.stream->latency = 10ms;
  EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
}

TEST(Elm327, ConnectsWhateverTheAdapterIsAtAndWhateverARestartDoes) {
  Rig rig;
  rig.adapter.instead["ATZ"] = {"7E8 04 41 0C\rSTOPPED\r\r>", "?\r>"};
  rig.stream->put("41 0C 1A F8\r41 0C 1A F9\r");
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
  EXPECT_EQ(rig.heard("ATZ"), 3);

  Rig closing;
  closing.adapter.onLine = [&](const std::string& line) {
    if (line == "ATZ") closing.stream->closeAfter = 0;
  };
  EXPECT_EQ(closing.ask(kEngine, "01 0C"), kSpeed);
  EXPECT_EQ(closing.stream->opened, 2);
  // It is remembered, for an adapter that needs a while until it can be connected again.
  closing.link->close();
  EXPECT_EQ(closing.ask(kEngine, "01 0D"), "41 0D 20; ");
  EXPECT_EQ(closing.heard("ATZ"), 1);
}

TEST(Elm327, RaisesTheRateOfASerialLineAndLeavesTheAdapterAsItWas) {
  for (const int baud : {38400, 9600}) {  // there is no way back to 9600 but a restart
    Rig rig({}, baud);
    rig.adapter.ownRate = rig.adapter.rate = baud;
    const auto isBack = [&] { return std::abs(rig.adapter.rate - baud) < 100; };
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
      EXPECT_EQ(rig.adapter.rate, 500000);
      const int idled = rig.idled;
      rig.link->close();
      EXPECT_TRUE(isBack());
      EXPECT_EQ(rig.idled, idled) << "who closes the link expects no click";
    }
    // A reset while the rate is raised; an end without closing, while the adapter is at work.
    rig.connect({}, baud);
    rig.engine.onlyByDefault = true;
    EXPECT_EQ(rig.ask(kEngine, "01 0C", 3000), kSpeed);
    EXPECT_EQ(rig.adapter.rate, 500000);
    rig.adapter.instead["010D"] = {"SEARCHING..."};
    rig.ask(kEngine, "01 0D", 10);
    rig.link.reset();
    EXPECT_TRUE(isBack());
    // A recorder that was killed left it so.
    for (const bool mayBeFaster : {false, true}) {
      rig.adapter.rate = 230400;
      rig.connect({}, baud, mayBeFaster);
      EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
      EXPECT_EQ(rig.adapter.rate, mayBeFaster ? 500000 : baud);
    }
  }
}

TEST(Elm327, GoesOnAtTheOldRateWhereAFasterOneFails) {
  Rig old({}, 38400);
  old.adapter.unknown = {"BRD"};
  Rig boasting({}, 38400);  // it says OK to everything
  boasting.adapter.instead["ATBRD08"] = {"OK\r\r>"};
  Rig off({}, 38400);
  off.connect({}, 38400, false);
  for (Rig* const rig : {&old, &boasting, &off}) {
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(rig->ask(kEngine, "01 0C"), kSpeed);
      rig->link->close();
    }
    EXPECT_EQ(rig->heard("ATBRD08") + rig->heard("ATBRD11"), rig == &off ? 0 : 1);
  }
  // Nothing follows the OK.
  Rig silent({}, 38400);
  for (const char* const command : {"ATBRD08", "ATBRD11", "ATBRD23"})
    silent.adapter.instead[command] = {"OK\r"};
  EXPECT_EQ(silent.ask(kEngine, "01 0C"), kSpeed);
  // Two rates are too much for the cable, and the third is sometimes.
  Rig rig({}, 38400);
  rig.stream->garbled = {500000, 230400};
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
  EXPECT_EQ(rig.adapter.rate, 4'000'000 / 35);
  EXPECT_EQ(rig.heard("ATZ") + silent.heard("ATZ"), 2) << "the adapter stays in order";
  rig.adapter.onLine = [&](const std::string& line) {
    if (line.starts_with("010C") && rig.adapter.rate > 40000) rig.adapter.instead[line] = {"7E8#4\r\r>"};
  };
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), kSpeed);
  EXPECT_EQ(rig.adapter.rate, 38400);
  // It starts again by itself, at its own rate, while the recorder listens at the other.
  Rig weak({}, 38400);
  weak.ask(kEngine, "01 0C");
  weak.adapter.reset();
  weak.adapter.rate = 38400;
  for (int i = 0; i < 2; ++i) weak.ask(kEngine, "01 0C");
  EXPECT_EQ(weak.ask(kEngine, "01 0C"), kSpeed);
  EXPECT_EQ(weak.adapter.rate, 500000);
}

TEST(Elm327, WaitsNoLongerThanAnEcuNeeds) {
  Rig rig;
  rig.adapter.addEcu(0x7E9).answers["010D"] = {"410D21"};
  rig.adapter.countsFrames = rig.adapter.adapts = false;
  const auto averageTime = [&] {
    const Moment before = rig.clock.now();
    for (int i = 0; i < 20; ++i) EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
    return (rig.clock.now() - before) / 20ms;
  };
  EXPECT_GT(averageTime(), 100);
  EXPECT_EQ(averageTime(), 60);
  // One that is not known is given the usual time, and so is one that seems silent.
  EXPECT_EQ(rig.heard("ATST32"), 1);
  EXPECT_EQ(rig.ask(kGearbox, "01 0D"), "41 0D 21; ");
  EXPECT_EQ(rig.heard("ATST32"), 2);
  EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  rig.adapter.instead["010D"] = {"NO DATA\r\r>"};
  EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  EXPECT_EQ(rig.heard("ATST32"), 3);
}

TEST(Elm327, SaysWhatIsWrongForAMechanic) {
  Rig off;
  off.adapter.bus = Bus::none;
  EXPECT_EQ(off.ask(kEngine, "01 00"),
            "no ECU answers (UNABLE TO CONNECT), the socket has 12.4V: is the ignition on?");
  // The next time protocols are tried one by one, then the adapter searches again.
  EXPECT_THAT(off.ask(kEngine, "01 00"), HasSubstr("is the ignition on?"));
  EXPECT_THAT(off.adapter.heard, AllOf(Contains("ATSP6"), Contains("ATSP5"), Contains("ATSP1")));
  off.adapter.bus = Bus::can11;
  EXPECT_EQ(off.ask(kEngine, "01 00"), "41 00 BE 3F A8 13; ");
  // The ignition goes off while recording: silence at first, then the reason.
  off.adapter.bus = Bus::none;
  std::string said;
  for (int i = 0; i < 9 && said.empty(); ++i) said = off.ask(kEngine, "01 0C");
  EXPECT_THAT(said, HasSubstr("no ECU answers (UNABLE TO CONNECT)"));

  Rig trouble('6');
  trouble.adapter.instead["010C"].assign(9, "CAN ERROR\r\r>");
  EXPECT_THAT(trouble.ask(kEngine, "01 0C"),
              AllOf(HasSubstr("trouble with the car's bus (CAN ERROR)"), Not(HasSubstr("ignition"))));

  Rig dead;
  dead.stream->openFailure = "/dev/ttyUSB0: No such file or directory";
  // Attempts are kept apart, further and further, until one succeeds.
  for (const int apart : {0, 250, 500, 1000, 2000, 2000}) {
    const Moment before = dead.clock.now();
    EXPECT_EQ(dead.ask(kEngine, "01 00"),
              "the adapter cannot be reached: /dev/ttyUSB0: No such file or directory");
    EXPECT_EQ((dead.clock.now() - before) / 1ms, apart);
  }
  EXPECT_GE(dead.idled, 5750 / 20);
  dead.stream->openFailure.clear();
  EXPECT_EQ(dead.ask(kEngine, "01 0C"), kSpeed);
  dead.link->close();
  const Moment before = dead.clock.now();
  EXPECT_EQ(dead.ask(kEngine, "01 0C"), kSpeed);
  EXPECT_LT(dead.clock.now() - before, 250ms);

  for (const char* const text : {"LV RESET\r\r>", "\r\rELM327 v1.5\r\r>", "ERR94\r>"}) {
    dead.adapter.instead["010D"] = dead.adapter.instead["010D1"] = {text};
    dead.adapter.onLine = [&](const std::string& line) {
      if (line.starts_with("010D")) dead.adapter.reset();
    };
    EXPECT_THAT(dead.ask(kEngine, "01 0D"), HasSubstr("the adapter has started again by itself"));
    dead.adapter.onLine = nullptr;
    dead.adapter.instead.clear();
    EXPECT_EQ(dead.ask(kEngine, "01 0D"), "41 0D 20; ");
  }
}

TEST(Elm327, EndsInTimeWhateverThePeerDoes) {
  struct Peer {
    std::function<std::string(std::string_view)> answer;
    const char* says;
    std::chrono::microseconds betweenBytes{};
  };
  const auto always = [](std::string text) {
    return [text = std::move(text)](std::string_view) { return text; };
  };
  std::string lines;
  for (int i = 0; i < 1'000'000; ++i) lines += "410C1AF8\r";
  Elm327Peer mute;
  Elm327Peer slow;
  const Peer peers[] = {
      {always(""), "the adapter does not answer"},
      // A web server that wants whole lines, and a web page.
      {[](std::string_view text) {
         return std::string(text.find('\n') == std::string_view::npos ? "" : "HTTP/1.0 400 Bad request\r\n");
       },
       "no ELM327 adapter, or never finishes an answer; it said \"HTTP/1.0 400 Bad request\\x0D\\x0A\""},
      {always("<html><body>\n<p>What?</p>\n"), "no ELM327 adapter; it said \"<html><body>\\x0A<p>"},
      // No prompt, one byte a second, a flood without lines and one of lines.
      {[&](std::string_view text) {
         std::string out = mute.accept(text);
         std::erase(out, '>');
         return out;
       },
       "never finishes an answer"},
      {[&](std::string_view text) { return slow.accept(text); }, "never finishes an answer", 1s},
      {always(std::string(20'000'000, '4')), "never finishes an answer", 1us},
      {always(lines), "never finishes an answer", 1us},
  };
  for (const Peer& peer : peers) {
    test::ManualLinkClock clock;
    auto stream = std::make_unique<test::PeerStream>(peer.answer, clock);
    stream->betweenBytes = peer.betweenBytes;
    Elm327Link link(std::move(stream), {}, clock);
    EXPECT_THAT(test::failureOf([&] { link.open(); }), HasSubstr(peer.says));
    EXPECT_LT(clock.now(), 8s) << peer.says;
  }
}

TEST(Elm327, EndsInTimeWhateverThePeerBegins) {
  const auto rigged = [](const std::string& answer) {
    auto rig = std::make_unique<Rig>();
    EXPECT_EQ(rig->ask(kEngine, "01 0C"), kSpeed);
    rig->adapter.instead["010C1"] = {answer};
    return rig;
  };
  // The prompt never comes: the answer counts, the next request finds the adapter stuck.
  auto stuck = rigged("7E804410C1AF8\r");
  stuck->adapter.instead[""] = {""};
  EXPECT_EQ(stuck->ask(kEngine, "01 0C"), kSpeed);
  EXPECT_EQ(stuck->ask(kEngine, "01 0D"), "the adapter does not finish its answer: it sends no prompt");
  EXPECT_EQ(stuck->ask(kEngine, "01 0D"), "41 0D 20; ");

  auto closed = rigged("7E804410C1AF8\r\r>");
  closed->stream->closeAfter = 5;
  EXPECT_EQ(closed->ask(kEngine, "01 0C"), "the adapter is gone: box: the other end is gone");
  EXPECT_EQ(closed->ask(kEngine, "01 0C"), kSpeed);

  for (const std::chrono::microseconds pace : {1'000'000us, 1us}) {
    auto endless = rigged(std::string(3'000'000, '7'));
    endless->stream->betweenBytes = pace;
    EXPECT_EQ(endless->ask(kEngine, "01 0C"), "");
  }
}

TEST(ElmLine, TellsWordsFromData) {
  using enum ElmNotice;
  const std::map<ElmNotice, std::vector<const char*>> words{
      {ok, {"OK"}},
      {unknownCommand, {"?"}},
      {working, {"SEARCHING...", "SEARCHING: .", "BUS INIT: OK", "!ACT ALERT"}},
      {noData, {"NO DATA", "no data ", "NODATA"}},
      {noConnection, {"SEARCHING...UNABLE TO CONNECT", "BUS INIT: ...ERROR"}},
      {busTrouble, {"CAN ERROR", "BUS ERROR", "BUS BUSY", "FB ERROR"}},
      {damaged,
       {"DATA ERROR", "41 0C 1A <DATA ERROR", "7E8 03 41 <RX ERROR", "BUFFER FULL", "STOPPED",
        "41 0CSTOPPED"}},
      {restarted, {"LV RESET", "ELM327 v2.1", "ELM327", "ERR94"}},
  };
  for (const auto& [notice, lines] : words)
    for (const char* const line : lines) EXPECT_EQ(parseElmLine(line).notice, notice) << line;
  EXPECT_EQ(parseElmLine("SEARCHING...41 00 BE").digits, "4100BE");
  EXPECT_EQ(parseElmLine("BUS INIT: ...OK 41 00").digits, "4100");
  EXPECT_EQ(parseElmLine(" 7e8 03 41 0d ff ").digits, "7E803410DFF");
  EXPECT_EQ(parseElmLine("1: 41 00").number, 1);
  EXPECT_FALSE(parseElmLine("tea time").isData());
}

using Texts = std::vector<std::string>;

/// The messages that lines become, "source: bytes" each.
Texts messagesOf(ElmAssembler& assembler, const Texts& lines) {
  Texts messages;
  for (const std::string& line : lines)
    if (const auto message = assembler.accept(parseElmLine(line))) {
      std::ostringstream text;
      if (message->source) text << std::hex << std::uppercase << *message->source << ": ";
      text << hexText(message->bytes);
      messages.push_back(text.str());
    }
  return messages;
}

TEST(ElmAssembler, MakesMessagesOfTheFramesOfEveryBus) {
  using enum ElmBus;
  const std::string wrong = "48 6B 10 41 0D 20 00";
  struct Case {
    std::vector<ElmBus> buses;
    Texts lines;
    Texts messages;
  };
  const Case cases[] = {
      // ISO 15765-4: two ECUs name their supported PIDs, a third its VIN in three frames, which mix.
      {{can11, unknown},
       {"7E8 06 41 00 BE 3F A8 13", "7EA 10 14 49 02 01 31 44 34", "7E9 06 41 00 88 18 00 10",
        "7EA 21 47 50 30 30 52 35 35", "7E8 03 7F 01 78", "7EA 22 42 31 32 33 34 35 36"},
       {"7E8: 41 00 BE 3F A8 13", "7E9: 41 00 88 18 00 10", "7E8: 7F 01 78",
        "7EA: 49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33 34 35 36"}},
      // Two ECUs at once in numbered lines, padded.
      {{can11},
       {"008", "008", "0:410C1AF80D20", "0:410C0000", "1:0400000000AAAA", "1:0D000400000000"},
       {"41 0C 1A F8 0D 20 04 00", "41 0C 00 00 0D 00 04 00"}},
      {{iso9141, unknown}, {"48 6B 10 41 00 BE 3E B8 11 C9"}, {"10: 41 00 BE 3E B8 11"}},
      // Length in a byte of its own, and no addresses at all.
      {{kwp},
       {"84 F1 11 41 0C 1A F8 E5", "80 F1 11 04 41 0C 1A F8 E5", "02 7E 00 80"},
       {"11: 41 0C 1A F8", "11: 41 0C 1A F8", "7E 00"}},
      // A wrong checksum, a wrong length; bytes without header are taken as they are.
      {{kwp}, {"84 F1 11 41 0C 1A F8 E6", "85 F1 11 41 0C 1A F8 E6", "41 0C 1A F8"}, {"41 0C 1A F8"}},
      {{unknown}, {"84 F1 11 41 0C 1A F8"}, {"11: 41 0C 1A F8"}},
      // Checksums that are never right are none.
      {{j1850}, {wrong, wrong, wrong}, {"10: 41 0D 20"}},
      {{j1850}, {"48 6B 10 41 0D 20 4D", wrong, wrong, wrong}, {"10: 41 0D 20"}},
      // Bytes whose last is the sum of the others, on a line without headers.
      {{iso9141}, {"41 20 00 10 A0 11"}, {"41 20 00 10 A0 11"}},
      // A lost frame, a digit lost, a length beyond the frame, frames that nobody announced.
      {{can11},
       {"7E8 10 14 49 02 01 31 44 34", "7E8 22 42 31 32 33 34 35 36", "7E8 05 41 0C", "1: 00 00",
        "7E8 21 00 00", "000", "FFF 03 41"},
       {}},
  };
  for (const auto& [buses, lines, messages] : cases)
    for (const ElmBus bus : buses) {
      ElmAssembler assembler;
      assembler.setBus(bus);
      EXPECT_EQ(messagesOf(assembler, lines), messages);
    }
}

TEST(ElmAssembler, RefusesLinesThatLostCharacters) {
  ElmAssembler can;
  can.setBus(ElmBus::can11);
  const auto first = can.accept(parseElmLine("7E804410C1AF8AAAAAA"));
  ASSERT_TRUE(first);
  can.confirm(*first);
  // Two digits of an ECU that pads, one digit, the whole header, the line's end.
  EXPECT_THAT(messagesOf(can, {"7E804410C1A8AAAAAA", "7E804410C18AAAAAA", "410C1AF8", "004", "0:410C1AF8",
                               "7E804410C1AF8AAAAAA7E9"}),
              ElementsAre());
  EXPECT_THAT(messagesOf(can, {"7E903410D20", "7E804410C1AF9AAAAAA"}),
              ElementsAre("7E9: 41 0D 20", "7E8: 41 0C 1A F9"));
  can.forget();
  EXPECT_THAT(messagesOf(can, {"410C1AF8"}), ElementsAre("41 0C 1A F8"));
  messagesOf(can, {"7E8 10 14 49 02 01 31 44 34"});
  EXPECT_TRUE(can.incomplete());
  can.reset();
  EXPECT_FALSE(can.incomplete());
  EXPECT_EQ(can.frames(), 0);
  ElmAssembler wire;
  wire.setBus(ElmBus::j1850);
  wire.confirm(ElmMessage{std::nullopt, {0x41, 0x0C, 0x1A, 0xF8}, false});
  EXPECT_THAT(messagesOf(wire, {"48 6B 10 41 0D 20 4D"}), ElementsAre("48 6B 10 41 0D 20 4D"));
}

}  // namespace
}  // namespace tarnlog::host
