#include "acquisition/RecordFiles.h"

#include "acquisition/FileNames.h"
#include "acquisition/XmlDataFile.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

RecordFiles::RecordFiles(FileSystem& files, const Clock& clock, UserLocale locale, std::string stylesheetUrl)
    : files_(files), clock_(clock), locale_(std::move(locale)), stylesheetUrl_(std::move(stylesheetUrl)) {}

RecordFiles::~RecordFiles() { closeAll(); }

void RecordFiles::begin(std::shared_ptr<oTarnParameters> parameters, const Columns& columns) {
  closeAll();
  parameters_ = std::move(parameters);
  columns_ = columns;
}

bool RecordFiles::xmlWanted() const { return parameters_->fileFormat == ".xml"; }

template <class WriteHeader>
RecordFiles::OpenFile RecordFiles::openText(const std::string& path, WriteHeader writeHeader) const {
  std::unique_ptr<TextStream> stream = files_.openForAppending(path);
  if (stream == nullptr) return {};
  auto file = std::make_unique<TextDataFile>(std::move(stream));
  // The file is open: like a row, a header that could not be written does not keep the rows behind it from
  // coming.
  skipOnFailure([&] { writeHeader(*file); });
  return {std::move(file), path, false};
}

bool RecordFiles::openRecordFile() {
  close(record_);
  const LocalDateTime now = clock_.now();
  if (!files_.folderExists(parameters_->fileFolder)) parameters_->fileFolder = files_.currentFolder();
  recordBaseName_ = recordBaseName(now, parameters_->fileFormat, locale_);
  if (xmlWanted())
    recordBaseName_ = freeName(parameters_->fileFolder, parameters_->filePrefix, recordBaseName_);
  recordPath_ = joinPath(parameters_->fileFolder, parameters_->filePrefix + recordBaseName_);
  if (xmlWanted()) {
    record_ = openXml(recordPath_, "Data file", now);
  } else {
    record_ =
        openText(recordPath_, [&](TextDataFile& file) { file.writeRecordHeader(columns_, now, locale_); });
  }
  return record_.file != nullptr;
}

void RecordFiles::openEventFile(std::int32_t number) {
  closeEventFile();
  const LocalDateTime now = clock_.now();
  const std::string folder =
      files_.folderExists(parameters_->fileFolder) ? parameters_->fileFolder : files_.currentFolder();
  std::string name = number == 0 ? looseEventName(now, parameters_->fileFormat, locale_)
                                 : recordEventName(number, recordBaseName_);
  if (xmlWanted()) name = freeName(folder, parameters_->filePrefix, name);
  const std::string path = joinPath(folder, parameters_->filePrefix + name);
  if (xmlWanted()) {
    event_ = openXml(path, eventDescription(number), now);
  } else {
    event_ = openText(path, [&](TextDataFile& file) { file.writeEventHeader(columns_); });
  }
  if (event_.file == nullptr) throw TarnError(1, "RecordFiles.openEventFile", "Unable to create file");
}

std::string RecordFiles::eventDescription(std::int32_t number) const {
  if (number == 0) return "Event";
  return "Event " + std::to_string(number) + " for file : " + parameters_->filePrefix + recordBaseName_;
}

/// A second document cannot be appended to an XML file, and nothing is overwritten.
std::string RecordFiles::freeName(const std::string& folder, const std::string& prefix,
                                  const std::string& name) const {
  std::string candidate = name;
  for (int number = 2; files_.fileExists(joinPath(folder, prefix + candidate)); ++number)
    candidate = numberedName(name, parameters_->fileFormat, number);
  return candidate;
}

RecordFiles::OpenFile RecordFiles::openXml(const std::string& path, const std::string& description,
                                           const LocalDateTime& now) const {
  const XmlDataHeader header{stylesheetUrl_, description, recordBaseName_, now};
  return {std::make_unique<XmlDataFile>(files_.create(path), header, *parameters_, locale_), path, true};
}

void RecordFiles::CloseRecordFiles() {
  close(record_);
  if (event_.xml) closeEventFile();
}

void RecordFiles::closeEventFile() { close(event_); }

void RecordFiles::closeAll() {
  close(record_);
  closeEventFile();
}

void RecordFiles::close(OpenFile& open) {
  if (open.file == nullptr) return;
  skipOnFailure([&] { open.file->finish(); });
  const OpenFile closed = std::exchange(open, {});
  if (finished_) finished_(closed.path);
}

}  // namespace tarnlog
