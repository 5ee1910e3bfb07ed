#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/StopPatience.h"
#include "host/link/can/CanPort.h"

namespace tarnlog::host {

/// ECUs on a CAN bus (ISO 15765-2 and -4).
class IsoTpLink : public Link {
 public:
  /// Makes a message stream of a pair, not open yet.
  using Connect = std::function<std::unique_ptr<ByteStream>(CanPair)>;

  /// `pair` is for every request; without one, each ECU's address gives its own. The clock must outlive the
  /// link.
  IsoTpLink(std::optional<CanPair> pair, Connect connect, LinkClock& clock);

  bool takesSeveralPids(const LinkTarget& /*target*/) const override { return true; }
  std::optional<std::int64_t> answererOf(const LinkTarget& target) const override {
    return pairOf(target).receive;
  }

 protected:
  void doOpen() override;
  void doClose() override;
  bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) override;
  Received doReceive(Bytes& response, std::chrono::milliseconds timeout) override;
  /// The ECU of the pair that every request is for, where there is one; else those that answer a request to
  /// all of them, with identifiers of 11 bits, or else of 29.
  std::vector<LinkTarget> doFindEcus() override;
  bool doReadUnasked(const LinkTarget& target) override;

 private:
  CanPair pairOf(const LinkTarget& target) const;
  std::unique_ptr<ByteStream> connected(CanPair pair);
  ByteStream* knownStreamOf(CanPair pair) const;
  ByteStream& streamOf(CanPair pair);
  std::vector<LinkTarget> askAll(std::uint32_t everybody, std::int32_t first, int count);

  std::optional<CanPair> pair_;
  Connect connect_;
  LinkClock& clock_;
  std::vector<std::pair<CanPair, std::unique_ptr<ByteStream>>> streams_;
  ByteStream* current_ = nullptr;  ///< of the request that was sent last
  StopPatience patience_{*this, clock_};
  Bytes came_ = Bytes(IsoTpReceiver::kLongest);
};

}  // namespace tarnlog::host
