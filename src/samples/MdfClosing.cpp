#include "samples/MdfClosing.h"

#include <fmt/format.h>

#include <algorithm>

#include "mdf/BlockWriter.h"
#include "samples/MdfHead.h"

namespace tarnlog {

using mdf::Fields;

MdfEvent markEvent(SampleMark::Kind kind, std::int64_t at, std::int64_t number, std::string_view file) {
  MdfEvent event{.at = at, .name = "Event", .comment = std::string(file)};
  if (kind == SampleMark::Kind::Event) {
    event.cause = mdf::EventCause::User;
    if (number != 0) event.name += " " + std::to_string(number);
  } else {
    const bool start = kind == SampleMark::Kind::Start;
    event.kind = start ? mdf::EventKind::StartTrigger : mdf::EventKind::StopTrigger;
    event.name = start ? "Start" : "Stop";
  }
  return event;
}

MdfEvent gapEvent(std::int64_t at, std::int64_t till) {
  return {.kind = mdf::EventKind::Interrupted, .at = at, .till = till, .name = "Gap"};
}

MdfEvent clockStepEvent(std::int64_t at, double seconds) {
  return {.at = at, .name = fmt::format("Clock step {:+.3f} s", seconds)};
}

namespace {

/// The blocks that stand behind the records, and what then is to link to them.
struct Tail {
  std::string bytes;
  std::uint64_t firstEvent = 0;
  std::uint64_t quality = 0;
};

class TailWriter {
 public:
  explicit TailWriter(std::uint64_t place) : blocks_(place) {}

  void write(const MdfEvent& event) {
    const bool span = event.till.has_value();
    const std::uint64_t begin = add(event, event.at, span ? mdf::EventRange::Begin : mdf::EventRange::Point);
    if (span) blocks_.setLink(add(event, *event.till, mdf::EventRange::End), mdf::link::kRange, begin);
  }

  std::uint64_t writeQuality(const MdfClosing& closing) {
    const std::uint64_t history =
        blocks_.add(mdf::kHistory, {}, mdfHistoryData(closing.utcNanoseconds, closing.zone));
    const std::uint64_t comment =
        blocks_.addXml(mdfComment("FHcomment", closing.quality->line, closing.quality->figures,
                                  "<tool_id>Tarnlog2001</tool_id><tool_vendor>Tarnlog2001</tool_vendor>"
                                  "<tool_version/>"));
    blocks_.setLink(history, mdf::link::kHistoryComment, comment);
    return history;
  }

  std::uint64_t firstEvent() const { return first_; }
  const std::string& bytes() const { return blocks_.bytes(); }

 private:
  std::uint64_t add(const MdfEvent& event, std::int64_t at, mdf::EventRange range) {
    const std::uint64_t block = blocks_.add(mdf::kEvent, {},
                                            Fields()
                                                .add(event.kind)
                                                .add(mdf::SyncKind::Time)
                                                .add(range)
                                                .add(event.cause)
                                                .zeros(12)
                                                .add(at)
                                                .add(1e-6));
    if (before_ != 0) blocks_.setLink(before_, mdf::link::kNextEvent, block);
    if (first_ == 0) first_ = block;
    before_ = block;
    blocks_.setLink(block, mdf::link::kEventName, blocks_.addText(event.name));
    if (!event.comment.empty())
      blocks_.setLink(block, mdf::link::kEventComment,
                      blocks_.addXml(mdfComment("EVcomment", event.comment, {})));
    return block;
  }

  mdf::BlockWriter blocks_;
  std::uint64_t first_ = 0;
  std::uint64_t before_ = 0;
};

Tail tailOf(const MdfClosing& closing, std::uint64_t place) {
  TailWriter writer(place);
  std::vector<MdfEvent> events = closing.events;
  std::ranges::stable_sort(events, {}, &MdfEvent::at);
  for (const MdfEvent& event : events) writer.write(event);
  const std::uint64_t quality = closing.quality ? writer.writeQuality(closing) : 0;
  return {writer.bytes(), writer.firstEvent(), quality};
}

template <class T>
void writeNumber(FileStream& stream, std::uint64_t place, T number) {
  stream.writeAt(place, Fields().add(number).bytes());
}

void writeCount(FileStream& stream, const MdfClosing::Count& count) {
  const auto field = [&](std::size_t at) { return mdf::fieldPlace(count.group, mdf::kChannelGroup, at); };
  writeNumber(stream, field(mdf::at::kGroupRecords), count.records);
  // The low half stands before the high one, as in one number.
  if (count.valueBytes) writeNumber(stream, field(mdf::at::kGroupDataBytes), *count.valueBytes);
}

void writeTail(FileStream& stream, const MdfClosing& closing) {
  const std::uint64_t end = closing.data + mdf::kBlockHead + closing.dataBytes;
  const std::uint64_t padding = (mdf::kAlignment - end % mdf::kAlignment) % mdf::kAlignment;
  const Tail tail = tailOf(closing, end + padding);
  if (tail.bytes.empty()) return;
  stream.write(std::string(padding, '\0') + tail.bytes);
  stream.sync();
  if (tail.firstEvent != 0)
    writeNumber(stream, mdf::linkPlace(mdf::kHeaderAt, mdf::link::kFirstEvent), tail.firstEvent);
  if (tail.quality != 0)
    writeNumber(stream, mdf::linkPlace(closing.history, mdf::link::kNextHistory), tail.quality);
}

}  // namespace

/// Nothing may be appended before the length of the records is on the disk, or it would be read as records;
/// no flag may say that a number is there before it is; no link may lead to what is not there yet.
void closeMdf(FileStream& stream, const MdfClosing& closing) {
  constexpr std::uint64_t kLengthAt = 8;  // in a block
  writeNumber(stream, closing.data + kLengthAt, mdf::kBlockHead + closing.dataBytes);
  for (const MdfClosing::Count& count : closing.counts) writeCount(stream, count);
  stream.sync();
  writeNumber(stream, mdf::kUnfinishedFlagsAt, std::uint16_t{0});
  stream.sync();
  writeTail(stream, closing);
  stream.sync();
  stream.writeAt(0, mdf::kFinished);
  stream.sync();
}

}  // namespace tarnlog
