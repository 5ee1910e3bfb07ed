#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings/SettingsStore.h"
#include "ui/main/RecentFiles.h"

namespace tarnlog {

/// A vehicle and the way to it.
struct CarConnection {
  std::string vehicle;    ///< path of a description, or kObdCar
  std::string link = {};  ///< URL; empty: the link that the command line or the description names
  std::string name = {};  ///< of the car that was there last; empty: not known
};

/// The connections that were made last, newest first.
class RecentConnections {
 public:
  /// `settings` must outlive it.
  explicit RecentConnections(SettingsStore& settings) : entries_(settings, "RecentConnections") {}

  std::vector<CarConnection> all() const;
  /// Takes the place of an earlier one over the same link: who is there now is known only once it is open.
  void add(const CarConnection& connection);

 private:
  RecentFiles entries_;
};

}  // namespace tarnlog
