#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host/link/can/CanPort.h"
#include "host/service/HexText.h"
#include "tests/support/ManualLinkClock.h"

namespace tarnlog::test {

/// ECUs on a bus: what they send after each of our frames. They answer over the identifier 8 above that of
/// the request, or with 29 bits over that with the last two bytes changed round, unless `from` says
/// otherwise.
class ScriptedBus : public host::CanPort {
 public:
  struct Log {
    std::vector<std::string> heard{};
    std::set<std::uint32_t> identifiers{};                     ///< of our frames
    std::set<std::uint32_t> ears{};                            ///< identifiers that we hear
    std::map<std::string, std::vector<std::string>> script{};  ///< frame heard, frames sent
    std::string always{};                                      ///< a frame that never ends coming
    std::chrono::microseconds frameTime{100};
    std::optional<std::uint32_t> from{};  ///< of all answers
    /// By identifier: what one ECU of several says to a request to all.
    std::map<std::uint32_t, std::string> spoken{};
  };
  ScriptedBus(Log& log, ManualLinkClock& clock) : log_(log), clock_(clock) {}

  void open() override {}
  void close() override {}
  void setIdleHook(std::function<void()> /*hook*/) override {}
  void listenTo(std::span<const std::uint32_t> identifiers) override {
    ears_ = {identifiers.begin(), identifiers.end()};
    log_.ears.insert(ears_.begin(), ears_.end());
  }
  void send(std::uint32_t identifier, const host::CanPayload& payload) override {
    log_.identifiers.insert(identifier);
    log_.heard.push_back(host::hexText(payload.bytes()));
    if (identifier == 0x7DF || identifier == 0x18DB33F1)
      for (const auto& [ear, frame] : log_.spoken) coming_.emplace_back(ear, frame);
    for (const std::string& frame : log_.script[log_.heard.back()])
      coming_.emplace_back(log_.from.value_or(answersOf(identifier)), frame);
  }
  bool receive(std::uint32_t& identifier, host::CanPayload& payload, host::Moment deadline) override {
    while (!coming_.empty() && !ears_.contains(coming_.front().first)) coming_.pop_front();
    if (coming_.empty() && (log_.always.empty() || ears_.empty())) {
      clock_.step(std::max(host::Moment(), deadline - clock_.now()));
      return false;
    }
    clock_.step(log_.frameTime);
    if (coming_.empty()) coming_.emplace_back(*ears_.begin(), log_.always);
    identifier = coming_.front().first;
    payload = host::CanPayload(*host::bytesFromHex(coming_.front().second));
    coming_.pop_front();
    return true;
  }

 private:
  static std::uint32_t answersOf(std::uint32_t identifier) {
    if (identifier <= 0x7FF) return identifier + 8;
    return (identifier & 0xFFFF0000) | (identifier & 0xFF) << 8 | (identifier >> 8 & 0xFF);
  }

  Log& log_;
  ManualLinkClock& clock_;
  std::set<std::uint32_t> ears_;
  std::deque<std::pair<std::uint32_t, std::string>> coming_;
};

}  // namespace tarnlog::test
