#pragma once

#include <map>
#include <optional>
#include <string>

namespace tarnlog {

/// A per-user store of named texts that outlives the program.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  /// None when absent. May raise.
  virtual std::optional<std::string> read(const std::string& name) const = 0;
  /// May raise; the stored values are then the old ones.
  virtual void write(const std::string& name, const std::string& value) = 0;
};

/// Forgets at the end of the program.
class MemorySettingsStore : public SettingsStore {
 public:
  std::optional<std::string> read(const std::string& name) const override {
    const auto found = values_.find(name);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
  }
  void write(const std::string& name, const std::string& value) override { values_[name] = value; }

 private:
  std::map<std::string, std::string> values_;
};

}  // namespace tarnlog
