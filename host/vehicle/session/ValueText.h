#pragma once

#include <optional>
#include <string>

namespace tarnlog::host {

/// What a value that is not available looks like.
inline constexpr char kNotAvailableText[] = "---";

/// Appends a number with this many decimals (0 to 15), or without them with up to 15 significant digits and
/// no trailing zeros. Never "-0".
void appendValueText(std::string& out, double value, const std::optional<int>& decimals,
                     char decimalSeparator);

}  // namespace tarnlog::host
