#include <gmock/gmock.h>

#include "host/link/can/IsoTpLink.h"
#include "host/service/HexText.h"
#include "platform/base/TarnError.h"
#include "tests/support/Asking.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/ScriptedBus.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

std::string text(const std::optional<CanPayload>& frame) { return frame ? hexText(frame->bytes()) : "none"; }
std::vector<std::uint8_t> bytes(std::string_view hex) { return *bytesFromHex(hex); }

TEST(IsoTpReceiver, GivesUpWhatIsNotWhole) {
  IsoTpReceiver receiver;
  for (const char* senseless : {"", "00", "07 41 0C", "08 1 2", "10 03 41 0C 1A 00 00 00", "10 14 49",
                                "30 00 00", "21 01 02 03", "F0 01"})
    if (const auto frame = bytesFromHex(senseless)) {
      EXPECT_FALSE(receiver.accept(*frame).complete) << senseless;
    }
  receiver.accept(bytes("10 14 49 02 01 31 44 34"));
  EXPECT_EQ(receiver.accept(bytes("22 47 50 30 30 52 35 35")).fault, "a frame was lost");
  EXPECT_FALSE(receiver.accept(bytes("21 47 50 30 30 52 35 35")).complete);
  receiver.accept(bytes("10 14 49 02 01 31 44 34"));
  EXPECT_EQ(receiver.accept(bytes("21 47 50 30 30")).fault, "a frame was cut short");
  EXPECT_FALSE(receiver.isUnderWay());
  // Without an end in sight: refused, so that nothing grows.
  EXPECT_EQ(text(receiver.accept(bytes("10 00 00 01 00 00 49 02")).reply), "32 00 00 CC CC CC CC CC");
  // A new message replaces one that never ended.
  receiver.accept(bytes("10 14 49 02 01 31 44 34"));
  EXPECT_TRUE(receiver.accept(bytes("02 7E 00")).complete);
  EXPECT_EQ(hexText(receiver.message()), "7E 00");
}

TEST(IsoTpSender, FollowsTheReceiversFlowControl) {
  IsoTpSender sender;
  std::vector<std::uint8_t> message(30);
  for (std::size_t i = 0; i < message.size(); ++i) message[i] = static_cast<std::uint8_t>(i);
  sender.start(message);
  EXPECT_EQ(text(sender.next(0us)), "10 1E 00 01 02 03 04 05");
  EXPECT_EQ(text(sender.next(0us)), "none");
  sender.flowControl(bytes("31 00 00"), 500us);  // wait
  EXPECT_TRUE(sender.awaitsFlowControl());
  sender.flowControl(bytes("30 02 05"), 1000us);  // two frames, 5 ms apart
  EXPECT_EQ(text(sender.next(1000us)), "21 06 07 08 09 0A 0B 0C");
  EXPECT_EQ(text(sender.next(5999us)), "none");
  EXPECT_EQ(text(sender.next(6000us)), "22 0D 0E 0F 10 11 12 13");
  EXPECT_EQ(text(sender.next(99000us)), "none");
  sender.flowControl(bytes("30 00 F2 CC"), 100000us);  // the rest, 200 us apart
  EXPECT_EQ(text(sender.next(100000us)), "23 14 15 16 17 18 19 1A");
  EXPECT_EQ(sender.due(), 100200us);
  EXPECT_EQ(text(sender.next(100200us)), "24 1B 1C 1D CC CC CC CC");
  EXPECT_TRUE(sender.finished());

  sender.start(message);
  sender.next(0us);
  EXPECT_THROW(sender.flowControl(bytes("32 00 00"), 0us), TarnError);
  EXPECT_THROW(sender.start(std::vector<std::uint8_t>(4096)), TarnError);
  EXPECT_THROW(sender.start({}), TarnError);
}

/// A link over these frames.
IsoTpLink linkOver(std::optional<CanPair> pair, test::ScriptedBus::Log& bus, test::ManualLinkClock& clock) {
  return {pair, [&] { return std::make_unique<test::ScriptedBus>(bus, clock); }, clock, false};
}

/// An ECU whose answer to "09 02" takes two frames.
struct Car {
  std::string ask(Link& link, std::int32_t address, std::string_view request) const {
    return test::ask(link, {address, ""}, request, std::chrono::milliseconds(50));
  }
  test::ManualLinkClock clock;
  test::ScriptedBus::Log bus{.script = {{"02 09 02 CC CC CC CC CC", {"10 0A 49 02 01 31 44 34"}},
                                        {"30 00 00 CC CC CC CC CC", {"21 47 50 30 30"}}}};
};

TEST(IsoTpLink, AsksEachEcuOverItsOwnIdentifiers) {
  Car car;
  auto& [clock, bus] = car;
  bus.script["02 09 02 CC CC CC CC CC"] = {"06 7F 09 78", "03 7F 09 78", "10 11 49 02 01 31 44 34"};
  bus.script["30 00 00 CC CC CC CC CC"] = {"21 47 50 30 30 52 35 35", "22 42 31 32 33"};
  bus.script["10 08 2E F1 90 01 02 03"] = {"31 00 00", "30 00 00"};
  bus.script["21 04 05 CC CC CC CC CC"] = {"03 6E F1 90"};
  bus.script["03 22 F1 90 CC CC CC CC"] = {"05 62 F1 90 01 02"};
  IsoTpLink link = linkOver({}, bus, clock);
  const auto ask = [&](std::int32_t address, std::string_view request) {
    return car.ask(link, address, request);
  };
  // Once it has begun, a long response may take longer than the time for an answer.
  for (const std::chrono::microseconds frameTime : {40'000us, 100us}) {
    bus.frameTime = frameTime;
    EXPECT_EQ(ask(0x7E0, "09 02"), "7F 09 78; 49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33; ");
  }
  EXPECT_EQ(ask(0x10, "2E F1 90 01 02 03 04 05"), "6E F1 90; ");
  EXPECT_EQ(ask(0x18DA10F1, "2E F1 90 01 02 03 04 05"), "6E F1 90; ");  // the same ECU
  EXPECT_EQ(ask(0x7E0, "3E"), "");
  // What comes too late is told like any answer: whoever asks reads it away.
  link.send({0x7E0, ""}, bytes("22 F1 90"));
  Link::Bytes late;
  EXPECT_EQ(link.receive(late, 0ms), Link::Received::response);
  EXPECT_EQ(link.receive(late, 0ms), Link::Received::nothing);
  EXPECT_EQ(hexText(late), "62 F1 90 01 02");
  EXPECT_NE(link.answererOf({0x7E0, ""}), link.answererOf({0x10, ""}));
  EXPECT_THAT(bus.identifiers, ElementsAre(0x7E0, 0x18DA10F1));
  EXPECT_THAT(bus.ears, ElementsAre(0x7E8, 0x18DAF110));
  EXPECT_EQ(ask(0x1001, "3E"),
            "an ECU on CAN needs an address of 0 to 255, 0x700 to 0x7F7 or 0x18DAxxF1, not 4097");
  const char* const noFlowControl = "the ECU does not take the rest of a long request (no flow control)";
  EXPECT_EQ(ask(0x7E0, "22 01 02 03 04 05 06 07"), noFlowControl);

  // After a first frame the others are awaited for N_Cr, however long the answer might have taken.
  bus.script["03 22 F1 92 CC CC CC CC"] = {"10 08 62 F1 92 01 02 03"};
  bus.script.erase("30 00 00 CC CC CC CC CC");
  const Moment before = clock.now();
  EXPECT_EQ(ask(0x7E0, "22 F1 92"), "no whole answer came: no more frames came");
  EXPECT_NEAR(static_cast<double>((clock.now() - before).count()), 1e6, 1e5);

  bus.always = "21 00 00 00 00 00 00 00";  // a bus that is never quiet
  EXPECT_EQ(ask(0x7E0, "3E"), "");
  EXPECT_EQ(ask(0x7E0, "22 01 02 03 04 05 06 07"), noFlowControl);
}

TEST(IsoTpLink, TalksToTheOneThatAnswersARequestToAll) {
  const auto identifiersFor = [](CanPair pair) {
    Car car;
    car.bus.from = pair.receive;
    IsoTpLink link = linkOver(pair, car.bus, car.clock);
    EXPECT_EQ(car.ask(link, 0, "09 02"), "49 02 01 31 44 34 47 50 30 30; ");
    EXPECT_FALSE(link.send({}, bytes("2E F1 90 01 02 03 04 05")));  // more than a frame
    return car.bus.identifiers;
  };
  EXPECT_THAT(identifiersFor({0x7DF, 0x7E9}), ElementsAre(0x7DF, 0x7E1));
  EXPECT_THAT(identifiersFor({0x18DB33F1, 0x18DAF110}), ElementsAre(0x18DA10F1, 0x18DB33F1));
}

TEST(IsoTpLink, FindsTheEcusThatAnswerARequestToAll) {
  Car car;
  const auto found = [&](std::map<std::uint32_t, std::string> spoken) {
    car.bus.spoken = std::move(spoken);
    car.bus.identifiers.clear();
    std::vector<std::int32_t> addresses;
    IsoTpLink link = linkOver({}, car.bus, car.clock);
    link.open();
    for (const LinkTarget& ecu : link.findEcus()) addresses.push_back(ecu.address);
    return addresses;
  };
  EXPECT_THAT(found({{0x7E8, "06 41 00 BE 3F A8 13"}, {0x7EA, "03 7F 01 78"}}), ElementsAre(0x7E0, 0x7E2));
  EXPECT_THAT(found({{0x18DAF110, "06 41 00 BE 3F A8 13"}, {0x18DAF11D, "06 41 00 00 08 00 00"}}),
              ElementsAre(0x10, 0x1D));
  EXPECT_THAT(found({}), ElementsAre());
}

}  // namespace
}  // namespace tarnlog::host
