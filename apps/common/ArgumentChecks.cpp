#include "apps/common/ArgumentChecks.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "apps/common/NearestName.h"
#include "platform/text/TakeUntil.h"
#include "platform/text/Told.h"

namespace tarnlog {

namespace {

/// What a validator is for stands in its name.
constexpr std::string_view kKind = "kind:";
constexpr std::string_view kChoices = "choices:";

/// The rest of the name that begins so; empty when no validator of the option has one.
std::string behind(CLI::Option& option, std::string_view beginning) {
  for (int i = 0;; ++i) try {
      const std::string& name = option.get_validator(i)->get_name();
      if (name.starts_with(beginning)) return name.substr(beginning.size());
    } catch (const CLI::OptionNotFound&) {
      return {};
    }
}

}  // namespace

CLI::Validator wholeNumber(int least, int most) {
  return {[least, most](const std::string& text) {
            int value = 0;
            const char* const end = text.data() + text.size();
            const auto read = std::from_chars(text.data(), end, value);
            if (read.ec == std::errc() && read.ptr == end && value >= least && value <= most)
              return std::string();
            return Told::tr("{} is not a whole number from {} to {}", text, least, most);
          },
          ""};
}

CLI::Validator number() {
  return {[](const std::string& text) {
            double value = 0;
            const char* const end = text.data() + text.size();
            const auto read = std::from_chars(text.data(), end, value);
            if (read.ec == std::errc() && read.ptr == end && std::isfinite(value)) return std::string();
            return Told::tr("{} is not a number, expected one like 12.5", text);
          },
          ""};
}

CLI::Validator oneOf(const std::vector<std::string>& choices) {
  return {[choices](const std::string& text) {
            if (std::find(choices.begin(), choices.end(), text) != choices.end()) return std::string();
            const std::string all = fmt::format("{}", fmt::join(choices, ", "));
            const std::string nearest = nearestName(choices, text);
            return nearest.empty() ? Told::tr("{} is none of {}", text, all)
                                   : Told::tr("{} is none of {}, did you mean {}?", text, all, nearest);
          },
          "", std::string(kChoices) + fmt::format("{}", fmt::join(choices, ","))};
}

CLI::Validator noStandardStream() {
  return {[](const std::string& text) {
            return text == "-" ? Told::tr("expected a file; {} is none here", text) : std::string();
          },
          ""};
}

CLI::Validator isA(ValueKind kind) {
  return {[](const std::string&) { return std::string(); }, "",
          std::string(kKind) + std::to_string(static_cast<int>(kind))};
}

ValueKind valueKindOf(CLI::Option& option) {
  const std::string kind = behind(option, kKind);
  return kind.empty() ? ValueKind::Text : static_cast<ValueKind>(std::stoi(kind));
}

std::vector<std::string> choicesOf(CLI::Option& option) {
  const std::string all = behind(option, kChoices);
  std::vector<std::string> choices;
  for (std::string_view left = all; !left.empty();) choices.emplace_back(takeUntil(left, ','));
  return choices;
}

}  // namespace tarnlog
