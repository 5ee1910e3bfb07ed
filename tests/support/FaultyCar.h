#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "host/link/doip/DoipLink.h"
#include "host/service/HexText.h"
#include "tests/support/DoipPeer.h"
#include "tests/support/PeerStream.h"

namespace tarnlog::test {

/// One answer on its way.
struct Delivery {
  std::chrono::microseconds delay;
  std::vector<std::uint8_t> bytes;
  bool cut = false;  ///< only its first half comes
};

/// An ECU that answers with the number of times that it was asked this, and does wrong at random. Asked for
/// several identifiers at once (service 22), it numbers each.
class FaultyEcu {
 public:
  using Bytes = std::vector<std::uint8_t>;
  enum class Fault : std::uint8_t { none, lost, doubled, late, copiedSoon, cut, refused, pending };

  explicit FaultyEcu(std::uint32_t seed = 20260) : random_(seed) {}

  std::vector<Fault> faults;  ///< those that it may have, one in six times
  bool knowsTesterPresent = true;
  std::chrono::microseconds usual{5000};  ///< until an answer comes
  std::map<Bytes, unsigned> asked;
  host::Moment newest{};  ///< when its newest answer comes: it answers in the order in which it is asked

  std::vector<Delivery> answer(const Bytes& request) {
    const std::chrono::microseconds soon{500};
    if (request[0] == 0x3E && !knowsTesterPresent) return {};
    const Bytes bytes = positive(request);
    const Delivery right{usual, bytes};
    const std::chrono::milliseconds late(150 + random_() % 400);
    switch (fault()) {
      case Fault::lost:
        return {};
      case Fault::doubled:
        return {right, right};
      case Fault::late:
        return {{late, bytes}};
      case Fault::copiedSoon:
        return {right, {usual + soon, bytes}};
      case Fault::cut:
        return {{usual, bytes, true}};
      case Fault::refused:
        return {{usual, {0x7F, request[0], 0x22}}};
      case Fault::pending:
        return {{usual, {0x7F, request[0], 0x78}}, {std::chrono::milliseconds(60), bytes}};
      case Fault::none:
        break;
    }
    return {right};
  }

 private:
  Bytes positive(const Bytes& request) {
    Bytes bytes{static_cast<std::uint8_t>(request[0] + 0x40)};
    const std::size_t size = request[0] == 0x22 ? 2 : request.size() - 1;
    for (std::size_t at = 1; at < request.size(); at += size) {
      const auto first = request.begin() + static_cast<std::ptrdiff_t>(at);
      Bytes single(first, first + static_cast<std::ptrdiff_t>(size));
      bytes.insert(bytes.end(), single.begin(), single.end());
      single.insert(single.begin(), request[0]);
      const unsigned count = ++asked[single];
      if (request[0] != 0x3E)
        bytes.insert(bytes.end(), {static_cast<std::uint8_t>(count >> 8), static_cast<std::uint8_t>(count)});
    }
    return bytes;
  }
  Fault fault() {
    return faults.empty() || random_() % 6 != 0 ? Fault::none : faults[random_() % faults.size()];
  }

  std::mt19937 random_;
};

/// Such ECUs behind a gateway of ISO 13400-2.
class FaultyCar {
 public:
  explicit FaultyCar(bool acknowledges) : acknowledges_(acknowledges) {}

  ManualLinkClock clock;
  std::map<std::uint16_t, FaultyEcu> ecus;
  std::size_t mostOpen = 100;  ///< requests that the gateway takes at a time; it refuses others (05)
  std::size_t openAtMost = 0;  ///< that were open at a time, the refused one included

  /// Something comes from this ECU.
  void put(std::chrono::microseconds delay, unsigned type, const FaultyEcu::Bytes& payload,
           bool cut = false) {
    const std::string message = DoipPeer().message(type, host::hexText(payload));
    stream_->put(std::string_view(message).substr(0, message.size() - (cut ? 2 : 0)), delay);
  }

  /// Closed; it outlives nobody who asks over it.
  std::unique_ptr<host::DoipLink> link(std::optional<std::uint16_t> ecu = {}) {
    host::DoipSettings settings;
    settings.host = "car";
    settings.ecu = ecu;
    return std::make_unique<host::DoipLink>(
        settings, [this](const std::string&, std::uint16_t) { return connect(); }, clock);
  }

 private:
  void take(std::string_view message) {
    using namespace std::chrono_literals;
    if (message[2] == 0x00) return put(0ms, 0x0006, *host::bytesFromHex("0E 00 10 01 10 00 00 00 00"));
    const auto high = static_cast<std::uint8_t>(message[10]);
    const auto low = static_cast<std::uint8_t>(message[11]);
    const FaultyEcu::Bytes way{high, low, 0x0E, 0x00};
    const auto with = [&](FaultyEcu::Bytes bytes) {
      bytes.insert(bytes.begin(), way.begin(), way.end());
      return bytes;
    };
    std::erase_if(open_, [&](const host::Moment& until) { return until <= clock.now(); });
    openAtMost = std::max(openAtMost, open_.size() + 1);
    if (open_.size() >= mostOpen) return put(1ms, 0x8003, with({0x05}));
    if (acknowledges_) put(1ms, 0x8002, with({0x00}));
    FaultyEcu& ecu = ecus[static_cast<std::uint16_t>(high << 8 | low)];
    open_.push_back(clock.now() + ecu.usual);
    for (const Delivery& each : ecu.answer(FaultyEcu::Bytes(message.begin() + 12, message.end()))) {
      ecu.newest = std::max(ecu.newest, clock.now() + each.delay);
      put(ecu.newest - clock.now(), 0x8001, with(each.bytes), each.cut);
    }
  }
  std::unique_ptr<host::ByteStream> connect() {
    const auto peer = [this](std::string_view bytes) { return take(bytes), std::string(); };
    auto made = std::make_unique<PeerStream>(peer, clock);
    stream_ = made.get();
    open_.clear();
    return made;
  }

  bool acknowledges_;
  PeerStream* stream_ = nullptr;
  std::vector<host::Moment> open_;  ///< until when
};

}  // namespace tarnlog::test
