#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// A datum that is published, and how often.
struct PublishedDatum {
  std::string name;  ///< DATA, REQUEST/DATA or ECU/REQUEST/DATA
  std::optional<std::chrono::milliseconds> every;

  bool operator==(const PublishedDatum&) const = default;
};

/// What of a recording is published: transfer may cost money.
struct PublishSelection {
  std::vector<PublishedDatum> data;    ///< none: all
  std::chrono::milliseconds every{0};  ///< of those without their own; 0: each value
};

/// Reads "ECU/REQUEST/DATA" or "ECU/REQUEST/DATA=MS". Raises a TarnError that says what is wrong.
PublishedDatum parsePublishedDatum(std::string_view text);
/// As it is read.
std::string textOf(const PublishedDatum& datum);

/// Lets one value through in each span of time, the first. Spans count from a file's zero, so whoever reads
/// the file again finds the same values.
class PublishPace {
 public:
  explicit PublishPace(std::chrono::milliseconds every) : every_(every) {}

  /// `time` is in seconds; in the order of the answers.
  bool isDue(double time) {
    if (every_.count() == 0) return true;
    const auto span = static_cast<std::int64_t>(time * 1000 / static_cast<double>(every_.count()));
    if (span == last_) return false;
    last_ = span;
    return true;
  }

 private:
  std::chrono::milliseconds every_;
  std::int64_t last_ = -1;
};

}  // namespace tarnlog
