#include <gmock/gmock.h>

#include <algorithm>

#include "host/link/PatientLink.h"
#include "host/link/elm/Elm327Link.h"
#include "host/service/HexText.h"
#include "platform/base/TarnError.h"
#include "tests/support/Elm327Peer.h"
#include "tests/support/FailureOf.h"
#include "tests/support/PeerStream.h"
#include "tests/support/Received.h"

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

const LinkTarget kEngine{0x7E0, "OBD-II"};
const LinkTarget kGearbox{0x7E1, "OBD-II"};

std::string textOf(const std::vector<LinkTarget>& targets) {
  std::string text;
  for (const LinkTarget& target : targets) text += std::to_string(target.address) + " ";
  return text;
}

/// A link to an adapter in memory.
struct Rig {
  explicit Rig(std::optional<char> protocol = {}) {
    auto made = std::make_unique<test::PeerStream>(
        [this](std::string_view text) {
          written = text;
          return adapter.accept(text);
        },
        clock);
    stream = made.get();
    auto elm = std::make_unique<Elm327Link>(std::move(made), protocol, clock);
    elm327 = elm.get();
    link = std::make_unique<PatientLink>(std::move(elm), clock);
    link->setIdleHook([this] { ++idled; });
    Elm327Peer::Ecu& engine = adapter.addEcu(0x7E8);
    engine.answers["0100"] = {"4100BE3FA813"};
    engine.answers["010C"] = {"410C1AF8"};
    engine.answers["010D"] = {"410D20"};
    engine.answers["0902"] = {"4902013144344750303052353542313233343536"};
  }

  std::string ask(const LinkTarget& target, std::string_view request, int timeout = 1000) {
    if (!link->send(target, *bytesFromHex(request))) return link->obstacle();
    std::string answers;
    Link::Bytes response;
    const Moment deadline = clock.now() + milliseconds(timeout);
    while (test::received(*link, response, std::chrono::duration_cast<milliseconds>(deadline - clock.now())))
      answers += hexText(response) + "; ";
    return answers + link->obstacle();
  }
  /// The answers, or what failed; opens the link when it is not.
  std::string tell(const LinkTarget& target, std::string_view request) {
    try {
      link->open();
      return ask(target, request);
    } catch (const TarnError& error) {
      link->close();
      return error.description();
    }
  }
  long heard(std::string_view line) const {
    return std::count(adapter.heard.begin(), adapter.heard.end(), line);
  }

  test::ManualLinkClock clock;
  Elm327Peer adapter;
  test::PeerStream* stream = nullptr;
  Elm327Link* elm327 = nullptr;
  std::unique_ptr<Link> link;
  int idled = 0;
  std::string written;  ///< newest
};

TEST(Elm327, SetsUpFindsTheBusAndAsks) {
  Rig rig;
  rig.adapter.addEcu(0x7E9).answers["0100"] = {"410088180010"};
  rig.link->open();
  EXPECT_EQ(rig.elm327->adapterName(), "ELM327 v1.5");
  EXPECT_EQ(textOf(rig.link->findEcus()), "2016 2017 ");
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_EQ(rig.ask(kGearbox, "01 00"), "41 00 88 18 00 10; ");
  EXPECT_EQ(rig.ask(kEngine, "09 02"), "49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33 34 35 36; ");
  EXPECT_TRUE(rig.link->takesSeveralPids(kEngine));
  // The second time the adapter is told how many frames to expect.
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_EQ(rig.ask(kEngine, "09 02"), "49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33 34 35 36; ");
  EXPECT_EQ(rig.heard("010C1"), 1);
  EXPECT_EQ(rig.heard("09023"), 1);
  EXPECT_GT(rig.idled, 0);
}

TEST(Elm327, WorksWithEveryKindOfAnswerForm) {
  struct Form {
    const char* name;
    std::function<void(Elm327Peer&)> set;
  };
  const std::vector<Form> forms{
      {"line feeds", [](Elm327Peer& a) { a.lineEnd = "\r\n"; }},
      {"echo stays",
       [](Elm327Peer& a) {
         a.keepsEcho = true;
         a.unknown = {"E0"};
       }},
      {"blanks stay",
       [](Elm327Peer& a) {
         a.keepsBlanks = true;
         a.unknown = {"S0"};
       }},
      {"headers stay off", [](Elm327Peer& a) { a.unknown = {"H"}; }},
      {"frames are not counted", [](Elm327Peer& a) { a.countsFrames = false; }},
      {"few commands",
       [](Elm327Peer& a) { a.unknown = {"AT", "SH", "ST", "CAF", "M", "L", "DP", "SPA", "I", "RV"}; }},
      {"no commands but one",
       [](Elm327Peer& a) {
         a.unknown = {"AT", "ST", "CAF", "M", "L", "DP", "SP", "I", "RV", "E", "S0", "H", "CP", "Z"};
         a.keepsEcho = true;
         a.keepsBlanks = true;
         a.lineEnd = "\r\n";
       }},
      {"NUL bytes", [](Elm327Peer& a) { a.lineEnd = std::string("\r\0", 2); }},
  };
  for (const Form& form : forms) {
    SCOPED_TRACE(form.name);
    Rig rig;
    form.set(rig.adapter);
    for (int round = 0; round < 3; ++round) {
      EXPECT_EQ(rig.tell(kEngine, "01 0C"), "41 0C 1A F8; ");
      EXPECT_EQ(rig.tell(kEngine, "09 02"), "49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33 34 35 36; ");
    }
  }
}

TEST(Elm327, SpeaksOverEveryBus) {
  Rig can29;
  can29.adapter.ecus.clear();
  can29.adapter.bus = Elm327Peer::Bus::can29;
  can29.adapter.addEcu(0x18DAF110).answers = {{"0100", {"4100BE3FA813"}}, {"010C", {"410C1AF8"}}};
  can29.adapter.addEcu(0x18DAF11D).answers = {{"0100", {"410088180010"}}};
  can29.link->open();
  EXPECT_EQ(textOf(can29.link->findEcus()), "16 29 ");
  EXPECT_EQ(can29.ask({16, "OBD-II"}, "01 0C"), "41 0C 1A F8; ");
  EXPECT_EQ(can29.heard("ATSHDA10F1"), 1);
  // An address that this bus does not have: OBD reaches the ECU all the same, nothing else is sent to all.
  EXPECT_EQ(can29.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_THAT(can29.tell({0x7E0, "UDS"}, "22 F1 90"), HasSubstr("ECU address 0x7E0 does not exist"));

  for (const auto bus : {Elm327Peer::Bus::kwp, Elm327Peer::Bus::iso9141}) {
    Rig wire;
    wire.adapter.ecus.clear();
    wire.adapter.bus = bus;
    wire.adapter.addEcu(0x11).answers = {{"0100", {"4100BE3FA813"}}, {"010C", {"410C1AF8"}}};
    wire.adapter.addEcu(0x18).answers = {{"0100", {"410088180010"}}, {"010C", {"410C0000"}}};
    wire.link->open();
    EXPECT_EQ(textOf(wire.link->findEcus()), "17 24 ");
    EXPECT_FALSE(wire.link->takesSeveralPids({17, "OBD-II"}));
    EXPECT_EQ(wire.ask({24, "OBD-II"}, "01 0C"), "41 0C 00 00; ");
    EXPECT_EQ(wire.ask({17, "OBD-II"}, "01 0C"), "41 0C 1A F8; ");
  }
}

TEST(Elm327, AsksEcusOfTheKLineEachForItself) {
  Rig rig;
  rig.adapter.bus = Elm327Peer::Bus::kwp;
  std::string longAnswer = "5A80";  // 70 bytes: its length has a byte of its own
  while (longAnswer.size() < 140) longAnswer += "11";
  rig.adapter.addEcu(0x28).answers = {{"1081", {"5081"}}, {"2180", {"61800102"}}, {"1A80", {longAnswer}}};
  rig.adapter.addEcu(0x10).answers = {{"2180", {"7F2178", "618099"}}};
  rig.link->open();
  EXPECT_EQ(rig.ask({0x28, "KWP2000"}, "10 81"), "50 81; ");
  EXPECT_EQ(rig.ask({0x28, "KWP2000"}, "21 80"), "61 80 01 02; ");
  EXPECT_EQ(rig.ask({0x10, "KWP2000"}, "21 80"), "7F 21 78; 61 80 99; ");
  EXPECT_EQ(rig.heard("ATSP5"), 1);
  EXPECT_EQ(rig.heard("ATPC"), 1);
  EXPECT_EQ(rig.heard("ATWM8128F13E"), 1);
  EXPECT_EQ(rig.ask({0x28, "KWP2000"}, "1A 80"), hexText(*bytesFromHex(longAnswer)) + "; ");
  // A silent ECU may have ended the communication: it is started again, once.
  EXPECT_EQ(rig.ask({0x28, "KWP2000"}, "21 81"), "");
  EXPECT_EQ(rig.heard("ATPC"), 2);
}

TEST(Elm327, ReachesEcusBesideThoseOfEmissions) {
  Rig rig('6');
  rig.adapter.addEcu(0x752).answers["22F190"] = {"62F190414243"};
  rig.adapter.addEcu(0x758).answers["22F190"] = {"62F190515253"};
  rig.link->open();
  EXPECT_EQ(rig.ask({0x74A, "UDS"}, "22 F1 90"), "62 F1 90 41 42 43; ");
  EXPECT_THAT(rig.adapter.heard, AllOf(Contains("ATCRA752"), Contains("ATFCSH74A"), Contains("ATFCSM1"),
                                       Not(Contains("ATSP0"))));
  // Some take the filter back by one command, some by another.
  for (const char* const unknown : {"AR", "none"}) {
    rig.adapter.unknown = {unknown};
    if (rig.adapter.unknown.contains("none")) rig.adapter.instead["ATCRA"] = {"?\r\r>"};
    EXPECT_EQ(rig.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
    EXPECT_EQ(rig.ask({0x74A, "UDS"}, "22 F1 90"), "62 F1 90 41 42 43; ");
  }
  EXPECT_THAT(rig.tell(kEngine, "22 F1 90 F1 91 F1 92 F1 93"),
              HasSubstr("9 bytes is too long: an ELM327 sends at most 7"));
}

TEST(Elm327, NeverTakesOneEcusAnswerForAnothers) {
  const auto withoutHeaders = [](Rig& rig) {
    rig.adapter.unknown.insert("H");
    rig.adapter.addEcu(0x7E9).answers = {{"0100", {"410088180010"}}, {"010C", {"410C0000"}}};
  };
  const auto mixed = HasSubstr("their values cannot be told apart");
  Rig alone;
  withoutHeaders(alone);
  alone.link->open();
  EXPECT_EQ(textOf(alone.link->findEcus()), "2016 2017 ");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(alone.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
    EXPECT_EQ(alone.ask(kGearbox, "01 0C"), "41 0C 00 00; ");
    EXPECT_EQ(alone.ask(kGearbox, "01 0D"), "") << "the engine would give it";
  }
  // No command reaches one alone, or it is only said to; the K line has none.
  for (const bool known : {false, true}) {
    for (const std::optional<char> protocol : {std::optional<char>(), std::optional('6')}) {
      Rig all(protocol);
      withoutHeaders(all);
      all.adapter.ignoresAddress = known;
      all.adapter.unknown.insert(known ? "CRA" : "SH");
      EXPECT_THAT(all.tell(kGearbox, "01 0C"), mixed);
      all.link->open();
      EXPECT_TRUE(all.link->findEcus().empty());
      EXPECT_THAT(all.link->obstacle(), mixed);
    }
  }
  // The other one was silent while the bus was looked for.
  Rig sleepy;
  withoutHeaders(sleepy);
  sleepy.adapter.unknown.insert("SH");
  sleepy.adapter.ecus.back().answers.erase("0100");
  EXPECT_THAT(sleepy.tell(kEngine, "01 0C"), mixed);
  Rig wire;
  withoutHeaders(wire);
  wire.adapter.bus = Elm327Peer::Bus::iso9141;
  EXPECT_THAT(wire.tell({0x10, "OBD-II"}, "01 0C"), mixed);
  // A gearbox that this car does not have.
  Rig one;
  one.adapter.unknown = {"H"};
  EXPECT_EQ(one.tell(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_THAT(one.tell(kGearbox, "01 0D"), mixed);
}

TEST(Elm327, TellsWhyAnEcuSeemsSilent) {
  Rig rig;
  rig.link->open();
  rig.ask(kEngine, "01 00");
  const auto said = [&](const char* answer) {
    rig.adapter.instead["010C"].assign(8, answer);
    EXPECT_EQ(rig.ask(kEngine, "01 0C"), "") << answer;
    rig.adapter.instead.clear();
    return rig.link->silence();
  };
  EXPECT_EQ(said("NO DATA\r\r>"), "the adapter says NO DATA");
  EXPECT_EQ(said("BUFFER FULL\r\r>"), "the adapter says BUFFER FULL");
  EXPECT_EQ(said("STOPPED\r\r>"), "the adapter says STOPPED");
  EXPECT_EQ(said("\x1B[2J\r\r>"), "the adapter says \"\\x1B[2J\"");
  EXPECT_EQ(said("?\r\r>"), "the adapter does not understand the request");
  EXPECT_EQ(said("7E80562F1904142\r\r>"), "what came is 62 F1 90 41 42");
  rig.stream->latency = 5s;
  EXPECT_EQ(said("NO DATA\r\r>"), "") << "nothing came in time";
}

TEST(Elm327, CountsSilencesAnewAfterAnAnswer) {
  Rig rig;
  rig.link->open();
  rig.ask(kEngine, "01 0D");
  const long searches = rig.heard("0100");
  for (int round = 0; round < 8; ++round) {
    rig.adapter.instead["010C"].assign(8, "NO DATA\r\r>");
    EXPECT_EQ(rig.ask(kEngine, "01 0C"), "");
    rig.adapter.instead.clear();
    EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  }
  EXPECT_EQ(rig.heard("0100"), searches) << "the bus is not looked for again";
}

TEST(Elm327, FindsWhatHidesAnAnswer) {
  Rig rig;
  // This ECU hears only what is sent to all; a silent one stays silent.
  rig.adapter.addEcu(0x7E9).answers = {{"0100", {"410088180010"}}, {"010D", {"410D21"}}};
  rig.adapter.unknown = {};
  rig.link->open();
  EXPECT_EQ(rig.ask(kGearbox, "01 0D"), "41 0D 21; ");

  Rig deaf;
  deaf.adapter.addEcu(0x7E9).onlyWithAll = true;
  deaf.adapter.addEcu(0x7EA).answers = {{"010D", {"410D22"}}};
  deaf.link->open();
  deaf.ask(kEngine, "01 00");
  EXPECT_EQ(deaf.ask(kGearbox, "01 0D"), "");
  EXPECT_EQ(deaf.ask(kEngine, "01 0D"), "41 0D 20; ");
  // Before a silence is believed the adapter waits as long as the caller does.
  EXPECT_THAT(deaf.adapter.heard, Contains("ATSTFA"));
}

TEST(Elm327, ReachesAnEcuThatNoAddressReaches) {
  Rig alone;
  alone.adapter.ecus.front().onlyByDefault = true;
  alone.link->open();
  EXPECT_EQ(textOf(alone.link->findEcus()), "2016 ");
  EXPECT_EQ(alone.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_EQ(alone.heard("ATZ"), 1);

  // Told apart from others only by its description: an address is tried first.
  Rig described;
  described.adapter.ecus.front().onlyByDefault = true;
  described.link->open();
  EXPECT_EQ(described.ask(kEngine, "01 0C", 3000), "41 0C 1A F8; ");
  EXPECT_EQ(described.ask(kEngine, "01 0D"), "41 0D 20; ");
  EXPECT_EQ(described.heard("ATZ"), 2);
}

TEST(Elm327, BelievesFramesRatherThanTheNameOfTheProtocol) {
  Rig rig;
  rig.adapter.bus = Elm327Peer::Bus::can29;
  rig.adapter.ecus.front().source = 0x18DAF110;
  rig.adapter.instead["ATDPN"] = {"A6\r\r>"};
  rig.link->open();
  EXPECT_EQ(textOf(rig.link->findEcus()), "16 ");
  EXPECT_EQ(rig.ask({0x10, "OBD-II"}, "01 0C"), "41 0C 1A F8; ");
}

TEST(Elm327, WaitsLongerForEcusThanUsualBeforeItSaysThatThereIsNone) {
  Rig rig;
  rig.adapter.instead["0100"] = {"SEARCHING...\rNO DATA\r\r>"};
  EXPECT_EQ(rig.tell(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_THAT(rig.adapter.heard, Contains("ATSTFF"));
}

TEST(Elm327, GoesOnAfterARequestThatTheAdapterDoesNotKnow) {
  Rig rig;
  rig.link->open();
  rig.adapter.instead["010C0D"] = {"?\r\r>", "?\r\r>"};
  EXPECT_EQ(rig.ask(kEngine, "01 0C 0D"), "");
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
}

TEST(Elm327, BreaksASearchOffForWhoeverWantsToEnd) {
  Rig rig;
  rig.adapter.instead["0100"] = {"SEARCHING..."};
  rig.link->setStopQuestion([] { return true; });
  EXPECT_EQ(rig.tell(kEngine, "01 0C"), "stopped while the adapter was awaited");
  EXPECT_LT(rig.clock.now(), 2s);
  // The adapter is interrupted; after a failure nobody waits for the next attempt.
  EXPECT_EQ(rig.written, " ");
  EXPECT_EQ(rig.tell(kEngine, "01 0C"), "stopped before the next attempt");
}

TEST(Elm327, AsksAgainWhenTheAnswerWasDamaged) {
  for (const char* const damage : {"BUFFER FULL\r\r>", "STOPPED\r\r>", "7E8 04 41 0C 1A <RX ERROR\r\r>",
                                   "DATA ERROR\r\r>", "CAN ERROR\r\r>", "7E8 04 41 0D 20\r\r>", "?\r\r>",
                                   "\r>", "#%!\r\r>", "7E80441\r>", "ACT ALERT\r>"}) {
    SCOPED_TRACE(damage);
    Rig rig;
    rig.link->open();
    rig.ask(kEngine, "01 00");
    rig.adapter.instead["010C"] = {damage};
    EXPECT_EQ(rig.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
    rig.adapter.instead["010C1"] = {damage};
    EXPECT_EQ(rig.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
    EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  }
}

TEST(Elm327, NeverRepeatsWhatMightActTwice) {
  Rig rig('6');
  rig.link->open();
  rig.adapter.instead["1101"] = {"BUFFER FULL\r\r>", "7E8025101\r\r>"};
  EXPECT_EQ(rig.ask(kEngine, "11 01"), "");
  EXPECT_EQ(rig.heard("1101"), 1);
}

TEST(Elm327, WaitsForAPendingAnswer) {
  Rig rig;
  rig.link->open();
  rig.ask(kEngine, "01 00");
  // The adapter waits itself; the adapter gives up and must be asked again; the answer comes unasked.
  rig.adapter.instead["010C"] = {"7E8037F0178\r7E804410C0001\r\r>", "7E8037F0178\r\r>", "7E8037F0178\r\r>"};
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "7F 01 78; 41 0C 00 01; ");
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "7F 01 78; 7F 01 78; 41 0C 1A F8; ");
  rig.adapter.instead["010D"] = {"7E8037F0178\r\r>7E803410D33\r"};
  EXPECT_EQ(rig.ask(kEngine, "01 0D"), "7F 01 78; 41 0D 33; ");
}

TEST(Elm327, LetsALatePromptComeBeforeItAsksAgain) {
  Rig rig;
  rig.link->open();
  rig.ask(kEngine, "01 00");
  rig.stream->latency = 900ms;
  EXPECT_EQ(rig.ask(kEngine, "01 0C", 200), "");
  // The answer that was late belongs to nobody.
  rig.stream->latency = 10ms;
  EXPECT_EQ(rig.ask(kEngine, "01 0D"), "41 0D 20; ");
  EXPECT_EQ(rig.ask(kEngine, "01 0C"), "41 0C 1A F8; ");
}

TEST(Elm327, BreaksOffWhatTheAdapterWasAtWhenItConnects) {
  Rig rig;
  rig.adapter.instead["ATZ"] = {"7E8 04 41 0C\rSTOPPED\r\r>", "?\r>"};
  rig.stream->put("41 0C 1A F8\r41 0C 1A F9\r");
  EXPECT_EQ(rig.tell(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_EQ(rig.heard("ATZ"), 3);
}

TEST(Elm327, ConnectsAgainWhenARestartEndsTheConnection) {
  Rig rig;
  rig.adapter.onLine = [&](const std::string& line) {
    if (line == "ATZ") rig.stream->closeAfter = 0;
  };
  EXPECT_EQ(rig.tell(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_EQ(rig.stream->opened, 2);
  // It is remembered, for an adapter that needs a while until it can be connected again.
  rig.link->close();
  EXPECT_EQ(rig.tell(kEngine, "01 0D"), "41 0D 20; ");
  EXPECT_EQ(rig.heard("ATZ"), 1);
}

TEST(Elm327, WaitsWhileTheAdapterStartsTheBusAgain) {
  Rig rig;
  rig.adapter.bus = Elm327Peer::Bus::kwp;
  rig.adapter.ecus.clear();
  rig.adapter.addEcu(0x28).answers = {{"2180", {"61800102"}}};
  rig.link->open();
  EXPECT_EQ(rig.ask({0x28, "KWP2000"}, "21 80"), "61 80 01 02; ");
  // Dots come while the adapter tries, the line ends seconds later.
  rig.stream->betweenBytes = 200ms;
  rig.adapter.instead["21801"] = {"BUS INIT: ...OK\r83F12861800B88\r\r>"};
  EXPECT_EQ(rig.ask({0x28, "KWP2000"}, "21 80", 200), "61 80 0B; ");
}

TEST(Elm327, SaysWhatIsWrongForAMechanic) {
  Rig off;
  off.adapter.bus = Elm327Peer::Bus::none;
  EXPECT_EQ(off.tell(kEngine, "01 00"),
            "no ECU answers (UNABLE TO CONNECT), the socket has 12.4V: is the ignition on?");
  // The next time protocols are tried one by one, then the adapter searches again.
  EXPECT_THAT(off.tell(kEngine, "01 00"), HasSubstr("is the ignition on?"));
  EXPECT_THAT(off.adapter.heard, AllOf(Contains("ATSP6"), Contains("ATSP5"), Contains("ATSP1")));
  off.adapter.bus = Elm327Peer::Bus::can11;
  EXPECT_EQ(off.tell(kEngine, "01 00"), "41 00 BE 3F A8 13; ");
  // The ignition goes off while recording: silence at first, then the reason.
  off.adapter.bus = Elm327Peer::Bus::none;
  std::string said;
  for (int i = 0; i < 9 && said.empty(); ++i) said = off.tell(kEngine, "01 0C");
  EXPECT_THAT(said, HasSubstr("no ECU answers (UNABLE TO CONNECT)"));

  const auto searching = [](const char* answer) {
    Rig rig('6');
    rig.adapter.bus = Elm327Peer::Bus::none;
    rig.adapter.instead["010C"].assign(9, answer);
    return rig.tell(kEngine, "01 0C");
  };
  EXPECT_THAT(searching("CAN ERROR\r\r>"),
              AllOf(HasSubstr("trouble with the car's bus (CAN ERROR)"), Not(HasSubstr("ignition"))));

  Rig dead;
  dead.stream->openFailure = "/dev/ttyUSB0: No such file or directory";
  EXPECT_EQ(dead.tell(kEngine, "01 00"),
            "the adapter cannot be reached: /dev/ttyUSB0: No such file or directory");
  // Attempts are kept apart, further and further.
  const Moment before = dead.clock.now();
  for (int i = 0; i < 5; ++i) dead.tell(kEngine, "01 00");
  EXPECT_GE(dead.clock.now() - before, 5s);
  dead.stream->openFailure.clear();
  EXPECT_EQ(dead.tell(kEngine, "01 0C"), "41 0C 1A F8; ");

  Rig reset;
  EXPECT_EQ(reset.tell(kEngine, "01 0C"), "41 0C 1A F8; ");
  for (const char* const text : {"LV RESET\r\r>", "\r\rELM327 v1.5\r\r>", "ERR94\r>"}) {
    reset.adapter.instead["010D"] = {text};
    reset.adapter.instead["010D1"] = {text};
    reset.adapter.onLine = [&](const std::string& line) {
      if (line.starts_with("010D")) reset.adapter.reset();
    };
    EXPECT_THAT(reset.tell(kEngine, "01 0D"), HasSubstr("the adapter has started again by itself"));
    reset.adapter.onLine = nullptr;
    reset.adapter.instead.clear();
    EXPECT_EQ(reset.tell(kEngine, "01 0D"), "41 0D 20; ");
  }
}

TEST(Elm327, EndsInTimeWhateverThePeerDoes) {
  struct Peer {
    const char* name;
    std::function<std::string(std::string_view)> answer;
    std::chrono::microseconds betweenBytes;
    const char* says;
  };
  const auto adapter = [] { return std::make_shared<Elm327Peer>(); };
  const std::vector<Peer> peers{
      {"silent", [](std::string_view) { return std::string(); }, 0s, "the adapter does not answer"},
      {"web server that wants whole lines",
       [](std::string_view text) {
         return std::string(text.find('\n') == std::string_view::npos ? "" : "HTTP/1.0 400 Bad request\r\n");
       },
       0s, "no ELM327 adapter, or never finishes an answer; it said \"HTTP/1.0 400 Bad request\\x0D\\x0A\""},
      {"web page", [](std::string_view) { return std::string("<html><body>\n<p>What?</p>\n"); }, 0s,
       "no ELM327 adapter; it said \"<html><body>\\x0A<p>"},
      {"login",
       [](std::string_view text) { return "\r\nbox login: " + std::string(text) + "\r\nPassword: "; }, 0s,
       "it said \"\\x0D\\x0Abox login: ATZ"},
      {"no prompt",
       [a = adapter()](std::string_view text) {
         std::string out = a->accept(text);
         std::erase(out, '>');
         return out;
       },
       0s, "never finishes an answer"},
      {"one byte a second", [a = adapter()](std::string_view text) { return a->accept(text); }, 1s,
       "never finishes an answer"},
      {"flood", [](std::string_view) { return std::string(20'000'000, '4'); }, 1us,
       "never finishes an answer"},
      {"flood of lines",
       [](std::string_view) {
         std::string out;
         for (int i = 0; i < 1'000'000; ++i) out += "410C1AF8\r";
         return out;
       },
       1us, "never finishes an answer"},
  };
  for (const Peer& peer : peers) {
    SCOPED_TRACE(peer.name);
    test::ManualLinkClock clock;
    auto stream = std::make_unique<test::PeerStream>(peer.answer, clock);
    stream->betweenBytes = peer.betweenBytes;
    Elm327Link link(std::move(stream), {}, clock);
    try {
      link.open();
      ADD_FAILURE() << "opened";
    } catch (const TarnError& error) {
      EXPECT_THAT(error.description(), HasSubstr(peer.says));
    }
    EXPECT_LT(clock.now(), 8s);
  }
}

TEST(Elm327, EndsInTimeWhateverThePeerBegins) {
  const auto rigged = [](const std::string& answer) {
    auto rig = std::make_unique<Rig>();
    EXPECT_EQ(rig->tell(kEngine, "01 0C"), "41 0C 1A F8; ");
    rig->adapter.instead["010C1"] = {answer};
    return rig;
  };
  // The prompt never comes: the answer counts, the next request finds the adapter stuck.
  auto stuck = rigged("7E804410C1AF8\r");
  stuck->adapter.instead[""] = {""};
  EXPECT_EQ(stuck->tell(kEngine, "01 0C"), "41 0C 1A F8; ");
  EXPECT_EQ(stuck->tell(kEngine, "01 0D"), "the adapter does not finish its answer: it sends no prompt");
  EXPECT_EQ(stuck->tell(kEngine, "01 0D"), "41 0D 20; ");

  auto slow = rigged("7E804410C1AF8\r\r>");
  slow->stream->betweenBytes = 1s;
  EXPECT_EQ(slow->tell(kEngine, "01 0C"), "");

  auto closed = rigged("7E804410C1AF8\r\r>");
  closed->stream->closeAfter = 5;
  EXPECT_EQ(closed->tell(kEngine, "01 0C"), "the adapter is gone: box: the other end is gone");
  EXPECT_EQ(closed->tell(kEngine, "01 0C"), "41 0C 1A F8; ");

  auto flooding = rigged(std::string(3'000'000, '7'));
  flooding->stream->betweenBytes = 1us;
  EXPECT_EQ(flooding->tell(kEngine, "01 0C"), "");
}

}  // namespace
}  // namespace tarnlog::host
