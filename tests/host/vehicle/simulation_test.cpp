#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/service/HexText.h"
#include "host/vehicle/Vehicle.h"
#include "host/vehicle/simulation/SignalValue.h"
#include "host/vehicle/simulation/VehicleSimulator.h"
#include "tests/support/FailureOf.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/TempFolder.h"

namespace tarnlog::host {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kCar[] = R"({
  "name": "car",
  "ecus": [
    { "name": "Engine", "address": 16, "protocol": "KWP2000", "requests": [
        { "name": "Speeds", "frame": "21 80", "data": [
          { "name": "Speed", "byte": 2, "factor": 0.5 },
          { "name": "Mode", "byte": 3, "bit": 4, "bits": 2, "enumeration": [{ "value": 2, "label": "sport" }] },
          { "name": "Text", "byte": 4, "bytes": 3, "type": "text" } ] },
        { "name": "Plain", "frame": "22 12 34", "data": [{ "name": "Plain", "byte": 4 }] } ] } ],
  "simulation": { "latency": 7, "requests": [
      { "ecu": "Engine", "request": "Speeds", "latency": 2, "response": "61 80 00 0F",
        "signals": {
          "Speed": { "kind": "table", "file": "drive.csv", "column": "v", "interval": 0.5 },
          "Mode": { "kind": "constant", "value": "sport" },
          "Text": { "kind": "constant", "value": "AB" } } } ],
    "faults": [ FAULT ] } })";

/// A simulated car whose time is stepped.
struct Car {
  explicit Car(const std::string& fault = "") {
    std::string json = kCar;
    json.replace(json.find("FAULT"), 5, fault.empty() ? "" : R"({ "ecu": "Engine", )" + fault + "}");
    files.files["/cars/road.json"] = json;
    files.files["/cars/drive.csv"] = "t,v\n0,10\n1,20\n2,100\n";
    vehicle = openVehicle("/cars/road.json", files, {}, clock, {});
    request = &vehicle->session().ecu(0).request(0);
  }

  /// The answer to the request, or what is wrong with it, after `seconds`.
  std::string sendAt(double seconds) {
    clock.step(std::chrono::duration_cast<Moment>(std::chrono::duration<double>(seconds)) - clock.now());
    const std::string failure = test::failureOf([&] { request->send(); });
    return failure == "none" ? request->receivedText() : failure.substr(failure.find("21 80") + 5);
  }

  std::string exchange(const char* frame) {
    const auto out = vehicle->session().createRawBuffer();
    const auto in = vehicle->session().createRawBuffer();
    out->fill(frame);
    const std::string failure = test::failureOf([&] { vehicle->session().ecu(0).exchange(*out, *in); });
    return failure == "none" ? in->text() : failure;
  }

  test::MemoryFileSystem files;
  test::ManualLinkClock clock;
  std::unique_ptr<OpenedVehicle> vehicle;
  ferrox3::Request* request = nullptr;
};

// A description from somebody else showed what stood in other files of the machine.
TEST(Simulation, ReadsNoTableOutsideTheDescriptionsFolder) {
  Car car;
  const std::string json = car.files.files["/cars/road.json"];
  const auto failureWith = [&](const std::string& road, const std::string& table) {
    std::string changed = json;
    car.files.files[road] = changed.replace(json.find("drive.csv"), 9, table);
    return test::failureOf([&] { readVehicleDescription(road, car.files); });
  };
  car.files.files["/secret.csv"] = "password\n";
  for (const std::string outside : {"../secret.csv", "/cars/drive.csv", "a/../../cars/drive.csv"})
    EXPECT_THAT(failureWith("/cars/road.json", outside),
                AllOf(HasSubstr(outside + ": it lies outside the folder"), Not(HasSubstr("password"))));

  const test::TempFolder folder;
  std::filesystem::create_directory(folder / "car");
  std::ofstream(folder / "secret.csv") << "password\n";
  std::filesystem::create_symlink("../secret.csv", folder / "car/drive.csv");
  car.files.files[folder / "car/drive.csv"] = "password\n";
  EXPECT_THAT(failureWith(folder / "car/road.json", "drive.csv"),
              HasSubstr("drive.csv: it lies outside the folder"));
}

TEST(Simulation, SignalsAndTemplateMakeTheAnswer) {
  Car car;
  EXPECT_EQ(car.sendAt(0), "61 80 14 2F 41 42 00");
  EXPECT_EQ(car.clock.now(), 2ms) << "latency";
  EXPECT_EQ(car.sendAt(0.6), "61 80 28 2F 41 42 00");
  EXPECT_EQ(car.request->findData("Speed")->valueText(), "20");
  EXPECT_EQ(car.request->findData("Text")->valueText(), "AB");
  EXPECT_EQ(car.sendAt(1.4), "61 80 C8 2F 41 42 00");
  EXPECT_EQ(car.sendAt(1.5), "61 80 14 2F 41 42 00") << "the table begins again";
  car.vehicle->session().endCommunication();
  EXPECT_EQ(car.sendAt(2.1), "61 80 14 2F 41 42 00") << "a link opened again begins at time 0";
}

TEST(Simulation, AnswersWhatIsNoRequestOfTheDescription) {
  const std::pair<const char*, const char*> cases[] = {
      {"22 12 34", "62 12 34 00 00"},
      {"10 A0", "50 A0"},
      {"3E", "7E"},
      {"21 81", "Engine: request 21 81 refused: 7F 21 12 sub-function not supported"},
      {"31 01", "Engine: request 31 01 refused: 7F 31 11 service not supported"},
  };
  Car car;
  for (const auto& [frame, answer] : cases) EXPECT_EQ(car.exchange(frame), answer);
}

TEST(Simulation, FaultsHappenWhenTheyShould) {
  struct Case {
    const char* fault;
    std::vector<std::pair<double, const char*>> answers;  ///< by second
  };
  const Case cases[] = {
      {R"("kind": "noAnswer", "from": 1, "to": 2)",
       {{0, "61"}, {0.9, "61"}, {1, ": no answer within 200 ms"}, {2, "61"}}},
      {R"("request": "Speeds", "kind": "negativeResponse", "code": "0x22", "every": 3)",
       {{0, "61"}, {0.1, "61"}, {0.2, " refused: 7F 21 22 conditions not correct"}, {0.3, "61"}}},
      {R"("request": "Plain", "kind": "noAnswer")", {{0, "61"}}},
      {R"("kind": "wrongService")", {{0, ": no answer, but "}}},
      {R"("kind": "garbage")", {{0, ": no answer, but "}}},
  };
  for (const auto& [fault, answers] : cases) {
    Car car(fault);
    for (const auto& [second, answer] : answers) {
      EXPECT_THAT(car.sendAt(second), testing::StartsWith(answer)) << fault;
      car.exchange("3E");  // another request is not counted
    }
  }
  Car brief(R"("kind": "shortAnswer", "bytes": 3)");
  EXPECT_EQ(brief.sendAt(0), "61 80 14");
  EXPECT_EQ(brief.request->findData("Mode")->valueText(), "---");
  Car slow(R"("kind": "pending", "delay": 300)");
  EXPECT_EQ(slow.sendAt(0), "61 80 14 2F 41 42 00");
  EXPECT_EQ(slow.clock.now(), 302ms);
}

TEST(Simulation, TheSameSeedGivesTheSameRun) {
  const auto run = [] {
    Car car(R"("kind": "noAnswer", "probability": 0.3)");
    std::string failures;
    for (int i = 0; i < 100; ++i) failures += car.sendAt(i).starts_with("61") ? '.' : 'x';
    return failures;
  };
  const std::string failures = run();
  EXPECT_EQ(run(), failures);
  EXPECT_NEAR(static_cast<double>(std::count(failures.begin(), failures.end(), 'x')), 30, 15);
}

/// The signal's values at these moments, in tenths.
std::vector<long> tenths(const Signal& signal, std::initializer_list<double> moments) {
  std::vector<long> values;
  for (const double moment : moments) values.push_back(std::lround(10 * signalValue(signal, moment)));
  return values;
}

TEST(Signal, IsAFunctionOfTime) {
  Signal ramp{Signal::Kind::ramp, 20, 90, 10};
  EXPECT_THAT(tenths(ramp, {5, 15}), ElementsAre(550, 550));
  ramp.repeats = false;
  EXPECT_THAT(tenths(ramp, {15}), ElementsAre(900));
  EXPECT_THAT(tenths({Signal::Kind::sine, 50, 10, 4, 1}, {0, 2}), ElementsAre(400, 600));
  EXPECT_THAT(tenths({Signal::Kind::square, 0, 1, 2, 0.5}, {0, 0.5, 1.5}), ElementsAre(10, 0, 10));
  Signal table{Signal::Kind::table, 0, 0, 6, 0, false, true, {1, 2, 4}, {10, 20, 40}};
  EXPECT_THAT(tenths(table, {0, 3, 100}), ElementsAre(100, 300, 400));
  table.repeats = true;
  EXPECT_THAT(tenths(table, {9}), ElementsAre(300));
}

}  // namespace
}  // namespace tarnlog::host
