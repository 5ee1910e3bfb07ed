#include <gmock/gmock.h>

#include "acquisition/GapWatch.h"
#include "tests/support/AcqRig.h"
#include "tests/support/SampleText.h"

namespace tarnlog {
namespace {

using ferrox3::Exchange;
using test::AcqRig;
using test::SampleText;
using testing::HasSubstr;
using testing::Not;

/// Fails at whatever it hears.
class BrokenSink : public SampleSink {
 public:
  void begin(const SampleBeginning&) override { fail(); }
  void answer(const SampleAnswer&) override { fail(); }
  void cycle(const SampleCycle&) override { fail(); }
  void recordingBegan(const SampleRecording&) override { fail(); }

 private:
  static void fail() { throw TarnError(1, "BrokenSink", "no"); }
};

/// A recorder that is listened to; each answer takes 10 ms.
struct HeardRig : AcqRig {
  HeardRig() : AcqRig({&broken, &heard}) {}

  std::string hear(const std::string& timeline) {
    heard.take();
    session.script.whileWaiting = [this] { clock.step(10); };
    run(timeline);
    session.script.whileWaiting = {};
    return heard.take();
  }

  BrokenSink broken;
  SampleText heard;
};

TEST(SampleFeed, TellsOfARecordingWithItsPreTrigger) {
  HeardRig rig;
  rig.recordFrom(50);
  rig.parameters->startTrigger->prepost = -1;
  rig.parameters->recordingPeriod = 1;
  rig.session.known = {{"vehicle", "car"}};
  rig.start();
  EXPECT_THAT(rig.heard.take(),
              HasSubstr("\nbegin 01 Engine/Status/Speed\ncontext vehicle=car\nstate 1 at 0\n"
                        "state 4 at "));
  rig.session.sent = {{0x21, 3, "ReadDataByLocalIdentifier"}};
  const std::string file = rig.hear("1000:0 1500:0 2000:0 3000:60") + rig.acq.RecordPath();
  EXPECT_EQ(file,
            "\nanswer 1 to 0: 1000 to 1010\ncycle 1000 keep from 1000"
            "\nanswer 2 to 0: 1500 to 1510\ncycle 1500 keep from 1000"
            "\nanswer 3 to 0: 2000 to 2010\ncycle 2000 keep from 1500"
            "\nanswer 4 to 0: 3000 to 3010"
            "\ncontext vehicle=car ReadDataByLocalIdentifier=3"
            "\nrecording 02 from 2000 zero 3000\nstart0 at 3000 /rec/16-11-26_19h05mn10.txt"
            "\ncycle 3000 keep from 2000/rec/16-11-26_19h05mn10.txt");
  rig.clock.step(90);
  rig.acq.RecordUserEvent();
  rig.acq.ToggleRecording();
  EXPECT_THAT(rig.hear("4000:61"),
              "\nanswer 5 to 0: 4000 to 4010\ncontext vehicle=car ReadDataByLocalIdentifier=3"
              "\nrecording end at 4010 rows 3\ncycle 4000 keep from 3000");
}

TEST(SampleFeed, TellsOfAnOutageTheGapItLeavesAndASetClock) {
  HeardRig rig;
  rig.start();
  rig.hear("1000:0 1100:1");
  rig.acq.ToggleRecording();
  EXPECT_THAT(rig.heard.take(), HasSubstr("\nrecording 02 from 1100 zero 1100\nstart0 at 1100 /rec/"));
  rig.status.failing.next("no answer");
  rig.engine.failingInit.next("no answer");
  EXPECT_EQ(rig.hear("1200:2 1300:0"), "\nfailure of 0: 1200 to 1210 no answer\nstate 1 at 1210");
  rig.clock.setUtcBy(-3'600'000'000'000);
  rig.tickUntil(TarnAcq::kCommunicate);
  EXPECT_EQ(rig.hear("2000:3"),
            "\ngap 1110 to 2010\nanswer 3 to 0: 2000 to 2010"
            "\nclock step at 2010 by -3600000000000\ncycle 2000 keep from 2000");
  rig.clock.setUtcBy(49'000'000);
  EXPECT_EQ(rig.hear("2100:4"), "\nanswer 4 to 0: 2100 to 2110\ncycle 2100 keep from 2100");
  rig.acq.ToggleRecording();
  EXPECT_THAT(rig.heard.take(), testing::StartsWith("\nstop0 at 2110 /rec/"));
  rig.acq.AskStopAcqNow();
  rig.timer.fire();
  EXPECT_EQ(rig.heard.take(),
            "\nstate 0 at 2110\ncontext\nrecording end at 2110 rows 2\ncontext\nend at 2110");
  rig.start();
  EXPECT_THAT(rig.heard.take(), testing::StartsWith("\nbegin 03 "));
}

TEST(SampleFeed, BelievesWhatTheHostKnowsOfAnExchange) {
  HeardRig rig;
  rig.start();
  const auto hear = [&](Exchange::Outcome outcome) {
    rig.status.exchange = Exchange{outcome, rig.clock.microseconds() + 3000, rig.clock.microseconds() + 7000};
    return rig.hear(std::to_string(rig.clock.milliseconds() - rig.origin) + ":0");
  };
  rig.hear("1000:0");
  EXPECT_THAT(hear(Exchange::Outcome::Refused), HasSubstr("answer 2 to 0: 1013 to 1017 refused\n"));
  EXPECT_THAT(hear(Exchange::Outcome::NotAsked), testing::StartsWith("\nnot asked 0\ncycle"));
  rig.clock.step(500);
  const std::string silent = hear(Exchange::Outcome::Silent);
  EXPECT_THAT(silent, HasSubstr("answer 3 to 0: 1533 to 1537 silent\n"));
  EXPECT_THAT(silent, Not(HasSubstr("gap"))) << "nothing came yet that would end one";
  EXPECT_THAT(hear(Exchange::Outcome::Answered), HasSubstr("\ngap 1017 to 1547\nanswer 4"));
}

// Where each cycle takes longer than 0.2 s, every answer was once told to end a gap.
TEST(GapWatch, KnowsHowLongCyclesUsuallyTake) {
  GapWatch slow;
  std::int64_t at = 0;
  for (int cycle = 0; cycle < 20; ++cycle, at += 1'000'000) {
    EXPECT_FALSE(slow.answered(at));
    slow.cycle(at);
  }
  EXPECT_FALSE(slow.answered(at + 1'500'000)) << "not yet three usual cycles";
  EXPECT_EQ(slow.answered(at + 5'000'000), at + 1'500'000);
  slow.cycle(at + 5'000'000);
  EXPECT_FALSE(slow.answered(at + 5'000'000 + 2'900'000));

  GapWatch slower;
  int gaps = 0;
  for (at = 0; at < 60'000'000; at += at < 2'000'000 ? 50'000 : 500'000) {
    gaps += slower.answered(at) ? 1 : 0;
    slower.cycle(at);
  }
  EXPECT_LT(gaps, 6) << "it gets used to cycles that have become slower";
}

}  // namespace
}  // namespace tarnlog
