#include <gmock/gmock.h>

#include <filesystem>

#include "platform/files/SystemFileSystem.h"
#include "platform/xml/XmlDocument.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

using test::kCommaLocale;
using test::Recipe;
using test::Scenario;
using testing::ElementsAre;

const std::string kText = "/rec/16-11-26_19h05mn08.txt";
const std::string kXml = "/rec/16-11-26_19h05mn08.xml";

std::string withCrLf(std::string text) {
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2) text.insert(at, 1, '\r');
  return text;
}

TEST(RecordFiles, TextByteForByteWithEveryKindOfValue) {
  const test::TempFolder folder;
  SystemFileSystem disk;
  Scenario car({.speed = "0:12.25 1100:60.5 1200:61",
                .data = {"Status/Speed", "Status/Température", "Status/Pedal", "Status/Pump fault",
                         "Identification/Part", "Identification/Raw"},
                .start = "rising 60",
                .prefix = "été_",
                .folder = folder.path(),
                .locale = kCommaLocale},
               &disk);
  car.start();
  car.run("1000 1100 1234");
  EXPECT_EQ(car.screen.rows[2].value, "Pressed");
  car.end();
  const std::string path = folder / "été_16-11-26_19h05mn08.txt";
  EXPECT_THAT(car.finished, ElementsAre(path));
  EXPECT_EQ(
      disk.readAll(path),
      "time\tevent\t\"Engine\"\t\"Engine\"\t\"Engine\"\t\"Engine\"\t\"Engine\"\t\"Engine\"\r\n"
      "16.11.26\t\t\"Status\"\t\"Status\"\t\"Status\"\t\"Status\"\t\"Identification\"\t\"Identification\"\r\n"
      "19:05:08\t\t\"Speed(km/h)\"\t\"Temp\xE9rature(\xB0"
      "C)\"\t\"Pedal\"\t\"Pump fault\"\t\"Part\"\t\"Raw\"\r\n"
      "0\t\"Start\"\t60,5\t21,5\t1\t1\t8200\xE9\t0A 1B\r\n"
      "0,13\t\"\"\t61\t21,5\t1\t1\t8200\xE9\t0A 1B\r\n");
}

TEST(RecordFiles, XmlByteForByteAndGoodAsAConfiguration) {
  Scenario car({.speed = "0:12.25 1100:60.5 1200:61",
                .data = {"Status/Speed", "Status/Température"},
                .start = "rising 49.5",
                .head = "<Comment>Wet &amp; cold</Comment><StartSession>10 C0</StartSession><InitScenario>"
                        "<Request Name=\"Reset\" EcuName=\"Engine\" Address=\"16\"/></InitScenario>",
                .format = ".xml",
                .prefix = "p_",
                .locale = kCommaLocale});
  car.start();
  car.run("1000 1100 1234");
  EXPECT_THAT(
      car.screen.logTexts(),
      testing::IsSupersetOf({"Injection Global init request : 10 C0", "Init scenario start",
                             "Injection Init request : Reset send=30 01 receive=70", "Init scenario done"}));
  car.end();
  const std::string path = "/rec/p_16-11-26_19h05mn08.xml";
  EXPECT_EQ(car.files.files[path], withCrLf(R"(<?xml version="1.0" encoding="UTF-8"?>
<?xml-stylesheet type="text/xsl" href="tarnlog.xsl"?>
<Tarnlog2000 Version="2.0">
	<Description>Data file</Description>
	<File>16-11-26_19h05mn08.xml</File>
	<Date>16.11.2026</Date>
	<Time>19:05:08</Time>
	<Parameters>
		<Comment>Wet &amp; cold</Comment>
		<StartSession>10 C0</StartSession>
		<InitScenario>
			<Request Name="Reset" EcuName="Engine" Address="16"/>
		</InitScenario>
		<Recording period="0">
			<Trigger>
				<Start prepost="0" restart="0" type="Channel">
					<Channel edge="1" level="49.5" index="1"/>
				</Start>
				<Stop prepost="0" type="Manual"/>
			</Trigger>
			<File prefix="p_" folder="/rec" format=".xml"/>
		</Recording>
	</Parameters>
	<Datas>
		<Data index="1" name="Speed" request="Status" unit="km/h">
			<ECU name="Engine" function="Injection" address="16"/>
			<Scope type="None"/>
		</Data>
		<Data index="2" name="Température" request="Status" unit="°C">
			<ECU name="Engine" function="Injection" address="16"/>
			<Scope type="None"/>
		</Data>
	</Datas>
	<row Time="0" Event="Start" C1="60,5" C2="21,5"/>
	<row Time="0,13" Event="" C1="61" C2="21,5"/>
</Tarnlog2000>
)"));
  const auto again = car.load(path);
  EXPECT_EQ(again->Count(), 2);
  EXPECT_EQ(again->startTrigger->level, 49.5);
  EXPECT_EQ(again->initScenario->Count(), 1);
}

TEST(RecordFiles, TheSecondOneOfASecondIsAppendedOrNumbered) {
  for (const std::string format : {".txt", ".xml"}) {
    Scenario car({.format = format});
    car.start();
    car.run("1000");
    for (const char* cycles : {"1010 1020", "1030 1040"}) {
      car.press();
      car.run(std::string(cycles).substr(0, 4));
      car.press();
      car.run(std::string(cycles).substr(5));
    }
    if (format == ".txt") {
      const std::string once =
          "time\tevent\t\"Engine\"\r\n16/11/26\t\t\"Status\"\r\n19:05:08\t\t\"Speed(km/h)\"\r\n"
          "0\t\"Start\"\t0\r\n0.02\t\"Stop\"\t0\r\n";
      EXPECT_EQ(car.files.files[kText], once + once);
      continue;
    }
    EXPECT_THAT(car.finished, ElementsAre(kXml, "/rec/16-11-26_19h05mn08_2.xml"));
    for (const std::string& path : car.finished) {
      XmlDocument document;
      ASSERT_FALSE(document.parse(car.files.files[path])) << path;
      EXPECT_EQ("/rec/" + document.selectSingleNode("Tarnlog2000/File").text(), path);
      EXPECT_EQ(document.selectNodes("Tarnlog2000/row").size(), 2U);
      EXPECT_EQ(document.selectSingleNode("Tarnlog2000/row[2]").attributeOrEmpty("Event"), "Stop");
    }
  }
}

TEST(RecordFiles, GoToTheCurrentFolderWhenTheirsIsMissing) {
  Scenario car({.folder = "/gone"});
  car.start();
  car.run("1000");
  car.acq.RecordUserEvent();
  EXPECT_EQ(car.parameters->fileFolder, "/gone") << "an event alone changes no configuration";
  car.press();
  EXPECT_EQ(car.screen.recordPanel, "/cwd/16-11-26_19h05mn08.txt");
  EXPECT_EQ(car.parameters->fileFolder, "/cwd");
  EXPECT_EQ(car.files.files.count("/cwd/event_16-11-26__19h05mn08.txt"), 1U);
}

TEST(RecordFiles, ThatAnotherProgramWritesAreLeftToItWithTheirEvents) {
  Scenario car({});
  car.files.inUse = {kText, "/rec/event1_16-11-26_19h05mn08_2.txt"};
  car.start();
  car.run("1000");
  car.press();
  car.run("1010");
  EXPECT_EQ(car.screen.recordPanel, "/rec/16-11-26_19h05mn08_2.txt");
  car.acq.RecordUserEvent();
  car.end();
  EXPECT_THAT(car.finished,
              ElementsAre("/rec/16-11-26_19h05mn08_2.txt", "/rec/event1_16-11-26_19h05mn08_2_2.txt"));
  EXPECT_EQ(car.files.files.count(kText), 0U);
}

TEST(RecordFiles, LoseOnlyTheRowsForWhichTheDiskHasNoRoom) {
  for (const std::string format : {".txt", ".xml"}) {
    for (const bool fullAtOpening : {false, true}) {
      Scenario car({.speed = "0:40 1100:60 1200:61 1300:62 1400:63", .start = "rising 50", .format = format});
      car.start();
      car.run("1000");
      if (!fullAtOpening) car.run("1100");
      car.files.writeError = "No space left on device";
      car.run("1100 1200 1300");
      EXPECT_EQ(car.screen.writeFailing, std::vector{true});
      car.files.writeError.clear();
      car.run("1400");
      EXPECT_EQ(car.screen.rows[0].value, "63") << "the polling went on";
      EXPECT_EQ(car.screen.writeFailing, (std::vector{true, false}));
      car.end();
      if (format == ".txt") {
        EXPECT_EQ(car.rows().back(), "0.3|\"\"|63");
        EXPECT_EQ(car.rows().size(), fullAtOpening ? 1U : 2U);
        continue;
      }
      XmlDocument document;
      ASSERT_FALSE(document.parse(car.files.files[kXml]));
      EXPECT_EQ(document.selectNodes("Tarnlog2000/row").size(), fullAtOpening ? 1U : 2U);
    }
    Scenario full({.speed = "0:40 1100:60", .start = "rising 50", .format = format});
    full.files.writeError = "No space left on device";
    full.start();
    full.run("1000 1100 1200");
    full.end();
    EXPECT_THAT(full.finished, ElementsAre()) << "there is no file";
    EXPECT_EQ(full.screen.writeFailing, (std::vector{true, false}));
  }
}

TEST(RecordFiles, OnARealDiskSayWhenItIsFullOrTheyAreRemoved) {
  for (const bool full : {true, false}) {
    const test::TempFolder folder;
    const std::string path = folder / "16-11-26_19h05mn08.txt";
    SystemFileSystem disk;
    std::vector<std::string> failures;
    disk.setWriteTroubleHandler([&](const WriteTrouble& trouble) {
      if (trouble.kind == WriteTrouble::Kind::Begun) failures.push_back(trouble.path + ": " + trouble.why);
    });
    if (full) std::filesystem::create_symlink("/dev/full", path);
    Scenario car({.speed = "0:40 1100:60", .start = "rising 50", .folder = folder.path()}, &disk);
    car.start();
    car.run("1000 1100");
    if (!full) std::filesystem::remove(path);
    car.runEvery(100, 1200, 2200);
    EXPECT_TRUE(car.acq.Recording());
    car.end();
    EXPECT_EQ(car.stopped, 1);
    ASSERT_FALSE(failures.empty());
    EXPECT_EQ(failures.back(), path + (full ? ": No space left on device"
                                            : ": the file was removed while it was being written"));
  }
}

}  // namespace
}  // namespace tarnlog
