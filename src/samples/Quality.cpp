#include "samples/Quality.h"

#include <fmt/format.h>

namespace tarnlog {

namespace {

double seconds(std::int64_t microseconds) { return static_cast<double>(microseconds) / 1e6; }

/// At most so many decimals, without zeros at the end.
std::string plain(double value, int decimals) {
  std::string text = fmt::format("{:.{}f}", value, decimals);
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string counted(std::uint64_t count, const char* one) {
  return fmt::format("{} {}{}", count, one, count == 1 ? "" : "s");
}

std::string answersText(const SampleCounts& counts) {
  std::string what;
  const auto add = [&](std::uint64_t count, const char* word) {
    if (count > 0) what += fmt::format("{}{} {}", what.empty() ? "" : ", ", count, word);
  };
  add(counts.late, "late");
  add(counts.refused, "refused");
  add(counts.lost, "lost");
  return fmt::format("{} of {}{}", counts.received, counted(counts.expected(), "answer"),
                     what.empty() ? what : " (" + what + ")");
}

std::string ratesText(const CycleRates::Rates& rates, const char* what) {
  return fmt::format("{} {}/s ({} to {})", plain(rates.median, 1), what, plain(rates.least, 1),
                     plain(rates.most, 1));
}

std::string gapText(const SampleCounts& counts, std::int64_t zero) {
  if (counts.gaps == 0) return "no gap";
  const std::string longest = fmt::format("{} s at {} s", plain(seconds(counts.longestGap), 2),
                                          plain(seconds(counts.longestGapFrom - zero), 2));
  return counts.gaps == 1 ? "a gap of " + longest
                          : fmt::format("{} gaps, the longest {}", counts.gaps, longest);
}

std::string stepsText(const SampleCounts& counts) {
  if (counts.clockSteps == 0) return "no clock step";
  return fmt::format("{} by {} s", counted(counts.clockSteps, "clock step"),
                     plain(static_cast<double>(counts.clockStepped) / 1e9, 3));
}

std::string rowsText(const Quality& quality) {
  if (!quality.rows) return {};
  const std::string rows = "; " + counted(*quality.rows, "row");
  return quality.rowsSynced ? fmt::format("{}, {} synced", rows, *quality.rowsSynced) : rows;
}

std::string sentText(const std::vector<ferrox3::ServiceCount>& services) {
  std::string text;
  for (const ferrox3::ServiceCount& service : services)
    text += fmt::format("{}{} {}", text.empty() ? "; sent so far: " : ", ", service.name, service.sent);
  return text;
}

}  // namespace

void SampleCounts::add(const SampleCounts& more) {
  received += more.received;
  late += more.late;
  refused += more.refused;
  lost += more.lost;
  gaps += more.gaps;
  if (more.longestGap > longestGap) {
    longestGap = more.longestGap;
    longestGapFrom = more.longestGapFrom;
  }
  clockSteps += more.clockSteps;
  clockStepped += more.clockStepped;
}

std::string qualityText(const Quality& quality) {
  return fmt::format("{}; {}; {}; {}{}{}", answersText(quality.counts),
                     ratesText(quality.cyclesPerSecond, "cycles"), gapText(quality.counts, quality.zero),
                     stepsText(quality.counts), rowsText(quality), sentText(quality.servicesSent));
}

std::string rowQualityText(const Quality& quality) {
  return fmt::format("{}; {}; {}", counted(quality.rows.value_or(0), "row"),
                     ratesText(quality.cyclesPerSecond, "rows"), gapText(quality.counts, quality.zero));
}

std::vector<QualityFigure> qualityFigures(const Quality& quality) {
  const SampleCounts& counts = quality.counts;
  std::vector<QualityFigure> figures{
      {"answers expected", counts.expected()},
      {"answers received", counts.received},
      {"answers late", counts.late},
      {"answers refused", counts.refused},
      {"answers lost", counts.lost},
      {"cycles per second, least", quality.cyclesPerSecond.least},
      {"cycles per second, median", quality.cyclesPerSecond.median},
      {"cycles per second, most", quality.cyclesPerSecond.most},
      {"gaps", counts.gaps},
      {"longest gap", seconds(counts.longestGap)},
      {"longest gap at", counts.gaps == 0 ? 0 : seconds(counts.longestGapFrom - quality.zero)},
      {"clock steps", counts.clockSteps},
      {"clock stepped by", static_cast<double>(counts.clockStepped) / 1e9},
  };
  if (quality.rows) figures.push_back({"rows", *quality.rows});
  if (quality.rowsSynced) figures.push_back({"rows synced", *quality.rowsSynced});
  for (const ferrox3::ServiceCount& service : quality.servicesSent)
    figures.push_back({"sent " + service.name, service.sent});
  return figures;
}

}  // namespace tarnlog
