#include <gmock/gmock.h>

#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <utility>

#include "SourceDir.h"
#include "host/service/HexText.h"
#include "host/vehicle/description/DataLayout.h"
#include "host/vehicle/description/DescriptionWriter.h"
#include "platform/base/TarnError.h"
#include "tests/support/FailureOf.h"

namespace tarnlog::host {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

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

/// An ECU "E" with these requests.
std::string ecu(const std::string& requests) {
  return "{'name':'E','address':1,'protocol':'P','requests':[" + requests + "]}";
}
std::string car(const std::string& ecus) { return "{'name':'v','ecus':[" + ecus + "]}"; }
std::string withRequest(const std::string& data) {
  return car(ecu("{'name':'R','frame':'21 80','data':[" + data + "]}"));
}
/// A datum "D" with these members.
std::string withDatum(const std::string& members) { return withRequest("{'name':'D'," + members + "}"); }
std::string withSimulation(const std::string& members) {
  std::string json = withRequest(
      "{'name':'D','byte':2,'enumeration':[{'value':4,'label':'on'}]},"
      "{'name':'T','byte':3,'bytes':2,'type':'text'}");
  return json.replace(json.size() - 1, 1, ",'simulation':{" + members + "}}");
}
std::string simulated(const std::string& members) {
  return withSimulation("'requests':[{'ecu':'E','request':'R'," + members + "}]");
}
std::string withSignal(const std::string& name, const std::string& members) {
  return simulated("'signals':{'" + name + "':{'kind':" + members + "}}");
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
  const auto& wheels = read.ecus[1].requests[0].data;
  const DataDescription& coolant = engine.requests[1].data[0];
  std::ostringstream state;
  state << engine.address << " " << engine.function << ", " << hexText(engine.initialisation) << ", "
        << engine.timeout.count() << " ms; to " << engine.requests[0].data[0].maximum << "; "
        << coolant.minimum << " to " << coolant.maximum << "; " << wheels[1].minimum << "; "
        << wheels[2].enumeration[1].label << " of " << wheels[2].maximum << "; " << wheels[3].failure << "; "
        << hexText(read.simulation.requests[1][0].response) << "; "
        << read.simulation.requests[0][0].driven[0].signal.values.size() << " values; fault "
        << int{read.simulation.faults[1].code};
  EXPECT_EQ(state.str(),
            "2016 Engine, 01 00, 200 ms; to 8000; -40 to 215; -3276.8; Pressed of 1; 1; "
            "61 80 00 00 00 00 00; 3 values; fault 34");
  EXPECT_EQ(engine.requests[0].data[0].layout.kind, DataKind::real);
  EXPECT_EQ(coolant.layout.kind, DataKind::integer);
  EXPECT_EQ(read.ecus[1].requests[1].data[1].layout.byteCount, 0);
}

TEST(Description, WhatIsWrongIsRefusedWithItsPlace) {
  /// What is wrong and what is said of it; single quotes stand for double ones.
  const std::pair<std::string, std::string> refusals[] = {
      {"", "line 1, column 1: "},
      {"{\n  'name': 'v',\n  'ecus': [,]\n}", "line 3, column 12: "},
      {"{'name': 1e999}", "line 1, column 14: "},
      {"[]", "road.json: expected an object, found an empty list"},
      {std::string(100, '['), "nested too deeply"},
      {"{'name':'v','name':'w','ecus':[]}", "expected each key once, found 'name' twice"},
      {"{'name':'v'}", "the key 'ecus' is missing"},
      {"{'name':'a\\u0007','ecus':[]}", "/name: expected a text that is not empty"},
      {car("{'name':'E','address':'7E0','protocol':'P','requests':[]}"),
       "/address: expected a number from 0 to"},
      {car(ecu("") + ",{'name':'F','function':'E','address':2,'protocol':'P','requests':[]}"),
       "/ecus/1/function: expected a name that is used once as an ECU"},
      {car(ecu("{'name':'R','frame':'2 1'}")), "/ecus/0/requests/0/frame: expected 1 to 4095 bytes"},
      {car(ecu("{'name':'R','frame':'21 80','data':[{'name':'D','byte':2,'reference':true}]},"
               "{'name':'S','frame':'21 81','data':[{'name':'D','byte':2,'reference':true}]}")),
       "/ecus/0/requests/1/data/0: expected one reference"},
      {withDatum("'byte':2,'bits':'x'"), "/data/0/bits: expected an integer from 1 to 8, found 'x'"},
      {withDatum("'byte':2,'bits':4,'bit':5"), "/data/0/bits: expected an integer from 1 to 3, found 4"},
      {withDatum("'byte':2,'bytes':5"), "/data/0/bytes: expected an integer from 1 to 4, found 5"},
      {withDatum("'byte':4094,'bytes':2"), "/data/0/byte: expected a number that ends within 4095"},
      {withDatum("'byte':-1"), "/data/0/byte: expected an integer from 0 to 4094, found -1"},
      {withDatum("'byte':2,'facter':2"), "/data/0: unknown key 'facter'; did you mean 'factor'?"},
      {withDatum("'byte':2,'colour':2"), "unknown key 'colour'; known keys are 'name', 'byte'"},
      {withDatum("'byte':2,'factor':0"), "/data/0/factor: expected a number other than 0"},
      {withDatum("'byte':2,'factor':1e308"), "finite"},
      {withDatum("'byte':2,'min':5,'max':4"), "/data/0/max: expected a number from the minimum 5 on"},
      {withDatum("'byte':2,'bytes':4,'type':'integer'"), "/data/0/type: expected 'double'"},
      {withDatum("'byte':2,'factor':0.5,'enumeration':[{'value':1,'label':'a'}]"), "/data/0/enumeration"},
      {withDatum("'byte':2,'enumeration':[]"), "/data/0/enumeration: expected at least one value"},
      {withDatum("'byte':2,'enumeration':[{'value':1,'label':'a'},{'value':2,'label':'a'}]"),
       "/enumeration/1/label: expected a label that no other value has"},
      {withDatum("'byte':2,'notAvailable':'0x1FF'"), "/data/0/notAvailable: expected a number from 0 to 255"},
      {withDatum("'byte':2,'notAvailable':[1,{'from':4,'to':3}]"),
       "/notAvailable/1/to: expected a number from 4 on"},
      {withDatum("'byte':2,'type':'text','factor':2"), "/data/0/factor: text and bytes"},
      {withRequest("{'name':'D','byte':2},{'name':'D','byte':3}"), "/data/1/name: expected a name"},
      {withSimulation("'requests':[{'ecu':'X','request':'R'}]"), "/requests/0/ecu: expected the function"},
      {withSimulation("'faults':[{'ecu':'E','kind':'noAnswer','from':5,'to':5}]"),
       "/simulation/faults/0/to: "},
      {withSimulation("'faults':[{'ecu':'E','kind':'silence'}]"),
       "/simulation/faults/0/kind: expected one of"},
      {simulated("'response':'61 81'"), "/response: expected bytes that begin with '61 80'"},
      {withSignal("a/b", "'constant','value':1"), "/signals/a~1b: expected the name of a data item"},
      {withSignal("D", "'constant','value':'off'"), "/signals/D/value: expected a number, or a label"},
      {withSignal("T", "'constant','value':'ABC'"), "/signals/T/value: expected at most 2 bytes"},
      {withSignal("D", "'table','times':[1,1],'values':[1,2]"),
       "/times/1: expected a time after the one before"},
      {withSignal("D", "'table','file':'drive.csv','column':'speed','interval':1"),
       "/signals/D/column: drive.csv: line 5, column 2: expected a number, found 'x'"},
      {withSignal("D", "'table','file':'no.csv','column':'speed','interval':1"),
       "/signals/D/file: expected a readable file; No such file or directory"},
  };
  for (const auto& [json, says] : refusals)
    EXPECT_THAT(test::failureOf([&] { parse(quotes(json)); }),
                AllOf(StartsWith("road.json: "), HasSubstr(quotes(says))))
        << json;
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

constexpr ByteOrder kBig = ByteOrder::big;
constexpr ByteOrder kLittle = ByteOrder::little;

TEST(BitField, ReadsAndWritesWhatStandsInTheResponse) {
  // byte, bytes, bit, bits, order, signed; the response and what stands there
  const std::tuple<BitField, const char*, std::int64_t> fields[] = {
      {{2, 1, 0, 8, kBig, false}, "61 80 FE", 0xFE},
      {{2, 1, 0, 8, kBig, true}, "61 80 FE", -2},
      {{2, 2, 0, 16, kBig, false}, "61 80 13 5F", 0x135F},
      {{2, 2, 0, 16, kLittle, false}, "61 80 13 5F", 0x5F13},
      {{1, 3, 0, 24, kBig, true}, "61 FF FF 85", -123},
      {{0, 4, 0, 32, kBig, false}, "FF FF FF FE", 0xFFFFFFFE},
      {{0, 4, 0, 32, kLittle, true}, "00 00 00 80", -2147483648LL},
      {{1, 1, 7, 1, kBig, false}, "61 80", 1},
      {{1, 2, 8, 1, kBig, false}, "61 01 00", 1},
      {{1, 2, 8, 1, kLittle, false}, "61 00 01", 1},
      {{0, 2, 6, 4, kBig, true}, "02 40", -7},
      {{0, 4, 1, 31, kBig, false}, "FF FF FF FF", 0x7FFFFFFF},
  };
  for (const auto& [field, hex, raw] : fields) {
    SCOPED_TRACE(hex);
    const auto response = *bytesFromHex(hex);
    const std::uint32_t pattern = readBits(field, response.data());
    EXPECT_EQ(rawNumber(field, pattern), raw);
    EXPECT_GE(raw, field.lowest());
    EXPECT_LE(raw, field.highest());

    // Written into all ones and all zeros, it reads back and leaves the other bits.
    for (const std::uint8_t filling : {std::uint8_t{0}, std::uint8_t{0xFF}}) {
      std::vector<std::uint8_t> other(response.size(), filling);
      writeBits(field, pattern, other.data());
      EXPECT_EQ(readBits(field, other.data()), pattern);
      writeBits(field, filling == 0 ? 0 : 0xFFFFFFFF, other.data());
      EXPECT_EQ(other, std::vector<std::uint8_t>(response.size(), filling));
    }
  }
}

TEST(DataLayout, ScalesBothWays) {
  DataLayout layout;
  layout.kind = DataKind::real;
  layout.field = {2, 2, 0, 16, kBig, false};
  layout.divisor = 4;
  EXPECT_EQ(scaledNumber(layout, 0x135F), 1239.75);  // engine speed of ISO 15031-5
  EXPECT_EQ(patternOf(layout, 1239.8), 0x135FU);
  EXPECT_EQ(patternOf(layout, 1e300), 0xFFFFU);
  EXPECT_EQ(patternOf(layout, -1), 0U);
  EXPECT_EQ(patternOf(layout, std::numeric_limits<double>::quiet_NaN()), 0U);

  layout.field.isSigned = true;
  layout.offset = -40;
  layout.divisor = 1;
  layout.notAvailable = {{0x8000, 0x8000}};
  EXPECT_EQ(patternOf(layout, -41), 0xFFFFU);
  EXPECT_EQ(patternOf(layout, std::numeric_limits<double>::quiet_NaN()), 0x8000U);
  EXPECT_TRUE(meansNotAvailable(layout, 0x8000));

  layout.kind = DataKind::integer;
  layout.factor = 0.5;
  layout.offset = 0;
  EXPECT_EQ(scaledNumber(layout, 5), 2);  // 2.5: halves to even
  EXPECT_EQ(scaledNumber(layout, 7), 4);
}

TEST(DataLayout, TextsEndAtAZeroAndLoseTheirBlanks) {
  using enum CharacterSet;
  std::string text = "old";
  std::string all;
  for (const char* const hex : {"20 41 42 20 20", "41 00 42", "41 E9 09", "20 20"}) {
    decodeText(ascii, *bytesFromHex(hex), text);
    all += text + "|";
  }
  EXPECT_EQ(all, "AB|A|A??||");
  decodeText(latin1, *bytesFromHex("E9 85"), text);
  EXPECT_EQ(text, "é?");
  EXPECT_EQ(hexText(encodeText(latin1, "Aé€")), "41 E9 3F");
  EXPECT_EQ(hexText(encodeText(ascii, "é")), "3F");
}

}  // namespace
}  // namespace tarnlog::host
