#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "apps/tarn-record/ShownRecord.h"

namespace tarnlog::record {

/// Facts, marks, a table of figures and how long labels stood, for people. Where the table is wider than the
/// terminal, each datum has lines of its own; none: it is no terminal.
std::string showText(const ShownRecord& shown, std::optional<std::size_t> width);

/// "61.5 s", "12 min 3.4 s", "2 h 0 min 7 s"
std::string durationText(double seconds);
/// A measured number: a whole one in full, others with so many digits.
std::string measureText(double value, int digits);

}  // namespace tarnlog::record
