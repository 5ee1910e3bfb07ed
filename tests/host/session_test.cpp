#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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
using test::ManualLinkClock;
using test::ScriptedPeer;

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
  std::string text(const char* name) { return request("Speeds").findData(name)->valueText(); }
  std::string sendError(const char* name) {
    return test::failureOf([&] { request(name).send(); });
  }
};

TEST(VehicleSession, ValuesFollowTheResponse) {
  Car car;
  ferrox3::Request& speeds = car.request("Speeds");
  EXPECT_EQ(car.text("Speed"), "---");
  EXPECT_TRUE(std::isnan(std::get<double>(speeds.findData("Gear")->value())));
  EXPECT_EQ(speeds.sentText(), "");

  car.peer.script["21 80"] = {"61 80 13 5F 01 FE"};
  speeds.send();
  EXPECT_EQ(std::get<double>(speeds.findData("Speed")->value()), 1239.75);
  EXPECT_EQ(car.text("Speed"), "1239,8");
  EXPECT_EQ(std::get<std::int32_t>(speeds.findData("Pedal")->value()), 1);
  EXPECT_EQ(car.text("Pedal"), "Pressed");
  EXPECT_EQ(std::get<std::int32_t>(speeds.findData("Gear")->value()), -2);
  EXPECT_EQ(speeds.sentText() + " / " + speeds.receivedText(), "21 80 / 61 80 13 5F 01 FE");

  car.peer.script["21 80"] = {"61 80 00 00 00 FF"};
  speeds.send();
  EXPECT_EQ(car.text("Pedal") + car.text("Gear"), "Released---");
  car.peer.script["21 80"] = {"61 80 00 04 02 00"};
  speeds.send();
  EXPECT_EQ(car.text("Pedal") + car.text("Gear"), "Released0");
}

TEST(VehicleSession, TextsAndBytesAreTakenAsTheyAre) {
  Car car;
  car.peer.script["1A 80"] = {"5A 80 41 42 20 0F"};
  ferrox3::Request& identity = car.request("Identity");
  identity.send();
  EXPECT_EQ(identity.findData("Number")->valueText(), "AB");
  EXPECT_EQ(identity.findData("Raw")->valueText(), "41 42 20 0F");
  car.peer.script["1A 80"] = {"5A 80 41"};
  identity.send();
  EXPECT_EQ(identity.findData("Number")->valueText(), "---");
  EXPECT_TRUE(std::isnan(std::get<double>(identity.findData("Number")->value())));
  EXPECT_EQ(std::get<ferrox3::Bytes>(identity.findData("Raw")->value()), ferrox3::Bytes{0x41});
}

TEST(VehicleSession, WhatIsNoPositiveAnswerIsAnError) {
  Car car;
  car.peer.script["21 80"] = {"61 80 00 04 01 05"};
  car.request("Speeds").send();
  car.peer.script["21 80"] = {"7F 21 31"};
  EXPECT_EQ(car.sendError("Speeds"), "Engine: request 21 80 refused: 7F 21 31 request out of range");
  EXPECT_EQ(car.request("Speeds").receivedText(), "7F 21 31");
  EXPECT_EQ(car.text("Speed"), "1,0") << "the old value stays";

  // Answers to other requests are passed over, and do not prolong the wait.
  car.peer.script["21 80"] = {"61 81 00", "7F 22 31", "", "61 80 00 08"};
  EXPECT_EQ(car.sendError("Speeds"), "none");
  car.peer.script["21 80"] = std::vector<std::string>(100, "61 81");
  const auto before = car.clock.now();
  EXPECT_EQ(car.sendError("Speeds"), "Engine: request 21 80: no answer, but 61 81");
  EXPECT_EQ(car.clock.now() - before, 200ms);
  EXPECT_EQ(car.request("Speeds").receivedText(), "");
  EXPECT_EQ(car.sendError("Identity"), "Engine: request 1A 80: no answer within 50 ms");

  // "Pending" prolongs it, up to the limit.
  std::vector<std::string> answers(60, "7F 21 78");
  answers.emplace_back("61 80 00 0C");
  car.peer.script["21 80"] = answers;
  EXPECT_EQ(car.sendError("Speeds"), "none");
  EXPECT_EQ(car.text("Speed"), "3,0");
  car.peer.script["21 80"] = std::vector<std::string>(200, "7F 21 78");
  EXPECT_EQ(car.sendError("Speeds"), "Engine: request 21 80: still pending after 1000 ms");
}

/// The requests "Speeds" and "Identity" as a poll set sends them.
struct PolledCar : Car {
  PolledCar() {
    session.setNoticeHandler([this](const Notice& notice) { notices.push_back(notice.text); });
    peer.script = {{"10 81", {"50 81"}}, {"21 80", {"61 80 00 04 01 05"}}, {"1A 80", {"5A 80 41 42 43"}}};
    list->add(*request("Speeds").findData("Speed"));
    list->add(*request("Identity").findData("Number"));
  }
  void begin() {
    set = list->pollSet();
    set->protocol().initialiseAll();
  }
  std::string cycle() {
    for (std::size_t i = 0; i < set->requestCount(); ++i)
      if (const std::string error = test::failureOf([&] { set->request(i).send(); }); error != "none")
        return error;
    return text("Speed") + " " + request("Identity").findData("Number")->valueText();
  }
  std::ptrdiff_t asked(const std::string& frame) {
    return std::count(peer.sent.begin(), peer.sent.end(), "16: " + frame);
  }

  std::vector<std::string> notices;
  std::unique_ptr<ferrox3::AcquisitionList> list = session.createAcquisitionList();
  std::unique_ptr<ferrox3::PollSet> set;
};

TEST(VehicleSession, PollsOnWithoutWhatTheCarRefuses) {
  PolledCar car;
  car.begin();
  EXPECT_EQ(car.cycle(), "1,0 ABC");
  car.peer.script["1A 80"] = {"7F 1A 31"};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(car.cycle(), "1,0 ---");
  EXPECT_TRUE(std::isnan(std::get<double>(car.request("Identity").findData("Number")->value())));
  EXPECT_EQ(car.asked("1A 80"), 2);
  EXPECT_NE(car.sendError("Identity"), "none") << "for whoever asks for it by itself it is an error";
  car.clock.step(5s);
  EXPECT_EQ(car.cycle(), "1,0 ---");
  car.peer.script["1A 80"] = {"5A 80 41 42 43"};
  car.clock.step(5s);
  EXPECT_EQ(car.cycle(), "1,0 ABC");
  EXPECT_EQ(car.notices,
            (std::vector<std::string>{
                "Engine: Identity is refused (7F 1A 31 request out of range): left out, and asked "
                "again every 5 s",
                "Engine: Identity is answered again"}));
  car.peer.script["1A 80"] = {"7F 1A 21"};
  EXPECT_EQ(car.cycle(), "Engine: request 1A 80 refused: 7F 1A 21 busy, repeat request");

  // With everything refused, cycles do not follow one another at full speed.
  car.peer.script["21 80"] = car.peer.script["1A 80"] = {"7F 21 22", "7F 1A 22"};
  EXPECT_EQ(car.cycle(), "--- ---");
  const auto before = car.clock.now();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(car.cycle(), "--- ---");
  EXPECT_GE(car.clock.now() - before, 200ms);

  PolledCar strict;
  strict.description.ecus[0].requests[1].refusalIsError = true;
  strict.peer.script["1A 80"] = {"7F 1A 31"};
  strict.begin();
  EXPECT_EQ(strict.cycle(), "Engine: request 1A 80 refused: 7F 1A 31 request out of range");
}

TEST(VehicleSession, PollsOnWithoutWhatTheCarNeverAnswersUnlessTheWholeEcuIsSilent) {
  const std::string silent = "Engine: request 21 80: no answer within 200 ms";
  PolledCar car;
  car.peer.script["21 80"] = {};
  for (int i = 0; i < 2; ++i) {
    if (i == 0) car.begin();
    EXPECT_EQ(car.cycle(), silent);
    car.set->protocol().initialiseAll();
  }
  const auto elapsed = [&] {
    const auto before = car.clock.now();
    EXPECT_EQ(car.cycle(), "--- ABC");
    return car.clock.now() - before;
  };
  EXPECT_GE(elapsed(), 200ms);
  EXPECT_LT(elapsed(), 50ms);
  car.clock.step(5s);
  EXPECT_GE(elapsed(), 200ms);
  EXPECT_LT(elapsed(), 50ms);
  EXPECT_EQ(car.notices.size(), 1U);
  car.clock.step(5s);
  car.peer.script["21 80"] = {"61 80 00 08"};
  EXPECT_EQ(car.cycle(), "2,0 ABC");
  EXPECT_EQ(car.notices.back(), "Engine: Speeds is answered again");

  car.peer.script.clear();
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(car.cycle(), silent);
    car.set->protocol().initialiseAll();
  }
}

TEST(VehicleSession, IsGreetedWithAnotherRequestAfterSilence) {
  PolledCar car;
  car.description.ecus[0].initialisation.clear();
  car.peer.script["21 80"] = {};
  car.begin();
  car.set->protocol().initialiseAll();
  EXPECT_EQ(car.peer.sent, (std::vector<std::string>{"16: 21 80", "16: 1A 80"}));
}

// A gateway that refused at once was asked a thousand times a second.
TEST(VehicleSession, AFailureThatRepeatsIsReturnedLater) {
  Car car;
  car.peer.script["1A 80"] = {"5A 80 41"};
  car.peer.unreachable = "21 80";
  int hooks = 0;
  car.link.setIdleHook([&] { ++hooks; });
  const auto duration = [&] {
    const auto before = car.clock.now();
    EXPECT_EQ(car.sendError("Speeds"), "the ECU cannot be reached");
    return (car.clock.now() - before) / 1ms;
  };
  for (const int expected : {0, 240, 490, 990, 1990}) {
    EXPECT_EQ(duration(), expected);
    EXPECT_EQ(car.sendError("Identity"), "none")
        << "10 ms, and no reason to ask for the other one more often";
  }
  EXPECT_GE(hooks, 3700 / 20);
  bool stop = false;
  car.link.setIdleHook([&] { stop = ++hooks > 5; });
  car.link.setStopQuestion([&] { return stop; });
  hooks = 0;
  EXPECT_LE(duration(), 120);
  stop = false;
  car.link.setIdleHook({});
  car.peer.unreachable.clear();
  car.peer.script["21 80"] = {"61 80 00 08"};
  car.request("Speeds").send();
  car.peer.unreachable = "21 80";
  EXPECT_EQ(duration(), 0);
}

TEST(VehicleSession, ABusyEcuIsAskedAgain) {
  Car car;
  car.peer.script["21 80"] = {"7F 21 21"};
  int asked = 0;
  car.link.setIdleHook([&] {
    if (++asked == 4) car.peer.script["21 80"] = {"7F 21 78", "61 80 00 08"};
  });
  EXPECT_EQ(car.sendError("Speeds"), "none");
  EXPECT_EQ(car.text("Speed"), "2,0");
  EXPECT_GE(car.peer.sent.size(), 3U);
  car.link.setIdleHook({});
  car.peer.script["21 80"] = {"7F 21 21"};
  car.peer.sent.clear();
  const auto before = car.clock.now();
  EXPECT_EQ(car.sendError("Speeds"), "Engine: request 21 80 refused: 7F 21 21 busy, repeat request");
  EXPECT_LE(car.clock.now() - before, 200ms);
  EXPECT_LE(car.peer.sent.size(), 10U);
}

TEST(VehicleSession, ARequestThatAsksForNoAnswerGetsNone) {
  Car car;
  const auto request = car.session.createRawBuffer();
  const auto response = car.session.createRawBuffer();
  const auto exchange = [&](std::size_t ecu, const char* frame) {
    request->fill(frame);
    return test::failureOf([&] { car.session.ecu(ecu).exchange(*request, *response); });
  };
  EXPECT_EQ(exchange(1, "3E 80"), "none");
  EXPECT_EQ(exchange(0, "3E 02"), "none");
  EXPECT_EQ(exchange(1, "3E 00"), "Brakes: request 3E 00: no answer within 200 ms");
  EXPECT_EQ(exchange(1, "22 80 00"), "Brakes: request 22 80 00: no answer within 200 ms");
  EXPECT_EQ(exchange(0, "10 81"), "Engine: request 10 81: no answer within 200 ms");
  car.peer.script["3E 80"] = {"7F 3E 7F"};
  EXPECT_EQ(exchange(1, "3E 80"),
            "Brakes: request 3E 80 refused: 7F 3E 7F service not supported in active session");
  // Extended session without an answer: it is kept open.
  EXPECT_EQ(exchange(1, "10 83"), "none");
  car.clock.step(2s);
  car.peer.script["21 80"] = {"61 80 00 08"};
  car.request("Speeds").send();
  EXPECT_EQ(car.peer.sent[car.peer.sent.size() - 2], "40: 3E 00");
}

TEST(VehicleSession, TheIdleHookSeesARequestOnItsWayAndCannotSend) {
  Car car;
  int calls = 0;
  std::string second;
  car.link.setIdleHook([&] {
    ++calls;
    EXPECT_TRUE(car.session.communicating());
    second = car.sendError("Identity");
    car.session.endCommunication();
  });
  EXPECT_FALSE(car.session.communicating());
  EXPECT_NE(car.sendError("Speeds"), "none");
  EXPECT_EQ(calls, 10) << "every 20 of 200 ms";
  EXPECT_EQ(second, "another request is on its way");
  EXPECT_FALSE(car.session.communicating());

  car.link.setIdleHook({});
  EXPECT_EQ(car.peer.starts, 1);
  car.sendError("Speeds");
  EXPECT_EQ(car.peer.starts, 2) << "ended during the request, so opened again";
  car.session.endCommunication();
  car.sendError("Speeds");
  car.sendError("Speeds");
  EXPECT_EQ(car.peer.starts, 3);
}

TEST(VehicleSession, TheAcquisitionListSendsEachRequestOnce) {
  Car car;
  const auto list = car.session.createAcquisitionList();
  ferrox3::Request& wheels = car.session.ecu(1).request(1);
  for (ferrox3::DataItem* const item : {wheels.findData("Wheel"), car.request("Speeds").findData("Gear"),
                                        car.request("Identity").findData("Raw"),
                                        car.request("Speeds").findData("Speed"), wheels.findData("Wheel")})
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
  EXPECT_EQ(car.peer.sent, (std::vector<std::string>{"40: 22 00 02", "16: 10 81"}));
  set->finish();
  list->finish();
  EXPECT_EQ(set->requestCount(), 0U);
  EXPECT_EQ(list->pollSet()->requestCount(), 0U);
}

TEST(VehicleSession, OpenSessionsAreKeptWhileAnotherEcuIsAsked) {
  Car car;
  car.peer.script = {{"10 A0", {"50 A0"}}, {"22 00 02", {"62 00 02 11"}}, {"21 80", {"61 80 13 5F 01 FE"}}};
  ferrox3::Request& wheels = *car.session.ecu(1).findRequest("Wheels");
  car.session.ecu(0).kwp2000()->startDiagnosticSession(0xA0);
  const auto askWheelsFor = [&](int seconds) {
    car.peer.sent.clear();
    for (int i = 0; i < seconds * 2; ++i) {
      wheels.send();
      car.clock.step(490ms);
    }
    return std::count(car.peer.sent.begin(), car.peer.sent.end(), "16: 3E 01");
  };
  EXPECT_EQ(askWheelsFor(9), 4);  // not answered, which is no failure of the request that was asked for
  car.request("Speeds").send();
  EXPECT_EQ(askWheelsFor(2), 0);
  car.session.endCommunication();
  EXPECT_EQ(askWheelsFor(9), 0);
}

// Refusals of a session that has lapsed once led to a new initialisation; now they only leave out.
TEST(VehicleSession, ALostSessionIsOpenedAgain) {
  PolledCar car;
  car.begin();
  car.peer.script["10 A0"] = {"50 A0"};
  car.session.ecu(0).kwp2000()->startDiagnosticSession(0xA0);
  car.peer.script["21 80"] = {"7F 21 80"};
  car.peer.sent.clear();
  EXPECT_EQ(car.cycle(), "--- ABC");
  EXPECT_EQ(car.peer.sent, (std::vector<std::string>{"16: 21 80", "16: 10 A0", "16: 21 80", "16: 1A 80"}));
}

TEST(VehicleSession, AnEcuThatCannotBeReachedLeavesTheOthersAlone) {
  Car car;
  car.peer.script = {{"10 A0", {"50 A0"}}, {"22 00 02", {"62 00 02 11"}}};
  car.session.ecu(0).kwp2000()->startDiagnosticSession(0xA0);
  car.peer.unreachable = "22 00 02";
  ferrox3::Request& wheels = *car.session.ecu(1).findRequest("Wheels");
  EXPECT_THROW(wheels.send(), TarnError);
  EXPECT_EQ(car.peer.starts, 1);
  car.peer.unreachable = "3E 01";
  car.clock.step(2s);
  wheels.send();
  car.clock.step(2s);
  car.peer.sent.clear();
  wheels.send();
  EXPECT_EQ(car.peer.sent, (std::vector<std::string>{"16: 3E 01", "40: 22 00 02"}));
  // A link that failed leaves nobody knowing which sessions are open.
  car.peer.unreachable.clear();
  car.peer.fatal = "22 00 02";
  EXPECT_THROW(wheels.send(), TarnError);
  car.peer.fatal.clear();
  car.clock.step(2s);
  car.peer.sent.clear();
  wheels.send();
  EXPECT_EQ(car.peer.sent, (std::vector<std::string>{"40: 22 00 02"}));
}

TEST(VehicleSession, LooksUpByName) {
  Car car;
  EXPECT_EQ(car.session.findEcuByFunction("INJ"), &car.session.ecu(0));
  EXPECT_EQ(car.session.findEcuByFunction("Engine"), nullptr);
  EXPECT_EQ(car.session.ecu(0).findRequest("speeds"), nullptr);
  EXPECT_EQ(car.session.ecu(0).findData("Speed")->request().name(), "Identity") << "marked as reference";
  EXPECT_EQ(car.session.ecu(0).findData("Gear")->request().name(), "Speeds");
  const ferrox3::DataItem& pedal = *car.request("Speeds").findData("Pedal");
  EXPECT_EQ(pedal.device()->name(), "Pedals");
  EXPECT_EQ(pedal.enumeration()->Count(), 2);
  EXPECT_EQ(pedal.enumeration()->label(2), "Pressed");
  EXPECT_EQ(pedal.enumeration()->value("Pressed"), 1);
  EXPECT_THROW(pedal.enumeration()->label(3), TarnError);
  EXPECT_THROW(pedal.enumeration()->value("?"), TarnError);
  EXPECT_EQ(car.request("Speeds").findData("Gear")->enumeration(), nullptr);
}

TEST(VehicleSession, ExchangesRawFramesAndStartsSessions) {
  Car car;
  ferrox3::Ecu& engine = car.session.ecu(0);
  car.peer.script["10 A0"] = {"50 A0"};
  engine.kwp2000()->startDiagnosticSession(0xA0);
  EXPECT_EQ(car.session.ecu(1).kwp2000(), nullptr);

  const auto request = car.session.createRawBuffer();
  const auto response = car.session.createRawBuffer();
  EXPECT_THROW(engine.exchange(*request, *response), TarnError) << "nothing to send";
  EXPECT_THROW(request->fill("31 0"), TarnError);
  request->fill("31 01");
  response->setLength(0);
  car.peer.script["31 01"] = {"71 01 02 03"};
  engine.exchange(*request, *response);
  EXPECT_EQ(response->text(), "71 01 02 03");
  response->setLength(2);
  engine.exchange(*request, *response);
  EXPECT_EQ(response->text(), "71 01");
}

}  // namespace
}  // namespace tarnlog::host
