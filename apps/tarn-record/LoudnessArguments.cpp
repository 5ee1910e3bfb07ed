#include "apps/tarn-record/LoudnessArguments.h"

#include "platform/text/Told.h"

namespace tarnlog::record {

void addLoudness(CLI::App& command, Loudness& loudness) {
  CLI::Option* const quiet = command.add_flag_callback(
      "--quiet", [&loudness] { loudness = Loudness::Quiet; },
      Told::tr("Tell only failures on standard error"));
  command
      .add_flag_callback(
          "--verbose", [&loudness] { loudness = Loudness::Verbose; },
          Told::tr("Tell on standard error, too, what helps to find a fault"))
      ->excludes(quiet);
}

}  // namespace tarnlog::record
