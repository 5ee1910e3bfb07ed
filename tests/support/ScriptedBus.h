#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/link/CanPort.h"
#include "host/link/HexText.h"
#include "tests/support/ManualLinkClock.h"

namespace tarnlog::test {

/// An ECU on a bus: what it sends after each of our frames.
class ScriptedBus : public host::CanPort {
 public:
  struct Log {
    std::vector<std::string> heard;
    std::map<std::string, std::vector<std::string>> script;  ///< frame heard, frames sent
    std::string always;                                      ///< a frame that never ends coming
    std::int64_t frameTime = 100;                            ///< microseconds
  };
  ScriptedBus(Log& log, ManualLinkClock& clock) : log_(log), clock_(clock) {}

  void open() override {}
  void close() override {}
  void setIdleHook(std::function<void()> /*hook*/) override {}
  void send(const host::CanPayload& payload) override {
    log_.heard.push_back(host::hexText(payload.bytes()));
    for (const std::string& frame : log_.script[log_.heard.back()]) coming_.push_back(frame);
  }
  bool receive(host::CanPayload& payload, std::int64_t deadline) override {
    if (coming_.empty() && log_.always.empty()) {
      clock_.step(std::max<std::int64_t>(0, deadline - clock_.microseconds()));
      return false;
    }
    clock_.step(log_.frameTime);
    payload = host::CanPayload(*host::bytesFromHex(coming_.empty() ? log_.always : coming_.front()));
    if (!coming_.empty()) coming_.pop_front();
    return true;
  }

 private:
  Log& log_;
  ManualLinkClock& clock_;
  std::deque<std::string> coming_;
};

}  // namespace tarnlog::test
