#pragma once

#include "platform/settings/OptionalSettings.h"

namespace tarnlog {

/// Whether a measurement file is written beside each record. The user's choice for all configurations; off at
/// first.
class MeasurementChoice {
 public:
  explicit MeasurementChoice(SettingsStore* settings) : settings_(settings) {}

  bool on() const { return settings_.read(kName) == "1"; }
  void set(bool on) { settings_.write(kName, on ? "1" : "0"); }

 private:
  static constexpr char kName[] = "MeasurementData";

  OptionalSettings settings_;
};

}  // namespace tarnlog
