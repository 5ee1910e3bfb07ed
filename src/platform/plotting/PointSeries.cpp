#include "platform/plotting/PointSeries.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnlog {

void Extremes::add(double value) {
  if (!std::isfinite(value)) return;
  lowest = std::min(lowest, value);
  highest = std::max(highest, value);
}

void Extremes::add(const Extremes& other) {
  lowest = std::min(lowest, other.lowest);
  highest = std::max(highest, other.highest);
}

void Summary::add(double value) {
  if (!std::isfinite(value)) return;
  Extremes::add(value);
  sum += value;
  ++count;
}

void Summary::add(const Summary& other) {
  Extremes::add(other);
  sum += other.sum;
  count += other.count;
}

void PointSeries::setCapacity(std::int32_t points) {
  capacity_ = std::clamp(points, 1, kMostPoints);
  dropOld();
}

void PointSeries::clear() {
  begin_ = end_ = firstChunk_ = 0;
  chunks_.clear();
  chunkExtremes_.clear();
  coarse_.clear();
}

void PointSeries::dropBefore(std::int64_t index) {
  begin_ = std::clamp(index, begin_, end_);
  dropOld();
}

void PointSeries::dropOld() {
  begin_ = std::max(begin_, end_ - capacity_);
  while (!chunks_.empty() && (firstChunk_ + 1) * kChunk <= begin_) {
    spare_ = std::move(chunks_.front());
    chunks_.erase(chunks_.begin());
    chunkExtremes_.erase(chunkExtremes_.begin());
    coarse_.erase(coarse_.begin(), coarse_.begin() + kChunk / kBlock);
    ++firstChunk_;
  }
}

/// The last chunk, for this series alone.
PointSeries::Chunk& PointSeries::chunkToFill() {
  if (chunks_.empty()) firstChunk_ = end_ / kChunk;
  if (end_ / kChunk == firstChunk_ + static_cast<std::int64_t>(chunks_.size())) {
    const bool usable = spare_ != nullptr && spare_.use_count() == 1;
    chunks_.push_back(usable ? std::exchange(spare_, nullptr) : std::make_shared<Chunk>());
    chunks_.back()->all = {};
    chunkExtremes_.emplace_back();
  }
  std::shared_ptr<Chunk>& last = chunks_.back();
  if (last.use_count() > 1) last = std::make_shared<Chunk>(*last);
  return *last;
}

void PointSeries::append(double value) {
  Chunk& chunk = chunkToFill();
  const auto place = static_cast<std::size_t>(end_ % kChunk);
  Summary& block = chunk.blocks[place / kBlock];
  if (place % kBlock == 0) {
    block = {};
    coarse_.emplace_back();
  }
  chunk.values[place] = value;
  block.add(value);
  chunk.all.add(value);
  coarse_.back().add(value);
  chunkExtremes_.back().add(value);
  ++end_;
  dropOld();
}

std::span<const double> PointSeries::run(std::int64_t index) const {
  const auto from = static_cast<std::size_t>(index % kChunk);
  return std::span(chunkOf(index).values)
      .subspan(from, static_cast<std::size_t>(std::min(kChunk - index % kChunk, end_ - index)));
}

/// Of places `from` to before `to` of a chunk: whole blocks as they are, values before and behind them.
template <class Sum>
void PointSeries::Chunk::addTo(Sum& sum, std::int64_t from, std::int64_t to) const {
  const std::int64_t blocked = std::min((from + kBlock - 1) / kBlock * kBlock, to);
  for (; from < blocked; ++from) sum.add(values[static_cast<std::size_t>(from)]);
  for (; from + kBlock <= to; from += kBlock) sum.add(blocks[static_cast<std::size_t>(from / kBlock)]);
  for (; from < to; ++from) sum.add(values[static_cast<std::size_t>(from)]);
}

template <class Sum>
Sum PointSeries::summed(std::int64_t first, std::int64_t last) const {
  first = std::max(first, begin_);
  last = std::min(last, end_);
  Sum result;
  while (first < last) {
    const std::int64_t from = first % kChunk;
    const std::int64_t to = std::min(kChunk, from + last - first);
    if (to - from == kChunk)
      addChunk(result, static_cast<std::size_t>(first / kChunk - firstChunk_));
    else
      chunkOf(first).addTo(result, from, to);
    first += to - from;
  }
  return result;
}

Summary PointSeries::summary(std::int64_t first, std::int64_t last) const {
  return summed<Summary>(first, last);
}

Extremes PointSeries::extremes(std::int64_t first, std::int64_t last) const {
  return summed<Extremes>(first, last);
}

Extremes PointSeries::extremesOfBlocks(std::int64_t first, std::int64_t last) const {
  const std::int64_t before = firstChunk_ * (kChunk / kBlock);
  Extremes result;
  for (std::int64_t block = first / kBlock; block * kBlock < last; ++block)
    result.add(coarse_[static_cast<std::size_t>(block - before)]);
  return result;
}

}  // namespace tarnlog
