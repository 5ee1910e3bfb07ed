#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/ForeignTable.h"

/// Cells of tables of other programs.
namespace tarnlog {

/// The cells of a line, one line at a time: without blanks around them and without quotes.
class ForeignCells {
 public:
  explicit ForeignCells(char separator) : separator_(separator) {}
  /// They lie in the line, which may be changed, and so may they. Of more than `kMostRecordColumns`, one
  /// more.
  std::span<const std::span<char>> split(char* begin, char* end);
  /// A cell began with a quote that is not closed; over several lines, a separator must follow that closes
  /// it.
  bool unclosed() const { return unclosed_; }

 private:
  char* takeCell(char* begin, char* end);
  char* takeQuoted(char* begin, char* end);
  bool isBlankHere(char c) const;

  char separator_;
  bool unclosed_ = false;
  std::vector<std::span<char>> cells_;
};

inline std::string_view view(std::span<const char> cell) { return {cell.data(), cell.size()}; }

/// Also with a plus, zeros in front, or nothing before the separator. None when it is no number, or not
/// finite.
std::optional<double> foreignNumber(std::string_view cell, char decimal);

/// A moment that a cell tells by itself.
struct ForeignMoment {
  double seconds = 0;  ///< since midnight, or since 1970 with a date
  bool hasDate = false;
};
/// "13:05:07.5", "2026-11-16T19:05:08.13Z", "16.11.2026 19:05": without its zone. None when it is no such.
std::optional<ForeignMoment> foreignMoment(std::string_view cell);

/// Name and unit of "Speed [km/h]" or "Speed (km/h)".
struct ForeignHeading {
  std::string name;
  std::string unit;
};
ForeignHeading foreignHeading(std::string_view text);
/// Seconds of a unit of time; none when it is none.
std::optional<double> secondsOf(std::string_view unit);

}  // namespace tarnlog
