#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/base/TarnError.h"

namespace tarnlog::host {

/// Whom a request is for: what a link needs to address an ECU.
struct LinkTarget {
  std::int32_t address = 0;                ///< the ECU's diagnostic address
  std::string protocol;                    ///< as the vehicle description names it, e.g. "KWP2000"
  std::optional<std::int32_t> response{};  ///< CAN identifier of its answers; none: follows from `address`
};

/// A request that did not reach its ECU, while the link itself works on: other ECUs can be asked over it.
class EcuUnreachable : public TarnError {
 public:
  using TarnError::TarnError;
};

/// Bytes out, bytes in. One exchange at a time. Bytes are those of the diagnostic service, without addresses,
/// lengths and checksums of the wire. Failures of the link itself are TarnErrors: it has to be opened again,
/// except after EcuUnreachable.
class Link {
 public:
  using Bytes = std::vector<std::uint8_t>;
  using IdleHook = std::function<void()>;
  using StopQuestion = std::function<bool()>;
  using TextHook = std::function<void(bool sent, std::string_view line)>;

  virtual ~Link() = default;
  /// May find the link open already; then it is open afterwards, too.
  virtual void open() = 0;
  virtual void close() = 0;
  virtual void send(const LinkTarget& target, std::span<const std::uint8_t> request) = 0;
  /// Waits for one response and puts it into `response` (its capacity is reused); false when none came in
  /// time.
  virtual bool receive(Bytes& response, std::chrono::milliseconds timeout) = 0;

  /// Why the last `receive` gave nothing, in the words of an adapter that told it at once ("the adapter says
  /// NO DATA"); empty: the time was over.
  virtual std::string silence() const { return {}; }

  /// The ECUs that answer an OBD request (service 01, ISO 15031-5) sent to all of them at once, as targets
  /// for `send`. Empty where the link has no way to ask all.
  virtual std::vector<LinkTarget> findEcus() { return {}; }
  /// Whether a service 01 request may ask this ECU for several PIDs at once, as ISO 15765-4 allows on CAN.
  /// Known after the first request to it.
  virtual bool takesSeveralPids(const LinkTarget& target) const {
    static_cast<void>(target);
    return false;
  }

  /// Where several requests may have their answers under way, and an answer is known only by who sent it: a
  /// number for whoever answers this target. None where the link itself finds the request of each answer.
  virtual std::optional<std::int64_t> answererOf(const LinkTarget& target) const {
    static_cast<void>(target);
    return {};
  }
  /// Reads away what has come from this answerer and was not asked for by the request sent last, or was not
  /// received then. True when there was something since the last call.
  virtual bool readUnasked(const LinkTarget& target) {
    static_cast<void>(target);
    return false;
  }

  /// Called at least every 20 ms while the link waits. It may do anything but use the link.
  void setIdleHook(IdleHook hook) { idleHook_ = std::move(hook); }

  /// Asked while the link waits: true breaks off with a TarnError what takes longer than a second.
  void setStopQuestion(StopQuestion question) { stopQuestion_ = std::move(question); }
  bool stopAsked() const { return stopQuestion_ && stopQuestion_(); }

  /// Told what an adapter that is spoken to in text is sent and says, each line without its end.
  virtual void setTextHook(TextHook hook) { textHook_ = std::move(hook); }
  bool textWanted() const { return static_cast<bool>(textHook_); }
  void tellText(bool sent, std::string_view line) const {
    if (textHook_) textHook_(sent, line);
  }

  /// Runs the idle hook: also for whoever waits between two uses of the link.
  void idle() const {
    if (idleHook_) idleHook_();
  }

 protected:
  const IdleHook& idleHook() const { return idleHook_; }

 private:
  IdleHook idleHook_;
  StopQuestion stopQuestion_;
  TextHook textHook_;
};

}  // namespace tarnlog::host
