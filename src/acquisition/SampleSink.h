#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/AcqScreen.h"
#include "config/oTarnParameters.h"
#include "platform/ferrox3/Session.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// 128 random bits that name an acquisition or a recording.
struct SampleId {
  std::array<std::uint8_t, 16> bytes{};

  bool operator==(const SampleId&) const = default;
  /// 32 hexadecimal digits.
  std::string text() const;
  static SampleId random();
};

/// A request that is polled, and those of its data that are acquired, in the order of the configuration.
struct SampleRequest {
  const ferrox3::Request* request = nullptr;
  std::vector<const ferrox3::DataItem*> items;
};

/// All times of samples are microseconds of `Clock::microseconds`. What pointers and references show is there
/// while answers come: no longer when `end`, or a `recordingEnded` right before it, is told.
struct SampleBeginning {
  SampleId acquisition;
  std::int64_t at = 0;              ///< taken together with the next
  std::int64_t utcNanoseconds = 0;  ///< since 1970
  ZoneOffset zone;
  std::vector<SampleRequest> requests{};  ///< in the order in which they are sent; without those of no item
  std::vector<ferrox3::Fact> facts{};     ///< known already; an adapter is often asked for its name later
  const oTarnParameters& parameters;
};

/// What becomes known, or grows, while an acquisition runs.
struct SampleContext {
  std::vector<ferrox3::Fact> facts{};
  std::vector<ferrox3::ServiceCount> servicesSent{};
};

/// A request was answered: its items have their new values, which are "not available" (NaN) where
/// `outcome` is Refused or Silent.
struct SampleAnswer {
  std::uint64_t sequence = 0;  ///< 1, 2, ... over all requests of an acquisition
  std::size_t request = 0;     ///< position in `SampleBeginning::requests`
  std::int64_t sent = 0;
  std::int64_t received = 0;
  ferrox3::Exchange::Outcome outcome = ferrox3::Exchange::Outcome::Answered;
};

/// A request failed, so that the ECUs are initialised again; its items keep their values.
struct SampleFailure {
  std::size_t request = 0;
  std::int64_t sent = 0;
  std::int64_t at = 0;
  std::string_view reason;
};

/// A record file was opened.
struct SampleRecording {
  SampleId id;
  std::string_view path;  ///< of the record file
  std::int64_t zero = 0;  ///< the file's times count from here
  std::int64_t from = 0;  ///< time of its first row: earlier than `zero` with rows before the start
};

/// All requests were answered.
struct SampleCycle {
  std::int64_t began = 0;
  /// A recording that starts now has rows from this time on: what came earlier is not needed for it.
  std::int64_t keepFrom = 0;
};

struct SampleMark {
  enum class Kind : std::uint8_t { Start, Stop, Event };
  Kind kind = Kind::Event;
  std::int64_t at = 0;
  std::int32_t number = 0;  ///< of an event; 0 for one outside of a recording
  std::string_view path;    ///< of the event's file; of the record file for start and stop
};

/// Hears what an acquisition gets from the vehicle, as it comes. A sink never waits. What it raises is passed
/// over; what it cannot take, it counts and tells.
class SampleSink {
 public:
  virtual ~SampleSink() = default;
  virtual void begin(const SampleBeginning& /*beginning*/) {}
  /// Told behind `begin`, and right before the state in which requests are polled and before each
  /// `recordingBegan`, `recordingEnded` and `end`.
  virtual void context(const SampleContext& /*context*/) {}
  virtual void answer(const SampleAnswer& /*answer*/) {}
  /// A request's turn passed without its being sent.
  virtual void notAsked(std::size_t /*request*/) {}
  virtual void failure(const SampleFailure& /*failure*/) {}
  virtual void state(AcquisitionState /*state*/, std::int64_t /*at*/) {}
  virtual void cycle(const SampleCycle& /*cycle*/) {}
  virtual void recordingBegan(const SampleRecording& /*recording*/) {}
  virtual void mark(const SampleMark& /*mark*/) {}
  /// So many rows were given to the record file, those before the start included.
  virtual void recordingEnded(std::int64_t /*at*/, std::uint64_t /*rows*/) {}
  /// No answer came from `from` to `till`, for longer than usual.
  virtual void gap(std::int64_t /*from*/, std::int64_t /*till*/) {}
  /// The wall clock was set by so much.
  virtual void clockStep(std::int64_t /*at*/, std::int64_t /*nanoseconds*/) {}
  virtual void end(std::int64_t /*at*/) {}
};

}  // namespace tarnlog
