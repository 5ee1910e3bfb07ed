#pragma once

#include <map>
#include <string>

#include "platform/files/FileSystem.h"
#include "platform/settings/SettingsStore.h"

namespace tarnlog {

/// Settings in a text file of "Name=value" lines (UTF-8). The file is read at each call and replaced by
/// renaming, so two programs share it without tearing it. A missing file holds nothing; a broken one raises
/// at reading.
class FileSettingsStore : public SettingsStore {
 public:
  FileSettingsStore(FileSystem& files, std::string path);

  /// The user's settings file: $XDG_CONFIG_HOME or ~/.config, then tarnlog2001/settings; its folder is made
  /// when missing.
  static std::string defaultPath();

  std::optional<std::string> read(const std::string& name) const override;
  void write(const std::string& name, const std::string& value) override;

 private:
  std::map<std::string, std::string> readAll() const;

  FileSystem& files_;
  std::string path_;
};

}  // namespace tarnlog
