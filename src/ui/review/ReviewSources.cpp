#include "ui/review/ReviewSources.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

#include "records/RecordLoading.h"
#include "ui/common/Convert.h"
#include "ui/review/RecordAlignment.h"

namespace tarnlog {

namespace {

constexpr std::int64_t kWhileReading = 50;     ///< milliseconds
constexpr std::int64_t kWhileFollowing = 500;  ///< milliseconds
/// Showing what is new may take a fifth of the time: a record of very many columns is shown less often.
constexpr std::int64_t kRest = 4;

}  // namespace

struct ReviewSources::Source {
  std::string path;
  std::optional<ForeignTableChoice> choice;
  std::unique_ptr<RecordLoading> loading;  ///< null: nothing more will be read
  std::shared_ptr<const RecordTable> table;
  std::size_t recording = 0;
  std::optional<std::size_t> record;  ///< its place in the scene
  std::optional<double> offset;       ///< that it has to have
  bool told = false;                  ///< that its end was reached
  QStringList toldMissing;
  bool failed = false;
};

ReviewSources::ReviewSources(ReviewScene& scene, std::function<bool(const std::string& path)> isBeingRecorded,
                             QObject* parent)
    : QObject(parent), scene_(scene), isBeingRecorded_(std::move(isBeingRecorded)) {}

ReviewSources::~ReviewSources() = default;

void ReviewSources::add(const std::string& path) {
  auto source = std::make_shared<Source>();
  source->path = path;
  source->loading = std::make_unique<RecordLoading>(path);
  add(source);
}

void ReviewSources::add(const std::string& path, const ForeignTableChoice& choice) {
  auto source = std::make_shared<Source>();
  source->path = path;
  source->choice = choice;
  source->loading = std::make_unique<RecordLoading>(path, choice);
  add(source);
}

void ReviewSources::add(const std::shared_ptr<Source>& source) {
  sources_.push_back(source);
  schedule(0);
}

void ReviewSources::addOver(const std::string& path, std::size_t record) {
  add(path);
  sources_.back()->offset = scene_.records()[record].offset;
}

void ReviewSources::clear() {
  sources_.clear();
  while (!scene_.records().empty()) scene_.removeRecord(scene_.records().size() - 1);
  schedule(0);
}

bool ReviewSources::isOpen(const Source& source) const {
  return std::ranges::any_of(sources_,
                             [&](const std::shared_ptr<Source>& each) { return each.get() == &source; });
}

ReviewSources::Source* ReviewSources::sourceOf(std::size_t record) const {
  const auto isIt = [&](const std::shared_ptr<Source>& source) { return source->record == record; };
  const auto found = std::ranges::find_if(sources_, isIt);
  return found == sources_.end() ? nullptr : found->get();
}

void ReviewSources::remove(std::size_t record) {
  std::erase_if(sources_, [&](const std::shared_ptr<Source>& source) { return source->record == record; });
  for (const auto& source : sources_)
    if (source->record && *source->record > record) --*source->record;
  scene_.removeRecord(record);
  schedule(0);
}

/// The graphs are those of the first record: all begin anew.
void ReviewSources::showRecording(std::size_t record, std::size_t recording) {
  Source* const source = sourceOf(record);
  if (source == nullptr) return;
  source->recording = recording;
  for (const auto& each : sources_) each->record.reset();
  while (!scene_.records().empty()) scene_.removeRecord(scene_.records().size() - 1);
  poll();
}

void ReviewSources::cancelReading() {
  for (const auto& source : sources_)
    if (source->loading != nullptr && source->loading->state() == RecordLoading::State::Reading) {
      source->loading.reset();
      source->failed = source->table == nullptr;
    }
  dropFailed();
  schedule(0);
}

void ReviewSources::dropFailed() {
  std::erase_if(sources_, [](const std::shared_ptr<Source>& source) { return source->failed; });
}

std::optional<ReviewSources::Progress> ReviewSources::reading() const {
  for (const auto& source : sources_)
    if (source->loading != nullptr && source->loading->state() == RecordLoading::State::Reading)
      return Progress{QFileInfo(toQString(source->path)).fileName(), source->loading->progress()};
  return std::nullopt;
}

std::string ReviewSources::pathOf(std::size_t record) const {
  const Source* const source = sourceOf(record);
  return source == nullptr ? std::string() : source->path;
}

PartChoice ReviewSources::wholeOf(std::size_t record) const {
  PartChoice part;
  if (const Source* const source = sourceOf(record)) {
    part.input = source->path;
    part.foreign = source->choice;
    part.recording = source->recording;
  }
  return part;
}

std::vector<std::string> ReviewSources::paths() const {
  std::vector<std::string> paths;
  for (std::size_t record = 0; record < scene_.records().size(); ++record) paths.push_back(pathOf(record));
  return paths;
}

void ReviewSources::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) return QObject::timerEvent(event);
  poll();
}

void ReviewSources::poll() {
  QElapsedTimer took;
  took.start();
  // Those who hear of something may open or close files.
  const std::vector<std::shared_ptr<Source>> now = sources_;
  for (const auto& source : now)
    if (isOpen(*source)) pollSource(*source);
  dropFailed();
  schedule(took.elapsed());
}

/// What it is comes first: when it says that all is read, the newest table has all.
void ReviewSources::pollSource(Source& source) {
  const auto state = source.loading == nullptr ? RecordLoading::State::Ended : source.loading->state();
  if (source.loading != nullptr) {
    const auto newest = source.loading->newest();
    const bool more = newest != nullptr && newest != source.table;
    if (more) source.table = newest;
    if (more && source.record) scene_.updateRecord(*source.record, source.table);
  }
  if (!source.record) show(source);
  if (!isOpen(source)) return;
  if (state == RecordLoading::State::Failed) {
    source.failed = source.table == nullptr;
    const std::unique_ptr<RecordLoading> loading = std::move(source.loading);
    emit failed(toQString(source.path), toQString(loading->failure()), loading->isForeignTable());
  } else if (state != RecordLoading::State::Reading) {
    tellMissing(source, state == RecordLoading::State::Ended);
    tellEnd(source);
  }
}

/// In their order: the first one gives times and graphs.
void ReviewSources::show(Source& source) {
  if (source.table == nullptr || source.recording >= source.table->recordings.size()) return;
  for (const auto& each : sources_) {
    if (each.get() == &source) break;
    if (!each->record && !each->failed) return;
  }
  if (scene_.records().size() < ReviewScene::kMostRecords) addToScene(source);
}

void ReviewSources::addToScene(Source& source) {
  LookedAtRecord record;
  record.name = fromQString(QFileInfo(toQString(source.path)).fileName());
  record.table = source.table;
  record.recording = source.recording;
  const TableRecording& own = record.recordingTable();
  if (source.offset)
    record.offset = *source.offset;
  else if (!scene_.records().empty())
    record.offset = offsetFor({RecordAlignment::On::Start, 0}, scene_.records().front().recordingTable(), own)
                        .value_or(0);
  source.record = scene_.records().size();
  scene_.addRecord(std::move(record));
  if (*source.record != 0) scene_.layOver(true);
  emit opened(toQString(source.path));
}

/// What is written further may bring what was missing. Until it ends, the words may change with every row.
void ReviewSources::tellMissing(Source& source, bool ended) {
  if (!source.record) return;
  QStringList missing;
  for (const std::string& each : source.table->missing) missing << toQString(each);
  if (!missing.isEmpty() && isBeingRecorded_ && isBeingRecorded_(source.path)) missing.clear();
  const bool told = ended ? missing == source.toldMissing : missing.isEmpty() == source.toldMissing.isEmpty();
  if (told) return;
  source.toldMissing = missing;
  emit lacking(toQString(source.path), missing);
}

void ReviewSources::tellEnd(Source& source) {
  if (!source.record || std::exchange(source.told, true)) return;
  emit finished(toQString(source.path));
}

void ReviewSources::schedule(std::int64_t pollTook) {
  const auto reads = [](const std::shared_ptr<Source>& source) {
    return source->loading != nullptr && source->loading->state() == RecordLoading::State::Reading;
  };
  const auto goesOn = [](const std::shared_ptr<Source>& source) {
    return (source->loading != nullptr && source->loading->state() != RecordLoading::State::Ended) ||
           !source->told;
  };
  emit progressed();
  if (!std::ranges::any_of(sources_, goesOn)) return timer_.stop();
  const std::int64_t usual = std::ranges::any_of(sources_, reads) ? kWhileReading : kWhileFollowing;
  timer_.start(static_cast<int>(std::max(usual, pollTook * kRest)), this);
}

}  // namespace tarnlog
