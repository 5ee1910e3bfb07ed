#pragma once

#include <cstddef>
#include <vector>

#include "acquisition/AcqScreen.h"
#include "acquisition/RollingBuffer.h"
#include "acquisition/ValueExtremes.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog {

/// The live values as a list: a row is written when its value changed, at the next refresh after the change.
/// Its extremes are those of all cycles, refreshed or not.
class ValueList {
 public:
  explicit ValueList(AcqScreen& screen) : screen_(screen) {}

  /// One row per item; the rows themselves are on the screen already.
  void begin(std::vector<ferrox3::DataItem*> items);
  void clear();

  /// After each polling cycle: remembers which rows differ from the cycle before, refreshed or not.
  void noteCycle(const RollingBuffer& current);
  /// Writes the rows that are owed, with the host's value text.
  void refresh();
  /// Extremes count from the next cycle on.
  void resetExtremes();

 private:
  bool write(std::size_t item);
  void writeExtremes(std::size_t item);

  AcqScreen& screen_;
  std::vector<ferrox3::DataItem*> items_;
  std::vector<char> owed_;
  ValueExtremes extremes_;
  std::vector<char> extremesOwed_;
};

}  // namespace tarnlog
