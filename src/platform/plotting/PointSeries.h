#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

namespace tarnlog {

/// Lowest and highest of some values; none when lowest > highest.
struct Extremes {
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -std::numeric_limits<double>::infinity();
  bool any() const { return lowest <= highest; }
  /// Values that are not finite do not count.
  void add(double value);
  void add(const Extremes& other);
};

/// Extremes, and what a mean needs.
struct Summary : Extremes {
  double sum = 0;
  std::int64_t count = 0;  ///< of finite values
  void add(double value);
  void add(const Summary& other);
  /// NaN without values.
  double mean() const { return sum / static_cast<double>(count); }
};

/// The last N values of a row of them, numbered from 0 in the order of arrival; they keep their number while
/// older ones are dropped. Summaries of blocks are made as values arrive, so that asking about a long stretch
/// costs a fraction of its values. A copy shares what is stored until it is dropped, so copying is cheap;
/// once all N have come, appending allocates nothing unless a copy holds what is dropped.
class PointSeries {
 public:
  static constexpr std::int32_t kMostPoints = 10'000'000;

  /// 1 to kMostPoints; what lies outside is limited. Fewer than before drops the oldest.
  void setCapacity(std::int32_t points);
  std::int32_t capacity() const { return capacity_; }
  void append(double value);
  void clear();
  /// Values before this number are not needed any more.
  void dropBefore(std::int64_t index);

  std::int64_t begin() const { return begin_; }
  std::int64_t end() const { return end_; }
  /// `index` in begin() to end() - 1.
  double operator[](std::int64_t index) const {
    return chunkOf(index).values[static_cast<std::size_t>(index % kChunk)];
  }
  /// The values from `index` that stand behind one another in memory; not empty before end().
  std::span<const double> run(std::int64_t index) const;
  /// Of the values from `first` to before `last`, inside what is kept.
  Summary summary(std::int64_t first, std::int64_t last) const;
  Extremes extremes(std::int64_t first, std::int64_t last) const;
  /// The longest blocks of at most so many points whose extremes are known; 1 when there are none. A power of
  /// two.
  static std::int64_t blockWithin(double points);
  /// From the beginning of such a block to that of another, or to end(), without looking at a value.
  Extremes extremesOfBlocks(std::int64_t first, std::int64_t last, std::int64_t block) const;

 private:
  static constexpr std::int64_t kBlock = 128;
  static constexpr std::int64_t kChunk = 1024;
  static constexpr std::array<std::int64_t, 3> kBlocks{kBlock, 512, kChunk};  ///< powers of two

  struct Chunk {
    template <class Sum>
    void addTo(Sum& sum, std::int64_t from, std::int64_t to) const;

    std::array<double, kChunk> values;
    std::array<Summary, kChunk / kBlock> blocks;
    Summary all;
  };

  const Chunk& chunkOf(std::int64_t index) const {
    return *chunks_[static_cast<std::size_t>(index / kChunk - firstChunk_)];
  }
  Chunk& chunkToFill();
  void dropOld();
  void addChunks(Extremes& sum, std::int64_t first, std::int64_t last) const {
    sum.add(extremesOfBlocks(first, last, kChunk));
  }
  void addChunks(Summary& sum, std::int64_t first, std::int64_t last) const;
  template <class Sum>
  Sum summed(std::int64_t first, std::int64_t last) const;

  std::int32_t capacity_ = 1;
  std::int64_t begin_ = 0;
  std::int64_t end_ = 0;
  std::int64_t firstChunk_ = 0;  ///< number of the first chunk that is stored
  std::vector<std::shared_ptr<Chunk>> chunks_;
  // Of blocks of each size, close to one another: a look at each chunk would cost a cache miss.
  std::array<std::vector<Extremes>, kBlocks.size()> extremes_;
  std::shared_ptr<Chunk> spare_;  ///< dropped, to be filled again
};

}  // namespace tarnlog
