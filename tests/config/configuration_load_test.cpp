#include <gmock/gmock.h>

#include <sstream>

#include "tests/config/ConfigurationFixture.h"
#include "tests/support/FailureOf.h"

using namespace tarnlog;
using namespace tarnlog::test;

namespace {

class ConfigurationLoad : public ConfigurationFixture {
 protected:
  /// Both triggers as read from their elements: twice "type edge level index prepost", then "seconds
  /// restart".
  std::string triggersFrom(const std::string& elements) {
    loadParts("<Recording><Trigger>" + elements + "</Trigger></Recording>");
    std::ostringstream text;
    for (const oTarnTrigger* const each : {&*parameters.startTrigger, &*parameters.stopTrigger})
      text << each->typeTrigger << ' ' << each->edge << ' ' << each->level << ' ' << each->DataIndex << ' '
           << each->prepost << ' ';
    text << parameters.stopTrigger->timeSeconde << (parameters.startTrigger->restart ? " restart" : "");
    return text.str();
  }
};

}  // namespace

TEST_F(ConfigurationLoad, WhatIsNoConfigurationIsRefusedWithItsPlace) {
  for (const auto& [bytes, error] :
       {std::pair("<Other/>", "the file /rec/braking.xml is not a Tarnlog file"),
        {"<Tarnlog2000 Version='3.0'/>", "File /rec/braking.xml : Unknown Tarnlog version (3.0)"},
        {"<Tarnlog2000/>", "File /rec/braking.xml : Unknown Tarnlog version ()"},
        {"<Tarnlog2000 Version='2.0'>\n<Parameters>",
         "File : /rec/braking.xml, Line : 2, LinePos : 12, Reason : "},
        {"", "File : /rec/braking.xml, Reason : "}})
    EXPECT_THAT(errorOf([&] { load(bytes); }),
                testing::StartsWith(std::string("1 LoadXmlConfiguration load error: ") + error));
  EXPECT_EQ(errorOf([&] { parameters.LoadXmlConfiguration(files, "/rec/none.xml", vehicle.catalogue); }),
            "1 LoadXmlConfiguration load error: File : /rec/none.xml, Reason : No such file or directory");
}

TEST_F(ConfigurationLoad, AbsentKeepsAndEmptyEmpties) {
  const auto texts = [&] {
    return parameters.userDescription + "/" + parameters.startSession + "/" + parameters.filePrefix + "/" +
           parameters.fileFolder + "/" + std::to_string(parameters.recordingPeriod);
  };
  parameters.userDescription = "before";
  parameters.startSession = "10 C0";
  parameters.filePrefix = "p";
  parameters.recordingPeriod = 7;
  loadParts("<Recording><File folder='/rec'/></Recording>");
  EXPECT_EQ(texts(), "before/10 C0/p//rec/7");
  loadParts("<Comment/><StartSession></StartSession><Recording period='-1'><File prefix=''/></Recording>");
  EXPECT_EQ(texts(), "////rec/7");
  loadParts("<Comment>one<![CDATA[ & ]]><!-- not this -->two</Comment><Recording period='0'/>");
  EXPECT_EQ(texts(), "one & two////rec/0");
}

TEST_F(ConfigurationLoad, AFileWithoutParametersChangesNothing) {
  *parameters.startTrigger = {0, oTarnTrigger::kChannel, -5, true, 60, -1, 0.1, 3};
  load("<Tarnlog2000 Version=\"2,0\"><Datas>" + data("1", "Engine/Status/Speed") + "</Datas></Tarnlog2000>");
  EXPECT_EQ(parameters.Count(), 0);
  EXPECT_EQ(parameters.startTrigger->typeTrigger, oTarnTrigger::kChannel);
}

TEST_F(ConfigurationLoad, TriggersAreReadAnewAndTheWatchedDataStay) {
  for (const auto& [element, read] :
       {std::pair("<Start prepost='-5' restart='1' type='Channel'>"
                  "<Channel edge='-1' level='1.5 bar' index='2'/></Start>",
                  "1 -1 1.5 2 -5 0 1 0 0 0 0 restart"),
        {"<Start restart='true' type='Channel'/>", "0 1 0 2 0 0 1 0 0 0 0"},
        {"<Start type='Channel'><Channel edge='-1' level='3' index='first'/></Start>",
         "0 -1 3 2 0 0 1 0 0 0 0"},
        {"<Start prepost='5 s' type='Channel'><Channel edge='up' index=' 4 '/></Start>",
         "1 1 0 4 0 0 1 0 0 0 0"},
        {"<Start type='Time'/>", "0 1 0 4 0 0 1 0 0 0 0"},
        {"<Stop prepost='3' type='Time'><Time seconde='30'/></Stop>", "0 1 0 4 0 2 1 0 0 3 30"},
        {"<Stop type='Time'><Time seconde='soon'/></Stop>", "0 1 0 4 0 2 1 0 0 0 0"},
        {"<Stop type='Channel'><Channel edge='1' level='-2' index='9'/></Stop>", "0 1 0 4 0 1 1 -2 9 0 0"},
        {"", "0 1 0 4 0 0 1 0 0 0 0"}})
    EXPECT_EQ(triggersFrom(element), read) << element;
}

TEST_F(ConfigurationLoad, DisplaySettingsTakeLeadingNumbersAndTheirOwnDefaults) {
  std::string digital = data("5", "Engine/Status/Raw", "Digital");
  digital.replace(digital.find("<Digital />"), 11, "<Digital><Pos left='12.5' Width='1e300'/></Digital>");
  loadParts("", data("1", "Engine/Status/Speed", "Graph", "points='2.5 points' axeYmaxi='1,5' color='x'") +
                    data("2", "Engine/Status/Load", "GraphAxeX", "index='3'") +
                    data("3", "Engine/Status/Key", "BarGraph", "mini='-1e3'") +
                    data("4", "Engine/Status/Mode", "Gauge") + digital);
  EXPECT_EQ(items(), "Speed:G Load:X3 Key:B Mode:N Raw:D");
  const oTarnGraph& graph = *parameters.Item("c2")->oTarnGraph();
  EXPECT_EQ(graph.points, 2);
  EXPECT_EQ(graph.AxeYmaxi, 1);
  EXPECT_EQ(graph.Color, 0);
  EXPECT_FALSE(graph.AxeYAuto);
  EXPECT_TRUE(parameters.Item("c3")->oTarnGraphAxeX()->axeXAuto);
  EXPECT_EQ(parameters.Item("c4")->oTarnSlide()->mini, -1000);
  const DisplayPosition& position = parameters.Item("c6")->oTarnNumeric()->position;
  EXPECT_EQ(position.left, 12.5F);
  EXPECT_EQ(position.top, -1);
  EXPECT_GT(position.width, 1e38F);
}

TEST_F(ConfigurationLoad, DropsAndNamesWhatTheVehicleLacksAndWhatCameBefore) {
  loadParts(
      "<InitScenario><Request Name='Reset' EcuName='Engine' Address='16'/>"
      "<Request Name='Reset' Address='16'/><Request Name='Reset' EcuName='Engine'/>"
      "<Request Name='Reset' EcuName='Engine' Address='65552'/>"
      "<Request Name='Launch' EcuName='Engine' Address='16'/>"
      "<Request Name='Bleed' EcuName='old name' Address='40'/></InitScenario>",
      data("1", "Engine/Status/Torque") + data("2", "Engine/Status/Speed", "Graph") +
          data("3", "Engine/Status/Speed") + data("4", "Gearbox/Status/Speed") +
          data("7", "Brakes/Wheels/Rear", "GraphIndex", "index=\"2\""));
  EXPECT_EQ(items(), "Speed:G#2 Rear:I2#7");
  EXPECT_EQ(dropped(), "Engine/Status/Torque Engine/Status/Speed= Gearbox/Status/Speed");
  EXPECT_EQ(droppedRequests(), "/Reset Engine/Reset Engine/Reset Engine/Launch");
  ASSERT_EQ(parameters.initScenario->Count(), 2);
  EXPECT_EQ(parameters.initScenario->Item(2).EcuName, "Brakes");
  const oTarnScope& rear = *parameters.Item(std::size_t{2});
  EXPECT_EQ(rear.FunctionAddress, 40);
  EXPECT_EQ(rear.Unit, "bar");
}

TEST_F(ConfigurationLoad, OldVersionBecomesGraphsNumberedWithoutGaps) {
  const auto old = [](const std::string& name) {
    return "<Data><Name>" + name +
           "</Name><Requete>Status</Requete><UCE>Engine</UCE><Fonction>Injection</Fonction></Data>";
  };
  parameters.recordingPeriod = 9;
  parameters.filePrefix = "kept";
  load(
      "<Tarnlog2000 Version=\"1,0\"><PlotColor>255</PlotColor><PointsToDisplay>200</PointsToDisplay><Datas>" +
      old("Speed") + old("Torque") + old("Speed") + old("Mode") + old("Load") +
      "<Data/></Datas></Tarnlog2000>");
  EXPECT_EQ(items(), "Speed:G Mode:N Load:G");
  EXPECT_EQ(dropped(), "Engine/Status/Torque Engine/Status/Speed= /");
  EXPECT_EQ(parameters.recordingPeriod, 9);
  EXPECT_EQ(parameters.filePrefix, "kept");
  oTarnScope& load = *parameters.Item(std::size_t{3});
  EXPECT_EQ(load.oTarnGraph()->Color, 255);
  EXPECT_EQ(load.oTarnGraph()->points, 200);
  EXPECT_TRUE(load.oTarnGraph()->AxeYAuto);
  EXPECT_EQ(load.FunctionName, "Injection");
  EXPECT_EQ(load.FunctionAddress, 16);
}
