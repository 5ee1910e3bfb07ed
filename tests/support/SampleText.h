#pragma once

#include <string>
#include <utility>

#include "acquisition/SampleSink.h"
#include "tests/support/RecorderParts.h"

namespace tarnlog::test {

/// A sample sink that writes what it hears as text, a line each. Times are milliseconds since the beginning.
class SampleText : public SampleSink {
 public:
  /// What came since the last time.
  std::string take() { return std::exchange(text_, {}); }

  void begin(const SampleBeginning& beginning) override {
    at_ = beginning.at;
    line("begin " + short_(beginning.acquisition));
    for (const SampleRequest& request : beginning.requests) {
      text_ += " " + request.request->ecu().name() + "/" + request.request->name();
      for (const ferrox3::DataItem* const item : request.items) text_ += "/" + item->name();
    }
  }
  void context(const SampleContext& context) override {
    line("context");
    for (const ferrox3::Fact& fact : context.facts) text_ += " " + fact.name + "=" + fact.text;
    for (const ferrox3::ServiceCount& count : context.servicesSent)
      text_ += " " + count.name + "=" + std::to_string(count.sent);
  }
  void answer(const SampleAnswer& answer) override {
    line("answer " + std::to_string(answer.sequence) + " to " + std::to_string(answer.request) + ": " +
         time(answer.sent) + " to " + time(answer.received));
    if (answer.outcome == ferrox3::Exchange::Outcome::Refused) text_ += " refused";
    if (answer.outcome == ferrox3::Exchange::Outcome::Silent) text_ += " silent";
  }
  void notAsked(std::size_t request) override { line("not asked " + std::to_string(request)); }
  void failure(const SampleFailure& failure) override {
    line("failure of " + std::to_string(failure.request) + ": " + time(failure.sent) + " to " +
         time(failure.at) + " ");
    text_ += failure.reason;
  }
  void state(AcquisitionState state, std::int64_t at) override {
    line("state " + std::to_string(static_cast<int>(state)) + " at " + time(at));
  }
  void cycle(const SampleCycle& cycle) override {
    line("cycle " + time(cycle.began) + " keep from " + time(cycle.keepFrom));
  }
  void recordingBegan(const SampleRecording& recording) override {
    line("recording " + short_(recording.id) + " from " + time(recording.from) + " zero " +
         time(recording.zero));
  }
  void mark(const SampleMark& mark) override {
    line(std::string(mark.kind == SampleMark::Kind::Start  ? "start"
                     : mark.kind == SampleMark::Kind::Stop ? "stop"
                                                           : "event") +
         std::to_string(mark.number) + " at " + time(mark.at) + " ");
    text_ += mark.path;
  }
  void recordingEnded(std::int64_t at, std::uint64_t rows) override {
    line("recording end at " + time(at) + " rows " + std::to_string(rows));
  }
  void gap(std::int64_t from, std::int64_t till) override { line("gap " + time(from) + " to " + time(till)); }
  void clockStep(std::int64_t at, std::int64_t nanoseconds) override {
    line("clock step at " + time(at) + " by " + std::to_string(nanoseconds));
  }
  void end(std::int64_t at) override { line("end at " + time(at)); }

 private:
  void line(const std::string& text) { text_ += "\n" + text; }
  std::string time(std::int64_t at) const { return std::to_string((at - at_) / 1000); }
  static std::string short_(const SampleId& id) { return id.text().substr(0, 2); }

  std::string text_;
  std::int64_t at_ = 0;
};

}  // namespace tarnlog::test
