#pragma once

#include <array>
#include <cstddef>

#include "platform/settings/OptionalSettings.h"

namespace tarnlog {

/// How the user wants the value list, kept from one run to the next. A setting that cannot be read, or is
/// none of those on offer, counts as not made.
class ListChoices {
 public:
  enum Switch : std::size_t {
    kMinimum,    ///< a column with the least value
    kMaximum,    ///< and one with the greatest
    kNearNames,  ///< columns no wider than what is in them
    kSwitches
  };

  /// Without a store nothing is kept.
  explicit ListChoices(SettingsStore* settings);

  /// Of the font, in percent.
  int zoom() const;
  void zoomIn();
  void zoomOut();
  void resetZoom();

  bool isOn(Switch choice) const { return on_[choice]; }
  void setOn(Switch choice, bool on);

 private:
  void setZoom(std::size_t step);

  OptionalSettings settings_;
  std::size_t zoom_;  ///< step
  std::array<bool, kSwitches> on_{};
};

}  // namespace tarnlog
