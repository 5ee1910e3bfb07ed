#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "apps/common/LoadedConfiguration.h"
#include "apps/tarn-record/CheckCommand.h"
#include "apps/tarn-record/ListCommand.h"
#include "apps/tarn-record/NewCommand.h"
#include "tests/support/FailureOf.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog::record {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Commands : public testing::Test {
 protected:
  Commands() {
    auto& engine = session.addEcu("Engine", "Injection", 0x10);
    auto& status = engine.addRequest("21/80");
    status.addData("Speed", ferrox3::kDouble, "km/h", 0, 250).withDevice("Wheel", true);
    status.addData("Pedal", ferrox3::kInteger, "", 0, 1).withLabels({{"Released", 0}, {"Pressed", 1}});
    status.addData("Part", ferrox3::kString);
  }

  LoadedConfiguration load() {
    return loadConfiguration(files, settings, kFile, BuildSessionDocument(session));
  }
  CheckedConfiguration check() {
    return checkConfiguration(files, settings, kFile, session, BuildSessionDocument(session));
  }
  /// Adds these data to the configuration and saves it.
  void save(const std::vector<std::string>& data) {
    if (!data.empty()) addChosenData(made, BuildSessionDocument(session), {.data = data});
    made.SaveXmlConfiguration(files, kFile, "tarnlog.xsl");
  }

  test::ScriptedSession session;
  static constexpr const char* kFile = "/rec/c.xml";
  test::MemoryFileSystem files;
  MemorySettingsStore settings;
  oTarnParameters made{settings};
};

TEST_F(Commands, ListShowsAFilteredTableOrJson) {
  const SessionDocument document = BuildSessionDocument(session);
  const auto list = [&](const std::string& filter, bool json) {
    return catalogueList(session, document, filter, json);
  };
  EXPECT_EQ(list("", false),
            "ECU     REQUEST  DATA   UNIT  RANGE     TYPE     DEVICE\n"
            "Engine  21/80    Speed  km/h  0 to 250  double   Wheel (failure)\n"
            "Engine  21/80    Pedal        0 to 1    integer\n"
            "Engine  21/80    Part                   text\n");
  const auto json = nlohmann::json::parse(list("PED", true));
  ASSERT_EQ(json.size(), 1U);
  EXPECT_EQ(json[0]["enumeration"][1], "1=Pressed");
  EXPECT_EQ(json[0]["max"], 1.0);
  EXPECT_EQ(json[0]["function"], "Injection");
  EXPECT_EQ(json[0]["address"], 0x10);
  EXPECT_EQ(json[0]["frame"], "21/80");
  EXPECT_EQ(nlohmann::json::parse(list("KM/H", true)).size(), 1U);
  EXPECT_EQ(nlohmann::json::parse(list("nothing", true)).size(), 0U);
}

TEST_F(Commands, NewWritesWhatCheckLoads) {
  made.fileFolder = "/rec";
  *made.startTrigger = {0, oTarnTrigger::kChannel, -3, false, 0, -1, 12.5, 2};
  save({"Engine/21/80/Part", "Engine/21/80/Speed"});
  EXPECT_EQ(check().report,
            "period 1 s\n"
            "start: Speed falls to 12.5 km/h, pre-trigger 3 s = 3 points\n"
            "stop: manual, post-trigger 0 s = 0 points\n"
            "files: /rec/DATE_TIME.txt, tab-separated text\n"
            "2 data load:\n"
            "  Engine/21/80/Part\n"
            "  Engine/21/80/Speed (km/h)\n");
  EXPECT_EQ(made.Item(1)->ScopeType(), oTarnScope::kDigital);
  EXPECT_EQ(made.Item(2)->ScopeType(), oTarnScope::kGraph);
}

TEST_F(Commands, NewNamesWhatIsNear) {
  const SessionDocument document = BuildSessionDocument(session);
  const auto refused = [&](const DataChoice& choice) {
    return test::failureOf([&] { addChosenData(made, document, choice); });
  };
  EXPECT_THAT(refused({.data = {"Engine/21/80/Sped"}}),
              StartsWith("--data Engine/21/80/Sped: expected ECU/REQUEST/DATA of this vehicle; near are:\n"
                         "  Engine/21/80/Speed"));
  EXPECT_THAT(refused({.data = {"speed"}}), HasSubstr("  Engine/21/80/Speed"));
  EXPECT_EQ(refused({.data = {"zzz"}}), "--data zzz: expected ECU/REQUEST/DATA of this vehicle");
  EXPECT_THAT(refused({.match = {"*sped*", "*"}}),
              StartsWith("--match *sped*: no data of this vehicle are called so; near are:\n"
                         "  Engine/21/80/Speed"));
  EXPECT_EQ(refused({}), "expected --data, --match or --all, which say what to record");
}

TEST_F(Commands, NewTakesPatternsAndAllOnce) {
  const auto chosen = [&](const DataChoice& choice) {
    oTarnParameters parameters{settings};
    addChosenData(parameters, BuildSessionDocument(session), choice);
    std::string names;
    for (const oTarnScope& scope : parameters) names += scope.DataName + std::to_string(scope.index) + " ";
    return names;
  };
  EXPECT_EQ(chosen({.data = {"Engine/21/80/Part", "Engine/21/80/Part"}, .match = {"*P*"}}),
            "Part1 Speed2 Pedal3 ");
  EXPECT_EQ(chosen({.match = {"pe?al", "engine/*/speed"}}), "Pedal1 Speed2 ");
  EXPECT_EQ(chosen({.data = {"Engine/21/80/Pedal"}, .all = true}), "Pedal1 Speed2 Part3 ");
}

TEST_F(Commands, NewSetsTriggersAndRecordsWhatTheyWatch) {
  const SessionDocument document = BuildSessionDocument(session);
  save({"Engine/21/80/Part"});
  const TriggerChoice choice{
      .start = "Engine/21/80/Speed > 12.5", .stop = "Engine/21/80/Speed<=3", .before = 5, .after = 2};
  EXPECT_THAT(setTriggers(made, document, choice), ElementsAre("Engine/21/80/Speed"));
  save({});
  EXPECT_THAT(check().report, HasSubstr("start: Speed rises to 12.5 km/h, pre-trigger 5 s = 5 points\n"
                                        "stop: Speed falls to 3 km/h, post-trigger 2 s = 2 points\n"));
  EXPECT_THAT(setTriggers(made, document, {.start = "manual", .stop = "30 s"}), ElementsAre());
  save({});
  EXPECT_THAT(check().report, HasSubstr("start: manual, pre-trigger 5 s = 5 points\nstop: after 30 s, post"));

  const std::pair<TriggerChoice, const char*> refused[] = {
      {{.start = "30s"}, "--start 30s: expected ECU/REQUEST/DATA>LEVEL, ECU/REQUEST/DATA<LEVEL, or manual"},
      {{.stop = "never"}, "seconds like 30s"},
      {{.stop = "Engine/21/80/Speed=3"}, "--stop Engine/21/80/Speed=3: expected"},
      {{.start = "Engine/21/80/Speed>3 km/h"}, "expected a number behind >"},
      {{.start = "Engine/21/80/Speed>1,5"}, "expected a number behind >"},
      {{.start = "Engine/21/80/Part>1"}, "Engine/21/80/Part has none"},
      {{.stop = "Engine/21/80/Sped>1"}, "near are:\n  Engine/21/80/Speed"}};
  for (const auto& [wrong, why] : refused)
    EXPECT_THAT(test::failureOf([&, &wrong = wrong] { setTriggers(made, document, wrong); }), HasSubstr(why));
}

TEST_F(Commands, CheckNamesWhatTheVehicleLacks) {
  save({"Engine/21/80/Speed", "Engine/21/80/Part"});
  *made.stopTrigger = {1, oTarnTrigger::kChannel, 0, false, 0, 1, 0, 1};
  made.Item(1)->DataName = "Pressure";
  made.initScenario->Add("Clear", "Engine", 0x10);
  save({});
  const LoadedConfiguration loaded = load();
  EXPECT_THAT(lackingLines(loaded),
              ElementsAre("not offered by this vehicle: Engine/21/80/Pressure",
                          "init scenario request not offered by this vehicle: Engine/Clear",
                          "the stop trigger watches data that this vehicle does not offer: stop is manual"));
  EXPECT_EQ(loaded.parameters->Item(1)->index, 1);
}

// A run refused what check had approved, and passed over what check did not mention.
TEST_F(Commands, CheckRefusesWhatARunRefusesAndNamesWhatIsOdd) {
  session.addEcu("Gearbox", "Gearbox", 0x18).addRequest("Clear");
  const auto checked = [&](const std::string& recording, const std::string& rest) {
    files.files[kFile] =
        "<Tarnlog2000 Version='2.0'><Parameters><Comment/><Comment/><StartSession>10 "
        "C</StartSession><InitScenario>"
        "<Request Name='Clear' EcuName='Gearbox' Address='24'/></InitScenario>" +
        recording +
        "</Parameters><Datas><Data index='1' name='Speed' request='21/80'>"
        "<ECU name='Engine' function='Injection' address='16'/><Scope type='Graf'/></Data>" +
        rest + "</Datas></Tarnlog2000>";
    return check();
  };
  const auto odd = checked(
      "<Recording period='1.6'><Trigger><Start type='Channel'><Channel edge='0' level='1,5' "
      "index='1'/></Start>"
      "</Trigger><File prefix='a' folder='/none' format='txt'/></Recording>",
      "<Data index='1' name='Speed' request='21/80' colour='1'><ECU name='Engine'/><Scope "
      "type='None'/></Data>");
  EXPECT_EQ(odd.refusal, "");
  for (const char* line :
       {"period 2 s\n", "the start trigger never fires: its edge is neither 1 nor -1\n",
        "start session: 10 C, sent to Engine\n",
        "odd: Parameters/Comment: is there twice; only the first one is read\n",
        "odd: Datas: two data have the index 1; ",
        "init scenario: Gearbox/Clear, never sent: nothing is recorded from this ECU\n",
        "odd: the folder /none is missing: the files go into the current one\n",
        "odd: format=\"txt\": expected", "configured twice, taken once: Engine/21/80/Speed\n",
        "odd: Parameters/Recording: period=\"1.6\": expected a whole number of 32 bits; 2 is taken\n",
        "odd: Parameters/Recording/Trigger/Start/Channel: level=\"1,5\": expected a number with \".\"; 1 is "
        "taken\n",
        "odd: Datas/Data[1]/Scope: type=\"Graf\": expected one of None, Digital",
        "odd: Datas/Data[2]: colour=\"1\": unknown attribute\n"})
    EXPECT_THAT(odd.report, HasSubstr(line));
  EXPECT_EQ(checked("<Recording period='3000000'/>", "").refusal,
            "Recording period of 3000000 s is too long, at most 2147483 s are possible");
}

TEST_F(Commands, APrefixThatLeadsOutOfTheFolderIsRefused) {
  save({"Engine/21/80/Speed"});
  const auto refused = [&](const std::string& prefix) {
    made.filePrefix = prefix;
    save({});
    return test::failureOf([&] { load(); });
  };
  EXPECT_EQ(
      refused("../x"),
      "/rec/c.xml: Parameters/Recording/File: prefix=\"../x\": expected one that stays in the folder of "
      "the record files");
  EXPECT_NE(refused("/tmp/x"), "none");
  EXPECT_NE(refused("a/../../x"), "none");
  for (const char* prefix : {"", "..x", "day/a..", "a/b"}) EXPECT_EQ(refused(prefix), "none") << prefix;
}

}  // namespace
}  // namespace tarnlog::record
