#include <gmock/gmock.h>

#include "platform/xml/XmlDocument.h"
#include "tests/scenarios/Scenario.h"

namespace tarnlog {
namespace {

using test::Recipe;
using test::Scenario;
using testing::ElementsAre;

/// A car that gains 1 km/h every 50 ms from 1000 ms on, recorded from 5 km/h on (1250 ms).
Recipe gaining(Recipe recipe) {
  recipe.speed = "0:0";
  for (int value = 1; value <= 60; ++value)
    recipe.speed += " " + std::to_string(1000 + 50 * value) + ":" + std::to_string(value);
  recipe.start = "rising 5";
  return recipe;
}

TEST(EventFiles, HoldTheCyclesAroundTheEventAndMarkTheNextRow) {
  Scenario car(gaining({.period = 1, .prefix = "p_"}));
  car.runEvery(50, 1000, 2000);
  EXPECT_TRUE(car.acq.HandleHotKey(32));
  EXPECT_EQ(car.screen.eventCaption, "Event 1");
  EXPECT_EQ(car.screen.log.back(), "19:05:09 User event");
  car.runEvery(50, 2050, 3500);
  const std::string path = "/rec/p_event1_16-11-26_19h05mn08.txt";
  EXPECT_THAT(car.finished, ElementsAre(path));
  EXPECT_TRUE(car.files.files[path].starts_with("time\tevent\t\"Speed(km/h)\"\r\n-0.2\t\"\"\t1\r\n"));
  const auto rows = car.rows(path, 1);
  ASSERT_EQ(rows.size(), 40U);
  EXPECT_EQ(rows[4], "0|\"\"|5") << "times count from the start of the record file";
  EXPECT_EQ(rows[19], "0.75|\"event\"|20");
  EXPECT_EQ(rows[39], "1.75|\"\"|40");
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|5", "1|\"event1\"|25", "2|\"\"|45"));
}

TEST(EventFiles, OfNoRecordingGoOnWhenOneBegins) {
  Scenario car(gaining({}));
  EXPECT_TRUE(car.acq.HandleHotKey(32));
  EXPECT_EQ(car.screen.beeps, 0) << "before the first polling cycle";
  car.run("1000 1050 1100");
  car.acq.RecordUserEvent();
  EXPECT_EQ(car.screen.eventCaption, "Event");
  car.runEvery(50, 1150, 2500);
  const auto rows = car.rows("/rec/event_16-11-26__19h05mn08.txt", 1);
  ASSERT_EQ(rows.size(), 23U);
  EXPECT_THAT(std::vector(rows.begin(), rows.begin() + 4),
              ElementsAre("-0.1|\"\"|0", "-0.05|\"\"|1", "0|\"event\"|2", "0.05|\"\"|3"));
  EXPECT_EQ(rows.back(), "1|\"\"|22");
  for (const std::string& row : car.rows()) EXPECT_EQ(row.find("event"), std::string::npos) << row;
}

TEST(EventFiles, AreNumberedOverAllRecordingsAndTheStopGoesFirst) {
  Scenario car(gaining({.period = 1, .post = 1}));
  car.runEvery(50, 1000, 1300);
  car.acq.RecordUserEvent();
  car.press();
  car.runEvery(50, 1350, 3300);
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|5", "1|\"Stop\"|25", "2|\"event1\"|45"));
  car.press();
  car.run("3350");
  car.acq.RecordUserEvent();
  car.runEvery(50, 3400, 4300);
  EXPECT_THAT(car.rows(), ElementsAre("0|\"Start\"|46", "1|\"event2\"|60"));
  EXPECT_EQ(car.files.files.count("/rec/event2_16-11-26_19h05mn10.txt"), 1U);
}

TEST(EventFiles, InXmlEndWithTheirRecording) {
  Scenario car(gaining({.format = ".xml", .prefix = "p_"}));
  car.runEvery(50, 1000, 1400);
  car.acq.RecordUserEvent();
  car.press();
  car.run("1450");
  const std::string record = "/rec/p_16-11-26_19h05mn08.xml";
  const std::string event = "/rec/p_event1_16-11-26_19h05mn08.xml";
  EXPECT_THAT(car.finished, ElementsAre(record, event));
  XmlDocument document;
  ASSERT_FALSE(document.parse(car.files.files[event]));
  const XmlElement root = document.selectSingleNode("Tarnlog2000");
  EXPECT_EQ(root.firstChild("Description").text(), "Event 1 for file : p_16-11-26_19h05mn08.xml");
  EXPECT_EQ(root.firstChild("File").text(), "16-11-26_19h05mn08.xml");
  ASSERT_EQ(root.selectNodes("row").size(), 10U);
  EXPECT_EQ(root.selectSingleNode("row[9]").attributeOrEmpty("Event"), "event");
  EXPECT_EQ(root.selectSingleNode("row[9]").attributeOrEmpty("Time"), "0.15");
  EXPECT_EQ(root.selectSingleNode("row[10]").attributeOrEmpty("C1"), "9");

  // Its cycles run on without a file; only then comes the next event.
  car.runEvery(50, 1500, 2350);
  car.acq.RecordUserEvent();
  EXPECT_EQ(car.screen.beeps, 1);
  car.run("2400");
  car.acq.RecordUserEvent();
  EXPECT_EQ(car.screen.beeps, 2);
  EXPECT_EQ(car.files.files.count("/rec/p_event_16-11-26__19h05mn09.xml"), 1U);
}

}  // namespace
}  // namespace tarnlog
