#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>
#include "SourceDir.h"

namespace tarnlog {
namespace {

struct Ended {
  int code;
  std::string said;
};

/// The program where there is no display.
Ended runWithoutDisplay(const std::string& arguments) {
  const std::string examples = std::string("cd " TARNLOG_SOURCE_DIR "/examples && ");
  const std::string nothing = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ";
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

}  // namespace
}  // namespace tarnlog
