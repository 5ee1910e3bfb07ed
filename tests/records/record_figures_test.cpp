#include "records/RecordFigures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace tarnlog {
namespace {

/// Numbers that stay, jump, count and are missing for a while, as signals do.
struct Signal {
  TableRecording recording;
  std::vector<double> numbers;
  std::vector<double> times;

  Signal(unsigned seed, std::int64_t rows) {
    std::mt19937 random(seed);
    const auto below = [&](unsigned count) { return static_cast<unsigned>(random() % count); };
    TableGroup& group = recording.groups.emplace_back();
    TableColumn& column = group.columns.emplace_back();
    double time = -1;
    double number = 0;
    for (unsigned left = 0, kind = 0; static_cast<std::int64_t>(numbers.size()) < rows; --left) {
      if (left == 0) {
        left = 1 + below(below(3) == 0 ? 20000 : 300);
        kind = below(5);
      }
      if (kind < 2) number += kind == 0 ? 0.25 * below(5) - 0.5 : 0.0;
      time += below(4) * 0.01;
      numbers.push_back(kind == 4 ? std::nan("") : number);
      times.push_back(time);
      group.times.append(time);
      column.numbers.append(numbers.back());
    }
  }

  const TableGroup& group() const { return recording.groups[0]; }
  const TableColumn& column() const { return group().columns[0]; }
  bool has(std::size_t row) const { return !std::isnan(numbers[row]); }
};

struct Plain {
  RecordFigures figures;
  double median = std::nan("");
  double above = 0;
  std::optional<std::int64_t> step;
};

/// One number after another, as anybody would.
Plain plainly(const Signal& signal, const TimeSpan& span, double level) {
  Plain plain;
  std::vector<double> found;
  double largest = 0;
  for (std::size_t i = 0; i < signal.numbers.size(); ++i) {
    const double number = signal.numbers[i];
    if (i + 1 < signal.numbers.size() && number > level)
      plain.above +=
          std::max(0.0, std::min(signal.times[i + 1], span.till) - std::max(signal.times[i], span.from));
    if (!signal.has(i) || signal.times[i] < span.from || signal.times[i] > span.till) continue;
    if (found.empty() || number < plain.figures.lowest) plain.figures.lowestAt = signal.times[i];
    if (found.empty() || number < plain.figures.lowest) plain.figures.lowest = number;
    if (found.empty() || number > plain.figures.highest) plain.figures.highestAt = signal.times[i];
    if (found.empty() || number > plain.figures.highest) plain.figures.highest = number;
    if (!found.empty() && std::abs(number - found.back()) > largest) {
      largest = std::abs(number - found.back());
      plain.step = static_cast<std::int64_t>(i);
    }
    found.push_back(number);
  }
  plain.figures.count = static_cast<std::int64_t>(found.size());
  if (found.empty()) return plain;
  long double sum = 0;
  for (const double number : found) sum += number;
  const long double mean = sum / static_cast<long double>(found.size());
  long double squares = 0;
  for (const double number : found) squares += (number - mean) * (number - mean);
  plain.figures.mean = static_cast<double>(mean);
  plain.figures.deviation =
      static_cast<double>(std::sqrt(squares / static_cast<long double>(found.size() - 1)));
  std::sort(found.begin(), found.end());
  plain.median = (found[found.size() / 2] + found[(found.size() - 1) / 2]) / 2;
  return plain;
}

void expectSame(double measured, double plain) {
  if (std::isnan(plain))
    EXPECT_TRUE(std::isnan(measured));
  else
    EXPECT_NEAR(measured, plain, 1e-9 * (1 + std::abs(plain)));
}

TEST(RecordFigures, AreThoseOfAPlainLoop) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const Signal signal(seed, 1 + static_cast<std::int64_t>(random() % (seed % 2 == 0 ? 400 : 60000)));
    const double length = signal.times.back() + 1;
    const auto anywhere = [&] { return -1 + length * static_cast<double>(random() % 1000) / 900; };
    const double a = anywhere();
    const double b = anywhere();
    const TimeSpan span = seed == 0 ? TimeSpan{-1, length} : TimeSpan{std::min(a, b), std::max(a, b)};
    const double level = signal.numbers[random() % signal.numbers.size()];
    const Plain plain = plainly(signal, span, level);
    const RecordFigures figures = figuresOf(signal.group(), signal.column(), span);
    EXPECT_EQ(figures.count, plain.figures.count);
    expectSame(figures.lowest, plain.figures.lowest);
    expectSame(figures.lowestAt, plain.figures.lowestAt);
    expectSame(figures.highest, plain.figures.highest);
    expectSame(figures.highestAt, plain.figures.highestAt);
    expectSame(figures.mean, plain.figures.mean);
    expectSame(figures.deviation, plain.figures.deviation);
    MedianSearch median(signal.group(), signal.column(), span);
    while (!median.step(1000)) {
    }
    expectSame(median.median(), plain.median);
    expectSame(secondsAbove(signal.recording, signal.group(), signal.column(), level, span), plain.above);
    EXPECT_EQ(largestStep(signal.group(), signal.column(), span), plain.step);
  }
}

/// Going on from one to the next, and back, finds all that a plain loop finds.
template <class Next, class Previous>
void expectFound(const std::vector<std::int64_t>& plain, std::int64_t rows, Next next, Previous previous) {
  std::vector<std::int64_t> forwards;
  for (auto at = next(-1); at; at = next(*at)) forwards.push_back(*at);
  EXPECT_EQ(forwards, plain);
  std::vector<std::int64_t> backwards;
  for (auto at = previous(rows); at; at = previous(*at)) backwards.insert(backwards.begin(), *at);
  EXPECT_EQ(backwards, plain);
}

TEST(RecordFigures, FindCrossingsAndChanges) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    SCOPED_TRACE(seed);
    Signal signal(seed, seed % 2 == 0 ? 500 : 30000);
    const TableColumn& column = signal.column();
    const auto rows = static_cast<std::int64_t>(signal.numbers.size());
    for (const std::int32_t edge : {1, -1, 0}) {
      const LevelCrossing crossing{edge, signal.numbers[seed]};
      std::vector<std::int64_t> plain;
      std::vector<std::int64_t> changes;
      std::optional<double> before;
      for (std::size_t i = 0; i < signal.numbers.size(); ++i) {
        if (!signal.has(i)) continue;
        if (before && crossing.crosses(*before, signal.numbers[i]))
          plain.push_back(static_cast<std::int64_t>(i));
        if (before && *before != signal.numbers[i]) changes.push_back(static_cast<std::int64_t>(i));
        before = signal.numbers[i];
      }
      expectFound(
          plain, rows, [&](std::int64_t at) { return nextCrossing(column, crossing, at); },
          [&](std::int64_t at) { return previousCrossing(column, crossing, at); });
      expectFound(
          changes, rows, [&](std::int64_t at) { return nextChange(column, at); },
          [&](std::int64_t at) { return previousChange(column, at); });
    }
  }
}

/// Nothing is held over a gap, nor by a row without a number.
TEST(RecordFigures, KnowGapsLabelsAndTexts) {
  TableRecording recording;
  TableGroup& group = recording.groups.emplace_back();
  TableColumn& column = group.columns.emplace_back();
  column.about.labels = {{0, 1, "off"}, {2, 3, "on"}};
  column.texts.append("broken");
  const double none = std::nan("");
  const std::vector<double> numbers = {2, 3, none, none, none, 1, 0, 2};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    group.times.append(static_cast<double>(i));
    column.numbers.append(numbers[i]);
    if (i == 3 || i == 4) column.textIds.set(static_cast<std::int64_t>(i), 1);
  }
  recording.marks = {{RecordNote::Kind::Gap, 0.5, 0.75, 0, ""}, {RecordNote::Kind::Gap, 0.25, 0.6, 0, ""}};
  EXPECT_DOUBLE_EQ(secondsAbove(recording, group, column, 1.5, {0, 7}), 1.5);
  EXPECT_DOUBLE_EQ(secondsAbove(recording, group, column, 1.5, {0.5, 1.5}), 0.75);
  expectFound(
      {3, 5, 7}, 8, [&](std::int64_t at) { return nextChange(column, at); },
      [&](std::int64_t at) { return previousChange(column, at); });
  EXPECT_EQ(column.labelOf(1), "on");
  EXPECT_EQ(column.labelOf(4), "broken");
  EXPECT_EQ(column.labelOf(2), "");
  EXPECT_EQ(group.rowAt(-0.1), std::nullopt);
  EXPECT_EQ(group.rowAt(6.9), 6);
  EXPECT_EQ(group.firstFrom(6.9), 7);
}

}  // namespace
}  // namespace tarnlog
