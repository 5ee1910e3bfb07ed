#pragma once

#include "platform/base/TarnError.h"
#include "platform/settings/SettingsStore.h"

namespace tarnlog::test {

/// Settings that can be neither read nor written.
class BrokenStore : public SettingsStore {
  std::optional<std::string> read(const std::string&) const override { throw TarnError(1, "", "broken"); }
  void write(const std::string&, const std::string&) override { throw TarnError(1, "", "broken"); }
};

}  // namespace tarnlog::test
