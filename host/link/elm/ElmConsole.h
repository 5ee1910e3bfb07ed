#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/elm/ElmText.h"
#include "host/link/stream/ByteStream.h"
#include "platform/base/TarnError.h"

namespace tarnlog::host {

/// What came between a command and the prompt behind it.
struct ElmReply {
  bool prompted = false;  ///< false: the prompt did not come in time
  bool anything = false;  ///< some byte came
  std::vector<ElmLine> lines;

  bool has(ElmNotice notice) const;
  /// The first line that came, however it reads; empty without one.
  std::string_view text() const;
};

/// The connection to the adapter failed.
class AdapterGone : public TarnError {
 public:
  using TarnError::TarnError;
};

/// Commands and answers of an adapter. Failures of the connection are raised as AdapterGone.
class ElmConsole {
 public:
  ElmConsole(std::unique_ptr<ByteStream> stream, LinkClock& clock);

  /// What runs while something is awaited. When the question is answered with yes, a wait ends with a
  /// TarnError a second after what is done now was begun.
  void setWaiting(std::function<void()> idleHook, std::function<bool()> stopQuestion);
  /// From now on nothing runs, and nobody is asked.
  void waitAlone();
  /// Something new is done with the adapter.
  void begin() { begun_ = clock_.now(); }
  void open();
  /// An adapter that is still at work is interrupted.
  void close();

  /// The stream's, see there.
  int rate() const { return stream_->rate(); }
  bool setRate(int bitsPerSecond);
  /// A point of time.
  Moment in(std::chrono::milliseconds time) const { return clock_.now() + time; }
  /// Interrupts an adapter that is at work, and waits for its prompt.
  void rest(std::chrono::milliseconds patience);
  /// Drops what has come, until nothing comes for `quiet`, but for `longest` at most.
  void drop(std::chrono::milliseconds quiet, std::chrono::milliseconds longest);
  /// Sends a line and its CR.
  void write(std::string_view text);
  /// The next line or the prompt (none when `deadline` is over before); what the adapter repeats of the last
  /// line sent is left out.
  struct Item {
    bool prompt = false;
    ElmLine line;
  };
  std::optional<Item> next(Moment deadline);
  /// The adapter has begun to say that it searches or starts a bus.
  bool atWork() const { return beginsWork(reader_.begun()); }
  /// What came first since it was opened, as it came: some hundred bytes at most.
  const std::string& said() const { return said_; }
  /// Of the requests among the lines sent.
  const ServiceCounts& servicesSent() const { return servicesSent_; }
  /// Sends a line and takes everything up to the prompt. At most 64 lines are kept.
  ElmReply command(std::string_view text, std::chrono::milliseconds patience);

 private:
  template <class Step>
  auto reached(const char* failure, Step&& step);
  bool fill(Moment deadline);
  void breakOffWhenAsked() const;
  void interrupt();
  void noteRequest(std::string_view text);

  std::unique_ptr<ByteStream> stream_;
  LinkClock& clock_;
  ElmReader reader_;
  std::array<std::uint8_t, 4096> bytes_{};
  std::string sent_;    ///< the line sent last
  std::string output_;  ///< kept for its capacity
  bool anything_ = false;
  std::string said_;
  ServiceCounts servicesSent_{};
  bool atRest_ = true;  ///< the prompt came after the last line
  std::function<bool()> stopAsked_;
  Moment begun_{};
};

}  // namespace tarnlog::host
