#include "records/NumberSeries.h"

#include <algorithm>
#include <span>

namespace tarnlog {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

bool isFinite(double number) { return number - number == 0; }

/// Sums of every fourth number, so that one need not wait for the other.
struct Lanes {
  static constexpr std::size_t kCount = 4;
  std::array<std::int64_t, kCount> count{};
  std::array<double, kCount> lowest{kInfinity, kInfinity, kInfinity, kInfinity};
  std::array<double, kCount> highest{-kInfinity, -kInfinity, -kInfinity, -kInfinity};
  std::array<double, kCount> sum{};
  std::array<double, kCount> squares{};
};

/// In one walk for the sum and one for the distances from the mean, which is exact and needs no division for
/// each number.
NumberSummary summaryOf(std::span<const double, NumberSeries::kBlock> numbers) {
  Lanes lanes;
  for (std::size_t i = 0; i < numbers.size(); i += Lanes::kCount)
    for (std::size_t lane = 0; lane < Lanes::kCount; ++lane) {
      const double number = numbers[i + lane];
      const bool counts = isFinite(number);
      lanes.count[lane] += counts ? 1 : 0;
      lanes.lowest[lane] = std::min(lanes.lowest[lane], counts ? number : kInfinity);
      lanes.highest[lane] = std::max(lanes.highest[lane], counts ? number : -kInfinity);
      lanes.sum[lane] += counts ? number : 0;
    }
  NumberSummary summary;
  double sum = 0;
  for (std::size_t lane = 0; lane < Lanes::kCount; ++lane) {
    summary.addExtremes({lanes.count[lane], lanes.lowest[lane], lanes.highest[lane], 0, 0});
    sum += lanes.sum[lane];
  }
  if (!summary.any()) return summary;
  if (!isFinite(sum)) {
    // The sum is beyond a double, though the mean is not.
    summary = {};
    for (const double number : numbers) summary.add(number);
    return summary;
  }
  summary.mean = sum / static_cast<double>(summary.count);
  for (std::size_t i = 0; i < numbers.size(); i += Lanes::kCount)
    for (std::size_t lane = 0; lane < Lanes::kCount; ++lane) {
      const double distance = numbers[i + lane] - summary.mean;
      lanes.squares[lane] += isFinite(numbers[i + lane]) ? distance * distance : 0;
    }
  for (const double squares : lanes.squares) summary.squares += squares;
  return summary;
}

}  // namespace

void NumberSummary::add(double number) {
  if (!std::isfinite(number)) return;
  ++count;
  lowest = std::min(lowest, number);
  highest = std::max(highest, number);
  const double distance = number - mean;
  mean += distance / static_cast<double>(count);
  squares += distance * (number - mean);
}

void NumberSummary::add(const NumberSummary& other) {
  if (!other.any()) return;
  const double all = static_cast<double>(count + other.count);
  const double part = static_cast<double>(other.count) / all;
  const double distance = other.mean - mean;
  squares += other.squares + distance * distance * static_cast<double>(count) * part;
  mean += distance * part;
  addExtremes(other);
}

void NumberSummary::addExtremes(const NumberSummary& other) {
  count += other.count;
  lowest = std::min(lowest, other.lowest);
  highest = std::max(highest, other.highest);
}

double NumberSummary::deviation() const {
  if (count < 2) return std::numeric_limits<double>::quiet_NaN();
  return std::sqrt(squares / static_cast<double>(count - 1));
}

void NumberSeries::append(const double* numbers, std::size_t stride, std::int64_t count) {
  while (count != 0) {
    const std::int64_t most = std::min(count, kBlock - size() % kBlock);
    const std::span<double> added = numbers_.extend(static_cast<std::size_t>(most));
    for (double& number : added) {
      number = *numbers;
      numbers += stride;
    }
    count -= static_cast<std::int64_t>(added.size());
    if (size() % kBlock == 0) closeBlock();
  }
}

void NumberSeries::closeBlock() {
  const double* const block = &numbers_[numbers_.size() - kBlock];
  levels_[0].append(summaryOf(std::span<const double, kBlock>(block, kBlock)));
  for (std::size_t level = 1; level < kRows.size() && size() % kRows[level] == 0; ++level) {
    NumberSummary sum;
    const auto& parts = levels_[level - 1];
    for (auto i = static_cast<std::size_t>(kRows[level] / kRows[level - 1]); i != 0; --i)
      sum.add(parts[parts.size() - i]);
    levels_[level].append(sum);
  }
}

NumberSummary NumberSeries::summary(std::int64_t first, std::int64_t last) const {
  NumberSummary sum;
  const auto take = [&](const NumberSummary& block, std::int64_t, std::int64_t) {
    sum.add(block);
    return true;
  };
  firstWhere(first, last, take, [&](std::int64_t row) {
    sum.add((*this)[row]);
    return false;
  });
  return sum;
}

NumberSummary NumberSeries::extremes(std::int64_t first, std::int64_t last) const {
  NumberSummary sum;
  const auto take = [&](const NumberSummary& block, std::int64_t, std::int64_t) {
    sum.addExtremes(block);
    return true;
  };
  firstWhere(first, last, take, [&](std::int64_t row) {
    const double number = (*this)[row];
    if (!std::isfinite(number)) return false;
    ++sum.count;
    sum.lowest = std::min(sum.lowest, number);
    sum.highest = std::max(sum.highest, number);
    return false;
  });
  return sum;
}

}  // namespace tarnlog
