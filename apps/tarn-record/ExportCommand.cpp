#include "apps/tarn-record/ExportCommand.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "apps/common/BadInput.h"
#include "apps/common/NearestName.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/RecordFile.h"
#include "exports/ExportFile.h"
#include "exports/Mf4Writing.h"
#include "platform/time/SystemClock.h"
#include "records/CsvExport.h"
#include "records/JsonExport.h"
#include "records/RecordNames.h"

namespace tarnlog::record {

namespace {

void checkTimes(const ExportChoice& choice) {
  for (const std::optional<double>& time : {choice.from, choice.till})
    if (time && !std::isfinite(*time)) throw BadInput("--from and --till: expected seconds");
  if (choice.from && choice.till && *choice.from > *choice.till)
    throw BadInput("--from is later than --till: nothing lies between them");
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

void exportMf4(const RecordFile& record, const ExportOptions& options, ExportFile& output) {
  if (!output.replaces()) throw BadInput("--to mf4: needs a file to write, name one with --output FILE");
  writeMf4(
      record.recordings(), [&](RecordConsumer& consumer) { record.read(consumer); }, options.choice, output);
}

}  // namespace

std::string exportRecord(const ExportOptions& options) {
  refuseInput(options.output, options.input);
  checkTimes(options.choice);
  const RecordFile record(options.input);
  checkNames(record.recordings(), options);
  const std::vector<RecordHead> recordings =
      options.choice.utc ? withUtc(record.recordings(), options) : record.recordings();

  ExportFile output(options.output);
  const ExportOutput write = [&](std::string_view bytes) { output.write(bytes); };
  if (options.format == "csv") {
    CsvExport csv(recordings, options.choice, write);
    record.read(csv);
    csv.finish();
  } else if (options.format == "mf4") {
    exportMf4(record, options, output);
  } else {
    JsonExport json(recordings, options.choice, write);
    record.read(json);
    json.finish(record.missing());
  }
  output.finish();
  return record.missingText();
}

}  // namespace tarnlog::record
