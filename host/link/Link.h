#pragma once

#include <array>
#include <chrono>
#include <cstddef>
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

/// Data identifiers that are asked for at once where nothing else limits them.
inline constexpr std::size_t kMostIdentifiersAtOnce = 64;

/// How often requests of each diagnostic service were sent, by its identifier.
using ServiceCounts = std::array<std::uint64_t, 0x100>;

/// Whom a request is for: what a link needs to address an ECU.
struct LinkTarget {
  std::int32_t address = 0;                ///< the ECU's diagnostic address
  std::string protocol;                    ///< as the vehicle description names it, e.g. "KWP2000"
  std::optional<std::int32_t> response{};  ///< CAN identifier of its answers; none: follows from `address`
};

/// What a link does to ask faster, where it can.
struct LinkHabits {
  bool sideBySide = true;  ///< several ECUs are asked at a time
  bool bundles = true;     ///< several PIDs or data identifiers are asked for at once
};

/// Raised within a link when a request cannot reach its ECU, while the link itself works on. `Link` makes a
/// result of it.
class EcuUnreachable : public TarnError {
 public:
  using TarnError::TarnError;
};

/// The same, where it may be that the link's other end has too many requests under way.
class TurnedAway : public EcuUnreachable {
 public:
  using EcuUnreachable::EcuUnreachable;
};

/// Bytes out, bytes in. Bytes are those of the diagnostic service, without addresses, lengths and checksums
/// of the wire. Failures of the link itself are TarnErrors; it is not open any more then.
///
/// One exchange at a time, or one with each answerer where the link goes `sideBySide`.
///
/// Whether it is open is known here and nowhere else. What the kinds of links do is in the protected part.
class Link {
 public:
  using Bytes = std::vector<std::uint8_t>;
  using IdleHook = std::function<void()>;
  using StopQuestion = std::function<bool()>;
  using TextHook = std::function<void(bool sent, std::string_view line)>;

  /// What came next, and from `answerer`.
  enum class Received : std::uint8_t {
    response,
    nothing,      ///< in time, from anybody
    silent,       ///< it is known already that this ECU will not answer
    unasked,      ///< a response that came too early to be one to the newest request
    unreachable,  ///< the ECU cannot be reached, other ECUs can: see `obstacle`
    turnedAway    ///< the same, by a gateway that may have too much to do: it may take the request later
  };

  virtual ~Link() = default;
  /// Does nothing when it is open.
  void open();
  void close();
  bool isOpen() const { return open_; }
  /// False when the request cannot reach its ECU, while other ECUs can be asked: see `obstacle`.
  bool send(const LinkTarget& target, std::span<const std::uint8_t> request);
  /// Waits for one response of anybody who was asked, and puts it into `response` (its capacity is reused).
  /// What comes late or twice is not told from what was asked for, unless the link `matchesAnswers`.
  Received receive(Bytes& response, std::chrono::milliseconds timeout);
  /// Of the last `receive` that gave something.
  std::int64_t answerer() const { return answerer_; }
  /// The ECUs that answer an OBD request (service 01, ISO 15031-5) sent to all of them at once, as targets
  /// for `send`. Empty where the link has no way to ask all, and where they cannot be reached: see
  /// `obstacle`.
  std::vector<LinkTarget> findEcus();
  /// Why the ECU of the last step cannot be reached; empty when it can.
  virtual const std::string& obstacle() const { return obstacle_; }

  /// Why the last `receive` gave nothing, in the words of an adapter that told it at once ("the adapter says
  /// NO DATA"); empty: the time was over.
  virtual std::string silence() const { return {}; }

  /// Whether a service 01 request may ask this ECU for several PIDs at once, as ISO 15765-4 allows on CAN.
  /// Known after the first request to it.
  virtual bool takesSeveralPids(const LinkTarget& target) const {
    static_cast<void>(target);
    return false;
  }

  /// How many data identifiers a service 22 request may ask this ECU for at once (ISO 14229-1), as far as the
  /// link is concerned; at least 1. Known after the first request to it.
  virtual std::size_t mostIdentifiers(const LinkTarget& target) const {
    static_cast<void>(target);
    return 1;
  }

  /// A number for whoever answers this target.
  virtual std::int64_t answererOf(const LinkTarget& target) const { return target.address; }
  /// The link itself finds the request of each answer. Where it does not, an answer is known only by who sent
  /// it, and one that comes late may be taken for that to a newer request.
  virtual bool matchesAnswers() const { return true; }
  /// A long response of this answerer has begun to come, or a long request to it to leave. It ends, whole or
  /// as unreachable, while somebody receives.
  virtual bool isComing(std::int64_t answerer) const {
    static_cast<void>(answerer);
    return false;
  }
  /// One request to each answerer may be under way at a time.
  virtual bool sideBySide() const { return false; }
  /// What an adapter called itself when it was opened last; empty where there is none.
  virtual std::string adapterName() const { return {}; }
  /// What has left since the link was made: what it asks of its own accord and sends once more included.
  virtual const ServiceCounts& servicesSent() const { return servicesSent_; }

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
  virtual void doOpen() = 0;
  virtual void doClose() = 0;
  virtual bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) = 0;
  virtual Received doReceive(Bytes& response, std::chrono::milliseconds timeout) = 0;
  virtual std::vector<LinkTarget> doFindEcus() { return {}; }
  /// To be called before `doReceive` returns or raises; without it, who was asked last.
  void setAnswerer(std::int64_t answerer) { answerer_ = answerer; }
  const IdleHook& idleHook() const { return idleHook_; }
  /// To be called where a request leaves.
  void noteSent(std::span<const std::uint8_t> request) {
    if (!request.empty()) ++servicesSent_[request.front()];
  }

 private:
  template <class Result, class Step>
  Result watched(Result unreachable, Step&& step);

  bool open_ = false;
  std::int64_t asked_ = 0;  ///< last
  std::int64_t answerer_ = 0;
  std::string obstacle_;
  IdleHook idleHook_;
  StopQuestion stopQuestion_;
  TextHook textHook_;
  ServiceCounts servicesSent_{};
};

}  // namespace tarnlog::host
