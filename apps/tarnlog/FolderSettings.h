#pragma once

#include <optional>
#include <string>

#include "platform/settings/SettingsStore.h"

namespace tarnlog {

/// The user's settings, but with a folder for the files of new configurations until another one is chosen.
/// `settings` must outlive it.
class FolderSettings : public SettingsStore {
 public:
  FolderSettings(SettingsStore& settings, std::optional<std::string> folder)
      : settings_(settings), folder_(std::move(folder)) {}

  std::optional<std::string> read(const std::string& name) const override {
    return folder_ && name == kFolderName ? folder_ : settings_.read(name);
  }
  void write(const std::string& name, const std::string& value) override {
    if (name == kFolderName) {
      // What every change on the screen repeats was not chosen.
      if (folder_ == value) return;
      folder_.reset();
    }
    settings_.write(name, value);
  }

 private:
  static constexpr const char* kFolderName = "PathName";

  SettingsStore& settings_;
  std::optional<std::string> folder_;
};

}  // namespace tarnlog
