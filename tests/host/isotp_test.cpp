#include <gmock/gmock.h>

#include "host/link/HexText.h"
#include "host/link/IsoTp.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

std::string text(const std::optional<CanPayload>& frame) { return frame ? hexText(frame->bytes()) : "none"; }
std::vector<std::uint8_t> bytes(std::string_view hex) { return *bytesFromHex(hex); }

TEST(IsoTpReceiver, PutsFramesTogether) {
  IsoTpReceiver receiver;
  EXPECT_TRUE(receiver.accept(bytes("03 41 0C 1A CC CC CC CC")).complete);
  EXPECT_EQ(hexText(receiver.message()), "41 0C 1A");

  const auto first = receiver.accept(bytes("10 14 49 02 01 31 44 34"));
  EXPECT_FALSE(first.complete);
  EXPECT_EQ(text(first.reply), "30 00 00 CC CC CC CC CC");
  EXPECT_FALSE(receiver.accept(bytes("21 47 50 30 30 52 35 35")).complete);
  EXPECT_TRUE(receiver.accept(bytes("22 42 31 32 33 34 35 36")).complete);
  EXPECT_EQ(hexText(receiver.message()), "49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33 34 35 36");
}

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
  // Without an end in sight: refused, so that nothing grows.
  EXPECT_EQ(text(receiver.accept(bytes("10 00 00 01 00 00 49 02")).reply), "32 00 00 CC CC CC CC CC");
  // A new message replaces one that never ended.
  receiver.accept(bytes("10 14 49 02 01 31 44 34"));
  EXPECT_TRUE(receiver.accept(bytes("02 7E 00")).complete);
  EXPECT_EQ(hexText(receiver.message()), "7E 00");
}

TEST(IsoTpSender, FollowsTheReceiversFlowControl) {
  IsoTpSender sender;
  sender.start(bytes("22 F1 90"));
  EXPECT_EQ(text(sender.next(0)), "03 22 F1 90 CC CC CC CC");
  EXPECT_TRUE(sender.finished());

  std::vector<std::uint8_t> message(30);
  for (std::size_t i = 0; i < message.size(); ++i) message[i] = static_cast<std::uint8_t>(i);
  sender.start(message);
  EXPECT_EQ(text(sender.next(0)), "10 1E 00 01 02 03 04 05");
  EXPECT_EQ(text(sender.next(0)), "none");
  sender.flowControl(bytes("31 00 00"), 500);  // wait
  EXPECT_TRUE(sender.awaitsFlowControl());
  sender.flowControl(bytes("30 02 05"), 1000);  // two frames, 5 ms apart
  EXPECT_EQ(text(sender.next(1000)), "21 06 07 08 09 0A 0B 0C");
  EXPECT_EQ(text(sender.next(5999)), "none");
  EXPECT_EQ(text(sender.next(6000)), "22 0D 0E 0F 10 11 12 13");
  EXPECT_EQ(text(sender.next(99000)), "none");
  sender.flowControl(bytes("30 00 F2 CC"), 100000);  // the rest, 200 us apart
  EXPECT_EQ(text(sender.next(100000)), "23 14 15 16 17 18 19 1A");
  EXPECT_EQ(sender.due(), 100200);
  EXPECT_EQ(text(sender.next(100200)), "24 1B 1C 1D CC CC CC CC");
  EXPECT_TRUE(sender.finished());

  sender.start(message);
  sender.next(0);
  EXPECT_THROW(sender.flowControl(bytes("32 00 00"), 0), TarnError);
  EXPECT_THROW(sender.start(std::vector<std::uint8_t>(4096)), TarnError);
  EXPECT_THROW(sender.start({}), TarnError);
}

}  // namespace
}  // namespace tarnlog::host
