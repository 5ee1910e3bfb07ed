#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cstdio>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/TerminalText.h"
#include "apps/tarn-record/Commands.h"
#include "apps/tarn-record/ExportCommand.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/VehicleArguments.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

Action addExport(CLI::App& app) {
  const auto options = std::make_shared<ExportOptions>();
  CLI::App& command = *app.add_subcommand("export", Told::tr("Write a record as CSV, MDF 4 or JSON lines"));
  addRecordFile(command, options->input);
  command.add_option("--to", options->format, Told::tr("Format to write"))
      ->required()
      ->check(oneOf({std::begin(kExportFormats), std::end(kExportFormats)}))
      ->type_name(fmt::format("{}", fmt::join(kExportFormats, "|")));
  command
      .add_option("--from", options->choice.from,
                  Told::tr("Only from this time on (seconds, as in the record)"))
      ->check(number())
      ->type_name(Told::tr("S"));
  command.add_option("--till", options->choice.till, Told::tr("Only up to this time"))
      ->check(number())
      ->type_name(Told::tr("S"));
  command.add_option("--data", options->choice.data, Told::tr("Only these data"))
      ->check(isA(ValueKind::RecordDatum))
      ->type_name(Told::tr("[ECU/[REQUEST/]]DATA"));
  command.add_flag(
      "--utc", options->choice.utc,
      Told::tr("Times as UTC (a text or XML record tells local time: it is taken in this system's zone)"));
  command
      .add_option("--output", options->output,
                  Told::tr("File to write (replaced when it exists; - is standard output, the default)"))
      ->check(isA(ValueKind::File))
      ->type_name(Told::tr("FILE"));
  command.footer(helpFooter(
      Told::tr(
          "CSV: UTF-8, one header line, commas, \".\" in numbers. Columns: time in seconds from the record's "
          "zero (with --utc ISO 8601), mark (Start, Stop, event, gap, failure, clock step), then the data as "
          "\"name [unit]\", with ECU and request before the name where two have the same. A file that holds "
          "several recordings gets a column with their number in front. Of an MDF 4 file there is a line for "
          "each time at which something was answered; what was not answered then is empty, and so is what is "
          "not "
          "available: nothing is repeated or interpolated. An enumerated value is its number.\nJSON: one "
          "object "
          "a line: begin, row or answer, mark, gap, failure, end; not available is null.\nWhat is missing in "
          "the "
          "file is told on standard error."),
      "  tarn-record export recordings/16-11-26_19h05mn07.txt --to csv --utc \\\n"
      "      --output drive.csv"));
  return [options] {
    options->output = outputPath(options->output);
    std::fputs(printableText(exportRecord(*options)).c_str(), stderr);
    return kDone;
  };
}

}  // namespace tarnlog::record
