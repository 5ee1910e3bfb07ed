#include <gmock/gmock.h>

#include "SourceDir.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/settings/FileSettingsStore.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/SmallVehicle.h"
#include "ui/main/ConfigurationDesk.h"
#include "ui/main/LogPane.h"
#include "ui/main/RecentFiles.h"

namespace tarnlog {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

const std::string kOneOfTwo =
    R"(<Tarnlog2000 Version="2.0"><Parameters><Recording period="2"/></Parameters><Datas>
    <Data index="1" name="Lambda" request="Status"><ECU name="Engine" function="Injection" address="16"/></Data>
    <Data index="2" name="Speed" request="Status"><ECU name="Engine" function="Injection" address="16"/></Data>
    </Datas></Tarnlog2000>)";

struct ConfigurationDeskTest : ::testing::Test {
  ConfigurationDeskTest() {
    desk.setSession(std::make_shared<const SessionDocument>(std::move(vehicle.catalogue)));
    desk.setParameters(parameters);
  }
  test::SmallVehicle vehicle;
  test::MemoryFileSystem files;
  MemorySettingsStore settings;
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
  ConfigurationDesk desk{files, "tarnlog.xsl"};
};

/// What was not understood at loading must not be written over: parts that are left out, and records.
TEST_F(ConfigurationDeskTest, KnowsWhatSavingInPlaceWouldLose) {
  files.files["/c.xml"] = kOneOfTwo;
  desk.load("/c.xml");
  EXPECT_TRUE(desk.incomplete());
  desk.save("/d.xml");
  EXPECT_FALSE(desk.incomplete()) << "the new file has all that there is";
  desk.load("/d.xml");
  EXPECT_FALSE(desk.incomplete());
  const std::string opening = R"(<Tarnlog2000 Version="2.0">)";
  files.files["/none.xml"] = opening + kOneOfTwo.substr(kOneOfTwo.find("<Datas>"));
  desk.load("/none.xml");
  EXPECT_TRUE(desk.incomplete()) << "without \"Parameters\" nothing is read";
  files.files["/bad.xml"] = "<Tarnlog2000";
  EXPECT_THAT(test::failureOf([&] { desk.load("/bad.xml"); }), StartsWith("File : /bad.xml, Line : "));

  for (const auto& [name, head] : {std::pair("/record.xml", "<Description>Data file</Description>"),
                                   {"/event.xml", "<Description>Event 1 for file : a.xml</Description>"},
                                   {"/rows.xml", "<row/>"}}) {
    SCOPED_TRACE(name);
    files.files[name] = opening + head + kOneOfTwo.substr(kOneOfTwo.find("<Parameters>"));
    desk.load(name);
    EXPECT_TRUE(desk.fromRecord());
    EXPECT_EQ(desk.fileName(), "");
    EXPECT_EQ(parameters->Count(), 1);
  }
  files.files["/record.txt"] = "time\tevent\t\"Engine\"\r\n";
  for (const std::string name : {"/record.xml", "/event.xml", "/record.txt"}) {
    SCOPED_TRACE(name);
    const std::string before = files.files[name];
    EXPECT_THROW(desk.save(name), TarnError);
    EXPECT_EQ(files.files[name], before);
  }
  desk.save("/d.xml");
  EXPECT_FALSE(desk.fromRecord());
}

TEST_F(ConfigurationDeskTest, IsPutAwayAndTakenUpAgain) {
  files.files["/c.xml"] = kOneOfTwo;
  desk.load("/c.xml");
  desk.noteEdit();
  desk.setParameters(nullptr);
  EXPECT_EQ(test::failureOf([&] { desk.load("/c.xml"); }), "Parameters not defined");
  EXPECT_TRUE(desk.changed());
  desk.save("/c.xml");
  desk.noteEdit();
  desk.setParameters(parameters);
  EXPECT_TRUE(desk.changed()) << "the same configuration";
  EXPECT_EQ(desk.fileName(), "/c.xml");
  desk.setParameters(std::make_shared<oTarnParameters>(settings));
  EXPECT_FALSE(desk.changed()) << "a new one";
  EXPECT_EQ(desk.fileName(), "");
}

TEST(ConfigurationDesk, ExamplesFitTheirVehicles) {
  SystemFileSystem disk;
  test::ManualLinkClock clock;
  for (const std::string name : {"road-car", "kwp2000-car"}) {
    const std::string example = std::string(TARNLOG_SOURCE_DIR) + "/examples/" + name;
    const auto vehicle = host::openVehicle(example + ".vehicle.json", disk, UserLocale{}, clock, nullptr);
    ConfigurationDesk desk(disk, "tarnlog.xsl");
    desk.setSession(std::make_shared<const SessionDocument>(BuildSessionDocument(vehicle->session())));
    desk.setParameters(std::make_shared<oTarnParameters>(MemorySettingsStore()));
    desk.load(example + ".xml");
    EXPECT_THAT(desk.lacks(), IsEmpty()) << name;
  }
}

/// 32000 characters are still whole; one more and the line after it drops the first 15999. Characters, not
/// bytes: half of these have two.
TEST(LogPane, BeginsWithAnEmptyLineAndCutsWhatIsTooLongBeforeItAdds) {
  LogPane pane;
  pane.add("19:05:07 one");
  EXPECT_FALSE(pane.add("19:05:08 two"));
  EXPECT_EQ(pane.text(), "\r\n19:05:07 one\r\n19:05:08 two");
  pane.clear();
  std::string full;
  while (full.size() < 31998 / 2 * 3) full += "xé";
  pane.add(full);
  EXPECT_FALSE(pane.add("")) << "32000 characters are not too many";
  EXPECT_TRUE(pane.add("last"));
  // What is left begins with character 16000 of: CR LF, then "xé" over and over.
  const std::string& text = pane.text();
  EXPECT_EQ(text.substr(0, 5), "éxé");
  EXPECT_EQ(text.substr(text.size() - 8), "\r\n\r\nlast");
  EXPECT_FALSE(pane.add("next"));
}

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

}  // namespace
}  // namespace tarnlog
