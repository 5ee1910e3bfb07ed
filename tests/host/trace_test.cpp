#include <gmock/gmock.h>

#include "host/link/HexText.h"
#include "host/link/ReplayPeer.h"
#include "host/link/SimulatedLink.h"
#include "host/link/TraceLink.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScriptedPeer.h"

namespace tarnlog::host {
namespace {

using std::chrono::milliseconds;
using test::failureOf;
using ::testing::HasSubstr;

std::string ask(Link& link, std::int32_t address, std::string_view request) {
  link.send({address, "KWP 2000"}, *bytesFromHex(request));
  std::string answers;
  for (Link::Bytes response; link.receive(response, milliseconds(100));) answers += hexText(response) + "; ";
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
    EXPECT_THROW(ask(link, 18, "10 03"), EcuUnreachable);
    link.close();
    EXPECT_EQ(failureOf([&] { ask(link, 18, "21 80"); }), "the simulated link is not open");
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
            "0.220000 ! the simulated link is not open\n");

  ReplayPeer replay(parseTrace(files.files["/rec/t.trace"], "t.trace"), "t.trace");
  SimulatedLink link(clock, replay);
  link.open();
  const std::int64_t before = clock.microseconds();
  EXPECT_EQ(ask(link, 18, "21 80"), "7F 21 78; 61 80 12; ");
  EXPECT_EQ(clock.microseconds() - before, 120000);  // 20 ms for the answers, then the wait for a third
  EXPECT_EQ(ask(link, 16, "21 80"), "");             // another ECU was not asked
  EXPECT_THROW(ask(link, 18, "10 03"), EcuUnreachable);
  EXPECT_EQ(failureOf([&] { ask(link, 18, "21 80"); }), "the simulated link is not open");
  EXPECT_EQ(failureOf([&] { ask(link, 18, "21 80"); }), "t.trace: the trace has ended");
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
