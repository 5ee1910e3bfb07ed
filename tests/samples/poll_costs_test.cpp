#include "samples/PollCosts.h"

#include <gmock/gmock.h>

#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using ::testing::ElementsAre;

/// Cycles of 62 ms: the engine is asked for A (40 ms) and then for B and C at once (20 ms); the body, beside
/// it, for D (30 ms).
struct Drive : test::ScriptedDrive {
  Drive() {
    SampleBeginning beginning{.acquisition = {}, .zone = {}, .parameters = *parameters};
    test::ScriptedEcu& body = session.addEcu("Body", "Body", 0x20);
    for (const char* const name : {"A", "B", "C", "D"}) {
      test::ScriptedEcu& ecu = *name == 'D' ? body : engine;
      test::ScriptedRequest& request = ecu.addRequest(name, name);
      beginning.requests.push_back({&request, {&request.addData(std::string(name) + "1", ferrox3::kDouble)}});
    }
    costs.begin(beginning);
  }
  void cycles(int count, bool sideBySide) {
    constexpr std::int64_t kMillisecond = 1000;
    for (int i = 0; i < count; ++i) {
      const std::int64_t began = now;
      const auto answered = [&](std::size_t request, std::int64_t from, std::int64_t till) {
        costs.answer({.request = request,
                      .sent = began + from * kMillisecond,
                      .received = began + till * kMillisecond});
      };
      answered(0, 0, 40);
      answered(1, 40, 60);
      answered(3, sideBySide ? 0 : 60, sideBySide ? 30 : 90);
      answered(2, 40, 60);
      costs.cycle({.began = began});
      now += (sideBySide ? 62 : 92) * kMillisecond;
    }
  }

  PollCosts costs;
  std::int64_t now = 5'000'000;
};

TEST(PollCosts, TellWhatHoldsACycleUp) {
  Drive drive;
  drive.cycles(1, true);
  EXPECT_EQ(pollSummary(drive.costs.report()), "") << "one cycle has no length";
  drive.cycles(9, true);
  const PollReport report = drive.costs.report();
  EXPECT_EQ(pollSummary(report), "4 data: 16.1 cycles/s; A1 costs 65 %");
  EXPECT_TRUE(report.sideBySide);
  EXPECT_EQ(report.slowestEcu, "Engine");
  EXPECT_NEAR(report.slowestSeconds, 0.06, 1e-9);
  EXPECT_THAT(report.costs[1].together, ElementsAre(1, 2));
  EXPECT_NEAR(report.costs[1].seconds, 0.02, 1e-9);
  EXPECT_NEAR(report.costs[2].share, 0.01 / 0.062, 1e-6);
  EXPECT_THAT(report.dearest, ElementsAre(0, 1, 2));
  EXPECT_NEAR(report.without, 1 / 0.032, 1e-6) << "what is left is the body";

  Drive apart;
  apart.cycles(10, false);
  EXPECT_FALSE(apart.costs.report().sideBySide);
  EXPECT_THAT(apart.costs.report().dearest, ElementsAre(0, 3, 1));
  EXPECT_NEAR(apart.costs.report().without, 1 / 0.022, 1e-6) << "C still needs the exchange that B was in";
}

}  // namespace
}  // namespace tarnlog
