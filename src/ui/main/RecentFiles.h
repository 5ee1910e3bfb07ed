#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/settings/OptionalSettings.h"

namespace tarnlog {

/// The files that were opened last, newest first, kept in the settings under one name. Each call reads the
/// settings, so that two programs add to one list. Settings that cannot be read or written are an empty list
/// that stays empty: forgetting a file must not keep anybody from opening it. `settings` must outlive it.
class RecentFiles {
 public:
  static constexpr std::size_t kMost = 8;

  RecentFiles(SettingsStore& settings, std::string name);

  std::vector<std::string> paths() const;
  /// Puts the file first. Paths should be absolute.
  void add(const std::string& path);
  /// For a file that is gone.
  void remove(const std::string& path);

 private:
  void store(const std::vector<std::string>& paths);

  OptionalSettings settings_;
  std::string name_;
};

}  // namespace tarnlog
