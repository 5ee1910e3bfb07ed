#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "host/link/can/IsoTp.h"
#include "host/link/elm/ElmText.h"

namespace tarnlog::host {

/// The kinds of vehicle bus behind an adapter, as far as their frames differ.
enum class ElmBus : std::uint8_t {
  unknown,
  j1850,    ///< SAE J1850
  iso9141,  ///< ISO 9141-2
  kwp,      ///< ISO 14230-4
  can11,    ///< ISO 15765-4 with identifiers of 11 bits
  can29     ///< and of 29 bits
};

constexpr bool isCan(ElmBus bus) { return bus == ElmBus::can11 || bus == ElmBus::can29; }

struct ElmMessage {
  /// Of the ECU: the CAN identifier of its frames, on other buses its address; none when the adapter does not
  /// show headers.
  std::optional<std::uint32_t> source;
  std::vector<std::uint8_t> bytes;  ///< of the service, without header, length and checksum
  bool headed = false;              ///< a header was shown, with the ECU's address or without
};

/// Makes messages of the data lines of an answer. It tells from a line itself whether it has a header, as not
/// every adapter shows or hides headers as it is told. Several ECUs may answer at once. Memory is bounded.
///
/// Characters get lost on the way from an adapter. What an adapter and an ECU have done once they go on
/// doing: lines that differ from it are damaged, and not taken.
class ElmAssembler {
 public:
  /// Forgets the answer under way.
  void reset();
  /// Forgets what the adapter and the ECUs do, too.
  void forget();
  /// The message answers what was asked: the adapter shows headers, or hides them, as with this one.
  void confirm(const ElmMessage& message);
  void setBus(ElmBus bus) { bus_ = bus; }
  /// Frames of a bus that is not known tell which one it is.
  ElmBus bus() const { return bus_; }

  /// The message that this line makes whole.
  std::optional<ElmMessage> accept(const ElmLine& line);
  /// Number of frames since `reset`, damaged ones left out.
  int frames() const { return frames_; }
  /// A message has begun and not ended.
  bool incomplete() const;

 private:
  /// Frames of one ECU on CAN.
  struct Sender {
    std::uint32_t identifier = 0;
    bool open = false;
    bool pads = false;  ///< it fills frames up to 8 bytes
    IsoTpReceiver receiver;
  };
  /// A message in numbered lines: "014", "0: 49 02 ...", "1: ...".
  struct Numbered {
    std::size_t length = 0;
    int next = 0;
    std::vector<std::uint8_t> bytes;
  };

  std::optional<ElmMessage> acceptCan(std::uint32_t identifier, std::string_view digits);
  std::optional<ElmMessage> acceptBytes(std::span<const std::uint8_t> frame);
  std::optional<ElmMessage> acceptNumbered(int number, std::string_view digits);
  void announce(std::string_view digits);
  std::optional<ElmMessage> acceptOnWire(std::span<const std::uint8_t> frame);
  Sender* senderOf(std::uint32_t identifier);

  enum class Headers : std::uint8_t { unknown, shown, hidden };

  ElmBus bus_ = ElmBus::unknown;
  Headers headers_ = Headers::unknown;
  std::deque<Sender> senders_;
  std::vector<Numbered> numbered_;
  int frames_ = 0;
  /// Of the K line and of J1850, before the first right checksum.
  int wrongSums_ = 0;
  static constexpr int kTrustedAfter = 2;
  static constexpr int kNeverTrusted = -1;
};

/// The service bytes of a K-line or J1850 frame with its sender, when header, length and checksum are right.
std::optional<ElmMessage> parseHeadedFrame(ElmBus bus, std::span<const std::uint8_t> frame);

}  // namespace tarnlog::host
