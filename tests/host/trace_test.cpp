#include <gmock/gmock.h>

#include <array>
#include <memory>
#include <optional>

#include "host/link/stream/TextTap.h"
#include "host/link/trace/ReplayPeer.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/link/trace/TraceLink.h"
#include "host/service/HexText.h"
#include "platform/base/TarnError.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/PeerStream.h"
#include "tests/support/Received.h"
#include "tests/support/ScriptedPeer.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::failureOf;
using ::testing::HasSubstr;

/// Sends a request as text and never finds an answer in what comes.
class SimpleTextLink : public Link {
 public:
  SimpleTextLink(std::unique_ptr<TextTap> tap, LinkClock& clock) : tap_(std::move(tap)), clock_(clock) {
    tap_->tellTo(*this);
  }
  void doOpen() override { tap_->open(); }
  void doClose() override { tap_->close(); }
  bool doSend(const LinkTarget& /*target*/, std::span<const std::uint8_t> /*request*/) override {
    constexpr std::array<std::uint8_t, 5> kText{'2', '1', '8', '0', '\r'};
    tap_->write(kText);
    return true;
  }
  Received doReceive(Bytes& /*response*/, milliseconds /*timeout*/) override {
    std::array<std::uint8_t, 100> bytes{};
    tap_->read(bytes, clock_.now());
    return Received::nothing;
  }

 private:
  std::unique_ptr<TextTap> tap_;
  LinkClock& clock_;
};

std::string ask(Link& link, std::int32_t address, std::string_view request) {
  if (!link.send({address, "KWP 2000"}, *bytesFromHex(request))) return "unreachable: " + link.obstacle();
  std::string answers;
  for (Link::Bytes response; test::received(link, response, milliseconds(100));)
    answers += hexText(response) + "; ";
  if (!link.obstacle().empty()) return "unreachable: " + link.obstacle();
  return answers;
}

TEST(Trace, IsWrittenAsItHappensAndAnswersAsTheCarDid) {
  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
  test::ScriptedPeer car;
  car.script["21 80"] = {"7F 21 78", "61 80 12"};
  car.unreachable = "10 03";
  {
    TraceLink link(std::make_unique<SimulatedLink>(clock, car), clock, files.create("/rec/t.trace"));
    link.open();
    EXPECT_EQ(ask(link, 18, "21 80"), "7F 21 78; 61 80 12; ");
    EXPECT_EQ(ask(link, 18, "3E"), "");
    EXPECT_EQ(ask(link, 18, "10 03"), "unreachable: the ECU cannot be reached");
    car.fatal = "21 80";
    EXPECT_EQ(failureOf([&] { ask(link, 18, "21 80"); }), "the adapter is gone");
    EXPECT_FALSE(link.isOpen());
  }
  EXPECT_EQ(files.files["/rec/t.trace"],
            "# tarnlog trace 1\n"
            "0.000000 > 18 KWP_2000 21 80\n"
            "0.010000 < 7F 21 78\n"
            "0.020000 < 61 80 12\n"
            "0.120000 > 18 KWP_2000 3E\n"
            "0.220000 > 18 KWP_2000 10 03\n"
            "0.220000 x the ECU cannot be reached\n"
            "0.220000 > 18 KWP_2000 21 80\n"
            "0.220000 ! the adapter is gone\n");

  ReplayPeer replay(parseTrace(files.files["/rec/t.trace"], "t.trace"), "t.trace");
  SimulatedLink link(clock, replay);
  link.open();
  const Moment before = clock.now();
  EXPECT_EQ(ask(link, 18, "21 80"), "7F 21 78; 61 80 12; ");
  EXPECT_EQ(clock.now() - before, 120ms);  // 20 ms for the answers, then the wait for a third
  EXPECT_EQ(ask(link, 16, "21 80"), "");   // another ECU was not asked
  EXPECT_EQ(ask(link, 18, "10 03"), "unreachable: the ECU cannot be reached");
  EXPECT_EQ(failureOf([&] { ask(link, 18, "21 80"); }), "the adapter is gone");
  link.open();
  EXPECT_EQ(failureOf([&] { ask(link, 18, "21 80"); }), "t.trace: the trace has ended");
}

TEST(Trace, ADriveIsReplayedWithOtherDataThanItWasMadeWith) {
  constexpr const char* kDrive =
      "0.000 > 2016 OBD-II 01 05 0C 0D\n0.020 < 41 05 50 0C 0D 05 0D 21\n"
      "1.000 > 2016 OBD-II 01 05 0C 0D\n1.020 < 7F 01 78\n1.050 < 41 05 51 0C 0D 06 0D 22\n"
      "2.000 > 2016 OBD-II 01 2F\n2.010 < 41 2F 80\n"
      "3.000 > 2016 OBD-II 01 05 0C 0D\n3.030 < 7F 01 22\n"
      "4.000 > 2016 OBD-II 01 0C\n4.070 > 2016 OBD-II 01 0D\n4.090 x the gateway is asleep\n"
      "5.000 > 2016 UDS 22 F1 90 F1 91\n5.010 < 62 F1 90 41 42 F1 91 43\n"
      "6.000 > 2016 UDS 22 F1 90\n6.010 < 62 F1 90 44 45\n";
  test::ManualLinkClock clock;
  const auto pidBytes = [](std::uint8_t pid) -> std::size_t { return pid == 0x0C ? 2 : 1; };
  std::optional<ReplayPeer> replay;
  std::optional<SimulatedLink> link;
  const auto rewind = [&] {
    link.reset();
    replay.emplace(parseTrace(kDrive, "t.trace"), "t.trace", pidBytes);
    link.emplace(clock, *replay);
    link->open();
  };
  /// The first answer and after how many milliseconds it came.
  const auto first = [&](std::string_view request) {
    const Moment before = clock.now();
    const auto after = [&] { return " after " + std::to_string((clock.now() - before) / 1ms); };
    try {
      link->open();
      link->send({2016, "OBD-II"}, *bytesFromHex(request));
      Link::Bytes answer;
      if (test::received(*link, answer, milliseconds(200))) return hexText(answer) + after();
      return (link->obstacle().empty() ? "nothing" : link->obstacle()) + after();
    } catch (const TarnError& error) {
      return error.description() + after();
    }
  };
  rewind();
  EXPECT_EQ(first("01 0C"), "41 0C 0D 05 after 20") << "the second 0D is a value";
  EXPECT_EQ(first("01 0D"), "41 0D 21 after 20") << "from the same answer";
  EXPECT_EQ(first("01 0D 05"), "41 0D 22 05 51 after 50");
  EXPECT_EQ(first("01 0C 2F"), "41 0C 0D 06 2F 80 after 50") << "from two";
  EXPECT_EQ(first("01 05"), "7F 01 22 after 30");
  EXPECT_EQ(first("01 0C 0D 05"), "7F 01 22 after 30") << "each of them was refused";
  EXPECT_EQ(first("01 0C"), "nothing after 70") << "silence, as long as it took";
  EXPECT_EQ(first("01 0D"), "the gateway is asleep after 20");
  EXPECT_EQ(first("22 F1 91"), "62 F1 91 43 after 10") << "the length of F1 90 is known from another answer";
  EXPECT_EQ(first("22 F1 90"), "62 F1 90 41 42 after 10");
  EXPECT_EQ(first("01 0C"), "nothing after 200") << "it does not come again, but others do";
  EXPECT_EQ(first("22 F1 90"), "62 F1 90 44 45 after 10");
  EXPECT_EQ(first("01 0C"), "t.trace: the trace has ended after 0");
  rewind();
  EXPECT_EQ(first("01 05 0C 0D"), "41 05 50 0C 0D 05 0D 21 after 20");
  EXPECT_EQ(first("01 05 0C 0D"), "7F 01 78 after 20") << "as it was, with all that came";
}

TEST(Trace, HoldsWhatAnAdapterWasSentAndSaid) {
  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
  auto stream = std::make_unique<test::PeerStream>(
      [](std::string_view) { return std::string("SEARCHING...\r\nNO\x07 DATA\r\r>"); }, clock);
  auto link = std::make_unique<SimpleTextLink>(std::make_unique<TextTap>(std::move(stream)), clock);
  TraceLink traced(std::move(link), clock, files.create("/rec/t.trace"));
  traced.open();
  ask(traced, 18, "21 80");
  EXPECT_EQ(files.files["/rec/t.trace"],
            "# tarnlog trace 1\n"
            "0.000000 > 18 KWP_2000 21 80\n"
            "# 0.000000 adapter > 2180\n"
            "# 0.000000 adapter < SEARCHING...\n"
            "# 0.000000 adapter < NO\\x07 DATA\n"
            "# 0.000000 adapter < >\n");
}

TEST(Trace, RefusesWhatIsNotOneAndLeavesOutALineCutOff) {
  EXPECT_EQ(parseTrace("0.1 > 18 - 21 80\r\n\n# remark\n0.2 < 61 8", "t").size(), 1u);
  const auto refusal = [](std::string_view line) {
    return failureOf([&] { parseTrace("# tarnlog trace 1\n" + std::string(line) + "\n", "t.trace"); });
  };
  EXPECT_EQ(refusal("x > 18 - 21"), "t.trace, line 2: expected seconds");
  EXPECT_THAT(refusal("nan > 18 - 21"), HasSubstr("seconds"));
  EXPECT_THAT(refusal("0.1 = 21"), HasSubstr("line 2: expected one of the signs"));
  EXPECT_THAT(refusal("0.1 > car - 21"), HasSubstr("address"));
  EXPECT_THAT(refusal("0.1 < 2G"), HasSubstr("bytes"));
  EXPECT_THAT(refusal("0.1 > 18 - "), HasSubstr("bytes"));
  EXPECT_EQ(refusal("# tarnlog trace 2"), "t.trace, line 2: expected # tarnlog trace 1");
  EXPECT_THAT(refusal("# nothing"), HasSubstr("t.trace, line 3: expected a request"));
  EXPECT_THAT(failureOf([] { parseTrace("0.0 > 18 - 21", "t"); }),
              HasSubstr("t, line 1: expected a request"));
}

}  // namespace
}  // namespace tarnlog::host
