#pragma once

#include <optional>
#include <string>

#include "platform/base/TarnError.h"
#include "platform/settings/SettingsStore.h"

namespace tarnlog {

/// Settings that nobody depends on. There may be no store at all; one that cannot be read or written is as
/// good as none.
class OptionalSettings {
 public:
  /// The store, when there is one, outlives it.
  explicit OptionalSettings(SettingsStore* store) : store_(store) {}

  std::optional<std::string> read(const std::string& name) const {
    std::optional<std::string> value;
    if (store_ != nullptr) skipOnFailure([&] { value = store_->read(name); });
    return value;
  }
  void write(const std::string& name, const std::string& value) {
    if (store_ != nullptr) skipOnFailure([&] { store_->write(name, value); });
  }

 private:
  SettingsStore* store_;
};

}  // namespace tarnlog
