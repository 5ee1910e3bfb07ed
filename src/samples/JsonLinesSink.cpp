#include "samples/JsonLinesSink.h"

#include <utility>
#include <variant>

#include "platform/base/Overloaded.h"
#include "platform/base/TarnError.h"
#include "samples/JsonText.h"

namespace tarnlog {

namespace {

/// A cycle of more is handed over in pieces.
constexpr std::size_t kMostAtOnce = 65536;
constexpr std::int64_t kLongestWait = 20'000;  // µs

std::string_view nameOf(AcquisitionState state) {
  switch (state) {
    case AcquisitionState::kIdle:
      return "idle";
    case AcquisitionState::kInitialise:
      return "initialise";
    case AcquisitionState::kStartSessions:
      return "start sessions";
    case AcquisitionState::kCommunicate:
      return "communicate";
    case AcquisitionState::kWaitAfterInit:
      return "wait after initialisation";
    case AcquisitionState::kWaitBeforePolling:
      return "wait before polling";
  }
  return {};
}

std::string_view nameOf(SampleMark::Kind kind) {
  switch (kind) {
    case SampleMark::Kind::Start:
      return "start";
    case SampleMark::Kind::Stop:
      return "stop";
    case SampleMark::Kind::Event:
      break;
  }
  return "event";
}

std::string_view typeOf(const ferrox3::DataItem& item) {
  switch (item.typeCode()) {
    case ferrox3::kInteger:
      return "integer";
    case ferrox3::kString:
      return "text";
    case ferrox3::kByteArray:
      return "bytes";
    default:
      return "number";
  }
}

void appendHex(ByteBuffer& out, const ferrox3::Bytes& bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out.append(1, '"');
  for (const std::uint8_t byte : bytes) {
    out.append(1, kDigits[byte >> 4U]);
    out.append(1, kDigits[byte & 0xFU]);
  }
  out.append(1, '"');
}

std::string quoted(std::string_view text) {
  ByteBuffer out;
  appendJson(out, text);
  return std::string(out.view());
}

/// "," but in front of the first.
void separate(ByteBuffer& out) {
  const char last = out.view().back();
  if (last != '{' && last != '[') out.append(1, ',');
}

}  // namespace

/// What fails on the way, where a host raises, leaves no line behind.
template <class Fill>
void JsonLinesSink::line(std::string_view type, Fill fill) {
  const std::size_t before = out_.size();
  const bool whole = skipOnFailure([&] {
    out_.append("{\"type\":\"");
    out_.append(type);
    out_.append(1, '"');
    fill();
    out_.append("}\n");
  });
  if (whole)
    ++lines_;
  else
    out_.end(out_.view().data() + before);
}

template <class Value>
void JsonLinesSink::member(std::string_view name, const Value& value) {
  separate(out_);
  out_.append(1, '"');
  out_.append(name);
  out_.append("\":");
  appendJson(out_, value);
}

void JsonLinesSink::time(std::string_view name, std::int64_t at) {
  separate(out_);
  out_.append(1, '"');
  out_.append(name);
  out_.append("\":");
  moments_.append(out_, utc(at));
}

void JsonLinesSink::begin(const SampleBeginning& beginning) {
  at_ = beginning.at;
  utc_ = beginning.utcNanoseconds;
  requests_.clear();
  out_.clear();
  lines_ = 0;
  for (const SampleRequest& sampled : beginning.requests) {
    Request& request = requests_.emplace_back();
    request.names = ",\"ecu\":" + quoted(sampled.request->ecu().name()) +
                    ",\"request\":" + quoted(sampled.request->name());
    for (const ferrox3::DataItem* const item : sampled.items)
      request.items.push_back({item, (request.items.empty() ? "" : ",") + quoted(item->name()) + ":"});
  }
  line("begin", [&] { describe(beginning); });
  handOver();
}

void JsonLinesSink::describe(const SampleBeginning& beginning) {
  time("t", beginning.at);
  member("acquisition", beginning.acquisition.text());
  member("zone", std::int64_t{beginning.zone.zone + beginning.zone.summer});
  facts(beginning.facts);
  out_.append(",\"requests\":[");
  for (const SampleRequest& request : beginning.requests) describe(request);
  out_.append(1, ']');
}

void JsonLinesSink::facts(const std::vector<ferrox3::Fact>& facts) {
  factsTold_ = facts.size();
  out_.append(",\"facts\":{");
  for (const ferrox3::Fact& fact : facts) {
    separate(out_);
    appendJson(out_, fact.name);
    out_.append(1, ':');
    appendJson(out_, fact.text);
  }
  out_.append(1, '}');
}

/// An adapter tells its name when it is opened, which may be after the beginning.
void JsonLinesSink::context(const SampleContext& context) {
  if (context.facts.size() > factsTold_) line("facts", [&] { facts(context.facts); });
}

void JsonLinesSink::describe(const SampleRequest& request) {
  separate(out_);
  out_.append(1, '{');
  member("ecu", request.request->ecu().name());
  member("request", request.request->name());
  out_.append(",\"data\":[");
  for (const ferrox3::DataItem* const item : request.items) describe(*item);
  out_.append("]}");
}

void JsonLinesSink::describe(const ferrox3::DataItem& item) {
  separate(out_);
  out_.append(1, '{');
  member("name", item.name());
  member("unit", item.unit());
  member("type", typeOf(item));
  member("minimum", item.minimum());
  member("maximum", item.maximum());
  if (const ferrox3::Enumeration* const labels = item.enumeration()) {
    out_.append(",\"labels\":{");
    for (std::int32_t position = 1; position <= labels->Count(); ++position) {
      const std::string label = labels->label(position);
      member(std::to_string(labels->value(label)), label);
    }
    out_.append(1, '}');
  }
  out_.append(1, '}');
}

void JsonLinesSink::answer(const SampleAnswer& answer) {
  using Outcome = ferrox3::Exchange::Outcome;
  const Request& request = requests_.at(answer.request);
  line("answer", [&] {
    out_.append(",\"t\":");
    moments_.append(out_, utc(answer.received));
    out_.append(",\"sent\":");
    moments_.append(out_, utc(answer.sent));
    out_.append(request.names);
    out_.append(",\"seq\":");
    appendJson(out_, answer.sequence);
    if (answer.outcome == Outcome::Refused) out_.append(",\"outcome\":\"refused\"");
    if (answer.outcome == Outcome::Silent) out_.append(",\"outcome\":\"silent\"");
    values(request);
  });
  newest_ = answer.received;
  if (waiting_ == 0) waiting_ = newest_;
  if (out_.size() > kMostAtOnce) handOver();
}

void JsonLinesSink::values(const Request& request) {
  out_.append(",\"values\":{");
  for (const Item& item : request.items) {
    out_.append(item.key);
    const std::size_t before = out_.size();
    if (skipOnFailure([&] { value(*item.item); })) continue;
    out_.end(out_.view().data() + before);
    out_.append("null");
  }
  out_.append(1, '}');
}

void JsonLinesSink::value(const ferrox3::DataItem& item) {
  std::visit(Overloaded{[this](const ferrox3::Bytes& bytes) { appendHex(out_, bytes); },
                        [this](const std::string& text) { appendJson(out_, text); },
                        [this](std::int32_t number) { appendJson(out_, std::int64_t{number}); },
                        [this](double number) { appendJson(out_, number); }},
             item.value());
}

void JsonLinesSink::failure(const SampleFailure& failure) {
  line("failure", [&] {
    time("t", failure.at);
    time("sent", failure.sent);
    out_.append(requests_.at(failure.request).names);
    member("reason", failure.reason);
  });
  handOver();
}

void JsonLinesSink::state(AcquisitionState state, std::int64_t at) {
  line("state", [&] {
    time("t", at);
    member("state", nameOf(state));
  });
  handOver();
}

/// The next answers are expected one cycle later.
void JsonLinesSink::cycle(const SampleCycle& cycle) {
  const std::int64_t next = newest_ + (cycle.began - std::exchange(cycleBegan_, cycle.began));
  if (next - waiting_ >= kLongestWait) handOver();
}

void JsonLinesSink::recordingBegan(const SampleRecording& recording) {
  line("recording", [&] {
    time("t", recording.zero);
    time("from", recording.from);
    member("recording", recording.id.text());
    member("path", recording.path);
  });
}

void JsonLinesSink::mark(const SampleMark& mark) {
  line("mark", [&] {
    time("t", mark.at);
    member("mark", nameOf(mark.kind));
    member("number", std::int64_t{mark.number});
    member("path", mark.path);
  });
  handOver();
}

void JsonLinesSink::recordingEnded(std::int64_t at, std::uint64_t rows) {
  line("recording end", [&] {
    time("t", at);
    member("rows", rows);
  });
  handOver();
}

void JsonLinesSink::gap(std::int64_t from, std::int64_t till) {
  line("gap", [&] {
    time("t", till);
    time("from", from);
  });
}

void JsonLinesSink::clockStep(std::int64_t at, std::int64_t nanoseconds) {
  line("clock step", [&] {
    time("t", at);
    member("nanoseconds", nanoseconds);
  });
}

/// Of what is lost until now there is no later line that could tell.
void JsonLinesSink::end(std::int64_t at) {
  line("end", [&] { time("t", at); });
  handOver();
  if (lost_ > 0 && lossHandler_) lossHandler_(false, lost_);
  lost_ = 0;
}

void JsonLinesSink::handOver() {
  if (lost_ == 0) {
    if (!taken(out_.view())) lose();
  } else {
    withLoss_.clear();
    withLoss_.append("{\"type\":\"lost\",\"lines\":");
    appendJson(withLoss_, lost_);
    withLoss_.append("}\n");
    withLoss_.append(out_.view());
    if (!taken(withLoss_.view()))
      lose();
    else if (const std::uint64_t lost = std::exchange(lost_, 0); lossHandler_)
      lossHandler_(false, lost);
  }
  out_.clear();
  lines_ = 0;
  waiting_ = 0;
}

bool JsonLinesSink::taken(std::string_view lines) {
  bool all = false;
  skipOnFailure([&] { all = lines.empty() || target_.take(lines); });
  return all;
}

void JsonLinesSink::lose() {
  const bool begins = lost_ == 0;
  lost_ += lines_;
  if (begins && lossHandler_) lossHandler_(true, 0);
}

}  // namespace tarnlog
