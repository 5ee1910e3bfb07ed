#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "host/link/Link.h"
#include "host/vehicle/session/EcuExchange.h"

namespace tarnlog::host {

/// One ECU's requests: the one under way, and those that are to be sent behind it and were told ahead. What
/// came of them is kept until it is asked for. Reuses its memory.
class EcuLane {
 public:
  /// As EcuExchange.
  EcuLane(std::int64_t answerer, Link& link, LinkClock& clock, std::chrono::milliseconds pendingTimeout)
      : answerer_(answerer), exchange_(link, clock, pendingTimeout) {}

  /// As the link numbers it.
  std::int64_t answerer() const { return answerer_; }

  /// The request under way.
  EcuExchange& exchange() { return exchange_; }
  const EcuExchange& exchange() const { return exchange_; }

  void askAhead(const LinkTarget& target, std::span<const std::uint8_t> request,
                std::chrono::milliseconds timeout);
  /// What was told ahead is forgotten; what is under way of it goes on, and nobody asks for it.
  void forgetAhead();
  /// Something is left that was told ahead.
  bool hasAhead() const { return taken_ < told_; }
  /// Of that, something is still to be sent or to be answered.
  bool isBusyAhead() const { return left() > 0 || isAheadOpen_; }

  /// What is under way was told ahead.
  bool isAheadOpen() const { return isAheadOpen_; }
  /// Nothing is under way, and something was told ahead.
  bool isReady() const { return exchange_.isOver() && !isAheadOpen_ && !isOtherOpen_ && next_ < told_; }
  /// How much was told ahead and is not sent yet.
  std::size_t left() const { return told_ - next_; }
  void startNext();
  /// What was told ahead waits until `takeOther`, but for what is under way.
  void letOtherIn() { isOtherOpen_ = true; }
  /// Sends something that was not told ahead, while nothing is under way.
  void startOther(const LinkTarget& target, std::span<const std::uint8_t> request,
                  std::chrono::milliseconds timeout);
  /// What came of it, when it is over; until then nothing else is sent.
  ExchangeResult& takeOther() {
    isOtherOpen_ = false;
    return exchange_.result();
  }
  /// All is forgotten, and nothing is waited for any more.
  void abandon();
  /// To be called after each step: keeps what is over. An ECU that does not answer is asked nothing more.
  void keepResult() {
    if (isAheadOpen_ && exchange_.isOver()) storeResult();
  }
  /// The request under way is sent once more, when it may be; one that was forgotten is not.
  void sendAgain();

  /// This request was told ahead and is left: it will be `takeResult`'s. What was told before it is not asked
  /// for any more.
  bool goesTo(std::span<const std::uint8_t> request);
  /// The oldest one is over.
  bool hasResult() const { return taken_ < next_ && (taken_ + 1 < next_ || !isAheadOpen_); }
  ExchangeResult& takeResult() { return ahead_[taken_++].result; }

 private:
  void storeResult();

  struct Ahead {
    LinkTarget target;
    Link::Bytes request;
    std::chrono::milliseconds timeout{};
    ExchangeResult result;
  };

  std::int64_t answerer_;
  EcuExchange exchange_;
  std::vector<Ahead> ahead_;
  std::size_t told_ = 0;      ///< of `ahead_`, those of now
  std::size_t next_ = 0;      ///< the first that was not started
  std::size_t taken_ = 0;     ///< the first that was not asked for
  bool isAheadOpen_ = false;  ///< the one before `next_` is under way
  bool isOtherOpen_ = false;  ///< something else is to be sent or under way, or its result was not taken
};

}  // namespace tarnlog::host
