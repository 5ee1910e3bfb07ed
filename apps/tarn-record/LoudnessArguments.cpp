#include "apps/tarn-record/LoudnessArguments.h"

namespace tarnlog::record {

void addLoudness(CLI::App& command, Loudness& loudness) {
  CLI::Option* const quiet = command.add_flag_callback(
      "--quiet", [&loudness] { loudness = Loudness::Quiet; }, "Tell only failures on standard error");
  command
      .add_flag_callback(
          "--verbose", [&loudness] { loudness = Loudness::Verbose; },
          "Tell on standard error, too, what helps to find a fault")
      ->excludes(quiet);
}

}  // namespace tarnlog::record
