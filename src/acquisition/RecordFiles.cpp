#include "acquisition/RecordFiles.h"

#include "acquisition/FileNames.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr int kMostNumbers = 9999;  ///< behind one name

}  // namespace

RecordFiles::RecordFiles(FileSystem& files, const Clock& clock, UserLocale locale, std::string stylesheetUrl)
    : files_(files), clock_(clock), locale_(std::move(locale)), stylesheetUrl_(std::move(stylesheetUrl)) {}

RecordFiles::~RecordFiles() { closeAll(); }

void RecordFiles::begin(std::shared_ptr<oTarnParameters> parameters, const Columns& columns) {
  closeAll();
  parameters_ = std::move(parameters);
  columns_ = columns;
}

/// Makes a file of this name, or with a number where the name is taken: by another program that writes it, or
/// by a file that cannot go on. A record's head tells the name that it got.
RecordFiles::OpenFile RecordFiles::openNumbered(const std::string& folder, const std::string& name,
                                                DataFileHead head) const {
  const RecordFormat& format = recordFormatOf(parameters_->fileFormat);
  std::string candidate = name;
  for (int number = 2;; ++number) {
    try {
      const std::string path = joinPath(folder, parameters_->filePrefix + candidate);
      if (!head.event) head.baseName = candidate;
      return {format.open(files_, path, head), path, candidate, &format};
    } catch (const NameTaken&) {
      if (number > kMostNumbers) throw;
    }
    candidate = numberedName(name, parameters_->fileFormat, number);
  }
}

DataFileHead RecordFiles::head() const {
  return {false, "Data file", {}, clock_.now(), columns_, *parameters_, locale_, stylesheetUrl_};
}

bool RecordFiles::openRecordFile() {
  close(record_);
  const DataFileHead record = head();
  if (!files_.folderExists(parameters_->fileFolder)) parameters_->fileFolder = files_.currentFolder();
  const std::string folder = placeIn(parameters_->fileFolder);
  recordBaseName_ = recordBaseName(record.now, parameters_->fileFormat, locale_);
  record_ = openNumbered(folder, recordBaseName_, record);
  recordBaseName_ = record_.name;
  recordPath_ = record_.path;
  return record_.file != nullptr;
}

void RecordFiles::openEventFile(std::int32_t number) {
  closeEventFile();
  DataFileHead event = head();
  event.event = true;
  event.description = eventDescription(number);
  event.baseName = recordBaseName_;
  const std::string folder = placeIn(files_.folderExists(parameters_->fileFolder) ? parameters_->fileFolder
                                                                                  : files_.currentFolder());
  const std::string name = number == 0 ? looseEventName(event.now, parameters_->fileFormat, locale_)
                                       : recordEventName(number, recordBaseName_);
  event_ = openNumbered(folder, name, std::move(event));
  if (event_.file == nullptr) throw TarnError(1, "RecordFiles.openEventFile", "Unable to create file");
}

std::string RecordFiles::eventDescription(std::int32_t number) const {
  if (number == 0) return "Event";
  return "Event " + std::to_string(number) + " for file : " + parameters_->filePrefix + recordBaseName_;
}

bool RecordFiles::failing() const {
  const auto fails = [](const OpenFile& open) { return open.file != nullptr && open.file->failing(); };
  return fails(record_) || fails(event_);
}

void RecordFiles::CloseRecordFiles() {
  close(record_);
  if (event_.format != nullptr && event_.format->eventsEndWithRecord) closeEventFile();
}

void RecordFiles::closeEventFile() { close(event_); }

void RecordFiles::closeAll() {
  close(record_);
  closeEventFile();
}

/// A record is on the disk before its path is told. An event file may end within a recording, where nothing
/// is waited for.
std::vector<std::string> RecordFiles::openPaths() const {
  std::vector<std::string> paths;
  for (const OpenFile* const each : {&record_, &event_})
    if (each->file != nullptr) paths.push_back(each->path);
  return paths;
}

void RecordFiles::close(OpenFile& open) {
  if (open.file == nullptr) return;
  skipOnFailure([&] { open.file->finish(); });
  if (&open == &record_) {
    skipOnFailure([&] { open.file->sync(); });
    closedRows_ = open.file->rows();
  }
  const std::string path = std::exchange(open, {}).path;
  if (finished_ && files_.fileExists(path)) finished_(path);
}

}  // namespace tarnlog
