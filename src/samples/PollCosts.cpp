#include "samples/PollCosts.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <tuple>

#include "platform/text/Told.h"

namespace tarnlog {
namespace {

constexpr std::size_t kDearest = 3;

bool contains(const std::vector<std::size_t>& positions, std::size_t position) {
  return std::ranges::find(positions, position) != positions.end();
}

}  // namespace

std::string pollSummary(const PollReport& report) {
  if (report.cyclesPerSecond <= 0) return {};
  if (report.costs.size() < 2 || report.dearest.empty())
    return Told::tr("{} data: {:.1f} cycles/s", report.data, report.cyclesPerSecond);
  const PollCost& dearest = report.costs[report.dearest.front()];
  return Told::tr("{} data: {:.1f} cycles/s; {} costs {:.0f} %", report.data, report.cyclesPerSecond,
                  dearest.data.empty() ? dearest.request : dearest.data.front(), dearest.share * 100);
}

void PollCosts::begin(const SampleBeginning& beginning) {
  ecus_.clear();
  asked_.clear();
  came_.clear();
  cycles_ = data_ = 0;
  for (const SampleRequest& each : beginning.requests) {
    const std::string& ecu = each.request->ecu().name();
    const auto known = std::ranges::find(ecus_, ecu);
    Asked& asked = asked_.emplace_back();
    asked.ecu = static_cast<std::size_t>(known - ecus_.begin());
    if (known == ecus_.end()) ecus_.push_back(ecu);
    asked.cost.ecu = ecu;
    asked.cost.request = each.request->name();
    for (const ferrox3::DataItem* const item : each.items) asked.cost.data.push_back(item->name());
    data_ += each.items.size();
  }
}

void PollCosts::answer(const SampleAnswer& answer) {
  if (answer.request < asked_.size()) came_.push_back({answer.request, answer.sent, answer.received});
}

void PollCosts::failure(const SampleFailure& /*failure*/) { came_.clear(); }

/// Requests that share an exchange share its times; they follow one another, unless others come in between.
void PollCosts::cycle(const SampleCycle& cycle) {
  const auto before = [&](const Came& a, const Came& b) {
    return std::tuple(asked_[a.request].ecu, a.sent, a.received, a.request) <
           std::tuple(asked_[b.request].ecu, b.sent, b.received, b.request);
  };
  std::ranges::sort(came_, before);
  for (std::size_t first = 0; first < came_.size();) {
    std::size_t last = first + 1;
    while (last < came_.size() && asked_[came_[last].request].ecu == asked_[came_[first].request].ecu &&
           came_[last].sent == came_[first].sent && came_[last].received == came_[first].received)
      ++last;
    takeExchange(first, last);
    first = last;
  }
  came_.clear();
  if (cycles_++ == 0) firstBegan_ = cycle.began;
  lastBegan_ = cycle.began;
}

void PollCosts::takeExchange(std::size_t first, std::size_t last) {
  const std::int64_t time = came_[first].received - came_[first].sent;
  const auto members = static_cast<std::int64_t>(last - first);
  for (std::size_t i = first; i < last; ++i) {
    Asked& asked = asked_[came_[i].request];
    asked.time += time;
    asked.part += time / members;
    ++asked.count;
    asked.cost.together.clear();
    for (std::size_t other = first; members > 1 && other < last; ++other)
      asked.cost.together.push_back(came_[other].request);
  }
}

std::vector<double> PollCosts::ecuSeconds(const std::vector<std::size_t>& without) const {
  std::vector<double> seconds(ecus_.size());
  for (std::size_t i = 0; i < asked_.size(); ++i) {
    // One that shares an exchange saves nothing as long as another one is left in it.
    const auto& together = asked_[i].cost.together;
    const bool shared =
        std::ranges::any_of(together, [&](std::size_t each) { return !contains(without, each); });
    if (contains(without, i) && !shared) continue;
    seconds[asked_[i].ecu] += static_cast<double>(asked_[i].part) / 1e6 / static_cast<double>(cycles_);
  }
  return seconds;
}

double PollCosts::exchangeSeconds(const std::vector<std::size_t>& without, bool sideBySide) const {
  const std::vector<double> seconds = ecuSeconds(without);
  return sideBySide ? *std::ranges::max_element(seconds)
                    : std::accumulate(seconds.begin(), seconds.end(), 0.0);
}

PollReport PollCosts::report() const {
  PollReport report{.data = data_};
  if (cycles_ < 2 || lastBegan_ <= firstBegan_ || ecus_.empty()) return report;
  const double cycle = static_cast<double>(lastBegan_ - firstBegan_) / 1e6 / static_cast<double>(cycles_ - 1);
  report.cyclesPerSecond = 1 / cycle;
  report.sideBySide = exchangeSeconds({}, false) > cycle * 1.05;
  const std::vector<double> ecus = ecuSeconds({});
  const auto slowest = std::ranges::max_element(ecus);
  report.slowestEcu = ecus_[static_cast<std::size_t>(slowest - ecus.begin())];
  report.slowestSeconds = *slowest;
  for (const Asked& asked : asked_) {
    PollCost& cost = report.costs.emplace_back(asked.cost);
    if (asked.count == 0) continue;
    cost.seconds = static_cast<double>(asked.time) / 1e6 / static_cast<double>(asked.count);
    cost.share = static_cast<double>(asked.part) / 1e6 / static_cast<double>(cycles_) / cycle;
  }
  const double exchanges = exchangeSeconds({}, report.sideBySide);
  for (std::size_t i = 0; i < report.costs.size(); ++i)
    if (report.costs[i].share > 0 && (!report.sideBySide || report.costs[i].ecu == report.slowestEcu))
      report.dearest.push_back(i);
  std::ranges::stable_sort(report.dearest, std::greater(),
                           [&](std::size_t i) { return report.costs[i].share; });
  if (report.dearest.size() > kDearest) report.dearest.resize(kDearest);
  const double rest = std::max(cycle - exchanges, 0.0) + exchangeSeconds(report.dearest, report.sideBySide);
  report.without = rest > 0 ? 1 / rest : 0;
  return report;
}

}  // namespace tarnlog
