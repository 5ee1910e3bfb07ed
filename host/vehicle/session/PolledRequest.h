#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/link/LinkClock.h"
#include "host/vehicle/session/Notice.h"
#include "host/vehicle/session/PollCycle.h"
#include "host/vehicle/session/SessionKeeper.h"
#include "host/vehicle/session/VehicleRequest.h"
#include "platform/ferrox3/Session.h"

namespace tarnlog::host {

/// Shared by all polled requests of one vehicle. Outlives the poll sets.
struct Polling {
  SessionKeeper& conversation;
  LinkClock& clock;
  NoticeHandler notify{};
};

/// A request as a poll set sends it: one that its ECU rejects, or does not know, must not stop the others. A
/// negative response (but "busy") makes its data "not available"; so does the third time-out in a row, if the
/// ECU answered another request between each two of them. Such a request is left out: skipped, and sent again
/// every few seconds. Every other failure is raised as the request itself raises it, and so is every failure
/// where the description wants an error.
///
/// One with an interval is not sent in a cycle that comes sooner.
class PolledRequest : public ferrox3::Request {
 public:
  /// `position` is its place in the cycle. All must outlive it.
  PolledRequest(VehicleRequest& request, const Polling& polling, PollCycle& cycle, std::size_t position)
      : request_(request), polling_(polling), cycle_(cycle), position_(position) {}

  /// A cycle begins: decides whether it is sent in it. Intervals count from `first`, so that requests that
  /// are asked together stay together.
  void plan(Moment now, Moment first);
  bool isAsked() const { return asked_; }
  /// When it will be sent again.
  Moment due() const { return due_; }
  /// It is sent in the next cycle, unless it is left out.
  void askNext();
  /// Tells its ECU's conversation that it will be sent.
  void askAhead() const { request_.askAhead(asking()); }

  const std::string& name() const override { return request_.name(); }
  bool available() const override { return request_.available(); }
  std::string frameText(bool sent) const override { return request_.frameText(sent); }
  std::size_t dataCount() const override { return request_.dataCount(); }
  ferrox3::DataItem& data(std::size_t position) const override { return request_.data(position); }
  ferrox3::DataItem* findData(std::string_view name) const override { return request_.findData(name); }
  ferrox3::Ecu& ecu() const override { return request_.ecu(); }
  void send() override;
  std::string sentText() const override { return request_.sentText(); }
  std::string receivedText() const override { return request_.receivedText(); }
  std::optional<ferrox3::Exchange> lastExchange() const override;

 private:
  VehicleRequest::Asking asking() const;
  bool isLeftOutBySilence();
  void takeBack();
  void leaveOut(const std::string& notice);
  std::string subject() const;
  void tell(const std::string& text, bool over) const;

  VehicleRequest& request_;
  const Polling& polling_;
  PollCycle& cycle_;
  std::size_t position_;
  bool leftOut_ = false;
  bool asked_ = true;             ///< in this cycle
  Moment due_{};                  ///< when it is to be sent next
  int trials_ = 0;                ///< since it is left out
  int silences_ = 0;              ///< in a row
  std::uint64_t ecuAnswers_ = 0;  ///< of its ECU, at the last silence
  std::uint64_t allAnswers_ = 0;  ///< of all ECUs, at the last silence
};

}  // namespace tarnlog::host
