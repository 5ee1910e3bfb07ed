#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "host/link/stream/ByteStream.h"
#include "platform/base/TarnError.h"
#include "tests/support/ManualLinkClock.h"

namespace tarnlog::test {

/// A connection in memory, on a clock that waiting moves.
class PeerStream : public host::ByteStream {
 public:
  /// Takes what is written and gives what is answered at once.
  using Peer = std::function<std::string(std::string_view)>;

  PeerStream(Peer peer, ManualLinkClock& clock) : peer_(std::move(peer)), clock_(clock) {}

  std::chrono::microseconds latency{};       ///< until the first byte of an answer
  std::chrono::microseconds betweenBytes{};  ///< and between bytes
  std::string openFailure;                   ///< opening fails with this text
  std::size_t closeAfter = SIZE_MAX;         ///< the other end closes after this many more bytes
  int opened = 0;

  /// Bytes that come without being asked for.
  void put(std::string_view bytes) { put(bytes, latency); }
  /// What comes later stays behind what comes sooner.
  void put(std::string_view bytes, std::chrono::microseconds delay) {
    host::Moment due = clock_.now() + delay;
    const auto later = [](host::Moment moment, const auto& byte) { return moment < byte.second; };
    std::deque<std::pair<char, host::Moment>> coming;
    for (const char byte : bytes) {
      coming.emplace_back(byte, due);
      due += betweenBytes;
    }
    if (coming.empty()) return;
    const auto place = std::upper_bound(bytes_.begin(), bytes_.end(), coming.front().second, later);
    bytes_.insert(place, coming.begin(), coming.end());
  }

  void open() override {
    if (!openFailure.empty()) throw TarnError(1, "Link", openFailure);
    ++opened;
    closeAfter = SIZE_MAX;
    open_ = true;
  }
  void close() override {
    open_ = false;
    bytes_.clear();
  }
  void write(std::span<const std::uint8_t> bytes) override {
    if (!open_) throw TarnError(1, "Link", "box: is not open");
    put(peer_({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
  }
  std::size_t read(std::span<std::uint8_t> into, host::Moment deadline) override {
    if (!open_) throw TarnError(1, "Link", "box: is not open");
    idle();
    if (closeAfter == 0) throw TarnError(1, "Link", "box: the other end is gone");
    constexpr std::chrono::microseconds kIdlePeriod = std::chrono::milliseconds(20);
    host::Moment now = clock_.now();
    while (bytes_.empty() || bytes_.front().second > std::max(now, deadline)) {
      if (deadline <= now) return 0;
      clock_.step(std::min(kIdlePeriod, deadline - now));
      now = clock_.now();
      idle();
    }
    if (bytes_.front().second > now) clock_.step(bytes_.front().second - now);
    std::size_t count = 0;
    while (count < into.size() && closeAfter > 0 && !bytes_.empty() &&
           bytes_.front().second <= clock_.now()) {
      into[count++] = static_cast<std::uint8_t>(bytes_.front().first);
      bytes_.pop_front();
      if (closeAfter != SIZE_MAX) --closeAfter;
    }
    return count;
  }

 private:
  Peer peer_;
  ManualLinkClock& clock_;
  bool open_ = false;
  std::deque<std::pair<char, host::Moment>> bytes_;
};

/// A connection to a peer that accepts characters and gives its own. It must outlive the connection.
template <class Accepting>
std::unique_ptr<PeerStream> streamTo(Accepting& peer, ManualLinkClock& clock) {
  return std::make_unique<PeerStream>([&peer](std::string_view bytes) { return peer.accept(bytes); }, clock);
}

}  // namespace tarnlog::test
