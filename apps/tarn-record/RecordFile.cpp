#include "apps/tarn-record/RecordFile.h"

#include "apps/common/BadInput.h"

namespace tarnlog::record {

namespace {

constexpr const char* kFileSystem = "FileSystem";

std::string baseName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

/// Says which file a fault is in.
template <class Step>
auto inFile(const std::string& path, Step step) {
  try {
    return step();
  } catch (const TarnError& error) {
    if (error.source() == kFileSystem) throw;  // which names the file itself, and it may be another
    throw BadInput(path + ": " + error.description());
  }
}

}  // namespace

RecordFile::RecordFile(const std::string& path)
    : path_(path), file_(path), reader_(inFile(path, [&] { return openRecord(file_, baseName(path)); })) {}

void RecordFile::read(RecordConsumer& consumer) const {
  inFile(path_, [&] { reader_->read(consumer); });
}

std::string RecordFile::missingText() const {
  std::string text;
  for (const std::string& each : missing()) text += path_ + ": " + each + "\n";
  return text;
}

}  // namespace tarnlog::record
