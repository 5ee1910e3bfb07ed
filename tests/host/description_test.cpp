#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "SourceDir.h"
#include "host/service/HexText.h"
#include "host/vehicle/description/DescriptionWriter.h"
#include "platform/base/TarnError.h"
#include "tests/support/FailureOf.h"

namespace tarnlog::host {
namespace {

std::string companion(const std::string& path) {
  if (path == "drive.csv") return "0C:engine_rpm,\"speed\"\r\n0,1\r\n800.5,2\r\n\r\n900,x\r\n";
  throw TarnError(2, "FileSystem", "No such file or directory");
}

VehicleDescription parse(const std::string& json) {
  return parseVehicleDescription(json, "road.json", companion);
}

/// Single quotes stand for double ones.
std::string quotes(std::string text) {
  for (char& character : text)
    if (character == '\'') character = '"';
  return text;
}

std::string withData(const std::string& data) {
  return quotes(
             "{'name':'v','ecus':[{'name':'E','address':1,'protocol':'P','requests':[{'name':'R','frame':'21 "
             "80',"
             "'data':[") +
         quotes(data) + "]}]}]}";
}

std::string withSimulation(const std::string& simulation) {
  return quotes(
             "{'name':'v','ecus':[{'name':'E','address':1,'protocol':'P','requests':[{'name':'R','frame':'21 "
             "80',"
             "'data':[{'name':'D','byte':2,'enumeration':[{'value':4,'label':'on'}]},"
             "{'name':'T','byte':3,'bytes':2,'type':'text'}]}]}],'simulation':") +
         quotes(simulation) + "}";
}

std::string refusal(const std::string& json) {
  return test::failureOf([&] { parse(json); });
}

TEST(Description, TheGuidesExampleIsRead) {
  std::ifstream file(TARNLOG_SOURCE_DIR "/docs/vehicle-description.md");
  std::stringstream guide;
  guide << file.rdbuf();
  const std::string text = guide.str();
  auto block = [&, at = std::size_t{0}]() mutable {
    const std::size_t begin = text.find("```json\n", at) + 8;
    at = text.find("```", begin);
    return text.substr(begin, at - begin);
  };
  const std::string car = block();
  const std::string brakes = block();
  const std::string simulation = block();
  const std::string vehicle = car.substr(0, car.rfind("  ]\n}")) + "," + brakes + "]," + simulation + "}";

  const VehicleDescription read = parse(vehicle);
  ASSERT_EQ(read.ecus.size(), 2U);
  const EcuDescription& engine = read.ecus[0];
  EXPECT_EQ(engine.address, 0x7E0);
  EXPECT_EQ(engine.function, "Engine");
  EXPECT_EQ(hexText(engine.initialisation), "01 00");
  EXPECT_EQ(engine.timeout.count(), 200);
  const DataDescription& speed = engine.requests[0].data[0];
  EXPECT_EQ(speed.layout.kind, DataKind::real);
  EXPECT_EQ(speed.minimum, 0);
  EXPECT_EQ(speed.maximum, 8000);
  const DataDescription& coolant = engine.requests[1].data[0];
  EXPECT_EQ(coolant.layout.kind, DataKind::integer);
  EXPECT_EQ(coolant.minimum, -40);
  EXPECT_EQ(coolant.maximum, 215);
  const auto& wheels = read.ecus[1].requests[0].data;
  EXPECT_EQ(wheels[1].minimum, -3276.8);
  EXPECT_EQ(wheels[2].enumeration[1].label, "Pressed");
  EXPECT_EQ(wheels[2].maximum, 1);
  EXPECT_TRUE(wheels[3].failure);
  EXPECT_EQ(read.ecus[1].requests[1].data[1].layout.byteCount, 0);
  EXPECT_EQ(hexText(read.simulation.requests[1][0].response), "61 80 00 00 00 00 00");
  EXPECT_EQ(read.simulation.requests[0][0].driven[0].signal.values.size(), 3U);
  EXPECT_EQ(read.simulation.faults[1].code, 0x22);
}

struct Refusal {
  std::string json;
  const char* says;
};

TEST(Description, WhatIsWrongIsRefusedWithItsPlace) {
  const std::string ecu = "/ecus/0/requests/0/data/0";
  const Refusal cases[] = {
      {"", "line 1, column 1: "},
      {"{\n  \"name\": \"v\",\n  \"ecus\": [,]\n}", "line 3, column 12: "},
      {"{\"name\": 1e999}", "line 1, column 14: "},
      {"[]", "road.json: expected an object, found an empty list"},
      {quotes("{'name':'v','name':'w','ecus':[]}"), "expected each key once, found \"name\" twice"},
      {quotes("{'name':'v'}"), "the key \"ecus\" is missing"},
      {quotes("{'name':'v','ecus':{}}"), "road.json: /ecus: expected a list, found an object"},
      {quotes("{'name':'a\\u0007','ecus':[]}"), "/name: expected a text that is not empty"},
      {quotes("{'name':'v','ecus':[{'name':'E','address':'7E0','protocol':'P','requests':[]}]}"),
       "/ecus/0/address: expected a number from 0 to 2147483647"},
      {quotes("{'name':'v','ecus':[{'name':'E','address':1,'protocol':'P','requests':[]},"
              "{'name':'F','function':'E','address':2,'protocol':'P','requests':[]}]}"),
       "/ecus/1/function: expected a name that is used once as an ECU's function, found \"E\""},
      {quotes("{'name':'v','ecus':[{'name':'E','address':1,'protocol':'P','requests':[{'name':'R','frame':'2 "
              "1'}]}]}"),
       "/ecus/0/requests/0/frame: expected 1 to 4095 bytes"},
      {withData("{'name':'D','byte':2,'bits':'x'}"),
       "/data/0/bits: expected an integer from 1 to 8, found \"x\""},
      {withData("{'name':'D','byte':2,'bits':4,'bit':5}"),
       "/data/0/bits: expected an integer from 1 to 3, found 4"},
      {withData("{'name':'D','byte':2,'bytes':5}"),
       "/data/0/bytes: expected an integer from 1 to 4, found 5"},
      {withData("{'name':'D','byte':4094,'bytes':2}"),
       "/data/0/byte: expected a number that ends within 4095"},
      {withData("{'name':'D','byte':-1}"), "/data/0/byte: expected an integer from 0 to 4094, found -1"},
      {withData("{'name':'D','byte':2,'facter':2}"),
       "/data/0: unknown key \"facter\"; did you mean \"factor\"?"},
      {withData("{'name':'D','byte':2,'colour':2}"),
       "unknown key \"colour\"; known keys are \"name\", \"byte\""},
      {withData("{'name':'D','byte':2,'factor':0}"), "/data/0/factor: expected a number other than 0"},
      {withData("{'name':'D','byte':2,'factor':1e308}"), "finite"},
      {withData("{'name':'D','byte':2,'min':5,'max':4}"),
       "/data/0/max: expected a number from the minimum 5 on"},
      {withData("{'name':'D','byte':2,'bytes':4,'type':'integer'}"), "/data/0/type: expected \"double\""},
      {withData("{'name':'D','byte':2,'factor':0.5,'enumeration':[{'value':1,'label':'a'}]}"),
       "/data/0/enumeration"},
      {withData("{'name':'D','byte':2,'enumeration':[]}"),
       "/data/0/enumeration: expected at least one value"},
      {withData("{'name':'D','byte':2,'enumeration':[{'value':1,'label':'a'},{'value':2,'label':'a'}]}"),
       "/enumeration/1/label: expected a label that no other value has"},
      {withData("{'name':'D','byte':2,'notAvailable':'0x1FF'}"),
       "/data/0/notAvailable: expected a number from 0 to 255"},
      {withData("{'name':'D','byte':2,'notAvailable':[1,{'from':4,'to':3}]}"),
       "/data/0/notAvailable/1/to: expected a number from 4 on"},
      {withData("{'name':'D','byte':2,'type':'text','factor':2}"), "/data/0/factor: text and bytes"},
      {withData("{'name':'D','byte':2},{'name':'D','byte':3}"),
       "/data/1/name: expected a name that is used once"},
      {withSimulation("{'requests':[{'ecu':'X','request':'R'}]}"),
       "/simulation/requests/0/ecu: expected the function"},
      {withSimulation("{'requests':[{'ecu':'E','request':'R','response':'61 81'}]}"),
       "/response: expected bytes that begin with \"61 80\""},
      {withSimulation(
           "{'requests':[{'ecu':'E','request':'R','signals':{'a/b':{'kind':'constant','value':1}}}]}"),
       "/signals/a~1b: expected the name of a data item of the request \"R\""},
      {withSimulation(
           "{'requests':[{'ecu':'E','request':'R','signals':{'D':{'kind':'constant','value':'off'}}}]}"),
       "/signals/D/value: expected a number, or a label"},
      {withSimulation(
           "{'requests':[{'ecu':'E','request':'R','signals':{'T':{'kind':'constant','value':'ABC'}}}]}"),
       "/signals/T/value: expected at most 2 bytes"},
      {withSimulation("{'requests':[{'ecu':'E','request':'R','signals':{'D':{'kind':'table','times':[1,1],"
                      "'values':[1,2]}}}]}"),
       "/signals/D/times/1: expected a time after the one before it, found 1"},
      {withSimulation(
           "{'requests':[{'ecu':'E','request':'R','signals':{'D':{'kind':'table','file':'drive.csv',"
           "'column':'speed','interval':1}}}]}"),
       "/signals/D/column: drive.csv: line 5, column 2: expected a number, found \"x\""},
      {withSimulation("{'requests':[{'ecu':'E','request':'R','signals':{'D':{'kind':'table','file':'no.csv',"
                      "'column':'speed','interval':1}}}]}"),
       "/signals/D/file: expected a readable file; No such file or directory"},
      {withSimulation("{'faults':[{'ecu':'E','kind':'noAnswer','from':5,'to':5}]}"),
       "/simulation/faults/0/to: "},
      {withSimulation("{'faults':[{'ecu':'E','kind':'silence'}]}"),
       "/simulation/faults/0/kind: expected one of"},
      {std::string(100, '['), "nested too deeply"},
  };
  for (const Refusal& test : cases) {
    const std::string text = refusal(test.json);
    EXPECT_TRUE(text.starts_with("road.json: ")) << text;
    EXPECT_NE(text.find(test.says), std::string::npos)
        << test.json << "\n  says  " << text << "\n  not   " << test.says;
  }
}

TEST(Description, IsWrittenAsItIsRead) {
  for (const char* example : {"road-car", "kwp2000-car"}) {
    std::ifstream file(std::string(TARNLOG_SOURCE_DIR "/examples/") + example + ".vehicle.json");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const VehicleDescription read = parseVehicleDescription(text, example, [](const std::string& path) {
      std::ifstream table(TARNLOG_SOURCE_DIR "/examples/" + path);
      return std::string{std::istreambuf_iterator<char>(table), {}};
    });
    const VehicleDescription again = parse(writeVehicleDescription(read));
    EXPECT_EQ(again.name, read.name);
    EXPECT_EQ(again.pendingTimeout, read.pendingTimeout);
    EXPECT_TRUE(again.ecus == read.ecus) << writeVehicleDescription(read);
  }
}

TEST(Description, OneReferenceOfANamePerEcu) {
  const std::string json = quotes(
      "{'name':'v','ecus':[{'name':'E','address':1,'protocol':'P','requests':["
      "{'name':'R','frame':'21 80','data':[{'name':'D','byte':2,'reference':true}]},"
      "{'name':'S','frame':'21 81','data':[{'name':'D','byte':2,'reference':true}]}]}]}");
  EXPECT_NE(refusal(json).find("/ecus/0/requests/1/data/0: expected one reference"), std::string::npos);
}

}  // namespace
}  // namespace tarnlog::host
