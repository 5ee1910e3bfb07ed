#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "apps/common/BadInput.h"
#include "apps/common/LoadedConfiguration.h"
#include "apps/tarn-record/CheckCommand.h"
#include "apps/tarn-record/ListCommand.h"
#include "apps/tarn-record/NewCommand.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog::record {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Commands : public testing::Test {
 protected:
  Commands() {
    auto& engine = session.addEcu("Engine", "Injection", 0x10);
    auto& status = engine.addRequest("21/80");
    status.addData("Speed", ferrox3::kDouble, "km/h", 0, 250).withDevice("Wheel", true);
    status.addData("Pedal", ferrox3::kInteger, "", 0, 1).withLabels({{"Released", 0}, {"Pressed", 1}});
    status.addData("Part", ferrox3::kString);
  }

  LoadedConfiguration load(const std::string& file) {
    return loadConfiguration(files, settings, file, BuildSessionDocument(session));
  }

  test::ScriptedSession session;
  test::MemoryFileSystem files;
  MemorySettingsStore settings;
};

TEST_F(Commands, listShowsAFilteredTableOrJson) {
  const SessionDocument document = BuildSessionDocument(session);
  EXPECT_EQ(catalogueList(document, "", false),
            "ECU     REQUEST  DATA   UNIT  RANGE     TYPE     DEVICE\n"
            "Engine  21/80    Speed  km/h  0 to 250  double   Wheel (failure)\n"
            "Engine  21/80    Pedal        0 to 1    integer\n"
            "Engine  21/80    Part                   text\n");
  const auto json = nlohmann::json::parse(catalogueList(document, "PED", true));
  ASSERT_EQ(json.size(), 1U);
  EXPECT_EQ(json[0]["enumeration"][1], "1=Pressed");
  EXPECT_EQ(json[0]["max"], 1.0);
  EXPECT_EQ(nlohmann::json::parse(catalogueList(document, "KM/H", true)).size(), 1U);
  EXPECT_EQ(nlohmann::json::parse(catalogueList(document, "nothing", true)).size(), 0U);
}

TEST_F(Commands, newWritesWhatCheckLoads) {
  oTarnParameters made(settings);
  addNamedData(made, BuildSessionDocument(session), {"Engine/21/80/Part", "Engine/21/80/Speed"});
  made.startTrigger->typeTrigger = oTarnTrigger::kChannel;
  made.startTrigger->edge = -1;
  made.startTrigger->level = 12.5;
  made.startTrigger->prepost = -3;
  made.startTrigger->DataIndex = 2;
  made.SaveXmlConfiguration(files, "/rec/c.xml", "tarnlog.xsl");
  EXPECT_EQ(checkReport(load("/rec/c.xml")),
            "period 1 s, format .txt\n"
            "start: Speed falls to 12.5 km/h, pre-trigger 3 s\n"
            "stop: manual, post-trigger 0 s\n"
            "2 data load:\n"
            "  Engine/21/80/Part\n"
            "  Engine/21/80/Speed (km/h)\n");
  EXPECT_EQ(made.Item(1)->ScopeType(), oTarnScope::kDigital);
  EXPECT_EQ(made.Item(2)->ScopeType(), oTarnScope::kGraph);
}

TEST_F(Commands, newNamesWhatIsNear) {
  oTarnParameters made(settings);
  const SessionDocument document = BuildSessionDocument(session);
  const auto errorOf = [&](const std::vector<std::string>& paths) {
    try {
      addNamedData(made, document, paths);
      return std::string();
    } catch (const BadInput& error) {
      return std::string(error.what());
    }
  };
  EXPECT_EQ(
      errorOf({"Engine/21/80/Sped"}),
      "--data Engine/21/80/Sped: expected ECU/REQUEST/DATA of this vehicle; near are:\n  Engine/21/80/Speed");
  EXPECT_THAT(errorOf({"speed"}), HasSubstr("  Engine/21/80/Speed"));
  EXPECT_EQ(errorOf({"zzz"}), "--data zzz: expected ECU/REQUEST/DATA of this vehicle");
  EXPECT_EQ(errorOf({"Engine/21/80/Part", "Engine/21/80/Part"}), "--data Engine/21/80/Part is named twice");
}

TEST_F(Commands, checkNamesWhatTheVehicleLacks) {
  oTarnParameters made(settings);
  addNamedData(made, BuildSessionDocument(session), {"Engine/21/80/Speed", "Engine/21/80/Part"});
  made.stopTrigger->typeTrigger = oTarnTrigger::kChannel;
  made.stopTrigger->DataIndex = 1;
  made.Item(1)->DataName = "Pressure";
  made.initScenario->Add("Clear", "Engine", 0x10);
  made.SaveXmlConfiguration(files, "/rec/c.xml", "");
  const LoadedConfiguration loaded = load("/rec/c.xml");
  EXPECT_THAT(lackingLines(loaded),
              ElementsAre("not offered by this vehicle: Engine/21/80/Pressure",
                          "init scenario request not offered by this vehicle: Engine/Clear",
                          "the stop trigger watches data that this vehicle does not offer: stop is manual"));
  EXPECT_EQ(loaded.parameters->Item(1)->index, 1);
}

}  // namespace
}  // namespace tarnlog::record
