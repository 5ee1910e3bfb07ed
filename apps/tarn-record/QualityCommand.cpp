#include "apps/tarn-record/QualityCommand.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "acquisition/GapWatch.h"
#include "apps/tarn-record/RecordFile.h"
#include "platform/text/Told.h"
#include "records/Record.h"
#include "samples/QualityCounter.h"

namespace tarnlog::record {

namespace {

std::int64_t microseconds(double seconds) { return std::llround(seconds * 1e6); }

/// Where requests have times of their own, an answer counts; else a row, which stands for a whole cycle and
/// repeats what was not answered in it.
bool tellsAnswers(const RecordHead& head) {
  return std::ranges::any_of(head.groups, [](const RecordGroup& group) { return !group.request.empty(); });
}

std::string toldQuality(const RecordHead& head) {
  const auto fact =
      std::ranges::find(head.facts, std::string(kQualityFact), &std::pair<std::string, std::string>::first);
  return fact == head.facts.end() ? std::string() : fact->second;
}

/// Counts what a file holds.
class FileQuality : public RecordConsumer {
 public:
  explicit FileQuality(const std::vector<RecordHead>& recordings) : recordings_(recordings) {
    counter_.setRecordingEnded([this](const std::string&, Quality quality) {
      if (!tellsAnswers(recordings_[recording_])) return lines_.push_back(rowQualityText(quality));
      quality.rows.reset();
      lines_.push_back(toldQuality(quality));
    });
  }

  void recording(std::size_t position) override {
    endRecording();
    recording_ = position;
    rows_ = 0;
    open_ = true;
    gaps_ = {};
    newest_ = 0;
    counter_.recordingBegan({{}, {}, 0, 0});
  }

  void row(const RecordRow& row) override {
    const std::int64_t at = microseconds(row.time);
    newest_ = std::max(newest_, at);
    ++rows_;
    if (!tellsAnswers(recordings_[recording_])) lookForGap(at);
    const bool any = std::ranges::any_of(
        row.values, [](const RecordValue& value) { return value.kind != RecordValue::Kind::None; });
    using Outcome = ferrox3::Exchange::Outcome;
    counter_.answer({.sequence = rows_,
                     .request = row.group,
                     .sent = row.requestTime ? microseconds(*row.requestTime) : at,
                     .received = at,
                     .outcome = any ? Outcome::Answered : Outcome::Refused});
  }

  void note(const RecordNote& note) override {
    const std::int64_t at = microseconds(note.time);
    newest_ = std::max(newest_, at);
    if (note.kind == RecordNote::Kind::Gap) counter_.gap(at, microseconds(note.till));
    if (note.kind == RecordNote::Kind::ClockStep) counter_.clockStep(at, std::llround(note.till * 1e9));
    if (note.kind == RecordNote::Kind::Failure) counter_.failure({0, at, at, note.text});
  }

  std::vector<std::string> lines() {
    endRecording();
    return lines_;
  }

 private:
  void lookForGap(std::int64_t at) {
    if (const auto from = gaps_.answered(at)) counter_.gap(*from, at);
    gaps_.cycle(at);
  }

  void endRecording() {
    if (std::exchange(open_, false)) counter_.recordingEnded(newest_, rows_);
  }

  const std::vector<RecordHead>& recordings_;
  QualityCounter counter_{QualityCounter::Cycles::Found};
  GapWatch gaps_;
  std::size_t recording_ = 0;
  std::uint64_t rows_ = 0;
  std::int64_t newest_ = 0;
  bool open_ = false;
  std::vector<std::string> lines_;
};

}  // namespace

FileQualities qualitiesOf(const std::string& path) {
  const RecordFile file(path);
  FileQuality counted(file.recordings());
  file.read(counted);
  FileQualities qualities{.recordings = counted.lines(), .missing = file.missingText()};
  for (std::size_t i = 0; i < qualities.recordings.size(); ++i) {
    const std::string told = toldQuality(file.recordings()[i]);
    if (!told.empty()) qualities.recordings[i] = told;
  }
  return qualities;
}

QualityReportOfFile qualityOfFile(const std::string& path) {
  const auto [lines, missing] = qualitiesOf(path);
  QualityReportOfFile report{.lines = {}, .missing = missing};
  for (std::size_t i = 0; i < lines.size(); ++i)
    report.lines +=
        (lines.size() == 1 ? path : Told::tr("{}, recording {}", path, i + 1)) + ": " + lines[i] + "\n";
  return report;
}

}  // namespace tarnlog::record
