#include "apps/common/RecordFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

TEST(RecordFolder, IsNamedAfterTheVehicleAndNeverLosesARecording) {
  EXPECT_EQ(folderNameOf("Volvo P1800 \"S\" (1/2)\n"), "Volvo P1800 _S_ (1_2)_");
  EXPECT_EQ(folderNameOf("../.. "), "_");
  EXPECT_EQ(folderNameOf(". "), "vehicle");
  EXPECT_EQ(folderNameOf(std::string(79, 'x') + "é"), std::string(79, 'x'));

  const test::TempFolder folder;
  std::string told;
  const auto tell = [&](const std::string& why) { told = why; };
  host::VehicleDescription car;
  car.name = "Car: red";
  for (int i = 0; i < 2; ++i) EXPECT_EQ(folderOfVehicle(folder.path(), car, tell), folder / "Car_ red");
  EXPECT_TRUE(std::filesystem::is_directory(folder / "Car_ red"));
  EXPECT_EQ(told, "");
  car.name = "taken";
  std::ofstream(folder / "taken").put('x');
  EXPECT_EQ(folderOfVehicle(folder.path(), car, tell), folder.path());
  EXPECT_EQ(told.find(folder / "taken"), 0U) << told;
}

}  // namespace
}  // namespace tarnlog
