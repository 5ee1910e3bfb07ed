#include "apps/common/RecordFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "apps/common/BootNumber.h"
#include "tests/support/MemoryFileSystem.h"
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

/// A file of another kind must not be replaced by a count.
TEST(BootNumber, GoesUpWithEachBootAndNotBetween) {
  test::MemoryFileSystem files;
  const auto boot = [&](const std::string& id) {
    files.files["/id"] = id + "\n";
    return bootPrefix(countBoot(files, "/boots", "/id"));
  };
  EXPECT_EQ(boot("aa"), "boot0001_");
  EXPECT_EQ(boot("aa"), "boot0001_");
  EXPECT_EQ(boot("bb"), "boot0002_");
  files.files["/boots"] = "9999 bb\n";
  EXPECT_EQ(boot("cc"), "boot10000_");
  for (const std::string other : {"", "12\n", "0 aa\n", "x aa\n", "a letter to somebody\n"}) {
    files.files["/boots"] = other;
    EXPECT_THROW(boot("dd"), TarnError) << other;
    EXPECT_EQ(files.files["/boots"], other);
  }
}

}  // namespace
}  // namespace tarnlog
