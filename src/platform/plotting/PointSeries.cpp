#include "platform/plotting/PointSeries.h"

#include <algorithm>
#include <bit>
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
  for (auto& each : extremes_) each.clear();
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
    for (std::size_t i = 0; i < kBlocks.size(); ++i)
      extremes_[i].erase(extremes_[i].begin(), extremes_[i].begin() + kChunk / kBlocks[i]);
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
  }
  std::shared_ptr<Chunk>& last = chunks_.back();
  if (last.use_count() > 1) last = std::make_shared<Chunk>(*last);
  return *last;
}

void PointSeries::append(double value) {
  Chunk& chunk = chunkToFill();
  const auto place = static_cast<std::size_t>(end_ % kChunk);
  Summary& block = chunk.blocks[place / kBlock];
  if (place % kBlock == 0) block = {};
  chunk.values[place] = value;
  block.add(value);
  chunk.all.add(value);
  for (std::size_t i = 0; i < kBlocks.size(); ++i) {
    if ((end_ & (kBlocks[i] - 1)) == 0) extremes_[i].emplace_back();
    extremes_[i].back().add(value);
  }
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

void PointSeries::addChunks(Summary& sum, std::int64_t first, std::int64_t last) const {
  for (; first < last; first += kChunk) sum.add(chunkOf(first).all);
}

template <class Sum>
Sum PointSeries::summed(std::int64_t first, std::int64_t last) const {
  first = std::max(first, begin_);
  last = std::min(last, end_);
  Sum result;
  while (first < last) {
    const std::int64_t from = first % kChunk;
    const std::int64_t to = std::min(kChunk, from + last - first);
    if (to - from < kChunk) {
      chunkOf(first).addTo(result, from, to);
      first += to - from;
    } else {
      const std::int64_t end = last / kChunk * kChunk;
      addChunks(result, first, end);
      first = end;
    }
  }
  return result;
}

Summary PointSeries::summary(std::int64_t first, std::int64_t last) const {
  return summed<Summary>(first, last);
}

Extremes PointSeries::extremes(std::int64_t first, std::int64_t last) const {
  return summed<Extremes>(first, last);
}

std::int64_t PointSeries::blockWithin(double points) {
  std::int64_t longest = 1;
  for (const std::int64_t block : kBlocks)
    if (static_cast<double>(block) <= points) longest = block;
  return longest;
}

Extremes PointSeries::extremesOfBlocks(std::int64_t first, std::int64_t last, std::int64_t block) const {
  const std::vector<Extremes>& known =
      extremes_[static_cast<std::size_t>(std::ranges::find(kBlocks, block) - kBlocks.begin())];
  const int shift = std::countr_zero(static_cast<std::uint64_t>(block));  // divides faster
  const auto from = static_cast<std::size_t>((first - firstChunk_ * kChunk) >> shift);
  const auto to = static_cast<std::size_t>((last - firstChunk_ * kChunk + block - 1) >> shift);
  Extremes result;
  for (std::size_t i = from; i < to; ++i) result.add(known[i]);
  return result;
}

}  // namespace tarnlog
