#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <utility>
#include <vector>

namespace tarnlog::record {

/// What a command does once its options have been read. It owns them, and gives the exit code.
using Action = std::function<int()>;

/// Each adds a command to the program, with its options.
Action addRun(CLI::App& app);
Action addList(CLI::App& app);
Action addCheck(CLI::App& app);
Action addNew(CLI::App& app);
Action addRepair(CLI::App& app);
Action addImport(CLI::App& app);
Action addScan(CLI::App& app);
Action addExport(CLI::App& app);
Action addQuality(CLI::App& app);
Action addShow(CLI::App& app);
Action addPlan(CLI::App& app);
Action addPublish(CLI::App& app);

/// All commands of the program.
class Commands {
 public:
  /// Adds them to the program, of which one is to be chosen.
  explicit Commands(CLI::App& app);

  /// Does what the command line says, which was parsed. Gives the exit code.
  int runChosen() const;

 private:
  std::vector<std::pair<const CLI::App*, Action>> commands_;
};

}  // namespace tarnlog::record
