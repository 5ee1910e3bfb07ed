#include "samples/QualityCounter.h"

#include <algorithm>

namespace tarnlog {

namespace {

constexpr std::int64_t kLeastDelay = 20'000;  // µs
/// Cycles that are kept for the start of a recording.
constexpr std::size_t kLongestHistory = 65536;

}  // namespace

void QualityCounter::Tally::add(const Cycle& cycle) {
  counts.add(cycle.counts);
  if (cycle.whole) rates.add(cycle.began.value_or(0));
}

void QualityCounter::begin(const SampleBeginning& beginning) {
  usual_.clear();
  history_.clear();
  historyFrom_ = lastRequest_ = 0;
  open_ = {};
  recording_.reset();
  newest_ = beginning.at;
  acquisition_ = {};
  acquisition_.zero = beginning.at;
}

/// What is usual follows the answers, slower ones more slowly.
bool QualityCounter::isLate(const SampleAnswer& answer) {
  const std::int64_t took = answer.received - answer.sent;
  if (answer.request >= usual_.size()) usual_.resize(answer.request + 1);
  std::int64_t& usual = usual_[answer.request];
  const bool first = usual == 0;
  const bool late = !first && took > 2 * usual && took - usual > kLeastDelay;
  usual = first ? took : usual + (took - usual) / (took > usual ? 8 : 2);
  return late;
}

void QualityCounter::noteTime(std::int64_t at) {
  newest_ = std::max(newest_, at);
  if (!open_.began) open_.began = at;
}

void QualityCounter::answer(const SampleAnswer& answer) {
  using Outcome = ferrox3::Exchange::Outcome;
  if (cycles_ == Cycles::Found && open_.began && answer.request <= lastRequest_) close(true);
  lastRequest_ = answer.request;
  noteTime(answer.received);
  if (answer.outcome == Outcome::Refused) {
    ++open_.counts.refused;
  } else if (answer.outcome == Outcome::Silent) {
    ++open_.counts.lost;
  } else {
    ++open_.counts.received;
    if (isLate(answer)) ++open_.counts.late;
  }
}

void QualityCounter::failure(const SampleFailure& failure) {
  noteTime(failure.at);
  ++open_.counts.lost;
  close(false);
}

void QualityCounter::cycle(const SampleCycle& cycle) {
  open_.began = cycle.began;
  newest_ = std::max(newest_, cycle.began);
  forgetBefore(cycle.keepFrom);
  close(true);
}

void QualityCounter::gap(std::int64_t from, std::int64_t till) {
  open_.counts.add({.gaps = 1, .longestGap = till - from, .longestGapFrom = from});
}

void QualityCounter::clockStep(std::int64_t /*at*/, std::int64_t nanoseconds) {
  open_.counts.add({.clockSteps = 1, .clockStepped = nanoseconds});
}

void QualityCounter::close(bool whole) {
  open_.whole = whole;
  acquisition_.add(open_);
  if (recording_) recording_->add(open_);
  if (cycles_ == Cycles::Told) remember(open_);
  open_ = {};
}

void QualityCounter::remember(const Cycle& cycle) {
  if (history_.size() - historyFrom_ == kLongestHistory) ++historyFrom_;
  if (historyFrom_ > history_.size() / 2) {
    history_.erase(history_.begin(), history_.begin() + static_cast<std::ptrdiff_t>(historyFrom_));
    historyFrom_ = 0;
  }
  history_.push_back(cycle);
}

void QualityCounter::forgetBefore(std::int64_t time) {
  while (historyFrom_ < history_.size() && history_[historyFrom_].began.value_or(0) < time) ++historyFrom_;
}

/// A recording whose trigger fires begins within a cycle, which is counted when it is complete.
void QualityCounter::recordingBegan(const SampleRecording& recording) {
  path_ = recording.path;
  Tally tally;
  tally.zero = recording.zero;
  recording_ = tally;
  for (std::size_t i = historyFrom_; i < history_.size(); ++i)
    if (history_[i].began.value_or(0) >= recording.from) recording_->add(history_[i]);
}

/// What the cycle of the last row has brought is in the recording, too.
void QualityCounter::recordingEnded(std::int64_t at, std::uint64_t rows) {
  if (!recording_) return;
  recording_->counts.add(open_.counts);
  recording_->rows = rows;
  if (rowsSynced_) recording_->rowsSynced = rowsSynced_();
  acquisition_.rows += rows;
  if (recording_->rowsSynced)
    acquisition_.rowsSynced = acquisition_.rowsSynced.value_or(0) + *recording_->rowsSynced;
  ended_ = qualityOf(*recording_, at);
  recording_.reset();
  if (recordingEnded_) recordingEnded_(path_, ended_);
}

void QualityCounter::end(std::int64_t at) {
  newest_ = at;
  close(false);
}

Quality QualityCounter::acquisition() const { return qualityOf(acquisition_, newest_); }

Quality QualityCounter::qualityOf(const Tally& tally, std::int64_t till) const {
  CycleRates rates = tally.rates;
  return {tally.counts, rates.until(till), tally.zero, tally.rows, tally.rowsSynced, servicesSent_, till};
}

}  // namespace tarnlog
