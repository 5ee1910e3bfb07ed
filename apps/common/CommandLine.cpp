#include "apps/common/CommandLine.h"

#include <CLI/CLI.hpp>
#include <cstddef>
#include <string_view>
#include <vector>

#include "apps/common/NearestName.h"

namespace tarnlog {

namespace {

std::string meant(const std::string& nearest) {
  return nearest.empty() ? std::string() : ", did you mean " + nearest + "?";
}

std::vector<std::string> commandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; }))
    names.push_back(command->get_name());
  return names;
}

const CLI::App* findCommand(const CLI::App& app, const std::string& name) {
  const auto commands = app.get_subcommands([&](const CLI::App* each) { return each->get_name() == name; });
  return commands.empty() ? nullptr : commands.front();
}

std::vector<std::string> optionNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* const option : command.get_options())
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

bool takesValue(const CLI::App& command, const std::string& name) {
  const CLI::Option* const option = command.get_option_no_throw(name);
  return option != nullptr && option->get_items_expected_min() > 0;
}

}  // namespace

std::string unknownWord(const CLI::App& app, int argc, const char* const* argv) {
  const CLI::App* command = &app;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const std::string name = word.substr(0, word.find('='));
    if (word == "--") break;
    if (name.starts_with("--") && command->get_option_no_throw(name) == nullptr)
      return name + ": there is no such option" + meant(nearestName(optionNames(*command), name));
    if (name == word && takesValue(*command, name)) ++i;  // whatever it looks like
    if (word.starts_with('-') || command != &app || commandNames(app).empty()) continue;
    command = findCommand(app, word);
    if (command == nullptr)
      return word + ": there is no such command" + meant(nearestName(commandNames(app), word));
  }
  return {};
}

}  // namespace tarnlog
