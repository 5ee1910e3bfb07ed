#include "apps/tarn-record/Commands.h"

#include "apps/common/BadInput.h"

namespace tarnlog::record {

namespace {

/// As --help lists them.
constexpr Action (*kCommands[])(CLI::App&) = {addRun,  addList,   addCheck,   addNew,  addRepair, addImport,
                                              addScan, addExport, addQuality, addShow, addPlan,   addPublish};

}  // namespace

Commands::Commands(CLI::App& app) {
  app.require_subcommand(1);
  for (const auto& add : kCommands) {
    Action action = add(app);
    const int newest = static_cast<int>(commands_.size());
    commands_.emplace_back(app.get_subcommand(newest), std::move(action));
  }
}

int Commands::runChosen() const {
  for (const auto& [command, action] : commands_)
    if (command->parsed()) return action();
  return kBadInput;
}

}  // namespace tarnlog::record
