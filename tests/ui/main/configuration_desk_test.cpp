#include "ui/main/ConfigurationDesk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SourceDir.h"
#include "host/vehicle/Vehicle.h"
#include "platform/base/TarnError.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/SmallVehicle.h"

namespace tarnlog {
namespace {

using ::testing::IsEmpty;

const std::string kOneOfTwo =
    R"(<Tarnlog2000 Version="2.0"><Parameters><Recording period="2"/></Parameters><Datas>
    <Data index="1" name="Lambda" request="Status"><ECU name="Engine" function="Injection" address="16"/></Data>
    <Data index="2" name="Speed" request="Status"><ECU name="Engine" function="Injection" address="16"/></Data>
    </Datas></Tarnlog2000>)";

struct ConfigurationDeskTest : ::testing::Test {
  ConfigurationDeskTest() {
    desk.setSession(std::make_shared<const SessionDocument>(std::move(vehicle.catalogue)));
    desk.setParameters(parameters);
    desk.setStateHandler([this] { ++told; });
  }
  std::string failureOf(const std::string& fileName) {
    try {
      desk.load(fileName);
    } catch (const TarnError& error) {
      return error.description();
    }
    return "";
  }

  test::SmallVehicle vehicle;
  test::MemoryFileSystem files;
  MemorySettingsStore settings;
  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(settings);
  ConfigurationDesk desk{files, "tarnlog.xsl"};
  int told = 0;
};

TEST_F(ConfigurationDeskTest, BelongsToTheFileThatWasLoadedOrSaved) {
  files.files["/c.xml"] = kOneOfTwo;
  desk.noteEdit();
  EXPECT_TRUE(desk.changed());
  desk.load("/c.xml");
  EXPECT_FALSE(desk.changed());
  EXPECT_EQ(desk.fileName(), "/c.xml");
  EXPECT_EQ(parameters->Count(), 1);
  ASSERT_EQ(desk.lacks().size(), 1U);
  EXPECT_EQ(desk.lacks().front().path, "Engine/Status/Lambda");

  desk.noteEdit();
  files.openError = "disk full";
  EXPECT_THROW(desk.save("/d.xml"), TarnError);
  EXPECT_TRUE(desk.changed());
  EXPECT_EQ(desk.fileName(), "/c.xml");
  files.openError.clear();
  desk.save("/d.xml");
  EXPECT_FALSE(desk.changed());
  EXPECT_EQ(desk.fileName(), "/d.xml");
  EXPECT_EQ(told, 4);
}

/// Ctrl+S after a load that failed must not write the emptied configuration over the file from before.
TEST_F(ConfigurationDeskTest, ForgetsItsFileWhenALoadFails) {
  files.files["/c.xml"] = kOneOfTwo;
  files.files["/bad.xml"] = "<Tarnlog2000";
  desk.load("/c.xml");
  EXPECT_NE(failureOf("/bad.xml").find("File : /bad.xml, Line : "), std::string::npos);
  EXPECT_EQ(desk.fileName(), "");
  EXPECT_EQ(parameters->Count(), 0);
  EXPECT_THAT(desk.lacks(), IsEmpty());
}

/// What was not understood at loading must not be written over: parts that are left out, and records.
TEST_F(ConfigurationDeskTest, KnowsWhatSavingInPlaceWouldLose) {
  files.files["/c.xml"] = kOneOfTwo;
  desk.load("/c.xml");
  EXPECT_TRUE(desk.incomplete());
  desk.save("/d.xml");
  EXPECT_FALSE(desk.incomplete()) << "the new file has all that there is";
  desk.load("/d.xml");
  EXPECT_FALSE(desk.incomplete());
  files.files["/none.xml"] =
      kOneOfTwo.substr(0, kOneOfTwo.find("<Parameters>")) + kOneOfTwo.substr(kOneOfTwo.find("<Datas>"));
  desk.load("/none.xml");
  EXPECT_TRUE(desk.incomplete()) << "without \"Parameters\" nothing is read";

  const std::string opening = R"(<Tarnlog2000 Version="2.0">)";
  const auto withHead = [&](const std::string& head) {
    return opening + head + kOneOfTwo.substr(kOneOfTwo.find("<Parameters>"));
  };
  files.files["/record.xml"] = withHead("<Description>Data file</Description>");
  files.files["/event.xml"] = withHead("<Description>Event 1 for file : a.xml</Description>");
  files.files["/rows.xml"] = withHead("<row/>");
  files.files["/record.txt"] = "time\tevent\t\"Engine\"\r\n";
  for (const std::string name : {"/record.xml", "/event.xml", "/rows.xml"}) {
    SCOPED_TRACE(name);
    desk.load(name);
    EXPECT_TRUE(desk.fromRecord());
    EXPECT_EQ(desk.fileName(), "");
    EXPECT_EQ(parameters->Count(), 1);
  }
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
  EXPECT_EQ(failureOf("/c.xml"), "Parameters not defined");
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

/// Both example vehicles, each with its own configuration and with the other's.
TEST(ConfigurationDesk, SavesWhatLoadsAgainAndNamesWhatAnotherVehicleLacks) {
  test::MemoryFileSystem memory;
  SystemFileSystem disk;
  test::ManualLinkClock clock;
  MemorySettingsStore settings;
  const std::string examples = std::string(TARNLOG_SOURCE_DIR) + "/examples/";
  for (const std::string name : {"road-car", "kwp2000-car"}) {
    memory.files["/" + name + ".xml"] = disk.readAll(examples + name + ".xml");
  }
  for (const std::string name : {"road-car", "kwp2000-car"}) {
    SCOPED_TRACE(name);
    const auto vehicle =
        host::openVehicle(examples + name + ".vehicle.json", disk, UserLocale{}, clock, nullptr);
    ConfigurationDesk desk(memory, "tarnlog.xsl");
    desk.setSession(std::make_shared<const SessionDocument>(BuildSessionDocument(vehicle->session())));
    desk.setParameters(std::make_shared<oTarnParameters>(settings));
    desk.load("/" + name + ".xml");
    EXPECT_THAT(desk.lacks(), IsEmpty());
    desk.save("/saved.xml");
    const std::string saved = memory.files["/saved.xml"];
    desk.setParameters(std::make_shared<oTarnParameters>(settings));
    desk.load("/saved.xml");
    EXPECT_THAT(desk.lacks(), IsEmpty());
    desk.save("/saved.xml");
    EXPECT_EQ(memory.files["/saved.xml"], saved);

    desk.load(name == "road-car" ? "/kwp2000-car.xml" : "/road-car.xml");
    EXPECT_EQ(desk.lacks().front().kind, Lack::Kind::Data);
    EXPECT_EQ(desk.lacks().back().kind,
              name == "road-car" ? Lack::Kind::StartTrigger : Lack::Kind::StopTrigger);
  }
}

}  // namespace
}  // namespace tarnlog
