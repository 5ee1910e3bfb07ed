#include "samples/MdfSink.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "acquisition/FileNames.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr char kExtension[] = ".mf4";
constexpr int kMostNumbers = 9999;  // behind one name

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
  if (setup_.whole) openWhole(beginning);
}

void MdfSink::openWhole(const SampleBeginning& beginning) {
  const oTarnParameters& parameters = beginning.parameters;
  std::string folder = parameters.fileFolder;
  if (!setup_.files.folderExists(folder)) folder = setup_.files.currentFolder();
  if (setup_.folderRule) folder = setup_.folderRule(folder);
  const std::string base = recordBaseName(setup_.clock.now(), "", setup_.locale);
  open(whole_, beginning.acquisition, folder, parameters.filePrefix + base + "_all" + kExtension,
       aboutFrom(beginning.at, {}));
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

void MdfSink::open(std::optional<Open>& target, const SampleId& id, const std::string& folder,
                   const std::string& name, const MdfAbout& about) {
  std::string candidate = name;
  for (int number = 2;; ++number) {
    const std::string path = joinPath(folder, candidate);
    try {
      target.emplace(Open{MdfFile(setup_.files.create(path), path, layout_, about), id});
      return;
    } catch (const NameTaken& taken) {
      if (number > kMostNumbers) return setup_.failed ? setup_.failed(taken.description()) : void();
    } catch (const TarnError& error) {
      return setup_.failed ? setup_.failed(error.description()) : void();
    }
    candidate = numberedName(name, kExtension, number);
  }
}

void MdfSink::answer(const SampleAnswer& answer) {
  encodeAnswer(requests_.at(answer.request), layout_.groups[answer.request], answer, record_);
  add(answer.request, answer.received);
}

/// The record that was just made.
void MdfSink::add(std::size_t group, std::int64_t at) {
  newest_ = std::max(newest_, at);
  if (setup_.recordings) history_.add(group, at, record_.bytes());
  if (recording_) recording_->file.add(group, at, record_.bytes());
  if (whole_) whole_->file.add(group, at, record_.bytes());
}

void MdfSink::note(const MdfEvent& event) {
  if (setup_.recordings) pastEvents_.push_back(event);
  if (recording_) recording_->file.note(event);
  if (whole_) whole_->file.note(event);
}

void MdfSink::failure(const SampleFailure& failure) {
  const std::size_t own = layout_.own(MdfLayout::kFailures);
  const MdfGroup& group = layout_.groups.at(own);
  record_.begin(group);
  record_.setTime(group.columns[0], failure.at);
  record_.setTime(group.columns[1], failure.sent);
  record_.setVariable(group.columns[2], layout_.groups.at(failure.request).name);
  record_.setVariable(group.columns[3], failure.reason);
  add(own, failure.at);
}

void MdfSink::mark(const SampleMark& mark) {
  const std::size_t own = layout_.own(MdfLayout::kMarks);
  const MdfGroup& group = layout_.groups.at(own);
  const std::string file = nameOf(mark.path);
  record_.begin(group);
  record_.setTime(group.columns[0], mark.at);
  record_.setBits(group.columns[1], static_cast<std::uint64_t>(mark.kind));
  record_.setBits(group.columns[2], static_cast<std::uint64_t>(mark.number));
  record_.setVariable(group.columns[3], file);
  add(own, mark.at);
  note(markEvent(mark.kind, mark.at, mark.number, file));
}

/// A gap belongs to the moment at which it ended, since nobody knew of it before.
void MdfSink::gap(std::int64_t from, std::int64_t till) {
  const std::size_t own = layout_.own(MdfLayout::kGaps);
  const MdfGroup& group = layout_.groups.at(own);
  record_.begin(group);
  record_.setTime(group.columns[0], from);
  record_.setTime(group.columns[1], till);
  add(own, till);
  note(gapEvent(from, till));
}

void MdfSink::clockStep(std::int64_t at, std::int64_t nanoseconds) {
  const std::size_t own = layout_.own(MdfLayout::kClockSteps);
  const MdfGroup& group = layout_.groups.at(own);
  const double seconds = static_cast<double>(nanoseconds) / 1e9;
  record_.begin(group);
  record_.setTime(group.columns[0], at);
  record_.setNumber(group.columns[1], seconds);
  add(own, at);
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

void MdfSink::recordingBegan(const SampleRecording& recording) {
  if (!setup_.recordings) return;
  close(recording_);
  const std::string record(recording.path);
  const std::string name = nameOf(record);
  const std::string base = name.substr(0, std::min(name.rfind('.'), name.size()));
  const std::string folder = record.substr(0, record.size() - name.size());
  open(recording_, recording.id, folder, base + kExtension,
       aboutFrom(recording.from, {{"recording id", recording.id.text()}, {"record file", name}}));
  if (!recording_) return;
  history_.forEach([&](std::size_t group, std::int64_t at, std::string_view bytes) {
    recording_->file.add(group, at, bytes);
  });
  for (const MdfEvent& event : pastEvents_) recording_->file.note(event);
}

void MdfSink::recordingEnded(std::int64_t /*at*/, std::uint64_t /*rows*/) { close(recording_); }

void MdfSink::end(std::int64_t /*at*/) {
  close(recording_);
  close(whole_);
  requests_.clear();
}

void MdfSink::close(std::optional<Open>& open) {
  if (!open) return;
  std::optional<MdfClosing> closing = open->file.closing();
  lostInClosed_ += open->file.lostRecords();
  if (closing) finish(*open, *std::move(closing));
  open.reset();
}

/// Told when the file is closed.
void MdfSink::finish(Open& open, MdfClosing closing) {
  closing.zone = setup_.clock.zoneOffset();
  closing.utcNanoseconds = setup_.clock.utcNanoseconds();
  if (setup_.quality) closing.quality = setup_.quality(open.id);
  auto work = [stream = std::shared_ptr<FileStream>(open.file.takeStream()), closing = std::move(closing),
               path = open.file.path(), done = setup_.finished]() mutable {
    skipOnFailure([&] { closeMdf(*stream, closing); });
    stream.reset();
    if (done) done(path);
  };
  if (setup_.background)
    setup_.background(std::move(work));
  else
    work();
}

std::uint64_t MdfSink::lostRecords() const {
  return lostInClosed_ + history_.lost() + (recording_ ? recording_->file.lostRecords() : 0) +
         (whole_ ? whole_->file.lostRecords() : 0);
}

}  // namespace tarnlog
