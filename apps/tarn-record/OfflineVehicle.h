#pragma once

#include <map>
#include <memory>
#include <string>

#include "catalogue/SessionDocument.h"
#include "host/link/SystemLinkClock.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"

namespace tarnlog::record {

/// A vehicle, to look at what it offers.
struct VehicleChoice {
  std::string path;
  host::LinkOptions link;
};

/// Reads a file once and gives the same again: a pipe has its content only once.
class ReadOnceFiles : public SystemFileSystem {
 public:
  std::string readAll(const std::string& path) const override {
    const auto known = read_.find(path);
    return known != read_.end() ? known->second : read_[path] = SystemFileSystem::readAll(path);
  }

 private:
  mutable std::map<std::string, std::string> read_;
};

/// The session of a vehicle description, without sending anything; that of a car, which is asked what it
/// offers.
class OfflineVehicle {
 public:
  explicit OfflineVehicle(const VehicleChoice& choice);

  FileSystem& files() { return files_; }
  ferrox3::Session& ferrox3() { return vehicle_->session(); }
  const SessionDocument& session() const { return session_; }

 private:
  ReadOnceFiles files_;
  host::SystemLinkClock clock_;
  std::unique_ptr<host::OpenedVehicle> vehicle_;
  SessionDocument session_;
};

}  // namespace tarnlog::record
