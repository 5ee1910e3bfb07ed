#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

#include "apps/common/CommandLine.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/WrappedText.h"
#include "apps/tarn-record/Commands.h"

namespace tarnlog::record {
namespace {

using testing::HasSubstr;

struct Program {
  CLI::App app{"Records", "tarn-record"};
  Commands commands{(useHelpFormatter(app), app)};
};

std::string refused(const std::vector<const char*>& words) {
  Program program;
  std::vector<const char*> line{"tarn-record"};
  line.insert(line.end(), words.begin(), words.end());
  const int count = static_cast<int>(line.size());
  try {
    program.app.parse(count, line.data());
  } catch (const CLI::ParseError& error) {
    return refusalOf(program.app, error, count, line.data());
  }
  return "none";
}

TEST(CommandLine, TellsWhatWasMeantOrExpected) {
  const std::pair<std::vector<const char*>, const char*> lines[] = {
      {{"lst"}, "lst: there is no such command, did you mean list?\n`tarn-record --help` tells more."},
      {{}, "expected a command: run, list, "},
      {{"--vehicle", "a", "list"}, "--vehicle: expected behind a command, like run\n"},
      {{"list"}, "missing: --vehicle\n`tarn-record list --help` tells more."},
      {{"list", "--vehicel", "a"}, "--vehicel: there is no such option, did you mean --vehicle?"},
      {{"show", "a", "--jsn"}, "did you mean --json?"},
      {{"show", "a", "-j"}, "-j: there is no such option"},
      {{"show", "a", "b"}, "b: not expected here"},
      {{"show", "a", "--from", "x"}, "--from: x is not a number, expected one like 12.5"},
      {{"export", "a", "--to", "cvs"}, "--to: cvs is none of csv, mf4, json, did you mean csv?"},
      {{"export", "a", "--to"}, "--to: expected csv|mf4|json behind it"},
      {{"run", "--vehicle", "a", "--config", "b", "--format", ".tyt"}, "did you mean .txt?"},
      {{"run", "--vehicle", "a", "--config", "b", "--mf4=al"}, "did you mean all?"},
      {{"run", "--vehicle", "a", "--config", "b", "--period", "2.7"}, "2.7 is not a whole number from 0 to"},
      {{"run", "--vehicle", "a", "--config", "b", "--trace", "-"}, "--trace: expected a file"},
      {{"plan", "--vehicle", "a", "--config", "b", "--quiet", "--verbose"}, "together are not possible"}};
  for (const auto& [words, told] : lines) EXPECT_THAT(refused(words), HasSubstr(told));
}

TEST(CommandLine, EachCommandKnowsItsOwnOptionsNearly) {
  Program program;
  for (const CLI::App* const command : program.app.get_subcommands([](const CLI::App*) { return true; }))
    for (const CLI::Option* const option : command->get_options())
      for (const std::string& name : option->get_lnames())
        EXPECT_THAT(refused({command->get_name().c_str(), ("--" + name + "x").c_str()}),
                    HasSubstr("did you mean --" + name + "?"))
            << command->get_name();
}

TEST(CommandLine, HelpFitsEightyColumns) {
  Program program;
  std::string pages = program.app.help();
  for (const CLI::App* const command : program.app.get_subcommands([](const CLI::App*) { return true; }))
    pages += command->help();
  std::istringstream lines(pages);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(charactersOf(line), 79U) << line;
}

}  // namespace
}  // namespace tarnlog::record
