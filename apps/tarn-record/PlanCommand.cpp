#include "apps/tarn-record/PlanCommand.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "acquisition/SilentAcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "apps/common/BadInput.h"
#include "apps/common/LoadedConfiguration.h"
#include "apps/common/Signals.h"
#include "apps/common/TerminalText.h"
#include "apps/tarn-record/DetailSink.h"
#include "apps/tarn-record/OpenVehicle.h"
#include "apps/tarn-record/TextTable.h"
#include "config/oTarnTrigger.h"
#include "host/link/SystemLinkClock.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/text/Told.h"
#include "platform/time/RunLoop.h"
#include "platform/time/SystemClock.h"

namespace tarnlog::record {
namespace {

using Time = std::chrono::steady_clock;

/// Until the first data have come.
constexpr std::chrono::seconds kPatience{30};

std::string joined(const std::vector<std::string>& words) {
  return fmt::format("{}", fmt::join(words, ", "));
}

std::string costsTable(const PollReport& report) {
  using enum TextTable::Align;
  TextTable table({Left, Left, Right, Right, Left});
  table.add(
      {Told::tr("ECU"), Told::tr("request"), Told::tr("ms"), Told::tr("of the cycle"), Told::tr("data")});
  for (const PollCost& cost : report.costs)
    table.add({cost.ecu, cost.request, fmt::format("{:.1f}", cost.seconds * 1000),
               fmt::format("{:.0f} %", cost.share * 100), joined(cost.data)});
  return table.text();
}

std::string togetherText(const PollReport& report) {
  std::string text;
  for (std::size_t i = 0; i < report.costs.size(); ++i) {
    const auto& together = report.costs[i].together;
    if (together.empty() || together.front() != i) continue;
    std::vector<std::string> names;
    names.reserve(together.size());
    for (const std::size_t each : together) names.push_back(report.costs[each].request);
    text += Told::tr("in one request: {}: {}", report.costs[i].ecu, joined(names)) + "\n";
  }
  return text;
}

std::string periodText(const PollReport& report, std::int32_t period) {
  if (period == 0) return Told::tr("a row for every cycle, as the configuration says") + "\n";
  return (report.cycleSeconds() <= period
              ? Told::tr("the period of {} s can be held", period)
              : Told::tr("the period of {} s cannot be held: a cycle takes {:.2f} s", period,
                         report.cycleSeconds())) +
         "\n";
}

/// Seldom enough to cost nothing, often enough for what changes slowly.
std::string intervalText(const PollReport& report) {
  if (report.costs.size() <= report.dearest.size() || report.dearest.empty()) return {};
  std::string text = Told::tr("without these, {:.1f} cycles/s:", report.without) + "\n";
  for (const std::size_t each : report.dearest)
    text += fmt::format("  --interval \"{}/{}=10000\"\n", report.costs[each].ecu, report.costs[each].request);
  return text;
}

/// Polls until the time is over.
class Polling {
 public:
  explicit Polling(const PlanOptions& options) : options_(options) {
    host::LinkOptions link = options.link;
    link.stopAsked = Signals::stopRequested;
    vehicle_ = openVehicle(options.vehicle, files_, linkClock_, {}, link, options.loudness);
  }

  std::string run() {
    LoadedConfiguration configuration = loadToRecord(files_, options_.config, vehicle_->session());
    configuration.parameters->startTrigger->typeTrigger = oTarnTrigger::kManual;
    std::vector<SampleSink*> sinks{&costs_};
    if (options_.loudness == Loudness::Verbose) sinks.push_back(&details_);
    TarnAcq acq(screen_, {clock_, *timer_, files_, systemLocale(), "", sinks});
    acq.setSession(&vehicle_->session());
    acq.setAcqStoppedHandler([this] { loop_.quit(); });
    acq.StartReadingData(configuration.parameters);
    if (acq.AcqState() == TarnAcq::kIdle) throw BadInput(Told::tr("{}: no data to acquire", options_.config));
    loop_.setWakeDescriptor(Signals::wakeDescriptor());
    auto end = Time::now() + kPatience;
    bool polled = false;
    bool ended = false;
    loop_.setWakeHandler([&] {
      Signals::clearWake();
      if (!polled && acq.cycles() > 0) end = Time::now() + std::chrono::seconds(options_.seconds);
      polled = acq.cycles() > 0;
      if (ended || (Time::now() < end && !Signals::stopRequested())) return;
      ended = true;
      acq.AskStopAcqNow();
    });
    loop_.run();
    loop_.setWakeHandler(nullptr);
    const PollReport report = costs_.report();
    if (report.cyclesPerSecond <= 0)
      throw BadInput(Told::tr("{}: no data came in the given time", options_.config));
    return planText(report, configuration.parameters->recordingPeriod);
  }

 private:
  const PlanOptions& options_;
  SystemClock clock_;
  host::SystemLinkClock linkClock_;
  SystemFileSystem files_;
  SilentAcqScreen screen_;
  RunLoop loop_;
  std::unique_ptr<Timer> timer_ = loop_.createTimer();
  PollCosts costs_;
  DetailSink details_{[](const std::string& line) {
    std::fputs(fmt::format("tarn-record: {}\n", printableLine(line)).c_str(), stderr);
  }};
  std::unique_ptr<host::OpenedVehicle> vehicle_;
};

}  // namespace

std::string planText(const PollReport& report, std::int32_t period) {
  const std::string slowest =
      report.sideBySide
          ? Told::tr("the slowest ECU is {}: {:.2f} s of each cycle; the others are asked beside it",
                     report.slowestEcu, report.slowestSeconds)
          : Told::tr("the slowest ECU is {}: {:.2f} s of each cycle", report.slowestEcu,
                     report.slowestSeconds);
  return Told::tr("{} data in {} requests: {:.1f} cycles/s, {:.2f} s each", report.data, report.costs.size(),
                  report.cyclesPerSecond, report.cycleSeconds()) +
         "\n" + slowest + "\n" + periodText(report, period) + "\n" + costsTable(report) + "\n" +
         togetherText(report) + intervalText(report);
}

std::string plan(const PlanOptions& options) {
  Signals::install();
  return Polling(options).run();
}

}  // namespace tarnlog::record
