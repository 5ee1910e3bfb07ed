#include "ui/main/RecentFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/settings/FileSettingsStore.h"
#include "tests/support/MemoryFileSystem.h"

namespace tarnlog {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(RecentFiles, KeepsTheNewestFirstOnceEach) {
  test::MemoryFileSystem files;
  FileSettingsStore settings(files, "/cfg/settings");
  RecentFiles recent(settings, "RecentVehicles");
  for (const char* const path : {"/a", "/b=c", "/a"}) recent.add(path);
  EXPECT_THAT(RecentFiles(settings, "RecentVehicles").paths(), ElementsAre("/a", "/b=c"));
  EXPECT_THAT(RecentFiles(settings, "RecentConfigurations").paths(), IsEmpty());
  for (int i = 0; i < 20; ++i) recent.add("/" + std::to_string(i));
  EXPECT_THAT(recent.paths(), SizeIs(RecentFiles::kMost));
  recent.remove("/19");
  EXPECT_EQ(recent.paths().front(), "/18");
}

TEST(RecentFiles, LivesWithSettingsThatCannotBeReadOrWritten) {
  test::MemoryFileSystem files;
  FileSettingsStore settings(files, "/cfg/settings");
  files.files["/cfg/settings"] = "no equals sign";
  RecentFiles recent(settings, "RecentVehicles");
  EXPECT_THAT(recent.paths(), IsEmpty());
  files.openError = "read-only";
  recent.add("/a");
  EXPECT_THAT(recent.paths(), IsEmpty());
}

}  // namespace
}  // namespace tarnlog
