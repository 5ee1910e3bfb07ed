#include "publish/PublishSelection.h"

#include <charconv>

#include "platform/base/TarnError.h"

namespace tarnlog {

PublishedDatum parsePublishedDatum(std::string_view text) {
  constexpr std::int64_t kLongest = 86'400'000;  // a day
  PublishedDatum datum{std::string(text), {}};
  const std::size_t sign = text.rfind('=');
  const std::string_view digits = text.substr(sign == std::string_view::npos ? text.size() : sign + 1);
  // A name may have such a sign itself.
  if (!digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos) {
    std::int64_t every = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), every);
    if (read.ec != std::errc() || every > kLongest)
      throw TarnError(1, "PublishSelection", std::string(text) + ": expected 0 to 86400000 milliseconds");
    datum = {std::string(text.substr(0, sign)), std::chrono::milliseconds(every)};
  }
  if (datum.name.empty())
    throw TarnError(1, "PublishSelection", std::string(text) + ": no name, expected ECU/REQUEST/DATA");
  return datum;
}

std::string textOf(const PublishedDatum& datum) {
  return datum.every ? datum.name + "=" + std::to_string(datum.every->count()) : datum.name;
}

}  // namespace tarnlog
