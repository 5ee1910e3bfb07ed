#include "acquisition/SampleFeed.h"

#include <algorithm>
#include <cstdlib>
#include <random>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

/// A wall clock that is kept by the network drifts against the monotonic one by less.
constexpr std::int64_t kClockStep = 50'000'000;  // ns

}  // namespace

std::string SampleId::text() const {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text.push_back(kDigits[byte >> 4U]);
    text.push_back(kDigits[byte & 0xFU]);
  }
  return text;
}

SampleId SampleId::random() {
  std::random_device source;
  SampleId id;
  for (std::uint8_t& byte : id.bytes) byte = static_cast<std::uint8_t>(source());
  return id;
}

SampleFeed::SampleFeed(const Clock& clock, std::vector<SampleSink*> sinks, NewId newId)
    : clock_(clock), sinks_(std::move(sinks)), newId_(std::move(newId)) {}

/// A sink that fails must not cost the acquisition, nor the other sinks, anything.
template <class Tell>
void SampleFeed::tell(Tell tell) const {
  for (SampleSink* const sink : sinks_) skipOnFailure([&] { tell(*sink); });
}

void SampleFeed::begin(const AcquisitionItems& items, const ferrox3::Session& session,
                       const oTarnParameters& parameters) {
  if (sinks_.empty()) return;
  SampleBeginning beginning{.acquisition = {}, .zone = clock_.zoneOffset(), .parameters = parameters};
  const bool described = skipOnFailure([&] {
    beginning.acquisition = newId_();
    beginning.facts = session.facts();
    collectRequests(items, beginning);
  });
  if (!described) return;
  session_ = &session;
  beginning.at = clock_.microseconds();
  beginning.utcNanoseconds = clock_.utcNanoseconds();
  wallAhead_ = beginning.utcNanoseconds - beginning.at * 1000;
  sequence_ = 0;
  gaps_ = {};
  recording_ = hostTellsTimes_ = false;
  begun_ = true;
  tell([&](SampleSink& sink) { sink.begin(beginning); });
  tellContext();
}

void SampleFeed::tellContext() const {
  SampleContext context;
  skipOnFailure([&] { context = {session_->facts(), session_->servicesSent()}; });
  tell([&](SampleSink& sink) { sink.context(context); });
}

void SampleFeed::collectRequests(const AcquisitionItems& items, SampleBeginning& beginning) {
  const ferrox3::PollSet& pollSet = items.pollSet();
  positions_.assign(pollSet.requestCount(), std::nullopt);
  polled_.clear();
  for (std::size_t i = 0; i < pollSet.requestCount(); ++i) {
    SampleRequest request{&pollSet.request(i), {}};
    polled_.push_back(request.request);
    const auto carries = [&](const ferrox3::DataItem* item) {
      const ferrox3::Request& other = item->request();
      return other.name() == request.request->name() && &other.ecu() == &request.request->ecu();
    };
    std::ranges::copy_if(items.items(), std::back_inserter(request.items), carries);
    if (request.items.empty()) continue;
    positions_[i] = beginning.requests.size();
    beginning.requests.push_back(std::move(request));
  }
}

void SampleFeed::state(AcquisitionState state) {
  if (!begun_) return;
  if (state == AcquisitionState::kCommunicate) tellContext();
  tell([&](SampleSink& sink) { sink.state(state, clock_.microseconds()); });
}

/// Where the host tells the times, the clock is read no more often than once a cycle: each request is sent
/// when the one before it is answered.
void SampleFeed::sending(std::size_t position) {
  if (!begun_) return;
  current_ = position;
  if (position == 0 || !hostTellsTimes_) sent_ = clock_.microseconds();
}

std::optional<ferrox3::Exchange> SampleFeed::exchange() const {
  std::optional<ferrox3::Exchange> known;
  skipOnFailure([&] { known = polled_[current_]->lastExchange(); });
  return known;
}

void SampleFeed::answered() {
  if (!begun_ || !positions_[current_]) return;
  const std::size_t request = *positions_[current_];
  using Outcome = ferrox3::Exchange::Outcome;
  const std::optional<ferrox3::Exchange> told = exchange();
  hostTellsTimes_ = told.has_value();
  const ferrox3::Exchange known =
      told ? *told : ferrox3::Exchange{Outcome::Answered, sent_, clock_.microseconds()};
  if (known.outcome == Outcome::NotAsked) return tell([&](SampleSink& sink) { sink.notAsked(request); });
  sent_ = known.received;
  const SampleAnswer answer{++sequence_, request, known.sent, known.received, known.outcome};
  const auto gapFrom = answer.outcome == Outcome::Silent ? std::nullopt : gaps_.answered(answer.received);
  if (gapFrom) tell([&](SampleSink& sink) { sink.gap(*gapFrom, answer.received); });
  tell([&](SampleSink& sink) { sink.answer(answer); });
}

void SampleFeed::failed(std::string_view reason) {
  if (!begun_ || !positions_[current_]) return;
  const SampleFailure failure{*positions_[current_], sent_, clock_.microseconds(), reason};
  tell([&](SampleSink& sink) { sink.failure(failure); });
}

void SampleFeed::cycle(Milliseconds began, Milliseconds keepFrom) {
  if (!begun_) return;
  const SampleCycle cycle{microsecondsOf(began), microsecondsOf(keepFrom)};
  gaps_.cycle(cycle.began);
  lookAtWallClock();
  tell([&](SampleSink& sink) { sink.cycle(cycle); });
}

void SampleFeed::lookAtWallClock() {
  const std::int64_t now = clock_.microseconds();
  const std::int64_t ahead = clock_.utcNanoseconds() - now * 1000;
  const std::int64_t step = ahead - wallAhead_;
  wallAhead_ = ahead;
  if (std::abs(step) > kClockStep) tell([&](SampleSink& sink) { sink.clockStep(now, step); });
}

void SampleFeed::recordingBegan(const std::string& path, Milliseconds zero, Milliseconds from) {
  if (!begun_) return;
  recordPath_ = path;
  recording_ = true;
  tellContext();
  const SampleRecording recording{newId_(), recordPath_, microsecondsOf(zero), microsecondsOf(from)};
  tell([&](SampleSink& sink) { sink.recordingBegan(recording); });
  mark(SampleMark::Kind::Start, 0, recordPath_, recording.zero);
}

void SampleFeed::mark(SampleMark::Kind kind, std::int32_t number, std::string_view path,
                      std::int64_t at) const {
  if (begun_) tell([&](SampleSink& sink) { sink.mark({kind, at, number, path}); });
}

void SampleFeed::recordingEnded(std::uint64_t rows) {
  if (!std::exchange(recording_, false)) return;
  tellContext();
  tell([&](SampleSink& sink) { sink.recordingEnded(clock_.microseconds(), rows); });
}

void SampleFeed::end() {
  if (!std::exchange(begun_, false)) return;
  lookAtWallClock();
  tellContext();
  tell([&](SampleSink& sink) { sink.end(clock_.microseconds()); });
}

/// The same millisecond, at its beginning: an answer of the cycle that began then is not earlier.
std::int64_t SampleFeed::microsecondsOf(Milliseconds moment) const {
  const std::int64_t now = clock_.microseconds();
  return now - now % 1000 -
         std::int64_t{millisecondsBetween(moment, static_cast<Milliseconds>(now / 1000))} * 1000;
}

}  // namespace tarnlog
