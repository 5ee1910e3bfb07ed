#include "apps/tarn-record/VehicleArguments.h"

#include "apps/common/ArgumentChecks.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

void addVehicle(CLI::App& command, std::string& vehicle, host::LinkOptions& link) {
  command
      .add_option(
          "--vehicle", vehicle,
          Told::tr("Vehicle description (JSON), or obd2: to ask the car behind the link what it offers"))
      ->required()
      ->check(isA(ValueKind::File))
      ->type_name(Told::tr("FILE"));
  command
      .add_option("--link", link.url,
                  Told::tr("How the car is reached (default: the description's simulation)"))
      ->check(isA(ValueKind::Link))
      ->type_name(Told::tr("URL"));
}

void addVehicle(CLI::App& command, VehicleChoice& choice) { addVehicle(command, choice.path, choice.link); }

void addConfiguration(CLI::App& command, std::string& config) {
  command.add_option("--config", config, Told::tr("Recording configuration (XML)"))
      ->required()
      ->check(isA(ValueKind::File))
      ->type_name(Told::tr("FILE"));
}

void addIntervals(CLI::App& command, host::LinkOptions& link) {
  command
      .add_option(
          "--interval", link.intervals,
          Told::tr("Send this request every MS milliseconds only, not in every cycle; for several requests, "
                   "several times"))
      ->check(isA(ValueKind::Request))
      ->allow_extra_args(false)
      ->type_name(Told::tr("ECU/REQUEST=MS"));
}

void addTrace(CLI::App& command, host::LinkOptions& link) {
  command.add_option("--trace", link.trace, Told::tr("Write what goes over the link to this new file"))
      ->check(isA(ValueKind::File))
      ->check(noStandardStream())
      ->type_name(Told::tr("FILE"));
}

void addRecordFile(CLI::App& command, std::string& file) {
  command.add_option("FILE", file, Told::tr("Text or XML record or event file, or MDF 4 file"))
      ->required()
      ->check(isA(ValueKind::File));
}

}  // namespace tarnlog::record
