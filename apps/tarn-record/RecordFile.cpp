#include "apps/tarn-record/RecordFile.h"

#include "apps/common/RecordErrors.h"

namespace tarnlog::record {

namespace {

std::string baseName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

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
