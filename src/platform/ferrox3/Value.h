#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <variant>
#include <vector>

namespace tarnlog::ferrox3 {

using Bytes = std::vector<std::uint8_t>;

/// The current value of a data item. A double NaN stands for no value (none yet, or none available), whatever
/// the type of the item.
using Value = std::variant<std::int32_t, double, std::string, Bytes>;

/// The value as a number; NaN for texts and byte arrays.
inline double numericValue(const Value& value) {
  if (const auto* const number = std::get_if<double>(&value)) return *number;
  if (const auto* const number = std::get_if<std::int32_t>(&value)) return *number;
  return std::numeric_limits<double>::quiet_NaN();
}

/// Value-type codes.
inline constexpr std::int32_t kInteger = 3;
inline constexpr std::int32_t kDouble = 5;
inline constexpr std::int32_t kString = 8;
inline constexpr std::int32_t kByteArray = 8209;

}  // namespace tarnlog::ferrox3
