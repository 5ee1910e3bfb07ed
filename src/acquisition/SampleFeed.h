#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "acquisition/AcquisitionItems.h"
#include "acquisition/GapWatch.h"
#include "acquisition/SampleSink.h"
#include "platform/time/Clock.h"

namespace tarnlog {

/// Tells the sample sinks what an acquisition does: numbers its answers, takes their times from the host
/// where it tells them, and notices gaps and steps of the wall clock. Costs nothing without sinks.
class SampleFeed {
 public:
  using NewId = std::function<SampleId()>;

  /// The sinks outlive the feed.
  SampleFeed(const Clock& clock, std::vector<SampleSink*> sinks, NewId newId);

  /// Items, session and parameters stay as they are until `end`. A host that fails to describe its requests
  /// is not told about.
  void begin(const AcquisitionItems& items, const ferrox3::Session& session,
             const oTarnParameters& parameters);
  void state(AcquisitionState state);
  /// Before the request at this position of the poll set is sent.
  void sending(std::size_t position);
  void answered();
  void failed(std::string_view reason);
  /// All requests were answered; the first one was sent after `began`. A recording that started now would
  /// have rows from `keepFrom` on.
  void cycle(Milliseconds began, Milliseconds keepFrom);
  void recordingBegan(const std::string& path, Milliseconds zero, Milliseconds from);
  void stopMarked() { mark(SampleMark::Kind::Stop, 0, recordPath_, clock_.microseconds()); }
  void eventMarked(std::int32_t number, std::string_view path) {
    mark(SampleMark::Kind::Event, number, path, clock_.microseconds());
  }
  void recordingEnded(std::uint64_t rows);
  void end();

 private:
  template <class Tell>
  void tell(Tell tell) const;
  void collectRequests(const AcquisitionItems& items, SampleBeginning& beginning);
  std::optional<ferrox3::Exchange> exchange() const;
  void mark(SampleMark::Kind kind, std::int32_t number, std::string_view path, std::int64_t at) const;
  void lookAtWallClock();
  void tellContext() const;
  std::int64_t microsecondsOf(Milliseconds moment) const;

  const Clock& clock_;
  std::vector<SampleSink*> sinks_;
  NewId newId_;
  const ferrox3::Session* session_ = nullptr;
  bool begun_ = false;
  /// Of each request of the poll set its position among those that sinks hear of.
  std::vector<std::optional<std::size_t>> positions_;
  std::vector<const ferrox3::Request*> polled_;
  std::size_t current_ = 0;
  bool hostTellsTimes_ = false;
  std::int64_t sent_ = 0;  ///< the request that is under way
  std::uint64_t sequence_ = 0;
  std::int64_t wallAhead_ = 0;  ///< of the monotonic clock, nanoseconds
  GapWatch gaps_;
  bool recording_ = false;
  std::string recordPath_;
};

}  // namespace tarnlog
