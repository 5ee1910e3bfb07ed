#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/session/Conversation.h"
#include "host/vehicle/session/Notice.h"
#include "host/vehicle/session/PolledRequest.h"
#include "host/vehicle/session/SessionKeeper.h"
#include "host/vehicle/session/VehicleEcu.h"
#include "platform/ferrox3/Session.h"
#include "platform/text/UserLocale.h"

namespace tarnlog::host {

/// The session of a described vehicle over a link. Description, link and clock must outlive it. The link is
/// opened by the first exchange.
class VehicleSession : public ferrox3::Session {
 public:
  /// `locale` is for the value texts.
  VehicleSession(const VehicleDescription& description, Link& link, LinkClock& clock, UserLocale locale);
  ~VehicleSession() override;
  VehicleSession(const VehicleSession&) = delete;
  VehicleSession& operator=(const VehicleSession&) = delete;

  std::size_t ecuCount() const override { return ecus_.size(); }
  ferrox3::Ecu& ecu(std::size_t position) const override { return *ecus_[position]; }
  ferrox3::Ecu* findEcuByFunction(std::string_view functionName) const override;
  std::unique_ptr<ferrox3::AcquisitionList> createAcquisitionList() override;
  std::unique_ptr<ferrox3::RawBuffer> createRawBuffer() override;
  bool communicating() const override { return conversation_.busy(); }
  /// Closes the link; a request sent later opens it again.
  void endCommunication() override { keeper_.end(); }
  std::vector<ferrox3::Fact> facts() const override;
  std::vector<ferrox3::ServiceCount> servicesSent() const override;
  /// How the vehicle is reached, for its facts.
  void setLinkText(std::string text) { linkText_ = std::move(text); }

  /// Is told, while a request of a poll set is sent, when the car begins and ends to refuse it or not to know
  /// it. It may do anything but use the session.
  void setNoticeHandler(NoticeHandler handler) { polling_.notify = std::move(handler); }

 private:
  const VehicleDevice* deviceOf(const std::string& name);

  const VehicleDescription& description_;
  std::string linkText_;
  UserLocale locale_;
  Conversation conversation_;
  SessionKeeper keeper_;
  Polling polling_;
  std::unordered_map<std::string, std::unique_ptr<VehicleDevice>> devices_;
  std::vector<std::unique_ptr<VehicleEcu>> ecus_;
  std::unordered_map<std::string_view, VehicleEcu*> byFunction_;
};

}  // namespace tarnlog::host
