#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

#include "SourceDir.h"
#include "catalogue/SessionDocument.h"
#include "host/link/trace/SimulatedLink.h"
#include "host/vehicle/Vehicle.h"
#include "platform/ferrox3/Value.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/ScriptedPeer.h"

namespace tarnlog {
namespace {

using namespace std::chrono_literals;

/// The road car of the examples, and rows of a table beside it.
struct RoadCar : testing::Test {
  static std::vector<std::vector<std::string>> readCsv(const std::string& path) {
    std::vector<std::vector<std::string>> rows;
    std::ifstream file(TARNLOG_SOURCE_DIR + path);
    for (std::string line; std::getline(file, line);) {
      std::istringstream text(line.substr(0, line.find('\r')));
      rows.emplace_back();
      for (std::string cell; std::getline(text, cell, ',');) rows.back().push_back(cell);
    }
    return rows;
  }
  template <class Link>
  void open(Link link) {
    vehicle = host::openVehicle(TARNLOG_SOURCE_DIR "/examples/road-car.vehicle.json", files, {}, clock, {},
                                std::move(link));
  }
  /// The value of a PID as the car answers now.
  double ask(const std::string& pid) {
    ferrox3::Request* const request = vehicle->session().ecu(0).findRequest("PID " + pid);
    request->send();
    item = &request->data(0);
    return ferrox3::numericValue(item->value());
  }

  SystemFileSystem files;
  test::ManualLinkClock clock;
  test::ScriptedPeer peer;
  std::unique_ptr<host::OpenedVehicle> vehicle;
  const ferrox3::DataItem* item = nullptr;  ///< that was asked for last
};

TEST_F(RoadCar, DecodesWhatARealCarAnswered) {
  open(std::make_unique<host::SimulatedLink>(clock, peer));
  // What an engine that idles and drives in town can show.
  const std::map<std::string, std::pair<double, double>> plausible = {
      {"05", {-20, 110}}, {"0C", {0, 4000}}, {"0D", {0, 130}},  {"0F", {-20, 80}},
      {"33", {85, 106}},  {"42", {9, 15.5}}, {"06", {-40, 40}}, {"07", {-40, 40}}};
  const auto rows = readCsv("/tests/data/raw_pids.csv");
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::string& pid = rows[i][1];
    const std::string& bytes = rows[i][2];
    peer.script["01 " + pid] = {"41" + pid + bytes};
    const double value = ask(pid);
    const auto range = plausible.find(pid);
    ASSERT_GE(value, range == plausible.end() ? item->minimum() : range->second.first) << pid << " " << bytes;
    ASSERT_LE(value, range == plausible.end() ? item->maximum() : range->second.second)
        << pid << " " << bytes;
    EXPECT_TRUE(pid + bytes != "0C135F" || value == 1239.75) << value;
    EXPECT_TRUE(pid + bytes != "4237D8" || value == 14.296) << value;
  }
}

TEST_F(RoadCar, ReplaysTheRealDriveValueForValue) {
  open(host::LinkOptions());
  const auto rows = readCsv("/examples/drive.csv");
  ASSERT_EQ(rows[0].size(), 27U);
  for (std::size_t column = 0; column < rows[0].size(); ++column) {
    const std::string pid = rows[0][column].substr(0, 2);
    vehicle->session().endCommunication();
    ask(pid);
    const host::Moment opened = clock.now();
    for (std::size_t row = 1; row < rows.size(); row += 7) {
      clock.step(opened + static_cast<int>(row - 1) * 490ms + 100ms - clock.now());
      const double expected = std::stod(rows[row][column]);
      ASSERT_NEAR(ask(pid), expected, 1e-5 * std::max(10.0, std::fabs(expected))) << pid << " row " << row;
    }
  }
}

}  // namespace
}  // namespace tarnlog
