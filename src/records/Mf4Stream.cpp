#include "records/Mf4Stream.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tarnlog {

namespace {

/// For a heap with the oldest on top.
bool isLater(const std::unique_ptr<Mf4Row>& a, const std::unique_ptr<Mf4Row>& b) {
  return std::pair(a->time, a->number) > std::pair(b->time, b->number);
}

}  // namespace

void Mf4Stream::fill() {
  while (!ended_ && waiting_.size() < window_) {
    std::unique_ptr<Mf4Row> row;
    if (unused_.empty()) {
      row = std::make_unique<Mf4Row>();
    } else {
      row = std::move(unused_.back());
      unused_.pop_back();
    }
    ended_ = !rows_.next(*row);
    if (ended_) break;
    waiting_.push_back(std::move(row));
    std::push_heap(waiting_.begin(), waiting_.end(), isLater);
  }
}

bool Mf4Stream::next() {
  fill();
  if (waiting_.empty()) return false;
  std::pop_heap(waiting_.begin(), waiting_.end(), isLater);
  unused_.push_back(std::exchange(current_, std::move(waiting_.back())));
  waiting_.pop_back();
  return true;
}

bool nearlyOrdered(const ReadableFile& file, const Mf4DataGroup& data, std::size_t block) {
  Mf4Rows rows(file, data, block);
  Mf4Row row;
  // The latest time up to each of the last records.
  std::vector<double> latest(Mf4Stream::kWindow, -std::numeric_limits<double>::infinity());
  double newest = latest.front();
  for (std::size_t i = 0; rows.nextTime(row); ++i) {
    double& longAgo = latest[i % latest.size()];
    if (row.time < longAgo) return false;
    newest = std::max(newest, row.time);
    longAgo = newest;
  }
  return true;
}

}  // namespace tarnlog
