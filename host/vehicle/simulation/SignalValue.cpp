#include "host/vehicle/simulation/SignalValue.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace tarnlog::host {
namespace {

/// Time since the start of the current period; a period that began before 0 counts as well.
double phase(double seconds, double period) {
  const double rest = std::fmod(seconds, period);
  return rest < 0 ? rest + period : rest;
}

/// The row of the table that holds at this time.
std::size_t rowAt(const Signal& table, double seconds) {
  std::size_t row = 0;
  if (table.times.empty()) {
    const double exact = std::min(seconds / table.interval, static_cast<double>(table.values.size()));
    row = static_cast<std::size_t>(std::max(exact, 0.0));
  } else {
    const auto next = std::upper_bound(table.times.begin(), table.times.end(), seconds);
    row = next == table.times.begin() ? 0 : static_cast<std::size_t>(next - table.times.begin()) - 1;
  }
  return std::min(row, table.values.size() - 1);
}

double timeOf(const Signal& table, std::size_t row) {
  return table.times.empty() ? static_cast<double>(row) * table.interval : table.times[row];
}

double tableValue(const Signal& table, double seconds) {
  const double time = table.repeats ? phase(seconds, table.period) : seconds;
  const std::size_t row = rowAt(table, time);
  const double value = table.values[row];
  if (!table.interpolates || row + 1 == table.values.size()) return value;
  const double begin = timeOf(table, row);
  const double share = std::clamp((time - begin) / (timeOf(table, row + 1) - begin), 0.0, 1.0);
  return value + (table.values[row + 1] - value) * share;
}

}  // namespace

double signalValue(const Signal& signal, double seconds) {
  const double period = signal.period;
  switch (signal.kind) {
    case Signal::Kind::constant:
      break;
    case Signal::Kind::ramp: {
      const double share = signal.repeats ? phase(seconds, period) / period : std::min(seconds / period, 1.0);
      return signal.first + (signal.second - signal.first) * share;
    }
    case Signal::Kind::sine:
      return signal.first +
             signal.second * std::sin(2 * std::numbers::pi * phase(seconds - signal.delay, period) / period);
    case Signal::Kind::square:
      return phase(seconds - signal.delay, period) < period / 2 ? signal.first : signal.second;
    case Signal::Kind::table:
      return tableValue(signal, seconds);
  }
  return signal.first;
}

}  // namespace tarnlog::host
