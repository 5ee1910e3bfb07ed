#include "acquisition/RecordFiles.h"

#include "acquisition/FileNames.h"
#include "acquisition/XmlDataFile.h"
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

bool RecordFiles::xmlWanted() const { return parameters_->fileFormat == ".xml"; }

/// Makes a file of this name, or with a number where the name is taken: a text file by another program that
/// writes it, an XML file by any, since a second document cannot be appended.
template <class Open>
RecordFiles::OpenFile RecordFiles::openNumbered(const std::string& folder, const std::string& name,
                                                Open open) const {
  std::string candidate = name;
  for (int number = 2;; ++number) {
    try {
      const std::string path = joinPath(folder, parameters_->filePrefix + candidate);
      return {open(path, candidate), path, candidate, xmlWanted()};
    } catch (const NameTaken&) {
      if (number > kMostNumbers) throw;
    }
    candidate = numberedName(name, parameters_->fileFormat, number);
  }
}

template <class WriteHeader>
std::unique_ptr<DataFile> RecordFiles::openText(const std::string& path, WriteHeader writeHeader) const {
  std::unique_ptr<TextStream> stream = files_.openForAppending(path);
  if (stream == nullptr) return nullptr;
  auto file = std::make_unique<TextDataFile>(std::move(stream));
  writeHeader(*file);
  return file;
}

std::unique_ptr<DataFile> RecordFiles::openXml(const std::string& path, const std::string& description,
                                               const std::string& baseName, const LocalDateTime& now) const {
  const XmlDataHeader header{stylesheetUrl_, description, baseName, now};
  return std::make_unique<XmlDataFile>(files_.create(path), header, *parameters_, locale_);
}

bool RecordFiles::openRecordFile() {
  close(record_);
  const LocalDateTime now = clock_.now();
  if (!files_.folderExists(parameters_->fileFolder)) parameters_->fileFolder = files_.currentFolder();
  const std::string folder = placeIn(parameters_->fileFolder);
  recordBaseName_ = recordBaseName(now, parameters_->fileFormat, locale_);
  record_ = openNumbered(folder, recordBaseName_, [&](const std::string& path, const std::string& name) {
    if (xmlWanted()) return openXml(path, "Data file", name, now);
    return openText(path, [&](TextDataFile& file) { file.writeRecordHeader(columns_, now, locale_); });
  });
  recordBaseName_ = record_.name;
  recordPath_ = record_.path;
  return record_.file != nullptr;
}

void RecordFiles::openEventFile(std::int32_t number) {
  closeEventFile();
  const LocalDateTime now = clock_.now();
  const std::string folder = placeIn(files_.folderExists(parameters_->fileFolder) ? parameters_->fileFolder
                                                                                  : files_.currentFolder());
  const std::string name = number == 0 ? looseEventName(now, parameters_->fileFormat, locale_)
                                       : recordEventName(number, recordBaseName_);
  event_ = openNumbered(folder, name, [&](const std::string& path, const std::string&) {
    if (xmlWanted()) return openXml(path, eventDescription(number), recordBaseName_, now);
    return openText(path, [&](TextDataFile& file) { file.writeEventHeader(columns_); });
  });
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
  const std::string path = std::exchange(open, {}).path;
  if (finished_ && files_.fileExists(path)) finished_(path);
}

}  // namespace tarnlog
