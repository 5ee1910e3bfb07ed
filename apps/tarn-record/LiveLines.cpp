#include "apps/tarn-record/LiveLines.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "platform/base/TarnError.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

/// Lines of fast answers are handed over together.
constexpr std::int64_t kLongestWait = 50'000;  // µs

}  // namespace

void LiveLines::begin(const SampleBeginning& beginning) {
  begin_ = beginning.at;
  values_.begin(beginning);
}

void LiveLines::answer(const SampleAnswer& answer) {
  if (lines_.empty()) waitingSince_ = answer.received;
  const double seconds = static_cast<double>(answer.received - begin_) / 1e6;
  for (const std::size_t position : values_.take(answer.request)) {
    const LiveValues::Row& row = values_.rows()[position];
    fmt::format_to(std::back_inserter(lines_), "{:.3f}\t{}\t{}\t{}\n", seconds, row.path, row.text, row.unit);
  }
  if (answer.received - waitingSince_ >= kLongestWait) handOver();
}

/// Another answer may be long in coming.
void LiveLines::cycle(const SampleCycle& /*cycle*/) { handOver(); }
void LiveLines::failure(const SampleFailure& /*failure*/) { handOver(); }
void LiveLines::end(std::int64_t /*at*/) { handOver(); }

void LiveLines::handOver() {
  if (lines_.empty()) return;
  const std::string told = lost_ == 0 ? lines_ : Told::tr("... {} lines not shown", lost_) + "\n" + lines_;
  bool taken = false;
  skipOnFailure([&] { taken = target_.take(told); });
  lost_ = taken ? 0 : lost_ + static_cast<std::uint64_t>(std::ranges::count(lines_, '\n'));
  lines_.clear();
}

}  // namespace tarnlog::record
