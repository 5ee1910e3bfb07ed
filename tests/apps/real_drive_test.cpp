#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

#include "SourceDir.h"
#include "catalogue/SessionDocument.h"
#include "host/link/Link.h"
#include "host/vehicle/Vehicle.h"
#include "platform/ferrox3/Value.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/support/ManualLinkClock.h"

namespace tarnlog {
namespace {

using namespace std::chrono_literals;

const std::string kSource = TARNLOG_SOURCE_DIR;

std::vector<std::string> split(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream text(line);
  for (std::string cell; std::getline(text, cell, ',');) cells.push_back(cell);
  return cells;
}

std::vector<std::vector<std::string>> readCsv(const std::string& path) {
  std::vector<std::vector<std::string>> rows;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    rows.push_back(split(line));
  }
  return rows;
}

/// A car that gives one prepared answer to everything.
class PreparedLink : public host::Link {
 public:
  explicit PreparedLink(Bytes& answer) : answer_(answer) {}
  void doOpen() override {}
  void doClose() override {}
  bool doSend(const host::LinkTarget&, std::span<const std::uint8_t>) override { return true; }
  Received doReceive(Bytes& response, std::chrono::milliseconds) override {
    response = answer_;
    return Received::response;
  }

 private:
  Bytes& answer_;
};

std::uint8_t hexByte(const std::string& text, std::size_t at) {
  return static_cast<std::uint8_t>(std::stoi(text.substr(at, 2), nullptr, 16));
}

TEST(RoadCar, DecodesWhatARealCarAnswered) {
  SystemFileSystem files;
  test::ManualLinkClock clock;
  host::Link::Bytes answer;
  const auto vehicle = host::openVehicle(kSource + "/examples/road-car.vehicle.json", files, {}, clock, {},
                                         std::make_unique<PreparedLink>(answer));
  const ferrox3::Ecu& ecu = vehicle->session().ecu(0);
  std::map<std::string, std::pair<double, double>> seen;
  auto rows = readCsv(kSource + "/tests/data/raw_pids.csv");
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::string& pid = rows[i][1];
    const std::string& bytes = rows[i][2];
    answer = {0x41, hexByte(pid, 0)};
    for (std::size_t at = 0; at < bytes.size(); at += 2) answer.push_back(hexByte(bytes, at));
    ferrox3::Request* const request = ecu.findRequest("PID " + pid);
    ASSERT_NE(request, nullptr) << pid;
    request->send();
    const ferrox3::DataItem& item = request->data(0);
    const double value = ferrox3::numericValue(item.value());
    ASSERT_GE(value, item.minimum()) << pid << " " << bytes;
    ASSERT_LE(value, item.maximum()) << pid << " " << bytes;
    if (pid == "0C" && bytes == "135F") {
      EXPECT_EQ(value, 1239.75);
    }
    if (pid == "42" && bytes == "37D8") {
      EXPECT_EQ(value, 14.296);
    }
    const auto at = seen.emplace(pid, std::pair{value, value}).first;
    at->second = {std::min(at->second.first, value), std::max(at->second.second, value)};
  }
  // What an engine that idles and drives in town can show.
  const std::map<std::string, std::pair<double, double>> plausible = {
      {"05", {-20, 110}}, {"0C", {0, 4000}}, {"0D", {0, 130}},  {"0F", {-20, 80}},
      {"33", {85, 106}},  {"42", {9, 15.5}}, {"06", {-40, 40}}, {"07", {-40, 40}}};
  for (const auto& [pid, range] : plausible) {
    ASSERT_EQ(seen.count(pid), 1U) << pid;
    EXPECT_GE(seen[pid].first, range.first) << pid;
    EXPECT_LE(seen[pid].second, range.second) << pid;
  }
}

TEST(RoadCar, ReplaysTheRealDriveValueForValue) {
  SystemFileSystem files;
  test::ManualLinkClock clock;
  const auto vehicle = host::openVehicle(kSource + "/examples/road-car.vehicle.json", files, {}, clock, {});
  const ferrox3::Ecu& ecu = vehicle->session().ecu(0);
  const auto rows = readCsv(kSource + "/examples/drive.csv");
  const std::vector<std::string>& header = rows[0];
  ASSERT_EQ(header.size(), 27U);
  for (std::size_t column = 0; column < header.size(); ++column) {
    ferrox3::Request* const request = ecu.findRequest("PID " + header[column].substr(0, 2));
    ASSERT_NE(request, nullptr) << header[column];
    vehicle->session().endCommunication();
    request->send();
    const host::Moment opened = clock.now();
    for (std::size_t row = 1; row < rows.size(); row += 7) {
      clock.step(opened + static_cast<int>(row - 1) * 490ms + 100ms - clock.now());
      request->send();
      const double expected = std::stod(rows[row][column]);
      ASSERT_NEAR(ferrox3::numericValue(request->data(0).value()), expected,
                  1e-5 * std::max(10.0, std::fabs(expected)))
          << header[column] << " row " << row;
    }
  }
}

}  // namespace
}  // namespace tarnlog
