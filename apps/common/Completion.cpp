#include "apps/common/Completion.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string_view>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/CompletionNames.h"
#include "apps/common/TerminalText.h"
#include "host/vehicle/Vehicle.h"

namespace tarnlog {

namespace {

constexpr int kMany = 2;

/// The words before the one that is typed, and what they leave open.
class Line {
 public:
  Line(CLI::App& app, const std::vector<std::string>& words) : command_(&app) {
    for (std::size_t i = 0; i + 1 < words.size(); ++i) take(words[i]);
  }

  CLI::App& command() const { return *command_; }
  /// The next word is its value; null when none is awaited.
  CLI::Option* awaited() const { return awaited_; }
  /// The next word may be one more of its values.
  CLI::Option* goingOn() const { return goingOn_; }
  const std::string& vehicle() const { return vehicle_; }
  /// Those that belong to no option.
  const std::vector<std::string>& others() const { return others_; }

 private:
  void take(const std::string& word) {
    if (awaited_ != nullptr) return takeValue(*awaited_, word);
    if (word.starts_with("-")) return takeOption(word);
    if (goingOn_ != nullptr) return;
    CLI::App* const command = findCommand(word);
    if (command != nullptr)
      command_ = command;
    else
      others_.push_back(word);
  }

  void takeOption(const std::string& word) {
    goingOn_ = nullptr;
    const std::size_t equals = word.find('=');
    CLI::Option* const option = command_->get_option_no_throw(word.substr(0, equals));
    if (option == nullptr) return;
    if (equals != std::string::npos)
      takeValue(*option, word.substr(equals + 1));
    else if (option->get_items_expected_min() > 0)
      awaited_ = option;
  }

  void takeValue(CLI::Option& option, const std::string& value) {
    awaited_ = nullptr;
    if (option.get_name() == "--vehicle") vehicle_ = value;
    if (option.get_allow_extra_args() && option.get_items_expected_max() >= kMany) goingOn_ = &option;
  }

  CLI::App* findCommand(const std::string& word) const {
    const auto found =
        command_->get_subcommands([&](const CLI::App* each) { return each->get_name() == word; });
    return found.empty() ? nullptr : found.front();
  }

  CLI::App* command_;
  CLI::Option* awaited_ = nullptr;
  CLI::Option* goingOn_ = nullptr;
  std::string vehicle_;
  std::vector<std::string> others_;
};

class Completing {
 public:
  Completing(CLI::App& app, const std::vector<std::string>& words)
      : line_(app, words), typed_(words.empty() ? std::string() : words.back()) {}

  std::vector<Candidate> candidates() {
    const std::size_t equals = typed_.find('=');
    if (line_.awaited() != nullptr)
      addValues(*line_.awaited(), typed_, {});
    else if (typed_.starts_with("--") && equals != std::string::npos)
      addValuesBehind(equals);
    else if (typed_.starts_with("-"))
      addOptions();
    else
      addWords();
    return std::move(found_);
  }

 private:
  void add(const std::string& word, const std::string& description = {}) {
    if (word.starts_with(typed_)) found_.push_back({word, description});
  }

  void addValuesBehind(std::size_t equals) {
    CLI::Option* const option = line_.command().get_option_no_throw(typed_.substr(0, equals));
    if (option != nullptr) addValues(*option, typed_.substr(equals + 1), typed_.substr(0, equals + 1));
  }

  void addWords() {
    const auto commands = line_.command().get_subcommands([](const CLI::App*) { return true; });
    for (const CLI::App* const each : commands) add(each->get_name(), each->get_description());
    if (line_.goingOn() != nullptr) addValues(*line_.goingOn(), typed_, {});
    CLI::Option* const positional = freePositional();
    if (positional != nullptr)
      addValues(*positional, typed_, {});
    else if (commands.empty() && typed_.empty())
      addOptions();
  }

  CLI::Option* freePositional() const {
    for (CLI::Option* const option : line_.command().get_options())
      if (option->get_positional() &&
          line_.others().size() < static_cast<std::size_t>(option->get_items_expected_max()))
        return option;
    return nullptr;
  }

  void addOptions() {
    for (const CLI::Option* const option : line_.command().get_options())
      for (const std::string& name : option->get_lnames()) add("--" + name, option->get_description());
  }

  /// `before` stands in the same word.
  void addValues(CLI::Option& option, const std::string& typed, const std::string& before) {
    std::vector<std::string> values = choicesOf(option);
    const ValueKind kind = valueKindOf(option);
    if (kind == ValueKind::File) found_.push_back({kFiles});
    if (kind == ValueKind::Folder) found_.push_back({kFolders});
    if (option.get_name() == "--vehicle") values.emplace_back(host::kObdCar);
    if (kind == ValueKind::Link) values.insert(values.end(), {"elm327://", "doip://", "isotp://", "replay:"});
    if (kind == ValueKind::Datum) values = datumNames(line_.vehicle(), typed, {""});
    if (kind == ValueKind::DatumAndLevel) values = datumNames(line_.vehicle(), typed, {">", "<"});
    if (kind == ValueKind::Request) values = requestNames(line_.vehicle(), typed, "=");
    if (kind == ValueKind::RecordDatum && !line_.others().empty())
      values = recordedNames(line_.others().front(), typed);
    for (const std::string& value : values) add(before + value);
  }

  Line line_;
  std::string typed_;
  std::vector<Candidate> found_;
};

}  // namespace

std::vector<Candidate> completions(CLI::App& app, const std::vector<std::string>& words) {
  return Completing(app, words).candidates();
}

bool printCompletions(CLI::App& app, const char* asked, int argc, const char* const* argv) {
  if (argc < 2 || std::string_view(argv[1]) != asked) return false;
  std::vector<std::string> words(argv + 2, argv + argc);
  if (!words.empty() && words.front() == "--") words.erase(words.begin());
  for (const Candidate& each : completions(app, words)) {
    if (each.word.find_first_of("\t\n") != std::string::npos) continue;
    std::string line = each.word;
    if (!each.description.empty()) line += "\t" + printableLine(each.description);
    std::puts(line.c_str());
  }
  return true;
}

}  // namespace tarnlog
