#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "platform/ferrox3/Session.h"

namespace tarnlog {

/// The least and the greatest number that each item has had since the start of the acquisition or the last
/// reset, each with the host's text of it, so that unit and decimals agree with the value shown.
class ValueExtremes {
 public:
  struct Extreme {
    double number = std::numeric_limits<double>::quiet_NaN();  ///< none yet
    std::string text;
  };
  struct Range {
    Extreme least;
    Extreme greatest;
  };

  void begin(std::size_t items) { ranges_.assign(items, {}); }
  /// Forgets the numbers; the texts keep their memory.
  void reset();

  /// Takes the item's value in. True when that changed its range. A value that is no finite number, or that
  /// cannot be read, changes nothing.
  bool note(std::size_t item, const ferrox3::DataItem& data);
  /// Whether the item has had a number.
  bool known(std::size_t item) const;
  const Range& of(std::size_t item) const { return ranges_[item]; }

 private:
  std::vector<Range> ranges_;
};

}  // namespace tarnlog
