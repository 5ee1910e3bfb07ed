#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/link/can/CanPort.h"
#include "host/service/HexText.h"
#include "tests/support/ManualLinkClock.h"

namespace tarnlog::test {

/// An ECU on a bus: what it sends after each of our frames.
class ScriptedBus : public host::CanPort {
 public:
  struct Log {
    std::vector<std::string> heard{};
    std::set<std::uint32_t> identifiers{};                     ///< of our frames
    std::set<std::uint32_t> ears{};                            ///< identifiers that we hear
    std::map<std::string, std::vector<std::string>> script{};  ///< frame heard, frames sent
    std::string always{};                                      ///< a frame that never ends coming
    std::chrono::microseconds frameTime{100};
    /// By identifier: what one ECU of several says to a request to all.
    std::map<std::uint32_t, std::string> spoken{};
  };
  /// `ear` is the identifier that it hears.
  ScriptedBus(Log& log, ManualLinkClock& clock, std::uint32_t ear = 0) : log_(log), clock_(clock), ear_(ear) {
    log_.ears.insert(ear);
  }

  void open() override {}
  void close() override {}
  void setIdleHook(std::function<void()> /*hook*/) override {}
  void send(std::uint32_t identifier, const host::CanPayload& payload) override {
    log_.identifiers.insert(identifier);
    log_.heard.push_back(host::hexText(payload.bytes()));
    for (const std::string& frame : log_.script[log_.heard.back()]) coming_.push_back(frame);
  }
  bool receive(host::CanPayload& payload, host::Moment deadline) override {
    takeSpoken();
    if (coming_.empty() && log_.always.empty()) {
      clock_.step(std::max(host::Moment(), deadline - clock_.now()));
      return false;
    }
    clock_.step(log_.frameTime);
    payload = host::CanPayload(*host::bytesFromHex(coming_.empty() ? log_.always : coming_.front()));
    if (!coming_.empty()) coming_.pop_front();
    return true;
  }

 private:
  void takeSpoken() {
    const std::uint32_t everybody = ear_ > 0x7FF ? 0x18DB33F1 : 0x7DF;
    const auto own = log_.spoken.find(ear_);
    if (own == log_.spoken.end() || !log_.identifiers.contains(everybody)) return;
    coming_.push_back(own->second);
    log_.spoken.erase(own);
  }

  Log& log_;
  ManualLinkClock& clock_;
  std::uint32_t ear_;
  std::deque<std::string> coming_;
};

}  // namespace tarnlog::test
