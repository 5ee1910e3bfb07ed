#include <gmock/gmock.h>

#include "samples/QualityCounter.h"
#include "tests/support/AcqRig.h"

namespace tarnlog {
namespace {

using ferrox3::Exchange;
using test::AcqRig;

constexpr std::int64_t kSecond = 1'000'000;

struct QualityRig : QualityCounter, AcqRig {
  std::string told;

  QualityRig() : AcqRig({this}) {
    setRecordingEnded([this](const std::string& path, const Quality& quality) {
      told += path + ": " + qualityText(quality) + "\n";
    });
    session.script.whileWaiting = [this] { clock.step(10); };
  }
  /// Cycles every 100 ms, in seconds.
  void poll(int from, int till) {
    for (int i = from * 10; i < till * 10; ++i) run(std::to_string(i * 100) + ":" + std::to_string(i));
  }
};

TEST(Quality, OfARecordingCountsFromItsFirstRowOn) {
  QualityRig rig;
  rig.recordFrom(40);
  rig.parameters->startTrigger->prepost = -1;
  rig.parameters->stopTrigger->typeTrigger = oTarnTrigger::kTime;
  rig.parameters->stopTrigger->timeSeconde = 4;
  rig.parameters->recordingPeriod = 1;
  rig.session.sent = {{0x3E, 1, "TesterPresent"}, {0x21, 70, "ReadDataByLocalIdentifier"}};
  rig.start();
  rig.poll(2, 6);
  rig.status.failing.next("no answer");
  rig.run("6000:60");
  rig.tickUntil(TarnAcq::kCommunicate);
  rig.clock.setUtcBy(-2 * 1'000'000'000);
  rig.poll(7, 8);
  rig.clock.step(30);
  rig.status.exchange = Exchange{Exchange::Outcome::Refused, 0, rig.clock.microseconds()};
  rig.setRowsSynced([] { return std::uint64_t{5}; });
  rig.run("8000:80");
  rig.status.exchange.reset();
  rig.poll(9, 11);
  EXPECT_EQ(rig.told,
            "/rec/16-11-26_19h05mn11.txt: 41 of 43 answers (1 refused, 1 lost); 10 cycles/s (0 to 10); "
            "2 gaps, the longest 1.1 s at 1.91 s; 1 clock step by -2 s; 7 rows, 5 synced; "
            "sent so far: TesterPresent 1, ReadDataByLocalIdentifier 70\n");
  EXPECT_EQ(rig.acquisition().counts.expected(), 72U) << "with what is in no recording";
}

/// Ten cycles a second of two requests, for a file.
TEST(Quality, OfAFileFindsTheCyclesAndWhatCameLate) {
  QualityCounter counter(QualityCounter::Cycles::Found);
  Quality quality;
  counter.setRecordingEnded([&](const std::string&, const Quality& counted) { quality = counted; });
  counter.recordingBegan({{}, "f", 3 * kSecond, 0});
  std::int64_t at = 0;
  for (int cycle = 0; cycle < 45; ++cycle, at += kSecond / 10)
    for (const std::size_t request : {0U, 1U}) {
      const std::int64_t took = cycle == 20 && request == 1 ? 45'000 : 12'000;
      counter.answer({.request = request, .sent = at, .received = at + took});
    }
  at += 5 * kSecond;
  counter.gap(at - 5 * kSecond, at);
  counter.answer({.sent = at, .received = at + 12'000, .outcome = Exchange::Outcome::Silent});
  counter.failure({1, at, at + 12'000, "no answer"});
  counter.recordingEnded(at + 20'000, 9);
  EXPECT_EQ(qualityText(quality),
            "90 of 92 answers (1 late, 2 lost); 5 cycles/s (0 to 10); a gap of 5 s at 1.5 s; no clock step; "
            "9 rows");
  std::string figures;
  for (const QualityFigure& figure : qualityFigures(quality))
    std::visit([&](auto value) { figures += figure.name + " " + std::to_string(value) + "\n"; },
               figure.value);
  EXPECT_EQ(figures,
            "answers expected 92\nanswers received 90\nanswers late 1\nanswers refused 0\nanswers lost 2\n"
            "cycles per second, least 0.000000\ncycles per second, median 5.000000\n"
            "cycles per second, most 10.000000\ngaps 1\nlongest gap 5.000000\nlongest gap at 1.500000\n"
            "clock steps 0\nclock stepped by 0.000000\nrows 9\n");
}

TEST(CycleRates, AreThoseOfWholeSecondsWhereThereIsOne) {
  CycleRates rates;
  EXPECT_EQ(rates.until(kSecond).most, 0);
  rates.add(0);
  rates.add(250'000);
  EXPECT_EQ(rates.until(500'000).median, 4);
  rates.add(750'000);
  rates.add(kSecond);
  const auto found = rates.until(3 * kSecond - 1);
  EXPECT_EQ(found.least, 1);
  EXPECT_EQ(found.median, 2);
  EXPECT_EQ(found.most, 3);
}

}  // namespace
}  // namespace tarnlog
