#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/vehicle/session/EcuChannel.h"
#include "host/vehicle/session/VehicleRequest.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::host {

/// An ECU of a description.
class VehicleEcu : public ferrox3::Ecu {
 public:
  VehicleEcu(const EcuDescription& description, SessionKeeper& conversation,
             const VehicleRequest::Devices& devices, const UserLocale& locale);

  const std::string& name() const override { return description_.name; }
  const std::string& functionName() const override { return description_.function; }
  const std::string& protocolName() const override { return description_.protocol; }
  std::int32_t address() const override { return description_.address; }
  std::size_t requestCount() const override { return requests_.size(); }
  ferrox3::Request& request(std::size_t position) const override { return *requests_[position]; }
  ferrox3::Request* findRequest(std::string_view name) const override;
  ferrox3::DataItem* findData(std::string_view name) const override;
  ferrox3::Kwp2000* kwp2000() override { return kwp2000_ ? &*kwp2000_ : nullptr; }
  /// Waits as long as the ECU's time-out. Both buffers must come from the session.
  void exchange(const ferrox3::RawBuffer& request, ferrox3::RawBuffer& response) override;

  EcuChannel& channel() { return channel_; }

  /// Finds out whether the ECU is there; raises when it does not answer. A refusal is an answer. Where a
  /// request is asked for that, and was silent, it is another one the next time: not every car has all.
  void initialise();

 private:
  class SessionStarter : public ferrox3::Kwp2000 {
   public:
    explicit SessionStarter(VehicleEcu& ecu) : ecu_(ecu) {}
    void startDiagnosticSession(std::uint8_t mode) override;

   private:
    VehicleEcu& ecu_;
  };

  void collectData();
  std::span<const std::uint8_t> greetingFrame() const;
  void changeGreeting();

  const EcuDescription& description_;
  EcuChannel channel_;
  std::vector<std::unique_ptr<VehicleRequest>> requests_;
  std::unordered_map<std::string_view, VehicleRequest*> requestsByName_;
  std::unordered_map<std::string_view, ferrox3::DataItem*> dataByName_;
  std::optional<SessionStarter> kwp2000_;
  std::size_t greeting_ = 0;  ///< the request that the ECU is greeted with, where it has no frame for that
  Link::Bytes response_;
};

}  // namespace tarnlog::host
