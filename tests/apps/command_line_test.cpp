#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "SourceDir.h"
#include "apps/common/CommandLine.h"
#include "apps/common/Completion.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/WrappedText.h"
#include "apps/tarn-record/Commands.h"
#include "tests/support/TempFolder.h"

namespace tarnlog::record {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

const std::string kVehicle = TARNLOG_SOURCE_DIR "/examples/road-car.vehicle.json";

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

std::vector<std::string> completed(const std::vector<std::string>& words) {
  Program program;
  std::vector<std::string> found;
  for (const Candidate& each : completions(program.app, words)) found.push_back(each.word);
  return found;
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

TEST(Completion, FollowsTheOptionsOfTheProgram) {
  EXPECT_THAT(completed({"li"}), ElementsAre("list"));
  EXPECT_THAT(completed({"export", "a", "--t"}), ElementsAre("--to", "--till"));
  EXPECT_THAT(completed({"export", "a", "--to", ""}), ElementsAre("csv", "mf4", "json"));
  EXPECT_THAT(completed({"export", "a", "--to=m"}), ElementsAre("--to=mf4"));
  EXPECT_THAT(completed({"run", "--mf4=a"}), ElementsAre("--mf4=all"));
  EXPECT_THAT(completed({"run", "--config", ""}), ElementsAre(kFiles));
  EXPECT_THAT(completed({"run", "--folder", "a"}), ElementsAre(kFolders));
  EXPECT_THAT(completed({"list", "--vehicle", "ob"}), ElementsAre(kFiles, "obd2:"));
  EXPECT_THAT(completed({"show", ""}), ElementsAre(kFiles));
  EXPECT_THAT(completed({"list", ""}), IsSupersetOf({"--vehicle", "--json"}));
  EXPECT_THAT(completed({"scan", "--link", "e"}), ElementsAre("elm327://"));
  EXPECT_THAT(completed({"nothing", "--x", ""}), Not(Contains("--vehicle")));
}

TEST(Completion, NamesDataOfTheVehiclePartByPart) {
  const auto after = [](const std::string& option, const std::string& typed) {
    return completed({"new", "--vehicle", kVehicle, option, typed});
  };
  EXPECT_THAT(after("--data", "En"), Contains("Engine/PID 0C/"));
  EXPECT_THAT(after("--data", "Engine/PID 0C"), ElementsAre("Engine/PID 0C/Engine speed"));
  EXPECT_THAT(after("--match", "Engine/PID 0C/"), ElementsAre("Engine/PID 0C/Engine speed"));
  EXPECT_THAT(after("--start", "Engine/PID 0C/E"),
              ElementsAre("Engine/PID 0C/Engine speed>", "Engine/PID 0C/Engine speed<"));
  EXPECT_THAT(completed({"run", "--vehicle=" + kVehicle, "--interval", "Engine/PID 0C"}),
              ElementsAre("Engine/PID 0C="));
  EXPECT_THAT(completed({"new", "--vehicle", "obd2:", "--data", ""}), ElementsAre());
  EXPECT_THAT(completed({"new", "--vehicle", "/dev/zero", "--data", ""}), ElementsAre());
}

TEST(Completion, NamesDataOfTheRecord) {
  const test::TempFolder folder;
  const std::string record = folder / "drive.txt";
  std::ofstream(record) << "time\tevent\t\"Engine\"\t\"Brakes\"\n16/11/26\t\t\"PID 0D\"\t\"Wheels\"\n"
                           "19:05:07\t\t\"Vehicle speed(km/h)\"\t\"Front(bar)\"\n0\t\"\"\t0\t10\n";
  EXPECT_THAT(completed({"show", record, "--data", ""}), ElementsAre("Vehicle speed", "Front"));
  EXPECT_THAT(completed({"export", record, "--data", "Front", "Brakes/"}),
              ElementsAre("Brakes/Wheels/Front"));
}

/// What a command of a shell prints; skips the test where there is no such shell.
class Shell : public testing::Test {
 protected:
  static bool has(const std::string& shell) {
    return std::system(("command -v " + shell + " >/dev/null 2>&1").c_str()) == 0;
  }
  static std::string said(const std::string& shell, const std::string& script) {
    const test::TempFolder folder;
    std::ofstream(folder / "script") << script;
    const std::string command = "HOME=" + folder.path() + " " + shell + " " + (folder / "script") + " 2>&1";
    FILE* const pipe = popen(command.c_str(), "r");
    std::string text;
    std::array<char, 256> part{};
    while (fgets(part.data(), part.size(), pipe) != nullptr) text += part.data();
    pclose(pipe);
    return text;
  }
};

TEST_F(Shell, BashFitsNamesToItsWords) {
  if (!has("bash")) GTEST_SKIP() << "there is no bash";
  const auto completes = [](const std::string& words, const std::string& last) {
    return said("bash", "source " TARNLOG_SOURCE_DIR
                        "/share/completion/tarn-record.bash\n"
                        "compopt() { :; }\n"  // which only a completion may call
                        "COMP_WORDS=(" +
                            std::string(TARN_RECORD_PROGRAM) + " " + words + " " + last +
                            ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                            "printf -v COMP_LINE '%s ' \"${COMP_WORDS[@]}\"\nCOMP_LINE=${COMP_LINE% }\n"
                            "COMP_POINT=${#COMP_LINE}\n"
                            "_tarn_record \"${COMP_WORDS[0]}\"\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n");
  };
  EXPECT_EQ(completes("", "li"), "list\n");
  EXPECT_EQ(completes("new --vehicle " + kVehicle + " --data", R"('Engine/PID\ 0C')"),
            "Engine/PID\\ 0C/Engine\\ speed\n");
  EXPECT_EQ(completes("new --vehicle " + kVehicle + " --data", R"('"Engine/PID 0C')"),
            "Engine/PID 0C/Engine speed\n");
  EXPECT_EQ(completes("list --vehicle", "obd"), "obd2:\n");
}

TEST_F(Shell, FishCompletes) {
  if (!has("fish")) GTEST_SKIP() << "there is no fish";
  const std::string program = TARN_RECORD_PROGRAM;
  const std::string folder = program.substr(0, program.rfind('/'));
  const auto completes = [&](const std::string& line) {
    return said("fish --no-config", "set -x PATH " + folder +
                                        " $PATH\nsource " TARNLOG_SOURCE_DIR
                                        "/share/completion/tarn-record.fish\ncomplete -C '" +
                                        line + "'\n");
  };
  EXPECT_THAT(completes("tarn-record li"), testing::StartsWith("list\t"));
  EXPECT_THAT(completes("tarn-record export a --to "), HasSubstr("csv\n"));
  EXPECT_THAT(completes("tarn-record new --vehicle " + kVehicle + " --data \"Engine/PID 0C"),
              HasSubstr("Engine/PID 0C/Engine speed"));
}

}  // namespace
}  // namespace tarnlog::record
