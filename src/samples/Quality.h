#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/ferrox3/Session.h"
#include "samples/CycleRates.h"

namespace tarnlog {

/// What came of the requests.
struct SampleCounts {
  std::uint64_t received = 0;  ///< answers with data
  /// Of those: came more than 20 ms after the time that this request's answers usually take, and after twice
  /// that time.
  std::uint64_t late = 0;
  std::uint64_t refused = 0;
  std::uint64_t lost = 0;  ///< no answer, or the request failed
  std::uint64_t gaps = 0;
  std::int64_t longestGap = 0;      ///< microseconds
  std::int64_t longestGapFrom = 0;  ///< as sample times; of the first of equal ones
  std::uint64_t clockSteps = 0;
  std::int64_t clockStepped = 0;  ///< by all of them, nanoseconds

  std::uint64_t expected() const { return received + refused + lost; }
  void add(const SampleCounts& more);
};

/// How well a recording went, or an acquisition.
struct Quality {
  SampleCounts counts;
  CycleRates::Rates cyclesPerSecond;
  std::int64_t zero = 0;                    ///< the sample time from which people count
  std::optional<std::uint64_t> rows;        ///< handed to the system; none: nobody told
  std::optional<std::uint64_t> rowsSynced;  ///< on the disk; none: nobody told
  /// By then, since the way to the vehicle was made; no more than the host told.
  std::vector<ferrox3::ServiceCount> servicesSent;
  std::int64_t till = 0;  ///< the sample time of its end
};

/// One line of plain English, without its end: "1204 of 1210 answers (3 late, 2 refused, 4 lost); 30 cycles/s
/// (28 to 31); longest gap 1.2 s at 34.5 s; no clock step; 1205 rows, 1205 synced; sent so far: ..."
std::string qualityText(const Quality& quality);

/// The same in the user's language.
std::string toldQuality(const Quality& quality);

/// The same, in the user's language, of a record that tells rows, but not which answers were in them.
std::string rowQualityText(const Quality& quality);

/// The same for programs; times and durations in seconds. "answers expected", ..., "sent TesterPresent".
struct QualityFigure {
  std::string name;
  std::variant<std::uint64_t, double> value;
};
std::vector<QualityFigure> qualityFigures(const Quality& quality);

}  // namespace tarnlog
