#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "records/Record.h"

/// What exports of records have in common.
namespace tarnlog {

/// Which part of a record goes out, and how.
struct ExportChoice {
  std::optional<double> from;     ///< seconds, included
  std::optional<double> till;     ///< seconds, included
  std::vector<std::string> data;  ///< see `isCalled`; empty: all
  bool utc = false;               ///< times as UTC; each recording must have its beginning then

  bool takes(double time) const { return (!from || time >= *from) && (!till || time <= *till); }
  bool takes(const RecordColumn& column) const;
};

using ExportOutput = std::function<void(std::string_view bytes)>;

/// Appends a number with ".": as the file writes it; where it holds its bits, so that it reads back the same,
/// or with 15 digits where it was scaled. Infinities as `appendNumber`.
void appendRecordNumber(std::string& out, const RecordValue& value, bool scaled);
/// Seconds, with at most 15 digits.
void appendRecordTime(std::string& out, double time, std::string_view text);
/// "2026-11-16T19:05:08.130000Z"
void appendIsoTime(std::string& out, std::int64_t utcNanoseconds);
std::int64_t utcOf(const RecordHead& head, double time);

}  // namespace tarnlog
