#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/service/HexText.h"

namespace tarnlog::test {

/// The gateway of a car with diagnostics over IP (ISO 13400-2), written from the standard: takes the bytes of
/// the tester and gives its own. All messages are hexadecimal text.
class DoipPeer {
 public:
  /// Of each ECU: its answers by request. A request that is not among them is answered by nothing.
  std::map<std::uint16_t, std::map<std::string, std::vector<std::string>>> ecus;
  std::set<std::uint16_t> groups;  ///< addresses that all ECUs listen to
  /// ECUs that the gateway knows, but that are switched off: it refuses for them in its own name.
  std::set<std::uint16_t> unreachable;
  std::uint16_t address = 0x1000;   ///< the gateway's own
  std::uint8_t version = 2;         ///< of the protocol; others are refused
  std::string grant = "10";         ///< its code for whoever wants to connect
  std::deque<std::string> instead;  ///< bytes for the next diagnostic messages, in place of what is right
  /// "1001 0100" of every diagnostic message, type and payload of others.
  std::vector<std::string> heard;

  std::string message(unsigned type, std::string_view payload) const {
    const auto content = *host::bytesFromHex(payload);
    const auto head = *host::bytesFromHex(hex16(version * 0x100U + 0xFFU - version) + hex16(type) + "0000" +
                                          hex16(static_cast<unsigned>(content.size())));
    return std::string(head.begin(), head.end()) + std::string(content.begin(), content.end());
  }
  std::string accept(std::string_view bytes) {
    in_ += bytes;
    std::string out;
    while (in_.size() >= 8) {
      const std::size_t length = 8 + (number(6) | number(4) << 16);
      if (in_.size() < length) break;
      out += in_[0] == version ? answer(number(2), length) : message(0x0000, "00");
      in_.erase(0, length);
    }
    return out;
  }

 private:
  unsigned number(std::size_t at) const {
    return static_cast<unsigned>(static_cast<std::uint8_t>(in_[at])) << 8 |
           static_cast<std::uint8_t>(in_[at + 1]);
  }

  static std::string hex16(unsigned value) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (int shift = 12; shift >= 0; shift -= 4) text += kDigits[value >> shift & 15];
    return text;
  }

  std::string answer(unsigned type, std::size_t length) {
    const auto hexFrom = [&](std::size_t at) {
      std::string hex;
      for (; at < length; ++at) hex += hex16(static_cast<std::uint8_t>(in_[at])).substr(2);
      return hex;
    };
    if (type != 0x8001) heard.push_back(hex16(type) + " " + hexFrom(8));
    if (type == 0x0005) return message(0x0006, hex16(number(8)) + hex16(address) + grant + "00000000");
    if (type != 0x8001) return {};
    const std::string tester = hex16(number(8));
    const auto target = static_cast<std::uint16_t>(number(10));
    const std::string request = hexFrom(12);
    heard.push_back(hex16(target) + " " + request);
    if (!instead.empty()) {
      const std::string text = instead.front();
      instead.pop_front();
      return text;
    }
    const bool toAll = groups.contains(target);
    if (!toAll && !ecus.contains(target)) return message(0x8003, hex16(target) + tester + "03");
    if (unreachable.contains(target)) return message(0x8003, hex16(address) + tester + "06");
    std::string out = message(0x8002, hex16(target) + tester + "00");
    for (auto& [ecu, answers] : ecus)
      if (ecu == target || (toAll && !unreachable.contains(ecu)))
        for (const std::string& each : answers[request]) out += message(0x8001, hex16(ecu) + tester + each);
    return out;
  }

  std::string in_;
};

}  // namespace tarnlog::test
