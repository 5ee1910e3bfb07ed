#include "apps/common/CommandLine.h"

#include <fmt/ranges.h>

#include <cctype>
#include <cstddef>
#include <string_view>
#include <vector>

#include "apps/common/NearestName.h"
#include "platform/text/Told.h"

namespace tarnlog {

namespace {

bool isEach(const CLI::App* /*command*/) { return true; }

std::vector<std::string> commandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* const command : app.get_subcommands(isEach)) names.push_back(command->get_name());
  return names;
}

const CLI::App* findCommand(const CLI::App& app, const std::string& name) {
  const auto commands = app.get_subcommands([&](const CLI::App* each) { return each->get_name() == name; });
  return commands.empty() ? nullptr : commands.front();
}

/// The command that was chosen; the program itself before one is.
CLI::App& chosen(CLI::App& app) {
  const auto parsed = app.get_subcommands();
  return parsed.empty() ? app : *parsed.front();
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

bool isOption(const std::string& word) {
  return word.size() > 1 && word[0] == '-' && std::isdigit(static_cast<unsigned char>(word[1])) == 0 &&
         word[1] != '.';
}

bool someCommandHas(const CLI::App& app, const std::string& option) {
  for (const CLI::App* const command : app.get_subcommands(isEach))
    if (command->get_option_no_throw(option) != nullptr) return true;
  return false;
}

std::string unknownOption(const CLI::App& app, const CLI::App& command, const std::string& name) {
  if (&command == &app && someCommandHas(app, name))
    return Told::tr("{}: expected behind a command, like {}", name, commandNames(app).front());
  const std::string nearest = nearestName(optionNames(command), name);
  if (nearest.empty()) return Told::tr("{}: there is no such option", name);
  return Told::tr("{}: there is no such option, did you mean {}?", name, nearest);
}

std::string unknownCommand(const CLI::App& app, const std::string& name) {
  const std::string nearest = nearestName(commandNames(app), name);
  if (nearest.empty()) return Told::tr("{}: there is no such command", name);
  return Told::tr("{}: there is no such command, did you mean {}?", name, nearest);
}

/// What is said of the word that is no command or option; empty when there is none, and something else is
/// wrong. The parser itself misses what was not given before it looks at what it does not know.
std::string unknownWord(const CLI::App& app, int argc, const char* const* argv) {
  const CLI::App* command = &app;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const std::string name = word.substr(0, word.find('='));
    if (word == "--") break;
    if (isOption(name) && command->get_option_no_throw(name) == nullptr)
      return unknownOption(app, *command, name);
    if (name == word && takesValue(*command, name)) ++i;  // whatever it looks like
    if (word.starts_with('-') || command != &app || commandNames(app).empty()) continue;
    command = findCommand(app, word);
    if (command == nullptr) return unknownCommand(app, word);
  }
  return {};
}

std::string missingOptions(const CLI::App& app, const CLI::App& command) {
  if (&command == &app && !commandNames(app).empty())
    return Told::tr("expected a command: {}", fmt::join(commandNames(app), ", "));
  std::vector<std::string> missing;
  for (const CLI::Option* const option : command.get_options())
    if (option->get_required() && option->count() == 0) missing.push_back(option->get_name());
  return Told::tr("missing: {}", fmt::join(missing, ", "));
}

/// The library's texts begin with the option that they are about.
std::string missingValue(const CLI::App& command, const std::string& what) {
  const std::string name = what.substr(0, what.find(':'));
  const CLI::Option* const option = command.get_option_no_throw(name);
  if (option == nullptr || option->get_type_name().empty()) return what;
  return Told::tr("{}: expected {} behind it", name, option->get_type_name());
}

std::string excluded(const std::string& what) {
  constexpr std::string_view kExcludes = " excludes ";
  const std::size_t at = what.find(kExcludes);
  if (at == std::string::npos) return what;
  return Told::tr("{} and {} together are not possible", what.substr(0, at),
                  what.substr(at + kExcludes.size()));
}

std::string wrongUse(CLI::App& app, const CLI::ParseError& error) {
  const CLI::App& command = chosen(app);
  std::string what = error.what();
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) return missingOptions(app, command);
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) return missingValue(command, what);
  if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) return excluded(what);
  const std::vector<std::string> left = app.remaining(true);
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr && !left.empty())
    return Told::tr("{}: not expected here", left.front());
  return what;
}

}  // namespace

std::string refusalOf(CLI::App& app, const CLI::ParseError& error, int argc, const char* const* argv) {
  const std::string unknown = unknownWord(app, argc, argv);
  const CLI::App& command = chosen(app);
  const std::string help = &command == &app ? app.get_name() : app.get_name() + " " + command.get_name();
  return (unknown.empty() ? wrongUse(app, error) : unknown) + "\n" +
         Told::tr("`{} --help` tells more.", help);
}

}  // namespace tarnlog
