#include <gmock/gmock.h>

#include <array>
#include <thread>

#include "host/link/SystemLinkClock.h"
#include "host/link/doip/DoipFinder.h"
#include "host/link/doip/DoipLink.h"
#include "host/link/stream/TcpStream.h"
#include "tests/support/Asking.h"
#include "tests/support/DoipPeer.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/PeerStream.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::DoipPeer;
using ::testing::ElementsAre;

using Bytes = std::vector<std::uint8_t>;

const DoipSettings kSettings{.host = "car", .ecu = 0x1001};

/// A link to a gateway in memory.
struct Car {
  Car() { peer.ecus[0x1001]["22F190"] = {"62F19041"}; }

  std::string ask(milliseconds timeout = milliseconds(2000)) {
    return test::ask(link, {18, ""}, "22 F1 90", timeout);
  }

  test::ManualLinkClock clock;
  DoipPeer peer;
  std::chrono::microseconds betweenBytes{};
  DoipLink link{kSettings,
                [this](const std::string&, std::uint16_t) {
                  auto stream = test::streamTo(peer, clock);
                  stream->betweenBytes = betweenBytes;
                  return stream;
                },
                clock};
};

TEST(DoipLink, ActivatesTheConnectionAndExchangesMessages) {
  Car car;
  car.betweenBytes = 100us;
  car.peer.instead = {car.peer.message(0x8002, "10010E000022F190") +  // delivered
                      car.peer.message(0x0007, "") +                  // alive?
                      car.peer.message(0x8001, "10020E0062F19099") +  // another ECU
                      car.peer.message(0x8001, "10010E8062F19098") +  // to another tester
                      car.peer.message(0x8001, "10010E0062F19041")};
  EXPECT_EQ(car.ask(), "62 F1 90 41; ");
  EXPECT_THAT(car.peer.heard, ElementsAre("0005 0E000000000000", "1001 22F190", "0008 0E00"));

  Car newer;
  newer.peer.version = 3;
  EXPECT_EQ(newer.ask(), "62 F1 90 41; ");
}

TEST(DoipLink, SaysWhyThereIsNoAnswerAndGoesOn) {
  const char* const stranger = "car: what answers at this port does not speak diagnostics over IP";
  Car car;
  const std::pair<std::string, std::string> cases[] = {
      {car.peer.message(0x8003, "10010E0006"), "car: the ECU cannot be reached; is the ignition on?"},
      {car.peer.message(0x0000, "02"), "car: the request is too long for the gateway"},
      {car.peer.message(0x0000, "04"), "car: the gateway did not understand a message"},
      {"HTTP/1.1", stranger},
      {"\x02\xFD\x80\x01\xFF\xFF\xFF\xFF", stranger},
      {car.peer.message(0x8002, "10010E0000"), ""},
  };
  for (const auto& [answer, says] : cases) {
    car.peer.instead = {answer};
    EXPECT_EQ(car.ask(), says);
    EXPECT_EQ(car.ask(), "62 F1 90 41; ") << says;
  }
  car.peer.instead = {car.peer.message(0x8003, "10000E0006")};
  car.link.send({18, ""}, *bytesFromHex("22 F1 90"));
  Link::Bytes response;
  EXPECT_EQ(car.link.receive(response, milliseconds(0)), Link::Received::turnedAway) << "in its own name";
  Car taken;
  taken.peer.grant = "01";
  EXPECT_EQ(taken.ask(), "car: all connections of the gateway are taken by other testers");
}

TEST(DoipLink, IsNotHeldByAGatewayThatFloods) {
  Car car;
  car.betweenBytes = 1us;
  std::string& flood = car.peer.instead.emplace_back();
  for (int i = 0; i < 100'000; ++i) flood += car.peer.message(0x8001, "77770E007E00");
  EXPECT_EQ(car.ask(milliseconds(1)), "");
  EXPECT_LT(car.clock.now(), 100ms);
}

TEST(DoipLink, ForgetsAnAnswerThatAGatewayBeganBeforeItWasGone) {
  bool first = true;
  test::LoopbackServer server([&](test::LoopbackConnection& tester) {
    DoipPeer peer;
    peer.ecus[0x1001]["22F190"] = {"62F19041"};
    std::array<std::uint8_t, 100> bytes{};
    while (const std::size_t count = tester.readSome(bytes)) {
      const std::string answer = peer.accept({reinterpret_cast<const char*>(bytes.data()), count});
      const bool breaksOff = peer.heard.size() == 2 && std::exchange(first, false);
      tester.write(
          {reinterpret_cast<const std::uint8_t*>(answer.data()), answer.size() - (breaksOff ? 2 : 0)});
      if (breaksOff) return;
    }
  });
  SystemLinkClock clock;
  DoipLink link(
      kSettings,
      [&](const std::string& host, std::uint16_t) {
        EXPECT_EQ(host, "car");
        return std::make_unique<TcpStream>("localhost", server.port(), clock);
      },
      clock);
  EXPECT_EQ(test::ask(link, {18, ""}, "22 F1 90", milliseconds(2000)),
            "localhost:" + std::to_string(server.port()) + ": the other end is gone");
  link.open();
  link.send({18, ""}, *bytesFromHex("22 F1 90"));
  Bytes response;
  EXPECT_TRUE(test::received(link, response, milliseconds(2000)));
  EXPECT_EQ(hexText(response), "62 F1 90 41");
  int idled = 0;
  link.setIdleHook([&] { ++idled; });
  const Moment asked = clock.now();
  EXPECT_FALSE(test::received(link, response, milliseconds(50)));
  EXPECT_GE(clock.now() - asked, 50ms);
  EXPECT_GE(idled, 2);
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
    const test::DoipPeer peer;
    for (const std::string& answer :
         {std::string("\x02\xFD"), peer.message(0x0004, "41424344"),
          peer.message(0x0004, "5741555A5A5A384B314141303030303031100100010203040500010203040500")})
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
