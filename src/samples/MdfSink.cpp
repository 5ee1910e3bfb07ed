#include "samples/MdfSink.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <variant>

#include "acquisition/FileNames.h"
#include "mdf/LittleEndian.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr char kExtension[] = ".mf4";
constexpr int kMostNumbers = 9999;  // behind one name

QualityReport reportOf(const Quality& quality) {
  QualityReport report{qualityText(quality), {}};
  for (const QualityFigure& figure : qualityFigures(quality))
    report.figures.push_back(
        {figure.name, std::visit([](auto value) { return fmt::format("{}", value); }, figure.value)});
  return report;
}

std::string nameOf(std::string_view path) { return std::string(path.substr(path.rfind('/') + 1)); }

}  // namespace

MdfSink::MdfSink(MdfSinkSetup setup) : setup_(std::move(setup)), history_(setup_.mostHistory) {}

MdfSink::~MdfSink() { end(0); }

void MdfSink::begin(const SampleBeginning& beginning) {
  end(beginning.at);
  layout_ = {};
  layout_ = mdfLayout(beginning);
  requests_ = beginning.requests;
  history_.clear();
  pastEvents_.clear();
  newest_ = cycleBegan_ = beginning.at;
  lostInClosed_ = 0;
  facts_ = beginning.facts;
  configuration_ = configurationText(beginning.parameters);
  at_ = beginning.at;
  utcNanoseconds_ = beginning.utcNanoseconds;
  zone_ = beginning.zone;
  acquisition_ = beginning.acquisition;
  ofRecordings_ = setup_.recordings();
  parameters_ = &beginning.parameters;
  ofAll_ = setup_.whole();
  wholeName_.clear();
  if (ofAll_)
    wholeName_ = beginning.parameters.filePrefix + recordBaseName(setup_.clock.now(), "", setup_.locale) +
                 "_all" + kExtension;
}

/// Only when there is something to write: an adapter has told its name by then, whoever began the acquisition
/// has said where its files go, and no file stays empty.
void MdfSink::openWhole() {
  std::string folder = parameters_->fileFolder;
  if (!setup_.files.folderExists(folder)) folder = setup_.files.currentFolder();
  if (folderRule_) folder = folderRule_(folder);
  open(whole_, acquisition_, joinPath(folder, std::exchange(wholeName_, {})), aboutFrom(at_, {}));
}

/// The wall clock of the start is what it would be had nobody set it since the beginning.
MdfAbout MdfSink::aboutFrom(std::int64_t start, const std::vector<ferrox3::Fact>& ids) const {
  MdfAbout about{.start = start,
                 .utcNanoseconds = utcNanoseconds_ + (start - at_) * 1000,
                 .zone = zone_,
                 .programVersion = setup_.programVersion,
                 .facts = {{"acquisition id", acquisition_.text()}}};
  const auto add = [&](const std::vector<ferrox3::Fact>& facts) {
    about.facts.insert(about.facts.end(), facts.begin(), facts.end());
  };
  add(ids);
  add(facts_);
  add({{"program version", setup_.programVersion}, {"configuration", configuration_}});
  return about;
}

void MdfSink::open(std::optional<Open>& target, const SampleId& id, const std::string& path,
                   const MdfAbout& about) {
  std::string candidate = path;
  for (int number = 2;; ++number) {
    try {
      target.emplace(Open{MdfFile(setup_.files.create(candidate), candidate, layout_, about), id});
      return;
    } catch (const NameTaken& taken) {
      if (number > kMostNumbers) return tellFailed(taken.description());
    } catch (const TarnError& error) {
      return tellFailed(error.description());
    }
    candidate = numberedName(path, kExtension, number);
  }
}

void MdfSink::tellFailed(const std::string& why) const {
  if (failed_) failed_(why);
}

void MdfSink::answer(const SampleAnswer& answer) {
  if (!ofRecordings_ && !ofAll_) return;
  encodeAnswer(requests_.at(answer.request), layout_.groups[answer.request], answer, record_);
  add(answer.request, answer.received);
}

/// The record that was just made.
void MdfSink::add(std::size_t group, std::int64_t at) {
  newest_ = std::max(newest_, at);
  if (!wholeName_.empty()) openWhole();
  if (ofRecordings_) history_.add(group, at, record_.bytes());
  if (recording_) recording_->file.add(group, at, record_.bytes());
  if (whole_) whole_->file.add(group, at, record_.bytes());
}

void MdfSink::note(const MdfEvent& event) {
  if (ofRecordings_) pastEvents_.push_back(event);
  if (recording_) recording_->file.note(event);
  if (whole_) whole_->file.note(event);
}

void MdfSink::failure(const SampleFailure& failure) {
  mdfFailure(layout_, failure.at, failure.sent, layout_.groups.at(failure.request).name, failure.reason,
             record_);
  add(layout_.own(MdfLayout::kFailures), failure.at);
}

/// A start may count from a row that came before the newest mark; the times of a channel group do not go
/// back.
void MdfSink::mark(const SampleMark& mark) {
  const std::string file = nameOf(mark.path);
  lastMark_ = std::max(lastMark_, mark.at);
  mdfMark(layout_, mark.kind, lastMark_, mark.number, file, record_);
  add(layout_.own(MdfLayout::kMarks), lastMark_);
  note(markEvent(mark.kind, mark.at, mark.number, file));
}

/// A gap belongs to the moment at which it ended, since nobody knew of it before.
void MdfSink::gap(std::int64_t from, std::int64_t till) {
  mdfGap(layout_, from, till, record_);
  add(layout_.own(MdfLayout::kGaps), till);
  note(gapEvent(from, till));
}

void MdfSink::clockStep(std::int64_t at, std::int64_t nanoseconds) {
  const double seconds = static_cast<double>(nanoseconds) / 1e9;
  mdfClockStep(layout_, at, seconds, record_);
  add(layout_.own(MdfLayout::kClockSteps), at);
  note(clockStepEvent(at, seconds));
}

/// While ECUs are initialised again, nothing comes for a while.
void MdfSink::state(AcquisitionState /*state*/, std::int64_t /*at*/) { flush(); }

void MdfSink::flush() {
  if (recording_) recording_->file.flush();
  if (whole_) whole_->file.flush();
}

/// The next answers are expected one cycle later.
void MdfSink::cycle(const SampleCycle& cycle) {
  const std::int64_t next = newest_ + (cycle.began - std::exchange(cycleBegan_, cycle.began));
  if (recording_) recording_->file.passed(newest_, next);
  if (whole_) whole_->file.passed(newest_, next);
  history_.dropBefore(cycle.keepFrom);
  std::erase_if(pastEvents_,
                [&](const MdfEvent& event) { return event.till.value_or(event.at) < cycle.keepFrom; });
}

/// Whether this is an answer of the cycle before: the times of rows have no more than milliseconds.
bool MdfSink::isBefore(std::int64_t from, std::size_t group, std::string_view record) const {
  if (group >= layout_.requests) return false;
  const MdfColumn& sent = layout_.groups[group].columns[1];
  return mdf::get<std::int64_t>(record.data() + sent.at) < from;
}

void MdfSink::recordingBegan(const SampleRecording& recording) {
  if (!ofRecordings_) return;
  close(recording_);
  const std::string record(recording.path);
  const std::string name = nameOf(record);
  const std::size_t extension = name.size() - std::min(name.rfind('.'), name.size());
  open(recording_, recording.id, record.substr(0, record.size() - extension) + kExtension,
       aboutFrom(recording.from, {{"recording id", recording.id.text()}, {"record file", name}}));
  if (!recording_) return;
  if (const std::uint64_t lost = history_.takeLost(); lost != 0)
    tellFailed(recording_->file.path() + ": " + std::to_string(lost) +
               " answers before its start are missing");
  history_.forEach([&](std::size_t group, std::int64_t at, std::string_view bytes) {
    if (!isBefore(recording.from, group, bytes)) recording_->file.add(group, at, bytes);
  });
  for (const MdfEvent& event : pastEvents_) recording_->file.note(event);
}

void MdfSink::recordingEnded(std::int64_t /*at*/, std::uint64_t /*rows*/) { close(recording_); }

void MdfSink::end(std::int64_t /*at*/) {
  wholeName_.clear();
  close(recording_);
  close(whole_);
  requests_.clear();
}

void MdfSink::close(std::optional<Open>& open) {
  if (!open) return;
  std::optional<MdfClosing> closing = open->file.closing();
  const std::uint64_t lost = open->file.lostRecords();
  lostInClosed_ += lost;
  if (closing)
    finish(*open, *std::move(closing));
  else if (open->file.cutShort())
    tellFailed(open->file.path() + ": cut short by another program, not closed, it has to be repaired");
  if (lost != 0)
    tellFailed(open->file.path() + ": " + std::to_string(lost) + " answers and marks are missing");
  open.reset();
}

/// A file that cannot be closed keeps what is in it; the file system tells why it could not.
void MdfSink::finish(Open& open, MdfClosing closing) {
  closing.zone = setup_.clock.zoneOffset();
  closing.utcNanoseconds = setup_.clock.utcNanoseconds();
  if (setup_.quality != nullptr)
    closing.quality =
        reportOf(open.id == acquisition_ ? setup_.quality->acquisition() : setup_.quality->recording());
  std::unique_ptr<FileStream> stream = open.file.takeStream();
  const bool closed = skipOnFailure([&] { closeMdf(*stream, closing); });
  stream.reset();
  if (!closed)
    tellFailed(open.file.path() + ": not closed, it has to be repaired");
  else if (finished_ && setup_.files.fileExists(open.file.path()))
    finished_(open.file.path());
}

std::optional<std::pair<std::string_view, std::uint64_t>> MdfSink::wholeFile() const {
  if (!whole_ || whole_->file.wholeTill() == 0) return std::nullopt;
  return std::pair(std::string_view(whole_->file.path()), whole_->file.wholeTill());
}

std::vector<std::string> MdfSink::openPaths() const {
  std::vector<std::string> paths;
  for (const auto* const each : {&recording_, &whole_})
    if (*each) paths.push_back((*each)->file.path());
  return paths;
}

std::uint64_t MdfSink::lostRecords() const {
  return lostInClosed_ + (recording_ ? recording_->file.lostRecords() : 0) +
         (whole_ ? whole_->file.lostRecords() : 0);
}

}  // namespace tarnlog
