#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <vector>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/StopPatience.h"
#include "host/link/can/CanPort.h"
#include "host/link/can/IsoTpChannel.h"

namespace tarnlog::host {

/// ECUs on a CAN bus (ISO 15765-2 and -4).
class IsoTpLink : public Link {
 public:
  /// Makes the way to the bus, not open yet.
  using Connect = std::function<std::unique_ptr<CanPort>()>;

  /// `pair` is for every request; without one, each ECU's address gives its own. The clock must outlive the
  /// link.
  IsoTpLink(std::optional<CanPair> pair, Connect connect, LinkClock& clock, bool sideBySide = true);

  bool takesSeveralPids(const LinkTarget& /*target*/) const override { return true; }
  std::size_t mostIdentifiers(const LinkTarget& /*target*/) const override { return kMostIdentifiersAtOnce; }
  std::int64_t answererOf(const LinkTarget& target) const override;
  bool matchesAnswers() const override { return false; }
  bool isComing(std::int64_t answerer) const override;
  bool sideBySide() const override { return sideBySide_; }

 protected:
  void doOpen() override;
  void doClose() override;
  bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) override;
  Received doReceive(Bytes& response, std::chrono::milliseconds timeout) override;
  /// The ECU of the pair that every request is for, where there is one; else those that answer a request to
  /// all of them, with identifiers of 11 bits, or else of 29.
  std::vector<LinkTarget> doFindEcus() override;

 private:
  CanPair pairOf(const LinkTarget& target) const;
  IsoTpChannel* knownChannel(std::uint32_t receive);
  IsoTpChannel& channelOf(CanPair pair);
  void listen();
  enum class Step : std::uint8_t { nothing, frame, message };
  Step step(Moment deadline);
  std::vector<LinkTarget> askAll(std::uint32_t everybody, std::int32_t first, int count);

  std::optional<CanPair> pair_;
  Connect connect_;
  LinkClock& clock_;
  bool sideBySide_;
  std::unique_ptr<CanPort> port_;
  std::list<IsoTpChannel> channels_;
  IsoTpChannel* complete_ = nullptr;  ///< has the response that came last
  StopPatience patience_{*this, clock_};
};

}  // namespace tarnlog::host
