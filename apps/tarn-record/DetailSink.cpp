#include "apps/tarn-record/DetailSink.h"

#include <fmt/format.h>

#include <cstddef>

#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

double seconds(std::int64_t microseconds) { return static_cast<double>(microseconds) / 1e6; }

}  // namespace

std::string stateText(AcquisitionState state) {
  switch (state) {
    case AcquisitionState::kIdle:
      return Told::tr("idle");
    case AcquisitionState::kInitialise:
      return Told::tr("initialising the ECUs");
    case AcquisitionState::kStartSessions:
      return Told::tr("starting the diagnostic sessions");
    case AcquisitionState::kCommunicate:
      return Told::tr("polling");
    case AcquisitionState::kWaitAfterInit:
      return Told::tr("waiting after the initialisation");
    case AcquisitionState::kWaitBeforePolling:
      return Told::tr("waiting before polling");
  }
  return {};
}

void DetailSink::begin(const SampleBeginning& beginning) {
  tellFacts(beginning.facts);
  tellRequests(beginning);
}

/// An adapter tells its name when it is opened, which may be after the beginning. The link was told when the
/// vehicle was opened.
void DetailSink::tellFacts(const std::vector<ferrox3::Fact>& facts) {
  for (; factsTold_ < facts.size(); ++factsTold_)
    if (facts[factsTold_].name != "link")
      print_(fmt::format("{}: {}", facts[factsTold_].name, facts[factsTold_].text));
}

void DetailSink::tellRequests(const SampleBeginning& beginning) {
  requests_.clear();
  for (const SampleRequest& each : beginning.requests) {
    const ferrox3::Ecu& ecu = each.request->ecu();
    requests_.push_back(ecu.name() + "/" + each.request->name());
    print_(Told::tr("asks {} (address 0x{:X}, {}): {}, frame {}, for {} data", ecu.name(),
                    static_cast<std::uint32_t>(ecu.address()), ecu.protocolName(), each.request->name(),
                    each.request->frameText(true), each.items.size()));
  }
}

void DetailSink::context(const SampleContext& context) { tellFacts(context.facts); }

void DetailSink::failure(const SampleFailure& failure) {
  print_(Told::tr("{} failed after {:.3f} s: {}", requests_.at(failure.request),
                  seconds(failure.at - failure.sent), failure.reason));
}

void DetailSink::state(AcquisitionState state, std::int64_t /*at*/) {
  print_(Told::tr("state: {}", stateText(state)));
}

void DetailSink::recordingBegan(const SampleRecording& recording) {
  print_(Told::tr("records into {}, from {:.3f} s on", recording.path,
                  seconds(recording.from - recording.zero)));
}

void DetailSink::gap(std::int64_t from, std::int64_t till) {
  print_(Told::tr("no answer came for {:.3f} s", seconds(till - from)));
}

void DetailSink::clockStep(std::int64_t /*at*/, std::int64_t nanoseconds) {
  print_(Told::tr("somebody set the clock by {:.3f} s", static_cast<double>(nanoseconds) / 1e9));
}

}  // namespace tarnlog::record
