#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/link/elm/ElmConsole.h"
#include "host/link/elm/ElmRate.h"

namespace tarnlog::host {

/// Steps of the adapter's time-out for an ECU's answer (ATST); their number is one byte.
inline constexpr std::chrono::milliseconds kElmTimeoutStep{4};
/// What adapters start with: 50 steps, 200 ms.
inline constexpr int kElmDefaultTimeout = 50;
inline constexpr int kElmLongestTimeout = 255;

/// "ATST" and its steps.
std::string elmTimeoutCommand(int steps);

enum class ElmReset : std::uint8_t {
  restart,   ///< ATZ: as if its supply had been switched on
  defaults,  ///< ATD: for an adapter that ends the connection when it restarts
};

/// Resets the adapter whatever it is at and makes it terse: no echo, no blanks, CR alone behind a line,
/// headers shown. Settings that an adapter does not know stay as they are. Raises the rate of the line, as
/// far as that may be. Gives the adapter's name. TarnError when nothing answers like one.
std::string setUpElm(ElmConsole& console, ElmRate& rate, ElmReset kind);

inline constexpr std::string_view kNoPrompt = "no prompt";

/// Raises a TarnError for a mechanic: what is wrong between adapter and car, to judge by the adapter's words
/// (or kNoPrompt), and the voltage at the socket where it can measure that.
[[noreturn]] void failWithoutEcu(ElmConsole& console, std::string_view why);

}  // namespace tarnlog::host
