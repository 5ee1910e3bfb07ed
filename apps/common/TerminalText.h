#pragma once

#include <string>
#include <string_view>

/// Texts from a vehicle, an adapter or a file for the terminal: what would act on it stands there as digits,
/// a control character as "\u001B", a byte that is no UTF-8 as "\x9B".
namespace tarnlog {

/// Of one line or a part of it: line ends and tabs too.
std::string printableLine(std::string_view text);

/// Of several lines: line ends and tabs stay.
std::string printableText(std::string_view text);

}  // namespace tarnlog
