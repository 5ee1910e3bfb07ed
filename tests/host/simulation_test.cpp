#include <gmock/gmock.h>

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

constexpr char kCar[] = R"({
  "name": "car",
  "ecus": [
    { "name": "Engine", "address": 16, "protocol": "KWP2000", "requests": [
        { "name": "Speeds", "frame": "21 80", "data": [
          { "name": "Speed", "byte": 2, "factor": 0.5 },
          { "name": "Mode", "byte": 3, "bit": 4, "bits": 2,
            "enumeration": [{ "value": 2, "label": "sport" }] },
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
    json.replace(json.find("FAULT"), 5, fault);
    files.files["/cars/road.json"] = json;
    files.files["/cars/drive.csv"] = "t,v\n0,10\n1,20\n2,100\n";
    vehicle = openVehicle("/cars/road.json", files, {}, clock, {});
    request = &vehicle->session().ecu(0).request(0);
  }

  /// The answer to the request, or what is wrong with it, `seconds` after the first one.
  std::string sendAt(double seconds) {
    if (!started) start = clock.now();
    started = true;
    clock.step(start + std::chrono::duration_cast<Moment>(std::chrono::duration<double>(seconds)) -
               clock.now());
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
  Moment start{};
  bool started = false;
};

// A description from somebody else showed what stood in other files of the machine.
TEST(Simulation, ReadsNoTableOutsideTheDescriptionsFolder) {
  for (const char* outside : {"../secret.csv", "/cars/drive.csv", "a/../../cars/drive.csv"}) {
    Car car;
    std::string json = car.files.files["/cars/road.json"];
    car.files.files["/secret.csv"] = "password\n";
    car.files.files["/cars/road.json"] = json.replace(json.find("drive.csv"), 9, outside);
    const std::string failure =
        test::failureOf([&] { readVehicleDescription("/cars/road.json", car.files); });
    EXPECT_THAT(failure, testing::HasSubstr(std::string(outside) + ": it lies outside the folder"));
    EXPECT_THAT(failure, testing::Not(testing::HasSubstr("password")));
  }
  Car car;
  const test::TempFolder folder;
  std::filesystem::create_directory(folder / "car");
  std::ofstream(folder / "secret.csv") << "password\n";
  std::filesystem::create_symlink("../secret.csv", folder / "car/drive.csv");
  const std::string road = folder / "car/road.json";
  car.files.files[road] = car.files.files["/cars/road.json"];
  car.files.files[folder / "car/drive.csv"] = "password\n";
  EXPECT_THAT(test::failureOf([&] { readVehicleDescription(road, car.files); }),
              testing::HasSubstr("drive.csv: it lies outside the folder"));
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
  Car car;
  EXPECT_EQ(car.exchange("22 12 34"), "62 12 34 00 00");
  EXPECT_EQ(car.exchange("10 A0"), "50 A0");
  EXPECT_EQ(car.exchange("3E"), "7E");
  EXPECT_EQ(car.exchange("21 81"), "Engine: request 21 81 refused: 7F 21 12 sub-function not supported");
  EXPECT_EQ(car.exchange("31 01"), "Engine: request 31 01 refused: 7F 31 11 service not supported");
}

TEST(Simulation, FaultsHappenWhenTheyShould) {
  {
    Car car(R"({ "ecu": "Engine", "kind": "noAnswer", "from": 1, "to": 2 })");
    EXPECT_NE(car.sendAt(0), ": no answer within 200 ms");
    EXPECT_NE(car.sendAt(0.9), ": no answer within 200 ms");
    EXPECT_EQ(car.sendAt(1), ": no answer within 200 ms");
    EXPECT_NE(car.sendAt(2), ": no answer within 200 ms");
  }
  {
    Car car(
        R"({ "ecu": "Engine", "request": "Speeds", "kind": "negativeResponse", "code": "0x22", "every": 3 })");
    EXPECT_TRUE(car.sendAt(0).starts_with("61"));
    EXPECT_EQ(car.exchange("10 81"), "50 81") << "another request is not concerned, and not counted";
    EXPECT_TRUE(car.sendAt(0.1).starts_with("61"));
    EXPECT_EQ(car.sendAt(0.2), " refused: 7F 21 22 conditions not correct");
    EXPECT_TRUE(car.sendAt(0.3).starts_with("61"));
  }
  {
    Car car(R"({ "ecu": "Engine", "kind": "shortAnswer", "bytes": 3 })");
    EXPECT_EQ(car.sendAt(0), "61 80 14");
    EXPECT_EQ(car.request->findData("Mode")->valueText(), "---");
  }
  {
    Car car(R"({ "ecu": "Engine", "kind": "pending", "delay": 300 })");
    EXPECT_TRUE(car.sendAt(0).starts_with("61"));
    EXPECT_EQ(car.clock.now(), 302ms);
  }
  for (const char* const kind : {"wrongService", "garbage"}) {
    Car car(std::string(R"({ "ecu": "Engine", "kind": ")") + kind + R"(" })");
    EXPECT_TRUE(car.sendAt(0).starts_with(": no answer, but "));
  }
}

TEST(Simulation, TheSameSeedGivesTheSameRun) {
  const auto run = [](Car& car) {
    std::string failures;
    for (int i = 0; i < 100; ++i) failures += car.sendAt(i).starts_with("61") ? '.' : 'x';
    return failures;
  };
  const char* const fault = R"({ "ecu": "Engine", "kind": "noAnswer", "probability": 0.3 })";
  Car first(fault);
  Car second(fault);
  const std::string failures = run(first);
  EXPECT_EQ(run(second), failures);
  const auto count = std::count(failures.begin(), failures.end(), 'x');
  EXPECT_GT(count, 15);
  EXPECT_LT(count, 45);
}

TEST(Signal, IsAFunctionOfTime) {
  Signal ramp{Signal::Kind::ramp, 20, 90, 10};
  EXPECT_DOUBLE_EQ(signalValue(ramp, 5), 55);
  EXPECT_DOUBLE_EQ(signalValue(ramp, 15), 55);
  ramp.repeats = false;
  EXPECT_DOUBLE_EQ(signalValue(ramp, 15), 90);
  const Signal sine{Signal::Kind::sine, 50, 10, 4, 1};
  EXPECT_NEAR(signalValue(sine, 0), 40, 1e-9);
  EXPECT_NEAR(signalValue(sine, 2), 60, 1e-9);
  const Signal square{Signal::Kind::square, 0, 1, 2, 0.5};
  EXPECT_EQ(signalValue(square, 0), 1);
  EXPECT_EQ(signalValue(square, 0.5), 0);
  EXPECT_EQ(signalValue(square, 1.5), 1);
  Signal table{Signal::Kind::table, 0, 0, 6, 0, false, true, {1, 2, 4}, {10, 20, 40}};
  EXPECT_EQ(signalValue(table, 0), 10);
  EXPECT_DOUBLE_EQ(signalValue(table, 3), 30);
  EXPECT_EQ(signalValue(table, 100), 40);
  table.repeats = true;
  EXPECT_DOUBLE_EQ(signalValue(table, 9), 30);
}

}  // namespace
}  // namespace tarnlog::host
