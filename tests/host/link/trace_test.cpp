#include <gmock/gmock.h>

#include <array>
#include <memory>
#include <optional>

#include "host/link/elm/Elm327Link.h"
#include "host/link/stream/TextTap.h"
#include "host/link/trace/ReplayPeer.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/link/trace/TraceLink.h"
#include "tests/support/Asking.h"
#include "tests/support/Elm327Peer.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/PeerStream.h"
#include "tests/support/ScriptedPeer.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using test::failureOf;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string ask(Link& link, std::int32_t address, std::string_view request) {
  return test::ask(link, {address, "KWP 2000"}, request);
}

TEST(Trace, IsWrittenAsItHappensAndAnswersAsTheCarDid) {
  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
  test::ScriptedPeer car;
  car.script["21 80"] = {"7F 21 78", "61 80 12"};
  car.unreachable = "10 03";
  {
    TraceLink link(std::make_unique<SimulatedLink>(clock, car), clock, files.create("/rec/t.trace"));
    EXPECT_EQ(ask(link, 18, "21 80"), "7F 21 78; 61 80 12; ");
    EXPECT_EQ(ask(link, 18, "3E"), "");
    EXPECT_EQ(ask(link, 18, "10 03"), "the ECU cannot be reached");
    car.fatal = "21 80";
    EXPECT_EQ(ask(link, 18, "21 80"), "the adapter is gone");
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
  const Moment before = clock.now();
  EXPECT_EQ(ask(link, 18, "21 80"), "7F 21 78; 61 80 12; ");
  EXPECT_EQ(clock.now() - before, 120ms);  // 20 ms for the answers, then the wait for a third
  EXPECT_EQ(ask(link, 16, "21 80"), "");   // another ECU was not asked
  EXPECT_EQ(ask(link, 18, "10 03"), "the ECU cannot be reached");
  EXPECT_EQ(ask(link, 18, "21 80"), "the adapter is gone");
  EXPECT_EQ(ask(link, 18, "21 80"), "t.trace: the trace has ended");
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
  };
  /// The first answer and after how many milliseconds it came.
  const auto first = [&](std::string_view request) {
    const Moment before = clock.now();
    std::string said = "nothing";
    const std::string failure = failureOf([&] {
      link->open();
      link->send({2016, "OBD-II"}, *bytesFromHex(request));
      Link::Bytes answer;
      if (test::received(*link, answer, milliseconds(200))) said = hexText(answer);
      if (!link->obstacle().empty()) said = link->obstacle();
    });
    return (failure == "none" ? said : failure) + " after " + std::to_string((clock.now() - before) / 1ms);
  };
  rewind();
  const std::array<std::string, 3> steps[] = {
      {"01 0C", "41 0C 0D 05 after 20", "the second 0D is a value"},
      {"01 0D", "41 0D 21 after 20", "from the same answer"},
      {"01 0D 05", "41 0D 22 05 51 after 50", ""},
      {"01 0C 2F", "41 0C 0D 06 2F 80 after 50", "from two"},
      {"01 05", "7F 01 22 after 30", ""},
      {"01 0C 0D 05", "7F 01 22 after 30", "each of them was refused"},
      {"01 0C", "nothing after 70", "silence, as long as it took"},
      {"01 0D", "the gateway is asleep after 20", ""},
      {"22 F1 91", "62 F1 91 43 after 10", "the length of F1 90 is known from another answer"},
      {"22 F1 90", "62 F1 90 41 42 after 10", ""},
      {"01 0C", "nothing after 200", "it does not come again, but others do"},
      {"22 F1 90", "62 F1 90 44 45 after 10", ""},
      {"01 0C", "t.trace: the trace has ended after 0", ""},
  };
  for (const auto& [request, answer, why] : steps) EXPECT_EQ(first(request), answer) << why;
  rewind();
  EXPECT_EQ(first("01 05 0C 0D"), "41 05 50 0C 0D 05 0D 21 after 20");
  EXPECT_EQ(first("01 05 0C 0D"), "7F 01 78 after 20") << "as it was, with all that came";
}

TEST(Trace, HoldsWhatAnAdapterWasSentAndSaid) {
  test::ManualLinkClock clock;
  test::MemoryFileSystem files;
  test::Elm327Peer adapter;
  adapter.addEcu(0x7E8);
  adapter.instead["010C"] = {"SEARCHING...\r\nNO\x07 DATA\r\r>"};
  auto tap = std::make_unique<TextTap>(test::streamTo(adapter, clock));
  TextTap& teller = *tap;
  auto link = std::make_unique<Elm327Link>(std::move(tap), '6', clock);
  teller.tellTo(*link);
  TraceLink traced(std::move(link), clock, files.create("/rec/t.trace"));
  ask(traced, 0x7E0, "01 0C");
  EXPECT_THAT(files.files["/rec/t.trace"],
              AllOf(HasSubstr("adapter > ATZ\n"), HasSubstr("# 0.030000 adapter > 010C\n"
                                                            "# 0.030000 adapter < SEARCHING...\n"
                                                            "# 0.030000 adapter < NO\\x07 DATA\n"
                                                            "# 0.030000 adapter < >\n")));
}

TEST(Trace, RefusesWhatIsNotOneAndLeavesOutALineCutOff) {
  EXPECT_EQ(parseTrace("0.1 > 18 - 21 80\r\n\n# remark\n0.2 < 61 8", "t").size(), 1u);
  const auto refusal = [](std::string_view line) {
    return failureOf([&] { parseTrace("# tarnlog trace 1\n" + std::string(line) + "\n", "t.trace"); });
  };
  const std::pair<const char*, const char*> cases[] = {
      {"x > 18 - 21", "line 2: expected seconds"},
      {"nan > 18 - 21", "seconds"},
      {"0.1 = 21", "line 2: expected one of the signs"},
      {"0.1 > car - 21", "address"},
      {"0.1 < 2G", "bytes"},
      {"0.1 > 18 - ", "bytes"},
      {"# tarnlog trace 2", "line 2: expected # tarnlog trace 1"},
      {"# nothing", "line 3: expected a request"},
  };
  for (const auto& [line, says] : cases)
    EXPECT_THAT(refusal(line), AllOf(StartsWith("t.trace, line "), HasSubstr(says)));
  EXPECT_THAT(failureOf([] { parseTrace("0.0 > 18 - 21", "t"); }),
              HasSubstr("t, line 1: expected a request"));
}

}  // namespace
}  // namespace tarnlog::host
