#include "apps/tarnlog/CarConnection.h"

namespace tarnlog {

namespace {

/// A link may have blanks, where it names a file.
constexpr char kBetween = '\t';

std::string entryOf(const CarConnection& connection) {
  return connection.link + kBetween + connection.vehicle;
}

}  // namespace

std::vector<CarConnection> RecentConnections::all() const {
  std::vector<CarConnection> connections;
  for (const std::string& entry : entries_.paths()) {
    const std::size_t between = entry.find(kBetween);
    if (between != std::string::npos && between != 0)
      connections.push_back({entry.substr(between + 1), entry.substr(0, between)});
  }
  return connections;
}

void RecentConnections::add(const CarConnection& connection) { entries_.add(entryOf(connection)); }
void RecentConnections::remove(const CarConnection& connection) { entries_.remove(entryOf(connection)); }

}  // namespace tarnlog
