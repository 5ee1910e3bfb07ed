#include <gmock/gmock.h>

#include <algorithm>
#include <future>
#include <thread>

#include "host/link/SystemLinkClock.h"
#include "host/link/doip/DoipFinder.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/stream/TcpStream.h"
#include "host/service/HexText.h"
#include "platform/base/TarnError.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/Received.h"

namespace tarnlog::host {
namespace {

using std::chrono::milliseconds;
using test::LoopbackConnection;
using test::LoopbackServer;
using ::testing::HasSubstr;

using Bytes = std::vector<std::uint8_t>;

/// What the gateway reads: payload type and payload, as hexadecimal text; empty when the tester has closed.
std::string readMessage(LoopbackConnection& tester) {
  Bytes header(8);
  if (!tester.read(header)) return {};
  Bytes payload(static_cast<std::size_t>(header[6]) << 8 | header[7]);
  if (!payload.empty() && !tester.read(payload)) return {};
  return hexText(std::span(header).subspan(2, 2)) + " | " + hexText(payload);
}

/// One message in the form that a gateway of 2012 sends.
Bytes message(std::string_view type, std::string_view payload) {
  const Bytes content = *bytesFromHex(payload);
  Bytes bytes = *bytesFromHex("02 FD " + std::string(type) + " 00 00");
  bytes.push_back(static_cast<std::uint8_t>(content.size() >> 8));
  bytes.push_back(static_cast<std::uint8_t>(content.size()));
  bytes.insert(bytes.end(), content.begin(), content.end());
  return bytes;
}

const Bytes kGranted = message("00 06", "0E 00 10 01 10 00 00 00 00");

struct Car {
  explicit Car(std::function<void(LoopbackConnection&)> gateway)
      : server(std::move(gateway)),
        link(
            {.host = "127.0.0.1", .port = server.port(), .tester = 0x0E00, .ecu = 0x1001},
            [this](const std::string& host, std::uint16_t port) {
              EXPECT_EQ(host, "127.0.0.1");
              return std::make_unique<TcpStream>("localhost", port, clock);
            },
            clock) {}

  /// The answer, "none", or the failure's text.
  std::string ask(std::string_view request, milliseconds timeout = milliseconds(2000)) {
    try {
      if (!opened) link.open();
      opened = true;
      Bytes response;
      if (link.send({18, ""}, *bytesFromHex(request)) && test::received(link, response, timeout))
        return hexText(response);
      return link.obstacle().empty() ? "none" : link.obstacle();
    } catch (const TarnError& error) {
      return error.description();
    }
  }

  SystemLinkClock clock;
  LoopbackServer server;
  DoipLink link;
  bool opened = false;
};

/// A gateway that grants the connection and then answers each diagnostic message with these bytes.
auto answering(std::vector<Bytes> answers) {
  return [answers = std::move(answers)](LoopbackConnection& tester) {
    readMessage(tester);
    tester.write(kGranted);
    while (!readMessage(tester).empty())
      for (const Bytes& answer : answers) tester.write(answer);
  };
}

TEST(DoipLink, ActivatesTheConnectionAndExchangesMessages) {
  std::vector<std::string> heard;
  {
    Car car([&](LoopbackConnection& tester) {
      heard.push_back(readMessage(tester));
      tester.write(kGranted);
      heard.push_back(readMessage(tester));
      Bytes answers = message("80 02", "10 01 0E 00 00 22 F1 90");            // delivered
      for (const Bytes& more : {message("00 07", ""),                         // alive?
                                message("80 01", "10 02 0E 00 62 F1 90 99"),  // another ECU
                                message("80 01", "10 01 0E 80 62 F1 90 98"),  // to another tester
                                message("80 01", "10 01 0E 00 62 F1 90 41")})
        answers.insert(answers.end(), more.begin(), more.end());
      // In pieces that end anywhere.
      for (std::size_t i = 0; i < answers.size(); i += 5)
        tester.write(std::span(answers).subspan(i, std::min<std::size_t>(5, answers.size() - i)));
      heard.push_back(readMessage(tester));
    });
    EXPECT_EQ(car.ask("22 F1 90"), "62 F1 90 41");
  }
  EXPECT_THAT(heard, testing::ElementsAre("00 05 | 0E 00 00 00 00 00 00", "80 01 | 0E 00 10 01 22 F1 90",
                                          "00 08 | 0E 00"));
}

TEST(DoipLink, SaysWhyThereIsNoAnswer) {
  EXPECT_EQ(Car(answering({message("80 03", "10 01 0E 00 06")})).ask("22 F1 90"),
            "127.0.0.1: the ECU cannot be reached; is the ignition on?");
  EXPECT_EQ(Car(answering({message("00 00", "02")})).ask("22 F1 90"),
            "127.0.0.1: the gateway did not understand a message");
  EXPECT_EQ(Car(answering({*bytesFromHex("48 54 54 50 2F 31 2E 31")})).ask("22 F1 90"),
            "127.0.0.1: what answers at this port does not speak diagnostics over IP");
  EXPECT_EQ(Car(answering({*bytesFromHex("02 FD 80 01 FF FF FF FF")})).ask("22 F1 90"),
            "127.0.0.1: what answers at this port does not speak diagnostics over IP");
  EXPECT_EQ(Car(answering({message("80 02", "10 01 0E 00 00")})).ask("22 F1 90", milliseconds(1)), "none");
  EXPECT_EQ(Car([](LoopbackConnection& tester) {
              readMessage(tester);
              tester.write(message("00 06", "0E 00 10 01 01 00 00 00 00"));
              readMessage(tester);
            }).ask("22 F1 90"),
            "127.0.0.1: all connections of the gateway are taken by other testers");
}

TEST(DoipLink, GoesOnAfterAnEcuThatCannotBeReachedAndAnAnswerThatComesLate) {
  std::promise<void> givenUp;
  std::promise<void> late;
  Car car([&](LoopbackConnection& tester) {
    readMessage(tester);
    tester.write(kGranted);
    readMessage(tester);
    tester.write(message("80 03", "10 01 0E 00 06"));
    readMessage(tester);
    givenUp.get_future().wait();
    tester.write(message("80 01", "10 01 0E 00 62 F1 90 01"));
    late.set_value();
    readMessage(tester);
    tester.write(message("80 01", "10 01 0E 00 62 F1 90 02"));
    readMessage(tester);
  });
  const Bytes request = *bytesFromHex("22 F1 90");
  Bytes response;
  car.link.open();
  car.link.send({18, ""}, request);
  EXPECT_EQ(car.link.receive(response, milliseconds(2000)), Link::Received::unreachable);
  car.link.send({18, ""}, request);
  EXPECT_FALSE(test::received(car.link, response, milliseconds(1)));
  givenUp.set_value();
  late.get_future().wait();
  car.link.send({18, ""}, request);
  EXPECT_TRUE(test::received(car.link, response, milliseconds(2000)));
  EXPECT_EQ(hexText(response), "62 F1 90 02");
}

TEST(DoipLink, SpeaksTheVersionThatTheGatewayAsksFor) {
  std::vector<std::string> heard;
  {
    Car car([&](LoopbackConnection& tester) {
      Bytes header(8);
      tester.read(header);
      heard.push_back(hexText(std::span(header).first(2)));
      Bytes payload(header[7]);
      tester.read(payload);
      if (header[0] != 0x03) {
        tester.write(*bytesFromHex("03 FC 00 00 00 00 00 01 00"));
        return;
      }
      tester.write(kGranted);
      heard.push_back(readMessage(tester));
      tester.write(message("80 01", "10 01 0E 00 62 F1 90 41"));
      readMessage(tester);
    });
    EXPECT_EQ(car.ask("22 F1 90"), "62 F1 90 41");
  }
  EXPECT_THAT(heard, testing::ElementsAre("02 FD", "03 FC", "80 01 | 0E 00 10 01 22 F1 90"));
}

TEST(DoipLink, NoticesThatTheGatewayIsGone) {
  Car car([](LoopbackConnection& tester) {
    readMessage(tester);
    tester.write(kGranted);
    readMessage(tester);
  });
  const std::string gone = car.ask("22 F1 90");
  EXPECT_EQ(gone, "localhost:" + std::to_string(car.server.port()) + ": the other end is gone");
  car.opened = false;  // the next exchange opens the link again
  EXPECT_EQ(car.ask("22 F1 90"), gone);
}

TEST(DoipLink, ForgetsAnAnswerThatTheGatewayDidNotFinish) {
  int connections = 0;
  Car car([&](LoopbackConnection& tester) {
    readMessage(tester);
    tester.write(kGranted);
    readMessage(tester);
    const Bytes answer = message("80 01", "10 01 0E 00 62 F1 90 41");
    tester.write(std::span(answer).first(++connections == 1 ? answer.size() - 2 : answer.size()));
    if (connections > 1) readMessage(tester);
  });
  EXPECT_THAT(car.ask("22 F1 90"), HasSubstr("the other end is gone"));
  car.opened = false;
  EXPECT_EQ(car.ask("22 F1 90"), "62 F1 90 41");
}

TEST(DoipLink, IsNotHeldByAGatewayThatFloods) {
  Car car([](LoopbackConnection& tester) {
    readMessage(tester);
    tester.write(kGranted);
    Bytes flood;
    for (int i = 0; i < 200; ++i) {
      const Bytes alien = message("80 01", "77 77 0E 00 7E 00");
      flood.insert(flood.end(), alien.begin(), alien.end());
    }
    for (int i = 0; i < 2000; ++i) tester.write(flood);
  });
  EXPECT_EQ(car.ask("22 F1 90", milliseconds(1)), "none");
}

TEST(DoipFinder, TakesTheFirstVehicleThatAnswers) {
  const int car = ::socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  ASSERT_EQ(::bind(car, reinterpret_cast<sockaddr*>(&address), size), 0);
  ::getsockname(car, reinterpret_cast<sockaddr*>(&address), &size);
  std::thread thread([car] {
    Bytes question(100);
    sockaddr_in tester{};
    socklen_t length = sizeof tester;
    question.resize(static_cast<std::size_t>(
        ::recvfrom(car, question.data(), question.size(), 0, reinterpret_cast<sockaddr*>(&tester), &length)));
    EXPECT_EQ(hexText(question), "FF 00 00 01 00 00 00 00");
    for (const Bytes& answer : {Bytes{0x02, 0xFD}, message("00 04", "41 42 43 44"),
                                message("00 04",
                                        "57 41 55 5A 5A 5A 38 4B 31 41 41 30 30 30 30 30 31 10 01 "
                                        "00 01 02 03 04 05 00 01 02 03 04 05 00")})
      ::sendto(car, answer.data(), answer.size(), 0, reinterpret_cast<sockaddr*>(&tester), length);
  });
  SystemLinkClock clock;
  const auto found = findDoipEntity("127.0.0.1", ntohs(address.sin_port), clock, {});
  thread.join();
  ::close(car);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->host + " " + found->vin, "127.0.0.1 WAUZZZ8K1AA000001");
  EXPECT_EQ(found->address, 0x1001);
}

}  // namespace
}  // namespace tarnlog::host
