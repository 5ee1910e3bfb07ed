#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/link/Link.h"
#include "host/vehicle/session/EcuChannel.h"
#include "host/vehicle/session/IdentifierBundle.h"
#include "host/vehicle/session/VehicleDataItem.h"
#include "platform/base/TarnError.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::host {

/// A request of a description with its data items.
class VehicleRequest : public ferrox3::Request {
 public:
  /// Gives the device of a name, the same object for the same name; null for the empty name.
  using Devices = std::function<const VehicleDevice*(const std::string& name)>;

  VehicleRequest(const RequestDescription& description, ferrox3::Ecu& ecu, EcuChannel& channel,
                 const Devices& devices, const UserLocale& locale);

  const std::string& name() const override { return description_.name; }
  bool available() const override { return description_.available; }
  /// `sent` true: the frame that is sent; false: the frame that the last `send` received.
  std::string frameText(bool sent) const override;
  std::size_t dataCount() const override { return items_.size(); }
  ferrox3::DataItem& data(std::size_t position) const override { return *items_[position]; }
  ferrox3::DataItem* findData(std::string_view name) const override;
  ferrox3::Ecu& ecu() const override { return ecu_; }
  void send() override;
  std::string sentText() const override;
  std::string receivedText() const override;
  std::optional<ferrox3::Exchange> lastExchange() const override { return exchange_; }

  const RequestDescription& description() const { return description_; }
  EcuChannel& channel() const { return channel_; }

  /// How it is asked for.
  enum class Asking : std::uint8_t {
    usual,
    onTrial,   ///< the ECU did not give it: not together with others, and not waited for long
    patiently  ///< not together with others, and waited for as long as usual
  };
  /// As `send`, telling what came instead of raising.
  Conversation::Outcome ask(Asking how);
  /// The next `ask` is told ahead (see Conversation).
  void askAhead(Asking how) const;
  /// What `send` raises when that came.
  TarnError failure(Conversation::Outcome outcome) const;
  std::span<const std::uint8_t> received() const { return received_; }
  void setNotAvailable();
  /// Other requests that are asked for together with this one; null for none.
  void setBundle(IdentifierBundle* bundle) { bundle_ = bundle; }

 private:
  Conversation::Outcome exchange(Asking how);
  std::chrono::milliseconds timeout(Asking how) const;
  void note(Conversation::Outcome outcome, const Conversation::Times& times);

  const RequestDescription& description_;
  ferrox3::Ecu& ecu_;
  EcuChannel& channel_;
  std::deque<VehicleDataItem> data_;
  std::vector<VehicleDataItem*> items_;
  std::unordered_map<std::string_view, VehicleDataItem*> byName_;
  IdentifierBundle* bundle_ = nullptr;
  Link::Bytes received_;
  bool sent_ = false;
  std::optional<ferrox3::Exchange> exchange_;  ///< none, too, after a failure of the link
};

}  // namespace tarnlog::host
