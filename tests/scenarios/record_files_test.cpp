#include <gmock/gmock.h>

#include <chrono>
#include <memory>

#include "platform/files/SystemFileSystem.h"
#include "platform/xml/XmlDocument.h"
#include "tests/scenarios/Scenario.h"
#include "tests/support/PowerCut.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

using test::kCommaLocale;
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
                .data = {"Status/Speed", "Identification/Part", "Status/Température", "Status/Pedal",
                         "Status/Pump fault", "Identification/Raw"},
                .start = "rising 60",
                .prefix = "été_",
                .folder = folder.path(),
                .locale = kCommaLocale},
               &disk);
  car.run("1000 1100 1234");
  EXPECT_EQ(car.screen.rows[3].value, "Pressed");
  car.end();
  const std::string path = folder / "été_16-11-26_19h05mn08.txt";
  EXPECT_THAT(car.finished, ElementsAre(path));
  EXPECT_EQ(
      disk.readAll(path),
      "time\tevent\t\"Engine\"\t\"Engine\"\t\"Engine\"\t\"Engine\"\t\"Engine\"\t\"Engine\"\r\n"
      "16.11.26\t\t\"Status\"\t\"Identification\"\t\"Status\"\t\"Status\"\t\"Status\"\t\"Identification\"\r\n"
      "19:05:08\t\t\"Speed(km/h)\"\t\"Part\"\t\"Temp\xE9rature(\xB0"
      "C)\"\t\"Pedal\"\t\"Pump fault\"\t\"Raw\"\r\n"
      "0\t\"Start\"\t60,5\t8200\xE9\t21,5\t1\t1\t0A 1B\r\n"
      "0,13\t\"\"\t61\t8200\xE9\t21,5\t1\t1\t0A 1B\r\n");
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
  car.run("1000 1100 1234");
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
  EXPECT_EQ(again->initScenario->Count(), 1);
}

TEST(RecordFiles, TheSecondOneOfASecondIsAppendedOrNumbered) {
  for (const std::string format : {".txt", ".xml"}) {
    Scenario car({.format = format});
    for (const char* cycle : {"1000", "1010", "1020", "1030"}) {
      car.run(cycle);
      car.press();
    }
    car.run("1040");
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
    }
  }
}

TEST(RecordFiles, GoToTheCurrentFolderWhenTheirsIsMissing) {
  Scenario car({.folder = "/gone"});
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

TEST(RecordFiles, SayWhyTheyCannotBeOpened) {
  Scenario car({});
  car.run("1000");
  car.files.openError = "Permission denied";
  for (const char* format : {".txt", ".xml"}) {
    car.parameters->fileFormat = format;
    car.press();
    EXPECT_EQ(car.screen.recordPanel, "Open error : Permission denied");
    EXPECT_EQ(car.screen.recording.back(), RecordingFact::Requested);
    EXPECT_FALSE(car.acq.startPending());
  }
  car.files.openError.clear();
  car.parameters->fileFormat = ".txt";
  car.files.noStream = true;
  car.press();
  EXPECT_EQ(car.screen.recordPanel, "Error : Unable to create file");
  car.files.noStream = false;
  car.press();
  car.run("1100");
  car.files.openError = "Permission denied";
  car.acq.RecordUserEvent();
  EXPECT_EQ(car.screen.recordPanel, "Open error : Permission denied");
  car.files.openError.clear();
  car.run("1200");
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|0", "0.2|\"\"|0"));
  car.acq.RecordUserEvent();
  EXPECT_EQ(car.screen.eventCaption, "Event 1") << "the one before was none";
}

TEST(RecordFiles, AreOnTheDiskWithTheirNameWhenTheirPathIsTold) {
  for (const std::string format : {".txt", ".xml"}) {
    const test::TempFolder folder;
    const auto calls = std::make_shared<test::PowerCut>(folder.path());
    SystemFileSystem disk(calls, std::chrono::hours(1));
    disk.setSyncInterval({});
    Scenario car({.speed = "0:40 1100:60", .start = "rising 50", .format = format, .folder = folder.path()},
                 &disk);
    std::size_t told = 0;
    car.acq.setFileFinishedHandler([&](const std::string&) { told = calls->calls(); });
    car.run("1000 1100 1200");
    EXPECT_EQ(car.acq.recordRows().written, 2U);
    EXPECT_LT(car.acq.recordRows().synced, 2U) << "no more than the new file's own sync finds there";
    car.end();
    EXPECT_EQ(car.acq.recordRows().synced, 2U);
    calls->forEachOutcome(told, [&](const test::PowerCut::Disk& left) {
      EXPECT_EQ(left.begin()->second, disk.readAll(car.acq.RecordPath()));
    });
  }
}

TEST(RecordFiles, LoseOnlyTheRowsForWhichTheDiskHasNoRoom) {
  struct Case {
    std::string format;
    int rowsBefore;  ///< the disk is full, -1 for good
    std::size_t rowsInTheEnd;
  };
  for (const auto& [format, rowsBefore, rowsInTheEnd] :
       {Case{".txt", 0, 1}, Case{".txt", 1, 2}, Case{".xml", 0, 1}, Case{".xml", 1, 2},
        Case{".xml", -1, 0}}) {
    Scenario car({.speed = "0:40 1100:60 1200:61 1300:62 1400:63", .start = "rising 50", .format = format});
    car.run(rowsBefore == 1 ? "1000 1100" : "1000");
    car.files.writeError = "No space left on device";
    car.run("1100 1200 1300");
    EXPECT_EQ(car.screen.writeFailing, std::vector{true});
    if (rowsBefore >= 0) car.files.writeError.clear();
    car.run("1400");
    EXPECT_EQ(car.screen.rows[0].value, "63") << "the polling went on";
    car.end();
    EXPECT_EQ(car.screen.writeFailing, (std::vector{true, false}));
    EXPECT_EQ(car.finished.size(), rowsInTheEnd == 0 ? 0U : 1U) << "an empty file is none";
    if (format == ".txt") {
      EXPECT_EQ(car.rows().size(), rowsInTheEnd);
      EXPECT_EQ(car.rows().back(), "0.3|\"\"|63");
    } else if (rowsInTheEnd > 0) {
      XmlDocument document;
      ASSERT_FALSE(document.parse(car.files.files[kXml]));
      EXPECT_EQ(document.selectNodes("Tarnlog2000/row").size(), rowsInTheEnd);
    }
  }
}

}  // namespace
}  // namespace tarnlog
