#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <string>

#include "host/link/trace/SimulatedLink.h"
#include "host/vehicle/session/VehicleSession.h"
#include "platform/base/TarnError.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/ScriptedPeer.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using test::failureOf;
using test::ManualLinkClock;
using test::ScriptedPeer;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr char kCar[] = R"({
  "name": "car", "pendingTimeout": 1000,
  "ecus": [
    { "name": "Engine", "function": "INJ", "address": 16, "protocol": "KWP2000", "initialisation": "10 81",
      "requests": [
        { "name": "Speeds", "frame": "21 80", "data": [
          { "name": "Speed", "byte": 2, "bytes": 2, "factor": 0.25, "unit": "rpm", "decimals": 1 },
          { "name": "Pedal", "byte": 4, "bit": 0, "bits": 1, "device": "Pedals",
            "enumeration": [{ "value": 0, "label": "Released" }, { "value": 1, "label": "Pressed" }] },
          { "name": "Gear", "byte": 5, "signed": true, "notAvailable": "0xFF" } ] },
        { "name": "Identity", "frame": "1A 80", "timeout": 50, "data": [
          { "name": "Number", "byte": 2, "bytes": 3, "type": "text" },
          { "name": "Raw", "byte": 2, "type": "bytes" },
          { "name": "Speed", "byte": 4, "reference": true } ] } ] },
    { "name": "Brakes", "address": 40, "protocol": "UDS", "requests": [
        { "name": "Off", "frame": "22 00 01", "available": false },
        { "name": "Wheels", "frame": "22 00 02", "data": [{ "name": "Wheel", "byte": 3 }] } ] } ] })";

/// A described car whose ECUs follow a script.
struct Car {
  VehicleDescription description =
      parseVehicleDescription(kCar, "car.json", [](const std::string&) { return std::string(); });
  ManualLinkClock clock;
  ScriptedPeer peer;
  SimulatedLink link{clock, peer};
  VehicleSession session{description, link, clock, UserLocale{','}};

  ferrox3::Request& request(const char* name) { return *session.ecu(0).findRequest(name); }
  ferrox3::Request& wheels() { return *session.ecu(1).findRequest("Wheels"); }
  ferrox3::Value value(const char* name, const char* data) { return request(name).findData(data)->value(); }
  std::string texts(const char* name) {
    std::string texts;
    for (std::size_t i = 0; i < request(name).dataCount(); ++i)
      texts += (i > 0 ? " | " : "") + request(name).data(i).valueText();
    return texts;
  }
  /// The texts of the request's data, or what is wrong with sending it.
  std::string send(const char* name) {
    const std::string failure = failureOf([&] { request(name).send(); });
    return failure == "none" ? texts(name) : failure;
  }
  /// The same, when the car answers this.
  std::string speeds(std::vector<std::string> answers) {
    peer.script["21 80"] = std::move(answers);
    return send("Speeds");
  }
  /// The answer to a frame, or what is wrong with sending it.
  std::string exchange(std::size_t ecu, const char* frame, std::size_t longest = 0) {
    const auto out = session.createRawBuffer();
    const auto in = session.createRawBuffer();
    const std::string failure = failureOf([&] {
      out->fill(frame);
      in->setLength(longest);
      session.ecu(ecu).exchange(*out, *in);
    });
    return failure == "none" ? in->text() : failure;
  }
  void startSession() {
    peer.script["10 A0"] = {"50 A0"};
    session.ecu(0).kwp2000()->startDiagnosticSession(0xA0);
  }
  Moment timeOf(const std::function<void()>& step) {
    const Moment before = clock.now();
    step();
    return clock.now() - before;
  }
};

TEST(VehicleSession, ValuesFollowTheResponse) {
  Car car;
  EXPECT_EQ(car.texts("Speeds"), "--- | --- | ---");
  EXPECT_TRUE(std::isnan(std::get<double>(car.value("Speeds", "Gear"))));
  EXPECT_EQ(car.request("Speeds").sentText(), "");

  EXPECT_EQ(car.speeds({"61 80 13 5F 01 FE"}), "1239,8 | Pressed | -2");
  EXPECT_EQ(car.value("Speeds", "Speed"), ferrox3::Value(1239.75));
  EXPECT_EQ(car.value("Speeds", "Gear"), ferrox3::Value(-2));
  EXPECT_EQ(car.request("Speeds").sentText() + ": " + car.request("Speeds").receivedText(),
            "21 80: 61 80 13 5F 01 FE");
  EXPECT_EQ(car.speeds({"61 80 00 00 00 FF"}), "0,0 | Released | ---");
  EXPECT_EQ(car.speeds({"61 80 00 04 02 00"}), "1,0 | Released | 0");

  car.peer.script["1A 80"] = {"5A 80 41 42 20 0F"};
  EXPECT_EQ(car.send("Identity"), "AB | 41 42 20 0F | 32");
  car.peer.script["1A 80"] = {"5A 80 41"};
  EXPECT_EQ(car.send("Identity"), "--- | 41 | ---");
  EXPECT_TRUE(std::isnan(std::get<double>(car.value("Identity", "Number"))));
  EXPECT_EQ(std::get<ferrox3::Bytes>(car.value("Identity", "Raw")), ferrox3::Bytes{0x41});
}

TEST(VehicleSession, WhatIsNoPositiveAnswerIsAnError) {
  Car car;
  car.speeds({"61 80 00 04 01 05"});
  EXPECT_EQ(car.speeds({"7F 21 31"}), "Engine: request 21 80 refused: 7F 21 31 request out of range");
  EXPECT_EQ(car.request("Speeds").receivedText(), "7F 21 31");
  EXPECT_EQ(car.texts("Speeds"), "1,0 | Pressed | 5") << "the old values stay";

  // Answers to other requests are passed over, and do not prolong the wait.
  EXPECT_EQ(car.speeds({"61 81 00", "7F 22 31", "", "61 80 00 08"}), "2,0 | --- | ---");
  const Moment before = car.clock.now();
  EXPECT_EQ(car.speeds(std::vector<std::string>(100, "61 81")),
            "Engine: request 21 80: no answer, but 61 81");
  EXPECT_EQ(car.clock.now() - before, 200ms);
  EXPECT_EQ(car.request("Speeds").receivedText(), "");
  EXPECT_EQ(car.send("Identity"), "Engine: request 1A 80: no answer within 50 ms");

  // "Pending" prolongs it, up to the limit.
  std::vector<std::string> answers(60, "7F 21 78");
  answers.emplace_back("61 80 00 0C");
  EXPECT_EQ(car.speeds(answers), "3,0 | --- | ---");
  answers.assign(200, "7F 21 78");
  EXPECT_EQ(car.speeds(answers), "Engine: request 21 80: still pending after 1000 ms");
}

TEST(VehicleSession, ABusyEcuIsAskedAgain) {
  Car car;
  int idled = 0;
  car.link.setIdleHook([&] {
    if (++idled == 4) car.peer.script["21 80"] = {"7F 21 78", "61 80 00 08"};
  });
  EXPECT_EQ(car.speeds({"7F 21 21"}), "2,0 | --- | ---");
  EXPECT_GE(car.peer.sent.size(), 3U);
  car.link.setIdleHook({});
  car.peer.sent.clear();
  const Moment before = car.clock.now();
  EXPECT_EQ(car.speeds({"7F 21 21"}), "Engine: request 21 80 refused: 7F 21 21 busy, repeat request");
  EXPECT_LE(car.clock.now() - before, 200ms);
  EXPECT_LE(car.peer.sent.size(), 10U);
}

TEST(VehicleSession, ExchangesRawFramesAndWaitsForNoAnswerThatIsNotAskedFor) {
  Car car;
  EXPECT_EQ(car.exchange(0, ""), "Engine: the request has no bytes");
  EXPECT_EQ(car.exchange(0, "31 0"), "expected bytes of two hexadecimal digits each, found \"31 0\"");
  car.peer.script["31 01"] = {"71 01 02 03"};
  EXPECT_EQ(car.exchange(0, "31 01"), "71 01 02 03");
  EXPECT_EQ(car.exchange(0, "31 01", 2), "71 01");

  EXPECT_EQ(car.exchange(1, "3E 80"), "");
  EXPECT_EQ(car.exchange(0, "3E 02"), "");
  EXPECT_EQ(car.exchange(1, "3E 00"), "Brakes: request 3E 00: no answer within 200 ms");
  EXPECT_EQ(car.exchange(1, "22 80 00"), "Brakes: request 22 80 00: no answer within 200 ms");
  EXPECT_EQ(car.exchange(0, "10 81"), "Engine: request 10 81: no answer within 200 ms");
  car.peer.script["3E 80"] = {"7F 3E 7F"};
  EXPECT_EQ(car.exchange(1, "3E 80"),
            "Brakes: request 3E 80 refused: 7F 3E 7F service not supported in active session");
  // Extended session without an answer: it is kept open.
  EXPECT_EQ(car.exchange(1, "10 83"), "");
  car.clock.step(2s);
  car.speeds({"61 80 00 08"});
  EXPECT_EQ(car.peer.sent[car.peer.sent.size() - 2], "40: 3E 00");
}

/// The requests "Speeds" and "Identity" as a poll set sends them.
struct PolledCar : Car {
  PolledCar() {
    session.setNoticeHandler([this](const Notice& notice) { notices.push_back(notice.text); });
    peer.script = {{"10 81", {"50 81"}}, {"21 80", {"61 80 00 04 01 05"}}, {"1A 80", {"5A 80 41 42 43"}}};
    list->add(*request("Speeds").findData("Speed"));
    list->add(*request("Identity").findData("Number"));
  }
  void initialise() {
    if (!set) set = list->pollSet();
    set->protocol().initialiseAll();
  }
  std::string cycle() {
    if (!set) initialise();
    for (std::size_t i = 0; i < set->requestCount(); ++i)
      if (const std::string error = failureOf([&] { set->request(i).send(); }); error != "none") return error;
    return request("Speeds").data(0).valueText() + " " + request("Identity").data(0).valueText();
  }

  std::vector<std::string> notices;
  std::unique_ptr<ferrox3::AcquisitionList> list = session.createAcquisitionList();
  std::unique_ptr<ferrox3::PollSet> set;
};

TEST(VehicleSession, PollsOnWithoutWhatTheCarRefuses) {
  PolledCar car;
  EXPECT_EQ(car.cycle(), "1,0 ABC");
  car.peer.script["1A 80"] = {"7F 1A 31"};
  car.peer.sent.clear();
  for (int i = 0; i < 4; ++i) EXPECT_EQ(car.cycle(), "1,0 ---");
  EXPECT_EQ(std::count(car.peer.sent.begin(), car.peer.sent.end(), "16: 1A 80"), 1);
  EXPECT_TRUE(std::isnan(std::get<double>(car.value("Identity", "Number"))));
  EXPECT_THAT(car.send("Identity"), HasSubstr("refused")) << "whoever asks for it by itself hears why";
  car.clock.step(5s);
  EXPECT_EQ(car.cycle(), "1,0 ---");
  car.peer.script["1A 80"] = {"5A 80 41 42 43"};
  car.clock.step(5s);
  EXPECT_EQ(car.cycle(), "1,0 ABC");
  EXPECT_THAT(car.notices,
              ElementsAre("Engine: Identity is refused (7F 1A 31 request out of range): left out, and asked "
                          "again every 5 s",
                          "Engine: Identity is answered again"));
  car.peer.script["1A 80"] = {"7F 1A 21"};
  EXPECT_EQ(car.cycle(), "Engine: request 1A 80 refused: 7F 1A 21 busy, repeat request");

  // With everything refused, cycles do not follow one another at full speed.
  car.peer.script["21 80"] = car.peer.script["1A 80"] = {"7F 21 22", "7F 1A 22"};
  EXPECT_EQ(car.cycle(), "--- ---");
  const Moment before = car.clock.now();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(car.cycle(), "--- ---");
  EXPECT_GE(car.clock.now() - before, 200ms);

  PolledCar strict;
  strict.description.ecus[0].requests[1].refusalIsError = true;
  strict.peer.script["1A 80"] = {"7F 1A 31"};
  EXPECT_EQ(strict.cycle(), "Engine: request 1A 80 refused: 7F 1A 31 request out of range");
}

TEST(VehicleSession, PollsOnWithoutWhatTheCarNeverAnswersUnlessTheWholeEcuIsSilent) {
  const std::string silent = "Engine: request 21 80: no answer within 200 ms";
  PolledCar car;
  car.peer.script["21 80"] = {};
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(car.cycle(), silent);
    car.initialise();
  }
  const auto elapsed = [&] { return car.timeOf([&] { EXPECT_EQ(car.cycle(), "--- ABC"); }); };
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(elapsed(), i == 0 ? 210ms : 60ms) << "a trial is not waited for long";
    EXPECT_LT(elapsed(), 50ms);
    car.clock.step(5s);
  }
  EXPECT_EQ(car.notices.size(), 1U);
  car.peer.script["21 80"] = {"61 80 00 08"};
  EXPECT_EQ(car.cycle(), "2,0 ABC");
  EXPECT_EQ(car.notices.back(), "Engine: Speeds is answered again");

  car.peer.script.clear();
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(car.cycle(), silent);
    car.initialise();
  }

  PolledCar ungreeted;
  ungreeted.description.ecus[0].initialisation.clear();
  ungreeted.peer.script["21 80"] = {};
  for (int i = 0; i < 2; ++i) ungreeted.initialise();
  EXPECT_THAT(ungreeted.peer.sent, ElementsAre("16: 21 80", "16: 1A 80")) << "another one after silence";
}

// A gateway that refused at once was asked a thousand times a second.
TEST(VehicleSession, AFailureThatRepeatsIsReturnedLater) {
  Car car;
  car.peer.script["1A 80"] = {"5A 80 41"};
  car.peer.unreachable = "21 80";
  int hooks = 0;
  car.link.setIdleHook([&] { ++hooks; });
  const auto duration = [&] {
    return car.timeOf([&] { EXPECT_EQ(car.send("Speeds"), "the ECU cannot be reached"); }) / 1ms;
  };
  for (const int expected : {0, 240, 490, 990, 1990}) {
    EXPECT_EQ(duration(), expected);
    EXPECT_EQ(car.send("Identity"), "--- | 41 | ---")
        << "10 ms, and no reason to ask for the other one more often";
  }
  EXPECT_GE(hooks, 3700 / 20);
  car.link.setStopQuestion([stopping = hooks + 5, &hooks] { return hooks > stopping; });
  EXPECT_LE(duration(), 120);
  car.link.setStopQuestion({});
  car.peer.unreachable.clear();
  car.speeds({"61 80 00 08"});
  car.peer.unreachable = "21 80";
  EXPECT_EQ(duration(), 0);
}

TEST(VehicleSession, TheIdleHookSeesARequestOnItsWayAndCannotSend) {
  Car car;
  int calls = 0;
  std::string second;
  car.link.setIdleHook([&] {
    ++calls;
    EXPECT_TRUE(car.session.communicating());
    second = car.send("Identity");
    car.session.endCommunication();
  });
  EXPECT_FALSE(car.session.communicating());
  car.send("Speeds");
  EXPECT_EQ(calls, 10) << "every 20 of 200 ms";
  EXPECT_EQ(second, "another request is on its way");
  EXPECT_FALSE(car.session.communicating());

  car.link.setIdleHook({});
  EXPECT_EQ(car.peer.starts, 1);
  car.send("Speeds");
  EXPECT_EQ(car.peer.starts, 2) << "ended during the request, so opened again";
  car.session.endCommunication();
  for (int i = 0; i < 2; ++i) car.send("Speeds");
  EXPECT_EQ(car.peer.starts, 3);
}

TEST(VehicleSession, TheAcquisitionListSendsEachRequestOnce) {
  Car car;
  const auto list = car.session.createAcquisitionList();
  for (ferrox3::DataItem* const item :
       {car.wheels().findData("Wheel"), car.request("Speeds").findData("Gear"),
        car.request("Identity").findData("Raw"), car.request("Speeds").findData("Speed"),
        car.wheels().findData("Wheel")})
    list->add(*item);
  const auto set = list->pollSet();
  ASSERT_EQ(set->requestCount(), 3U);
  EXPECT_EQ(set->request(0).name() + set->request(1).name() + set->request(2).name(), "WheelsSpeedsIdentity");
  ASSERT_EQ(set->ecuCount(), 2U);
  EXPECT_EQ(set->ecu(0).name(), "Brakes");

  std::string report;
  set->protocol().setInitReport(
      [&](const ferrox3::Ecu& ecu, bool failed, const std::string&, const std::string& error) {
        report += ecu.name() + (failed ? " failed " + error + ". " : " ok. ");
      });
  car.peer.script["10 81"] = {"7F 10 11"};
  set->protocol().initialiseAll();
  EXPECT_EQ(report, "Brakes failed no answer to 22 00 02 within 200 ms. Engine ok. ");
  EXPECT_THAT(car.peer.sent, ElementsAre("40: 22 00 02", "16: 10 81"));
}

TEST(VehicleSession, OpenSessionsAreKeptWhileAnotherEcuIsAsked) {
  Car car;
  car.peer.script["22 00 02"] = {"62 00 02 11"};
  car.startSession();
  const auto askWheelsFor = [&](int seconds) {
    car.peer.sent.clear();
    for (int i = 0; i < seconds * 2; ++i) {
      car.wheels().send();
      car.clock.step(490ms);
    }
    return std::count(car.peer.sent.begin(), car.peer.sent.end(), "16: 3E 01");
  };
  car.link.setIdleHook([&] { car.send("Identity"); });  // it cannot, and the link is well all the same
  EXPECT_EQ(askWheelsFor(9), 4);  // not answered, which is no failure of the request that was asked for
  car.speeds({"61 80 13 5F 01 FE"});
  EXPECT_EQ(askWheelsFor(2), 0);
  car.session.endCommunication();
  EXPECT_EQ(askWheelsFor(9), 0);
}

TEST(VehicleSession, WaitsForAnEcuAsLongAsItTellsWhenASessionIsOpened) {
  Car car;
  const auto silence = [&] { return car.timeOf([&] { EXPECT_NE(car.exchange(1, "22 00 02"), ""); }); };
  EXPECT_EQ(silence(), 200ms);
  // P2 is 20 ms and P2* 300 ms; 100 ms for the way, and 10 ms as it took so far.
  car.peer.script["10 03"] = {"50 03 00 14 00 1E"};
  EXPECT_EQ(car.exchange(1, "10 03"), "50 03 00 14 00 1E");
  EXPECT_EQ(silence(), 130ms);
  EXPECT_EQ(car.exchange(1, "10 03"), "50 03 00 14 00 1E");
  EXPECT_EQ(silence(), 200ms) << "too short for the way, perhaps: not believed any more";
  car.peer.script["22 00 02"] = {"7F 22 78"};
  EXPECT_EQ(silence(), 420ms);
  EXPECT_EQ(car.exchange(1, "10 03"), "50 03 00 14 00 1E");
  EXPECT_GT(silence(), 420ms);
  car.peer.script["22 00 02"].clear();
  // A slow ECU gets its time.
  car.peer.script["10 03"] = {"50 03 01 F4 00 1E"};
  EXPECT_EQ(car.exchange(1, "10 03"), "50 03 01 F4 00 1E");
  EXPECT_EQ(silence(), 610ms);
  // What has another length, or comes from an ECU of another protocol, tells no times.
  car.peer.script["10 81"] = {"50 81 00 14 00 1E"};
  EXPECT_EQ(car.exchange(0, "10 81"), "50 81 00 14 00 1E");
  EXPECT_EQ(car.timeOf([&] { EXPECT_NE(car.exchange(0, "21 80"), ""); }), 200ms);
}

// Refusals of a session that has lapsed once led to a new initialisation; now they only leave out.
TEST(VehicleSession, ALostSessionIsOpenedAgain) {
  PolledCar car;
  car.initialise();
  car.startSession();
  car.peer.script["21 80"] = {"7F 21 80"};
  car.peer.sent.clear();
  EXPECT_EQ(car.cycle(), "--- ABC");
  EXPECT_THAT(car.peer.sent, ElementsAre("16: 21 80", "16: 10 A0", "16: 21 80", "16: 1A 80"));
}

TEST(VehicleSession, AnEcuThatCannotBeReachedLeavesTheOthersAlone) {
  Car car;
  car.peer.script["22 00 02"] = {"62 00 02 11"};
  car.startSession();
  const auto sentAfterAWhile = [&] {
    car.clock.step(2s);
    car.peer.sent.clear();
    car.wheels().send();
    return car.peer.sent;
  };
  car.peer.unreachable = "22 00 02";
  EXPECT_THROW(car.wheels().send(), TarnError);
  EXPECT_EQ(car.peer.starts, 1);
  car.peer.unreachable = "3E 01";
  for (int i = 0; i < 2; ++i) EXPECT_THAT(sentAfterAWhile(), ElementsAre("16: 3E 01", "40: 22 00 02"));
  // A link that failed leaves nobody knowing which sessions are open.
  car.peer.unreachable.clear();
  car.peer.fatal = "22 00 02";
  EXPECT_THROW(car.wheels().send(), TarnError);
  car.peer.fatal.clear();
  EXPECT_THAT(sentAfterAWhile(), ElementsAre("40: 22 00 02"));
}

/// "answered 1000 to 11000", in microseconds since the clock's zero.
std::string exchangeText(const ferrox3::Request& request) {
  const auto known = request.lastExchange();
  if (!known) return "none";
  constexpr std::array kOutcomes{"answered", "refused", "silent", "not asked"};
  return kOutcomes.at(static_cast<std::size_t>(known->outcome)) + (" " + std::to_string(known->sent)) +
         " to " + std::to_string(known->received);
}

TEST(VehicleSession, TellsWhenARequestLeftAndItsAnswerWasThere) {
  PolledCar car;
  car.initialise();
  ferrox3::Request& identity = car.set->request(1);
  EXPECT_EQ(exchangeText(identity), "none");
  const Moment start = car.clock.now();
  const auto at = [&](int milliseconds) { return std::to_string((start + milliseconds * 1ms).count()); };
  car.peer.script["1A 80"] = {"5A 80 41", "5A 80 42"};
  identity.send();
  EXPECT_EQ(exchangeText(identity), "answered " + at(0) + " to " + at(10));
  // A busy ECU is asked again 20 ms later: what counts is the request that was answered.
  car.peer.script["1A 80"] = {"7F 1A 21"};
  car.link.setIdleHook([&] { car.peer.script["1A 80"] = {"7F 1A 78", "7F 1A 31"}; });
  identity.send();
  car.link.setIdleHook({});
  EXPECT_EQ(exchangeText(identity), "refused " + at(40) + " to " + at(60));
  identity.send();
  EXPECT_THAT(exchangeText(identity), testing::StartsWith("not asked"));
  car.clock.step(5s);
  car.peer.script["1A 80"] = {};
  car.speeds({"61 80 00 08"});
  const std::string asked = std::to_string(car.clock.now().count());
  identity.send();
  EXPECT_EQ(exchangeText(identity), "silent " + asked + " to " + std::to_string(car.clock.now().count()));
  // TesterPresent and the opening of a session do not count.
  car.startSession();
  car.clock.step(2s);
  car.peer.script["3E 01"] = {"7E 01"};
  car.peer.script["22 00 02"] = {"62 00 02 11"};
  const Moment before = car.clock.now();
  car.wheels().send();
  EXPECT_EQ(exchangeText(car.wheels()), "answered " + std::to_string((before + 10ms).count()) + " to " +
                                            std::to_string((before + 20ms).count()));
  car.peer.fatal = "22 00 02";
  EXPECT_THROW(car.wheels().send(), TarnError);
  EXPECT_EQ(exchangeText(car.wheels()), "none");

  std::string sent;
  for (const ferrox3::ServiceCount& count : car.session.servicesSent())
    sent += count.name + " " + std::to_string(count.sent) + ", ";
  EXPECT_EQ(sent,
            "DiagnosticSessionControl 2, ReadEcuIdentification 4, ReadDataByLocalIdentifier 1, "
            "ReadDataByIdentifier 2, TesterPresent 1, ");
}

TEST(VehicleSession, TellsTheRawNumberWhereTheValueIsMadeOfIt) {
  Car car;
  car.speeds({"61 80 13 5F 01 FE"});
  const auto scalingText = [&](const char* request, const char* data) -> std::string {
    const ferrox3::DataItem& item = *car.request(request).findData(data);
    const auto scaling = item.scaling();
    if (!scaling) return item.rawNumber() ? "raw" : "none";
    return std::to_string(scaling->bits) + (scaling->isSigned ? " signed " : " ") +
           (item.rawNumber() ? std::to_string(*item.rawNumber()) : "no number");
  };
  EXPECT_EQ(car.request("Speeds").findData("Speed")->scaling()->factor, 0.25);
  EXPECT_EQ(scalingText("Speeds", "Speed"), "16 4959");
  EXPECT_EQ(scalingText("Speeds", "Gear"), "8 signed -2");
  EXPECT_EQ(scalingText("Identity", "Number"), "none");
  car.speeds({"61 80 13 5F 01 FF"});
  EXPECT_EQ(scalingText("Speeds", "Gear"), "8 signed no number");
  DataLayout rounded;
  rounded.divisor = 2;
  EXPECT_FALSE(scalingOf(rounded));
}

TEST(VehicleSession, LooksUpByName) {
  Car car;
  ferrox3::Ecu& engine = car.session.ecu(0);
  EXPECT_EQ(car.session.findEcuByFunction("Engine"), nullptr) << "a name, not a function";
  EXPECT_EQ(car.session.ecu(1).kwp2000(), nullptr);
  EXPECT_EQ(engine.findRequest("speeds"), nullptr);
  EXPECT_EQ(engine.findData("Speed")->request().name(), "Identity") << "marked as reference";
  EXPECT_EQ(engine.findData("Gear")->request().name(), "Speeds");
  const ferrox3::Enumeration& states = *engine.findData("Pedal")->enumeration();
  EXPECT_THROW(states.label(3), TarnError);
  EXPECT_THROW(states.value("?"), TarnError);
}

}  // namespace
}  // namespace tarnlog::host
