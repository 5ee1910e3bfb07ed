#include "apps/tarn-record/ExportCommand.h"

#include <vector>

#include "apps/common/BadInput.h"
#include "apps/common/RecordChoice.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/RecordFile.h"
#include "exports/ExportFile.h"
#include "exports/Mf4Writing.h"
#include "platform/text/Told.h"
#include "platform/time/SystemClock.h"
#include "records/CsvExport.h"
#include "records/JsonExport.h"

namespace tarnlog::record {

namespace {

/// Records that tell local time began in this system's zone.
std::vector<RecordHead> withUtc(std::vector<RecordHead> recordings, const ExportOptions& options) {
  for (RecordHead& head : recordings) {
    if (!head.utcNanoseconds && head.local) head.utcNanoseconds = utcOfLocal(*head.local);
    if (!head.utcNanoseconds)
      throw BadInput(Told::tr("{}: does not tell when it began, so --utc is not possible", options.input));
  }
  return recordings;
}

void exportMf4(const RecordFile& record, const ExportOptions& options, ExportFile& output) {
  if (!output.replaces())
    throw BadInput(Told::tr("--to mf4: needs a file to write, name one with --output FILE"));
  writeMf4(
      record.recordings(), [&](RecordConsumer& consumer) { record.read(consumer); }, options.choice, output);
}

}  // namespace

std::string exportRecord(const ExportOptions& options) {
  refuseInput(options.output, options.input);
  refuseBadTimes(options.choice.from, options.choice.till);
  const RecordFile record(options.input);
  refuseUnknownData(record.recordings(), options.choice.data, options.input);
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
