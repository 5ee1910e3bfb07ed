#include "exports/Mf4Export.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/time/SystemClock.h"
#include "records/RecordNames.h"

namespace tarnlog {

namespace {

std::int64_t microseconds(double seconds) { return std::llround(seconds * 1e6); }

/// Nanoseconds since 1970; 0 when the record does not tell when it began.
std::int64_t beginningOf(const RecordHead& head) {
  if (head.utcNanoseconds) return *head.utcNanoseconds;
  return head.local ? utcOfLocal(*head.local).value_or(0) : 0;
}

MdfColumn columnFor(const RecordColumn& column, const std::string& name, bool text, std::uint32_t bit) {
  MdfColumn made{.name = name, .unit = column.unit};
  made.kind = text ? MdfColumn::Kind::Text : MdfColumn::Kind::Number;
  made.invalidationBit = bit;
  if (text) return made;
  for (const RecordLabel& label : column.labels)
    if (label.from == label.till) made.labels.emplace_back(label.from, label.text);
  return made;
}

std::string nameFor(const RecordGroup& group, std::size_t recording, bool several) {
  std::string name = group.ecu.empty() ? group.request : group.ecu + "/" + group.request;
  if (name.empty()) name = "Rows";
  return several ? name + " " + std::to_string(recording + 1) : name;
}

SampleMark::Kind markKind(RecordNote::Kind kind) {
  switch (kind) {
    case RecordNote::Kind::Start:
      return SampleMark::Kind::Start;
    case RecordNote::Kind::Stop:
      return SampleMark::Kind::Stop;
    default:
      return SampleMark::Kind::Event;
  }
}

}  // namespace

Mf4Survey::Mf4Survey(const std::vector<RecordHead>& recordings, const ExportChoice& choice)
    : choice_(choice) {
  for (const RecordHead& head : recordings) {
    zeros_.push_back((beginningOf(head) - beginningOf(recordings.front())) / 1000);
    std::vector<std::vector<bool>>& groups = texts_.emplace_back();
    for (const RecordGroup& group : head.groups) groups.emplace_back(group.columns.size());
  }
}

void Mf4Survey::row(const RecordRow& row) {
  if (!choice_.takes(row.time)) return;
  noteTime(row.time);
  std::vector<bool>& texts = texts_[recording_][row.group];
  for (std::size_t i = 0; i < row.values.size(); ++i)
    if (row.values[i].kind == RecordValue::Kind::Text) texts[i] = true;
}

void Mf4Survey::noteTime(double time) {
  const std::int64_t at = zero(recording_) + microseconds(time);
  if (choice_.takes(time)) first_ = std::min(first_, at);
}

Mf4Export::Mf4Export(const std::vector<RecordHead>& recordings, const ExportChoice& choice,
                     const Mf4Survey& survey, std::unique_ptr<FileStream> stream)
    : recordings_(recordings),
      choice_(choice),
      survey_(survey),
      layout_(mdfLayout(makeGroups())),
      file_(std::move(stream), {}, layout_, about()),
      lastMark_(survey.first()) {}

MdfGroup Mf4Export::groupFor(std::size_t recording, std::size_t position,
                             const std::vector<std::string>& names, Target& target) const {
  const RecordGroup& group = recordings_[recording].groups[position];
  target.answers = !group.request.empty();
  MdfGroup made{.name = nameFor(group, recording, recordings_.size() > 1), .ecu = group.ecu};
  made.columns = target.answers ? mdfRequestColumns() : std::vector{mdfTimeColumn()};
  std::uint32_t bit = 0;
  for (std::size_t i = 0; i < group.columns.size(); ++i) {
    const RecordColumn& column = group.columns[i];
    if (!choice_.takes(column)) continue;
    target.columns.push_back(i);
    const bool text = survey_.holdsText(recording, position, i);
    made.columns.push_back(columnFor(column, target.answers ? column.name : names[i], text, bit++));
  }
  made.invalidationBytes = (bit + 7) / 8;
  return made;
}

std::vector<MdfGroup> Mf4Export::makeGroups() {
  std::vector<MdfGroup> made;
  for (std::size_t recording = 0; recording < recordings_.size(); ++recording) {
    std::vector<Target>& targets = targets_.emplace_back();
    const std::vector<std::vector<std::string>> names = shortNames(recordings_[recording]);
    for (std::size_t position = 0; position < recordings_[recording].groups.size(); ++position) {
      Target target;
      target.group = made.size();
      MdfGroup group = groupFor(recording, position, names[position], target);
      if (!target.columns.empty()) made.push_back(std::move(group));
      targets.push_back(std::move(target));
    }
  }
  return made;
}

MdfAbout Mf4Export::about() const {
  const RecordHead& head = recordings_.front();
  MdfAbout about{.start = survey_.first(),
                 .utcNanoseconds = beginningOf(head) + survey_.first() * 1000,
                 .zone = {},
                 .programVersion = TARNLOG_VERSION,
                 .facts = {}};
  for (const auto& [name, text] : head.facts) about.facts.push_back({name, text});
  return about;
}

std::int64_t Mf4Export::timeOf(double seconds) const {
  return survey_.zero(recording_) + microseconds(seconds);
}

void Mf4Export::row(const RecordRow& row) {
  const Target& target = targets_[recording_][row.group];
  if (!choice_.takes(row.time) || target.columns.empty()) return;
  const MdfGroup& group = layout_.groups[target.group];
  record_.begin(group);
  record_.setTime(group.columns[0], timeOf(row.time));
  if (target.answers) {
    record_.setTime(group.columns[1], timeOf(row.requestTime.value_or(row.time)));
    record_.setBits(group.columns[2], row.sequence.value_or(0));
  }
  const std::size_t first = target.answers ? MdfLayout::kFirstItem : 1;
  for (std::size_t i = 0; i < target.columns.size(); ++i)
    setValue(group.columns[first + i], row.values[target.columns[i]]);
  file_.add(target.group, timeOf(row.time), record_.bytes());
}

/// A number among texts stands as the record has it.
void Mf4Export::setValue(const MdfColumn& column, const RecordValue& value) {
  const bool none = value.kind == RecordValue::Kind::None;
  if (column.variable()) {
    text_.clear();
    if (value.kind == RecordValue::Kind::Number) appendRecordNumber(text_, value, false);
    record_.setVariable(column, value.kind == RecordValue::Kind::Text ? value.text : text_);
  } else {
    record_.setNumber(column, none ? std::nan("") : value.number);
  }
  if (none) record_.setInvalid(column);
}

void Mf4Export::note(const RecordNote& note) {
  if (!choice_.takes(note.time)) return;
  const std::int64_t at = timeOf(note.time);
  switch (note.kind) {
    case RecordNote::Kind::Gap:
      mdfGap(layout_, at, timeOf(note.till), record_);
      file_.add(layout_.own(MdfLayout::kGaps), timeOf(note.till), record_.bytes());
      return file_.note(gapEvent(at, timeOf(note.till)));
    case RecordNote::Kind::ClockStep:
      mdfClockStep(layout_, at, note.till, record_);
      file_.add(layout_.own(MdfLayout::kClockSteps), at, record_.bytes());
      return file_.note(clockStepEvent(at, note.till));
    case RecordNote::Kind::Failure:
      mdfFailure(layout_, at, at, {}, note.text, record_);
      return file_.add(layout_.own(MdfLayout::kFailures), at, record_.bytes());
    default:
      break;
  }
  lastMark_ = std::max({lastMark_, at, file_.start()});
  const auto number = static_cast<std::int32_t>(note.number);
  mdfMark(layout_, markKind(note.kind), lastMark_, number, note.text, record_);
  file_.add(layout_.own(MdfLayout::kMarks), lastMark_, record_.bytes());
  file_.note(markEvent(markKind(note.kind), at, number, note.text));
}

void Mf4Export::finish() {
  std::optional<MdfClosing> closing = file_.closing();
  const std::unique_ptr<FileStream> stream = file_.takeStream();
  if (!closing || file_.lostRecords() != 0) stream->sync();  // raises why
  closeMdf(*stream, *closing);
}

}  // namespace tarnlog
