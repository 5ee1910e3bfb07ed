#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "acquisition/RecordFormats.h"
#include "apps/common/BadInput.h"
#include "apps/common/CommandLine.h"
#include "apps/common/LoadedConfiguration.h"
#include "apps/common/RecordRepair.h"
#include "apps/common/StandardStreams.h"
#include "apps/common/Stylesheet.h"
#include "apps/common/TerminalText.h"
#include "apps/tarn-record/CheckCommand.h"
#include "apps/tarn-record/ExportCommand.h"
#include "apps/tarn-record/ImportCommand.h"
#include "apps/tarn-record/ListCommand.h"
#include "apps/tarn-record/NewCommand.h"
#include "apps/tarn-record/OpenVehicle.h"
#include "apps/tarn-record/OutputFile.h"
#include "apps/tarn-record/PlanCommand.h"
#include "apps/tarn-record/PublishCommand.h"
#include "apps/tarn-record/QualityCommand.h"
#include "apps/tarn-record/RunCommand.h"
#include "apps/tarn-record/ScanCommand.h"
#include "apps/tarn-record/ShowJson.h"
#include "apps/tarn-record/ShowText.h"
#include "host/link/SystemLinkClock.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/settings/FileSettingsStore.h"

namespace {

using namespace tarnlog;
using namespace tarnlog::record;

/// A vehicle, to look at what it offers.
struct VehicleChoice {
  std::string path;
  host::LinkOptions link;
};

/// Reads a file once and gives the same again: a pipe has its content only once.
class ReadOnceFiles : public SystemFileSystem {
 public:
  std::string readAll(const std::string& path) const override {
    const auto known = read_.find(path);
    return known != read_.end() ? known->second : read_[path] = SystemFileSystem::readAll(path);
  }

 private:
  mutable std::map<std::string, std::string> read_;
};

/// The session of a vehicle description, without sending anything; that of a car, which is asked what it
/// offers.
class OfflineVehicle {
 public:
  explicit OfflineVehicle(const VehicleChoice& choice)
      : vehicle_(openVehicle(choice.path, files_, clock_, {}, choice.link)),
        session_(BuildSessionDocument(vehicle_->session())) {}

  FileSystem& files() { return files_; }
  ferrox3::Session& ferrox3() { return vehicle_->session(); }
  const SessionDocument& session() const { return session_; }

 private:
  ReadOnceFiles files_;
  host::SystemLinkClock clock_;
  std::unique_ptr<host::OpenedVehicle> vehicle_;
  SessionDocument session_;
};

void print(const std::string& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) < text.size() || std::fflush(stdout) != 0)
    throw std::runtime_error(std::string("standard output: ") + std::strerror(errno));
}

void addVehicle(CLI::App& command, std::string& vehicle, host::LinkOptions& link) {
  command
      .add_option("--vehicle", vehicle,
                  "Vehicle description (JSON), or obd2: to ask the car behind the link what it offers")
      ->required()
      ->type_name("FILE");
  command.add_option("--link", link.url, "How the car is reached (default: the description's simulation)")
      ->type_name("URL");
}

void addIntervals(CLI::App& command, host::LinkOptions& link) {
  command
      .add_option("--interval", link.intervals,
                  "Send this request every MS milliseconds only, not in every cycle; for several requests,\n"
                  "several times")
      ->allow_extra_args(false)
      ->type_name("ECU/REQUEST=MS");
}

/// What a command did, with names out of files.
void report(const std::string& output, const std::string& text) {
  const std::string shown = printableText(text);
  if (isStandardOutput(output))
    std::fputs(shown.c_str(), stderr);
  else
    print(shown);
}

std::vector<std::string> recordExtensions() {
  std::vector<std::string> extensions;
  for (const RecordFormat& format : recordFormats()) extensions.emplace_back(format.extension);
  return extensions;
}

/// The library's own range says "not in range" of 2.7.
CLI::Validator wholeNumber(int least, int most) {
  return {[least, most](const std::string& text) {
            int value = 0;
            const char* const end = text.data() + text.size();
            const auto read = std::from_chars(text.data(), end, value);
            if (read.ec == std::errc() && read.ptr == end && value >= least && value <= most)
              return std::string();
            return fmt::format("{} is not a whole number from {} to {}", text, least, most);
          },
          fmt::format("INT in [{} - {}]", least, most)};
}

void addPublishing(CLI::App& command, PublishOptions& options) {
  command
      .add_option("--publish-access", options.access,
                  "What the broker asks for: a file of JSON with user, password, ca, certificate and key")
      ->type_name("FILE");
  command
      .add_option("--publish-data", options.data,
                  "Publish only this of what is recorded, and only every MS milliseconds; for several data,\n"
                  "several times")
      ->allow_extra_args(false)
      ->type_name("[ECU/[REQUEST/]]DATA[=MS]");
  command
      .add_option("--publish-every", options.every,
                  "Publish each datum only every MS milliseconds (default: each value)")
      ->check(wholeNumber(0, 86'400'000))
      ->type_name("MS");
  command
      .add_option(
          "--publish-as", options.vehicle,
          "What the vehicle is called in the topics (default: its VIN or, when that is not known, its\n"
          "name)")
      ->type_name("NAME");
}

/// What is written or sent beside the records.
void addMeasurement(CLI::App& command, RunOptions& options) {
  command
      .add_flag(
          "--mf4{record}", options.mf4,
          "Also write what was answered, and when, as measurement data (MDF 4): a file beside each record;\n"
          "--mf4=all: one file for the whole run")
      ->check(CLI::IsMember(std::vector<std::string>{"record", "all"}));
  command
      .add_option(
          "--samples", options.samples,
          "Write each answer with its time as a JSON line to this file or pipe (- is standard output)")
      ->type_name("FILE");
  command
      .add_option(
          "--publish", options.publish.to,
          "Publish each answer at an MQTT broker, as it comes (mqtts: over TLS); implies a measurement\n"
          "file of the whole run")
      ->type_name("mqtt[s]://HOST[:PORT]/TOPIC");
  addPublishing(command, options.publish);
}

std::function<int()> addRun(CLI::App& app, RunOptions& options) {
  CLI::App& command = *app.add_subcommand("run", "Record: wait for the start trigger or start at once");
  addVehicle(command, options.vehicle, options.link);
  command.add_option("--trace", options.link.trace, "Write what goes over the link to this new file")
      ->type_name("FILE");
  command.add_option("--config", options.config, "Recording configuration (XML)")
      ->required()
      ->type_name("FILE");
  command.add_option("--folder", options.folder, "Write the files here; made when missing")->type_name("DIR");
  command.add_flag("--folder-per-vehicle", options.folderPerVehicle,
                   "Write the files into a folder there that is named after the vehicle");
  command.add_option("--format", options.format, "File format")->check(CLI::IsMember(recordExtensions()));
  command.add_option("--period", options.period, "Seconds between rows, 0 = every polling cycle")
      ->check(wholeNumber(0, 2147483))
      ->type_name("S");
  command.add_option("--prefix", options.prefix, "Beginning of the file names")->type_name("TEXT");
  addIntervals(command, options.link);
  command.add_option("--duration", options.duration, "End the run S seconds after the first data")
      ->check(wholeNumber(1, 2147483))
      ->type_name("S");
  command
      .add_option("--recordings", options.recordings,
                  "End the run after N recordings (default: 1 when the start is manual, else no limit)")
      ->check(wholeNumber(1, 1000000000))
      ->type_name("N");
  addMeasurement(command, options);
  command
      .add_option("--sync", options.sync,
                  "Bring the files to the disk every S seconds (default: 5; 0: only when they are closed)")
      ->check(wholeNumber(0, 3600))
      ->type_name("S");
  command.footer(
      "Signals: INT, TERM and HUP stop like the stop button, a second one leaves at once; USR1 is the event "
      "button.\n"
      "Example:\n"
      "  tarn-record run --vehicle examples/road-car.vehicle.json --config examples/road-car.xml \\\n"
      "      --folder recordings --duration 60");
  return [&options] { return run(options); };
}

struct ListOptions {
  VehicleChoice vehicle;
  std::string filter;
  bool json = false;
};

std::function<int()> addList(CLI::App& app, ListOptions& options) {
  CLI::App& command = *app.add_subcommand("list", "Show the data that a vehicle offers");
  addVehicle(command, options.vehicle.path, options.vehicle.link);
  command.add_option("--filter", options.filter, "Only where name, request, ECU or unit contains this")
      ->type_name("TEXT");
  command.add_flag("--json", options.json, "As JSON");
  command.footer("Example:\n  tarn-record list --vehicle examples/road-car.vehicle.json --filter temp");
  return [&options] {
    print(catalogueList(OfflineVehicle(options.vehicle).session(), options.filter, options.json));
    return kDone;
  };
}

struct CheckOptions {
  VehicleChoice vehicle;
  std::string config;
};

std::function<int()> addCheck(CLI::App& app, CheckOptions& options) {
  CLI::App& command = *app.add_subcommand("check", "Show what of a configuration a vehicle can record");
  addVehicle(command, options.vehicle.path, options.vehicle.link);
  command.add_option("--config", options.config, "Recording configuration (XML)")
      ->required()
      ->type_name("FILE");
  command.footer(
      "Example:\n"
      "  tarn-record check --vehicle examples/road-car.vehicle.json --config examples/road-car.xml");
  return [&options] {
    OfflineVehicle vehicle(options.vehicle);
    const FileSettingsStore settings(vehicle.files(), FileSettingsStore::defaultPath());
    const CheckedConfiguration checked =
        checkConfiguration(vehicle.files(), settings, options.config, vehicle.ferrox3(), vehicle.session());
    print(checked.report);
    if (!checked.refusal.empty()) throw BadInput(options.config + ": " + checked.refusal);
    return kDone;
  };
}

struct NewOptions {
  VehicleChoice vehicle;
  std::vector<std::string> data;
  std::string output;
};

std::function<int()> addNew(CLI::App& app, NewOptions& options) {
  CLI::App& command = *app.add_subcommand("new", "Write a configuration that records the named data");
  addVehicle(command, options.vehicle.path, options.vehicle.link);
  command.add_option("--data", options.data, "Data to record, as `list` names them")
      ->required()
      ->type_name("ECU/REQUEST/DATA");
  command
      .add_option("--output", options.output,
                  "Configuration file to write (replaced when it exists; - is standard output)")
      ->required()
      ->type_name("FILE");
  command.footer(
      "Example:\n"
      "  tarn-record new --vehicle examples/road-car.vehicle.json \\\n"
      "      --data \"Engine/PID 0C/Engine speed\" --data \"Engine/PID 05/Coolant temperature\" \\\n"
      "      --output warm-up.xml");
  return [&options] {
    options.output = outputPath(options.output);
    refuseInput(options.output, options.vehicle.path);
    OfflineVehicle vehicle(options.vehicle);
    oTarnParameters parameters(FileSettingsStore(vehicle.files(), FileSettingsStore::defaultPath()));
    addNamedData(parameters, vehicle.session(), options.data);
    parameters.SaveXmlConfiguration(vehicle.files(), options.output, kStylesheetUrl);
    return kDone;
  };
}

std::function<int()> addRepair(CLI::App& app, std::string& file) {
  CLI::App& command =
      *app.add_subcommand("repair", "Close an XML record or measurement file whose recording was killed");
  command.add_option("FILE", file, "XML record or event file, or measurement file")->required();
  command.footer("Example:\n  tarn-record repair recordings/16-11-26_19h05mn07.xml");
  return [&file] {
    print(printableText(repairRecord(file)));
    return kDone;
  };
}

std::function<int()> addQuality(CLI::App& app, std::string& file) {
  CLI::App& command =
      *app.add_subcommand("quality", "Tell how well a recording went: answers, cycles a second, gaps, rows");
  command.add_option("FILE", file, "Text or XML record or event file, or MDF 4 file")->required();
  command.footer(
      "A measurement file that was closed tells what was counted while it was recorded; of all others that "
      "is\n"
      "told which can be counted in them. What is missing in the file is told on standard error.\n"
      "Example:\n"
      "  tarn-record quality recordings/16-11-26_19h05mn07.mf4");
  return [&file] {
    const QualityReportOfFile report = qualityOfFile(file);
    print(printableText(report.lines));
    std::fputs(printableText(report.missing).c_str(), stderr);
    return kDone;
  };
}

std::function<int()> addImport(CLI::App& app, ImportOptions& options) {
  CLI::App& command = *app.add_subcommand("import", "Make a vehicle description of an ODX container");
  command.add_option("--odx", options.odx, "ODX 2.2 container (.pdx), or one of its documents")
      ->required()
      ->type_name("FILE");
  command
      .add_option("--output", options.output,
                  "Vehicle description to write (replaced when it exists; - is standard output)")
      ->required()
      ->type_name("FILE");
  command.add_option("--name", options.name, "Name of the vehicle (default: the container's)")
      ->type_name("TEXT");
  command.footer("Example:\n  tarn-record import --odx car.pdx --output car.vehicle.json");
  return [&options] {
    SystemFileSystem files;
    options.output = outputPath(options.output);
    report(options.output, importOdxFile(files, options));
    return kDone;
  };
}

std::function<int()> addScan(CLI::App& app, ScanOptions& options) {
  CLI::App& command =
      *app.add_subcommand("scan", "Ask a car what it offers (OBD) and write it as a vehicle description");
  command.add_option("--link", options.link.url, "How the car is reached")->required()->type_name("URL");
  command.add_option("--trace", options.link.trace, "Write what goes over the link to this new file")
      ->type_name("FILE");
  command
      .add_option("--output", options.output,
                  "Vehicle description to write (replaced when it exists; - is standard output)")
      ->required()
      ->type_name("FILE");
  command.footer("Example:\n  tarn-record scan --link elm327:///dev/ttyUSB0 --output car.vehicle.json");
  return [&options] {
    SystemFileSystem files;
    options.output = outputPath(options.output);
    report(options.output, scanCar(files, options));
    return kDone;
  };
}

std::function<int()> addExport(CLI::App& app, ExportOptions& options) {
  CLI::App& command = *app.add_subcommand("export", "Write a record as CSV, MDF 4 or JSON lines");
  command.add_option("FILE", options.input, "Text or XML record or event file, or MDF 4 file")->required();
  command.add_option("--to", options.format, "Format to write")
      ->required()
      ->check(CLI::IsMember(std::vector<std::string>(std::begin(kExportFormats), std::end(kExportFormats))));
  command.add_option("--from", options.choice.from, "Only from this time on (seconds, as in the record)")
      ->type_name("S");
  command.add_option("--till", options.choice.till, "Only up to this time")->type_name("S");
  command.add_option("--data", options.choice.data, "Only these data")->type_name("[ECU/[REQUEST/]]DATA");
  command.add_flag("--utc", options.choice.utc,
                   "Times as UTC (a text or XML record tells local time: it is taken in this system's zone)");
  command
      .add_option("--output", options.output,
                  "File to write (replaced when it exists; - is standard output, the default)")
      ->type_name("FILE");
  command.footer(
      "CSV: UTF-8, one header line, commas, \".\" in numbers. Columns: time in seconds from the record's "
      "zero\n"
      "(with --utc ISO 8601), mark (Start, Stop, event, gap, failure, clock step), then the data as\n"
      "\"name [unit]\", with ECU and request before the name where two have the same. A file that holds\n"
      "several recordings gets a column with their number in front. Of an MDF 4 file there is a line for\n"
      "each time at which something was answered; what was not answered then is empty, and so is what is "
      "not\n"
      "available: nothing is repeated or interpolated. An enumerated value is its number.\n"
      "JSON: one object a line: begin, row or answer, mark, gap, failure, end; not available is null.\n"
      "What is missing in the file is told on standard error.\n"
      "Example:\n"
      "  tarn-record export recordings/16-11-26_19h05mn07.txt --to csv --utc --output drive.csv");
  return [&options] {
    options.output = outputPath(options.output);
    std::fputs(printableText(exportRecord(options)).c_str(), stderr);
    return kDone;
  };
}

/// Columns of the terminal that standard output is, if it is one.
std::optional<std::size_t> terminalWidth() {
  winsize size{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

struct ShowCommand {
  ShowOptions options;
  bool json = false;
};

std::function<int()> addShow(CLI::App& app, ShowCommand& show) {
  CLI::App& command = *app.add_subcommand("show", "Show what a record holds: facts, marks, figures, quality");
  command.add_option("FILE", show.options.input, "Text or XML record or event file, or MDF 4 file")
      ->required();
  command.add_option("--data", show.options.data, "Only these data")->type_name("[ECU/[REQUEST/]]DATA");
  command
      .add_option("--from", show.options.from, "Figures only from this time on (seconds, as in the record)")
      ->type_name("S");
  command.add_option("--till", show.options.till, "Figures only up to this time")->type_name("S");
  command
      .add_option("--above", show.options.above, "Tell, too, for how long the data were above this number")
      ->type_name("NUMBER");
  command.add_flag("--json", show.json, "As JSON");
  command.footer(
      "Figures: how many values, minimum and maximum and when they were first reached, the mean and "
      "standard\n"
      "deviation of the rows. Data whose values have names, and on/off data: how long each value stood, how\n"
      "often it began, and when first.\n"
      "Example:\n"
      "  tarn-record show recordings/16-11-26_19h05mn07.txt --data \"Vehicle speed\" --from 60 --till 120");
  return [&show] {
    const ShownRecord shown = shownRecord(show.options);
    print(show.json ? showJson(shown) : showText(shown, terminalWidth()));
    return kDone;
  };
}

std::function<int()> addPlan(CLI::App& app, PlanOptions& options) {
  CLI::App& command =
      *app.add_subcommand("plan", "Tell how fast a configuration is polled, and what each request costs");
  addVehicle(command, options.vehicle, options.link);
  command.add_option("--config", options.config, "Recording configuration (XML)")
      ->required()
      ->type_name("FILE");
  command.add_option("--seconds", options.seconds, "Poll for so long (default: 5)")
      ->check(wholeNumber(1, 3600))
      ->type_name("S");
  addIntervals(command, options.link);
  command.footer(
      "Nothing is recorded. Example:\n"
      "  tarn-record plan --vehicle examples/road-car.vehicle.json --config examples/road-car.xml");
  return [&options] {
    print(printableText(plan(options)));
    return kDone;
  };
}

std::function<int()> addPublish(CLI::App& app, PublishCommandOptions& options) {
  CLI::App& command =
      *app.add_subcommand("publish", "Publish what a broker has not acknowledged yet of measurement files");
  command.add_option("FILE", options.files, "Measurement files (MDF 4) of this recorder")->required();
  command.add_option("--to", options.publish.to, "The broker, and what stands before all topics")
      ->required()
      ->type_name("mqtt[s]://HOST[:PORT]/TOPIC");
  addPublishing(command, options.publish);
  command.add_flag("--again", options.again, "What was acknowledged before, too");
  command.footer(
      "What was acknowledged stands in NAME.published beside NAME.mf4. Subscribers tell an answer that "
      "comes\n"
      "twice by its acquisition and number.\n"
      "Example:\n"
      "  tarn-record publish recordings/26-11-26_19h05mn07_all.mf4 --to mqtt://localhost/fleet");
  return [&options] { return publishFiles(options); };
}

int runChosen(const CLI::App& app, const std::vector<std::function<int()>>& actions) {
  for (std::size_t i = 0; i < actions.size(); ++i)
    if (app.get_subcommand(static_cast<int>(i))->parsed()) return actions[i]();
  return kBadInput;
}

int program(int argc, char** argv) {
  CLI::App app("Records the diagnostic data of a vehicle's control units");
  app.require_subcommand(1);
  app.set_version_flag("--version", TARNLOG_VERSION);
  app.footer(
      "Exit codes: 0 done, 1 failed while running, 2 bad usage or bad input. `man tarn-record` tells more.");
  RunOptions runOptions;
  ListOptions listOptions;
  CheckOptions checkOptions;
  NewOptions newOptions;
  std::string repairFileName;
  ImportOptions importOptions;
  ScanOptions scanOptions;
  ExportOptions exportOptions;
  std::string qualityFileName;
  ShowCommand showCommand;
  PlanOptions planOptions;
  PublishCommandOptions publishOptions;
  const std::vector<std::function<int()>> actions = {
      addRun(app, runOptions),   addList(app, listOptions),      addCheck(app, checkOptions),
      addNew(app, newOptions),   addRepair(app, repairFileName), addImport(app, importOptions),
      addScan(app, scanOptions), addExport(app, exportOptions),  addQuality(app, qualityFileName),
      addShow(app, showCommand), addPlan(app, planOptions),      addPublish(app, publishOptions)};
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const std::string unknown = unknownWord(app, argc, argv);
    if (error.get_exit_code() != 0 && !unknown.empty())
      throw BadInput(unknown + "\nRun with --help for more information.");
    return app.exit(error) == 0 ? kDone : kBadInput;
  }
  return runChosen(app, actions);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    openClosedStandardStreams();
    return program(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarn-record: %s\n", printableText(error.what()).c_str());
    return exitCodeAfter(error);
  }
}
