#include "apps/tarn-record/TriggerText.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <string_view>

#include "apps/common/BadInput.h"
#include "apps/tarn-record/FileOptions.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

template <class Number>
std::optional<Number> whole(std::string_view text) {
  Number value{};
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return value;
}

/// "30s", "30 s"
std::optional<std::int32_t> secondsOf(std::string_view text) {
  if (!text.ends_with('s')) return std::nullopt;
  text.remove_suffix(1);
  const auto seconds = whole<std::int32_t>(trimmed(text));
  return seconds && *seconds >= 1 && *seconds <= kLongestSeconds ? seconds : std::nullopt;
}

[[noreturn]] void refuse(const char* option, const std::string& text, bool timePossible) {
  if (timePossible)
    throw BadInput(
        Told::tr("{} {}: expected ECU/REQUEST/DATA>LEVEL, ECU/REQUEST/DATA<LEVEL, seconds like 30s, or "
                 "manual",
                 option, text));
  throw BadInput(
      Told::tr("{} {}: expected ECU/REQUEST/DATA>LEVEL, ECU/REQUEST/DATA<LEVEL, or manual", option, text));
}

}  // namespace

TriggerText parseTrigger(const char* option, const std::string& text, bool timePossible) {
  if (text == "manual") return {};
  if (timePossible)
    if (const auto seconds = secondsOf(text)) return {.type = oTarnTrigger::kTime, .seconds = seconds};
  const std::size_t at = text.find_last_of("<>");
  if (at == std::string::npos || at == 0) refuse(option, text, timePossible);
  std::string_view level = std::string_view(text).substr(at + 1);
  if (level.starts_with('=')) level.remove_prefix(1);
  const auto number = whole<double>(trimmed(level));
  if (!number || !std::isfinite(*number))
    throw BadInput(Told::tr("{} {}: expected a number behind {}, with \".\" and without a unit", option, text,
                            text[at]));
  return {.type = oTarnTrigger::kChannel,
          .path = std::string(trimmed(std::string_view(text).substr(0, at))),
          .edge = text[at] == '>' ? 1 : -1,
          .level = *number};
}

}  // namespace tarnlog::record
