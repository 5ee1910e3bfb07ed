#include "samples/Quality.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "platform/text/Told.h"

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

std::string answersText(const SampleCounts& counts) {
  std::vector<std::string> what;
  if (counts.late > 0) what.push_back(Told::tr("{} late", counts.late));
  if (counts.refused > 0) what.push_back(Told::tr("{} refused", counts.refused));
  if (counts.lost > 0) what.push_back(Told::tr("{} lost", counts.lost));
  const std::string all = counts.expected() == 1
                              ? Told::tr("{} of 1 answer", counts.received)
                              : Told::tr("{} of {} answers", counts.received, counts.expected());
  return what.empty() ? all : fmt::format("{} ({})", all, fmt::join(what, ", "));
}

std::string cyclesText(const CycleRates::Rates& rates) {
  return Told::tr("{} cycles/s ({} to {})", plain(rates.median, 1), plain(rates.least, 1),
                  plain(rates.most, 1));
}

std::string rowRatesText(const CycleRates::Rates& rates) {
  return Told::tr("{} rows/s ({} to {})", plain(rates.median, 1), plain(rates.least, 1),
                  plain(rates.most, 1));
}

std::string gapText(const SampleCounts& counts, std::int64_t zero) {
  if (counts.gaps == 0) return Told::tr("no gap");
  const std::string length = plain(seconds(counts.longestGap), 2);
  const std::string at = plain(seconds(counts.longestGapFrom - zero), 2);
  return counts.gaps == 1 ? Told::tr("a gap of {} s at {} s", length, at)
                          : Told::tr("{} gaps, the longest {} s at {} s", counts.gaps, length, at);
}

std::string stepsText(const SampleCounts& counts) {
  if (counts.clockSteps == 0) return Told::tr("no clock step");
  const std::string by = plain(static_cast<double>(counts.clockStepped) / 1e9, 3);
  return counts.clockSteps == 1 ? Told::tr("1 clock step by {} s", by)
                                : Told::tr("{} clock steps by {} s", counts.clockSteps, by);
}

std::string rowsText(std::uint64_t rows) { return rows == 1 ? Told::tr("1 row") : Told::tr("{} rows", rows); }

std::string rowsText(const Quality& quality) {
  if (!quality.rows) return {};
  const std::string rows = "; " + rowsText(*quality.rows);
  return quality.rowsSynced ? rows + ", " + Told::tr("{} synced", *quality.rowsSynced) : rows;
}

std::string sentText(const std::vector<ferrox3::ServiceCount>& services) {
  std::vector<std::string> sent;
  sent.reserve(services.size());
  for (const ferrox3::ServiceCount& service : services)
    sent.push_back(fmt::format("{} {}", service.name, service.sent));
  return sent.empty() ? std::string()
                      : "; " + Told::tr("sent so far: {}", fmt::to_string(fmt::join(sent, ", ")));
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

std::string toldQuality(const Quality& quality) {
  return fmt::format("{}; {}; {}; {}{}{}", answersText(quality.counts), cyclesText(quality.cyclesPerSecond),
                     gapText(quality.counts, quality.zero), stepsText(quality.counts), rowsText(quality),
                     sentText(quality.servicesSent));
}

std::string qualityText(const Quality& quality) {
  const Told::English english;
  return toldQuality(quality);
}

std::string rowQualityText(const Quality& quality) {
  return fmt::format("{}; {}; {}", rowsText(quality.rows.value_or(0)), rowRatesText(quality.cyclesPerSecond),
                     gapText(quality.counts, quality.zero));
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
