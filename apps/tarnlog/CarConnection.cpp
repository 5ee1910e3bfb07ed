#include "apps/tarnlog/CarConnection.h"

#include <algorithm>
#include <utility>

#include "platform/text/TakeUntil.h"

namespace tarnlog {

namespace {

/// A link may have blanks, where it names a file.
constexpr char kBetween = '\t';

/// A name is as a description or a car gives it, and an entry is one line.
std::string entryOf(const CarConnection& connection) {
  std::string entry = connection.link + kBetween + connection.vehicle + kBetween + connection.name;
  std::replace(entry.begin(), entry.end(), '\n', ' ');
  return entry;
}

CarConnection connectionOf(std::string_view entry) {
  CarConnection connection;
  connection.link = takeUntil(entry, kBetween);
  connection.vehicle = takeUntil(entry, kBetween);
  connection.name = entry;
  return connection;
}

}  // namespace

std::vector<CarConnection> RecentConnections::all() const {
  std::vector<CarConnection> connections;
  for (const std::string& entry : entries_.paths()) {
    CarConnection connection = connectionOf(entry);
    if (!connection.link.empty() && !connection.vehicle.empty()) connections.push_back(std::move(connection));
  }
  return connections;
}

void RecentConnections::add(const CarConnection& connection) {
  for (const std::string& entry : entries_.paths()) {
    const CarConnection known = connectionOf(entry);
    if (known.link == connection.link && known.vehicle == connection.vehicle) entries_.remove(entry);
  }
  entries_.add(entryOf(connection));
}

}  // namespace tarnlog
