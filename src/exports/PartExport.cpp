#include "exports/PartExport.h"

#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "exports/ExportFile.h"
#include "exports/Mf4Writing.h"
#include "platform/base/TarnError.h"
#include "platform/files/ReadableFile.h"
#include "records/CsvExport.h"
#include "records/Record.h"

namespace tarnlog {

namespace {

constexpr const char* kSource = "PartExport";

struct Cancelled {};

/// Passes one recording of several on, as if it were the only one.
class OneRecording : public RecordConsumer {
 public:
  OneRecording(std::size_t position, RecordConsumer& to, const std::atomic<bool>& cancelled)
      : position_(position), to_(to), cancelled_(cancelled) {}

  void recording(std::size_t position) override {
    taken_ = position == position_;
    if (taken_) to_.recording(0);
  }
  void row(const RecordRow& row) override {
    if (cancelled_) throw Cancelled();
    if (taken_) to_.row(row);
  }
  void note(const RecordNote& note) override {
    if (taken_) to_.note(note);
  }

 private:
  std::size_t position_;
  RecordConsumer& to_;
  const std::atomic<bool>& cancelled_;
  bool taken_ = false;
};

void refuseRecordItself(const PartChoice& part) {
  std::error_code none;
  if (std::filesystem::equivalent(part.output, part.input, none))
    throw TarnError(1, kSource, part.output + ": this is the record itself, expected another file");
}

/// What is wrong with the record is raised with its path. Failures of the file system name theirs, which may
/// be the output's.
template <class Step>
auto inRecord(const PartChoice& part, Step step) {
  try {
    return step();
  } catch (const TarnError& error) {
    if (error.source() == "FileSystem") throw;
    throw TarnError(error.number(), error.source(), part.input + ": " + error.description());
  }
}

RecordHead headOf(const RecordReader& reader, std::size_t recording) {
  if (recording >= reader.recordings().size())
    throw TarnError(1, kSource, "holds fewer recordings than before, expected the file that was opened");
  return reader.recordings()[recording];
}

void writeCsv(const std::vector<RecordHead>& recordings, const ReadRecord& read, const ExportChoice& choice,
              ExportFile& output) {
  output.write("\xEF\xBB\xBF");  // spreadsheets take UTF-8 for another encoding without it
  CsvExport csv(recordings, choice, [&](std::string_view bytes) { output.write(bytes); });
  read(csv);
  csv.finish();
}

}  // namespace

bool exportPart(const PartChoice& part, const std::atomic<bool>& cancelled) {
  refuseRecordItself(part);
  const SystemReadableFile file(part.input);
  const std::string name = std::filesystem::path(part.input).filename().string();
  const std::unique_ptr<RecordReader> reader = inRecord(
      part, [&] { return part.foreign ? openForeignTable(file, *part.foreign) : openRecord(file, name); });
  const ReadRecord read = [&](RecordConsumer& consumer) {
    OneRecording one(part.recording, consumer, cancelled);
    inRecord(part, [&] { reader->read(one); });
  };
  try {
    const std::vector<RecordHead> recordings{inRecord(part, [&] { return headOf(*reader, part.recording); })};
    ExportFile output(part.output);
    const auto write = part.format == PartChoice::Format::Csv ? writeCsv : writeMf4;
    write(recordings, read, part.choice, output);
    output.finish();
  } catch (const Cancelled&) {
    return false;
  }
  return true;
}

}  // namespace tarnlog
