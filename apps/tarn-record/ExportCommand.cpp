#include "apps/tarn-record/ExportCommand.h"

#include <algorithm>
#include <vector>

#include "apps/common/BadInput.h"
#include "apps/common/NearestName.h"
#include "apps/tarn-record/ExportFile.h"
#include "apps/tarn-record/OutputFile.h"
#include "platform/time/SystemClock.h"
#include "records/CsvExport.h"
#include "records/JsonExport.h"
#include "records/RecordNames.h"

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
    if (error.source() == kFileSystem) throw;  // which names the file itself, and it may be the output
    throw BadInput(path + ": " + error.description());
  }
}

void checkNames(const std::vector<RecordHead>& recordings, const ExportOptions& options) {
  std::vector<std::string> known;
  for (const std::string& name : options.choice.data) {
    bool found = false;
    for (const RecordHead& head : recordings)
      for (const RecordGroup& group : head.groups)
        for (const RecordColumn& column : group.columns) {
          found = found || isCalled(column, name);
          known.push_back(column.name);
          known.push_back(fullName(column));
        }
    if (found) continue;
    const std::string nearest = nearestName(known, name);
    throw BadInput("--data " + name + ": not in " + options.input +
                   (nearest.empty() ? std::string() : ", did you mean " + nearest + "?"));
  }
}

/// Records that tell local time began in this system's zone.
std::vector<RecordHead> withUtc(std::vector<RecordHead> recordings, const ExportOptions& options) {
  for (RecordHead& head : recordings) {
    if (!head.utcNanoseconds && head.local) head.utcNanoseconds = utcOfLocal(*head.local);
    if (!head.utcNanoseconds)
      throw BadInput(options.input + ": does not tell when it began, so --utc is not possible");
  }
  return recordings;
}

}  // namespace

std::string exportRecord(const ExportOptions& options) {
  refuseInput(options.output, options.input);
  const SystemReadableFile file(options.input);
  const auto reader = inFile(options.input, [&] { return openRecord(file, baseName(options.input)); });
  checkNames(reader->recordings(), options);
  const std::vector<RecordHead> recordings =
      options.choice.utc ? withUtc(reader->recordings(), options) : reader->recordings();

  ExportFile output(options.output);
  const ExportOutput write = [&](std::string_view bytes) { output.write(bytes); };
  if (options.format == "csv") {
    CsvExport csv(recordings, options.choice, write);
    inFile(options.input, [&] { reader->read(csv); });
    csv.finish();
  } else {
    JsonExport json(recordings, options.choice, write);
    inFile(options.input, [&] { reader->read(json); });
    json.finish(reader->missing());
  }
  output.finish();
  std::string report;
  for (const std::string& each : reader->missing()) report += options.input + ": " + each + "\n";
  return report;
}

}  // namespace tarnlog::record
