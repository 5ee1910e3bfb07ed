#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <utility>

#include "SourceDir.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

struct Ended {
  int code;
  std::string said;
};

/// The program where there is no display.
Ended runWithoutDisplay(const std::string& arguments, const std::string& locale = "C") {
  const std::string examples = std::string("cd " TARNLOG_SOURCE_DIR "/examples && ");
  const std::string nothing =
      "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u LANGUAGE LC_ALL=" + locale + " ";
  FILE* const pipe = popen((examples + nothing + TARNLOG_PROGRAM " " + arguments + " 2>&1").c_str(), "r");
  std::string said;
  std::array<char, 256> part{};
  while (fgets(part.data(), part.size(), pipe) != nullptr) said += part.data();
  return {WEXITSTATUS(pclose(pipe)), said};
}

TEST(WindowProgram, TellsWhatKeepsTheWindowFromOpening) {
  const Ended noDisplay = runWithoutDisplay("--vehicle road-car.vehicle.json --config road-car.xml");
  EXPECT_EQ(noDisplay.code, 3);  // ./dev run goes on without a window then
  EXPECT_NE(noDisplay.said.find("tarn-record"), std::string::npos);

  const Ended badUsage = runWithoutDisplay("--vehicle road-car.vehicle.json --folder");
  EXPECT_EQ(badUsage.code, 2);
  EXPECT_NE(badUsage.said.find("--folder"), std::string::npos) << badUsage.said;
}

TEST(WindowProgram, SpeaksTheLanguageOfTheEnvironment) {
  for (const auto& [locale, usage] : {std::pair("C", "Usage:"),
                                      {"de_DE.UTF-8", "Aufruf:"},
                                      {"fr_FR.UTF-8", "Utilisation:"},
                                      {"nl_NL.UTF-8", "Usage:"}}) {
    const Ended help = runWithoutDisplay("--help", locale);
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.said.find(usage), std::string::npos) << locale << ": " << help.said;
  }
}

TEST(WindowProgram, MakesAPictureWithoutADisplay) {
  const test::TempFolder folder;
  const std::string record = folder / "drive.txt";
  std::ofstream(record) << "time\tevent\t\"Speed(km/h)\"\t\"Throttle(%)\"\n0\t\"\"\t0\t10\n1\t\"\"\t50\t20\n";
  const std::string svg = folder / "drive.svg";
  const Ended made = runWithoutDisplay("--picture " + svg + " " + record + " --data Speed --size 640x480");
  EXPECT_EQ(made.code, 0) << made.said;
  const std::string drawn = SystemFileSystem().readAll(svg);
  EXPECT_NE(drawn.find("viewBox=\"0 0 640 480\""), std::string::npos);
  EXPECT_NE(drawn.find("Speed"), std::string::npos);
  EXPECT_EQ(drawn.find("Throttle"), std::string::npos);

  const std::pair<std::string, std::string> refused[] = {
      {"--picture " + folder.path() + "/none/a.png " + record, "none/a.png"},
      {"--picture " + folder.path() + "/a.gif " + record, "ends with .svg or .png"},
      {"--picture " + svg + " " + record + " --data Sped", "did you mean Speed?"},
      {"--picture " + svg + " " + record + " --size 1x1", "--size 1x1"}};
  for (const auto& [arguments, why] : refused) {
    const Ended ended = runWithoutDisplay(arguments);
    EXPECT_EQ(ended.code, 2) << arguments;
    EXPECT_NE(ended.said.find(why), std::string::npos) << ended.said;
  }
}

}  // namespace
}  // namespace tarnlog
