#pragma once

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <set>
#include <string>
#include <utility>

#include "tests/support/Elm327Peer.h"
#include "tests/support/PeerStream.h"

namespace tarnlog::test {

/// The serial line to an adapter that can be told another rate (ATBRD). At a wrong rate garbage comes and
/// goes.
class SerialPeerStream : public PeerStream {
 public:
  /// Without a rate it is a line of another kind.
  SerialPeerStream(Elm327Peer& adapter, int rate, ManualLinkClock& clock)
      : PeerStream([&](std::string_view text) { return adapter.accept(text); }, clock),
        adapter_(adapter),
        clock_(clock),
        own_(rate) {}

  std::set<int> garbled;  ///< rates that are too much for the line

  int rate() const override { return own_; }
  void open() override {
    PeerStream::open();
    line_ = own_;
  }
  bool setRate(int bitsPerSecond) override {
    line_ = bitsPerSecond;
    if (trial_ == 0 || std::abs(trial_ - line_) > line_ / 30) return true;
    say(adapter_.name + "\r", since_ + kHalfTrial - clock_.now());
    return true;
  }
  void write(std::span<const std::uint8_t> bytes) override {
    const std::string text(bytes.begin(), bytes.end());
    if (clock_.now() > since_ + 2 * kHalfTrial) trial_ = 0;
    if (!fits()) return put(kGarbage);
    if (text.starts_with("ATZ")) adapter_.rate = adapter_.ownRate;
    if (trial_ == 0) return say(adapter_.accept(text));
    if (text != "\r") return;
    adapter_.rate = std::exchange(trial_, 0);
    say("OK\r\r>");
  }

 private:
  static constexpr std::chrono::milliseconds kHalfTrial{75};
  static constexpr const char* kGarbage = "\xF8\x80";

  bool fits() const {
    const int far = trial_ != 0 ? trial_ : adapter_.rate;
    return own_ == 0 || (std::abs(far - line_) <= line_ / 30 && !garbled.contains(line_));
  }
  void say(const std::string& text, std::chrono::microseconds after = {}) {
    const auto usual = std::exchange(latency, latency + after);
    for (std::size_t at = 0; at < text.size(); latency += std::chrono::milliseconds(1)) {
      const std::size_t end = std::min(text.find(Elm327Peer::kMillisecond, at), text.size());
      put(fits() ? text.substr(at, end - at) : kGarbage);
      at = end + 1;
    }
    latency = usual;
    if (adapter_.trial != 0) since_ = clock_.now();
    if (adapter_.trial != 0) trial_ = std::exchange(adapter_.trial, 0);
  }

  Elm327Peer& adapter_;
  ManualLinkClock& clock_;
  int own_;
  int line_ = 0;
  int trial_ = 0;  ///< the rate that the adapter tries
  host::Moment since_{};
};

}  // namespace tarnlog::test
