#include "apps/common/ArgumentChecks.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "apps/common/NearestName.h"

namespace tarnlog {

CLI::Validator wholeNumber(int least, int most) {
  return {[least, most](const std::string& text) {
            int value = 0;
            const char* const end = text.data() + text.size();
            const auto read = std::from_chars(text.data(), end, value);
            if (read.ec == std::errc() && read.ptr == end && value >= least && value <= most)
              return std::string();
            return fmt::format("{} is not a whole number from {} to {}", text, least, most);
          },
          ""};
}

CLI::Validator number() {
  return {[](const std::string& text) {
            double value = 0;
            const char* const end = text.data() + text.size();
            const auto read = std::from_chars(text.data(), end, value);
            if (read.ec == std::errc() && read.ptr == end && std::isfinite(value)) return std::string();
            return fmt::format("{} is not a number, expected one like 12.5", text);
          },
          ""};
}

CLI::Validator oneOf(const std::vector<std::string>& choices) {
  return {[choices](const std::string& text) {
            if (std::find(choices.begin(), choices.end(), text) != choices.end()) return std::string();
            const std::string all = fmt::format("{}", fmt::join(choices, ", "));
            const std::string nearest = nearestName(choices, text);
            return nearest.empty() ? fmt::format("{} is none of {}", text, all)
                                   : fmt::format("{} is none of {}, did you mean {}?", text, all, nearest);
          },
          ""};
}

CLI::Validator noStandardStream() {
  return {[](const std::string& text) {
            return text == "-" ? fmt::format("expected a file; {} is none here", text) : std::string();
          },
          ""};
}

}  // namespace tarnlog
