#include <gmock/gmock.h>

#include <algorithm>

#include "host/link/DoipLink.h"
#include "host/link/HexText.h"
#include "host/link/SystemLinkClock.h"
#include "host/link/TcpStream.h"
#include "platform/base/TarnError.h"
#include "tests/support/LoopbackServer.h"

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
              return std::make_unique<TcpStream>(host, port, clock);
            },
            clock) {}

  /// The answer, "none", or the failure's text.
  std::string ask(std::string_view request, milliseconds timeout = milliseconds(2000)) {
    try {
      if (!opened) link.open();
      opened = true;
      link.send({18, ""}, *bytesFromHex(request));
      Bytes response;
      return link.receive(response, timeout) ? hexText(response) : "none";
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

TEST(DoipLink, NoticesThatTheGatewayIsGone) {
  Car car([](LoopbackConnection& tester) {
    readMessage(tester);
    tester.write(kGranted);
    readMessage(tester);
  });
  const std::string gone = car.ask("22 F1 90");
  EXPECT_EQ(gone, "127.0.0.1:" + std::to_string(car.server.port()) + ": the other end is gone");
  car.opened = false;  // the next exchange opens the link again
  EXPECT_EQ(car.ask("22 F1 90"), gone);
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

}  // namespace
}  // namespace tarnlog::host
