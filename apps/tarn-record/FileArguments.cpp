#include "apps/tarn-record/FileArguments.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <vector>

#include "acquisition/RecordFormats.h"
#include "apps/common/ArgumentChecks.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

std::vector<std::string> recordExtensions() {
  std::vector<std::string> extensions;
  for (const RecordFormat& format : recordFormats()) extensions.emplace_back(format.extension);
  return extensions;
}

}  // namespace

void FileOptions::apply(oTarnParameters& parameters) const {
  if (folder) parameters.fileFolder = *folder;
  if (format) parameters.fileFormat = *format;
  if (period) parameters.recordingPeriod = *period;
  if (prefix) parameters.filePrefix = *prefix;
}

void addFileOptions(CLI::App& command, FileOptions& options) {
  command.add_option("--folder", options.folder, Told::tr("Folder of the record files"))
      ->check(isA(ValueKind::Folder))
      ->type_name(Told::tr("DIR"));
  command.add_option("--format", options.format, Told::tr("File format"))
      ->check(oneOf(recordExtensions()))
      ->type_name(fmt::format("{}", fmt::join(recordExtensions(), "|")));
  command.add_option("--period", options.period, Told::tr("Seconds between rows, 0 = every polling cycle"))
      ->check(wholeNumber(0, kLongestSeconds))
      ->type_name(Told::tr("S"));
  command.add_option("--prefix", options.prefix, Told::tr("Beginning of the file names"))
      ->type_name(Told::tr("TEXT"));
}

void addOutput(CLI::App& command, std::string& output, const std::string& what) {
  command.add_option("--output", output, what)
      ->required()
      ->check(isA(ValueKind::File))
      ->type_name(Told::tr("FILE"));
}

}  // namespace tarnlog::record
