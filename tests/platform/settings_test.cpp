#include <gtest/gtest.h>

#include "platform/base/TarnError.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/settings/FileSettingsStore.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

TEST(Settings, OutliveTheProgramAndABrokenFileRaisesUntilItIsWrittenAgain) {
  const test::TempFolder folder;
  SystemFileSystem files;
  const std::string path = folder / "config/tarnlog2001/settings";
  FileSettingsStore store(files, path);
  EXPECT_EQ(store.read("PathName"), std::nullopt);
  store.write("PathName", "/data/\u00E9t\u00E9 = 1\n\\new");
  store.write("Period", "");
  const FileSettingsStore again(files, path);
  EXPECT_EQ(again.read("PathName"), "/data/\u00E9t\u00E9 = 1\n\\new");
  EXPECT_EQ(again.read("Period"), "");
  EXPECT_EQ(again.read("Format"), std::nullopt);

  for (const std::string broken : {"Period=5\nPathNa", "Period=\xFF\n"}) {
    files.replace(path, broken);
    EXPECT_THROW(store.read("Period"), TarnError) << broken;
  }
  store.write("Period", "7");
  EXPECT_EQ(store.read("Period"), "7");
  EXPECT_THROW(FileSettingsStore(files, path + "/settings").write("Period", "5"), TarnError);
}

TEST(Settings, AreInTheUsersConfigurationFolder) {
  setenv("HOME", "/home/user", 1);
  setenv("XDG_CONFIG_HOME", "/home/user/.conf", 1);
  EXPECT_EQ(FileSettingsStore::defaultPath(), "/home/user/.conf/tarnlog2001/settings");
  unsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(FileSettingsStore::defaultPath(), "/home/user/.config/tarnlog2001/settings");
}

}  // namespace
}  // namespace tarnlog
