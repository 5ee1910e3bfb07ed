// Does a long recording grow? Eight hours at ten rows a second on a stepped clock, with measurement file and
// JSON lines; resident memory at the end against that after the first minute.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/SilentAcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "bench/support/PreparedCar.h"
#include "platform/files/SystemFileSystem.h"
#include "samples/JsonLinesSink.h"
#include "samples/Measurement.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/SteppedClock.h"
#include "tests/support/TempFolder.h"

namespace {

double residentMebibytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmRSS:")) return std::strtod(line.c_str() + 6, nullptr) / 1024;
  return 0;
}

/// Takes all and keeps nothing.
struct NoTarget : tarnlog::LineTarget {
  bool take(std::string_view lines) override {
    bytes += lines.size();
    return true;
  }
  std::size_t bytes = 0;
};

}  // namespace

int main() {
  using namespace tarnlog;
  constexpr int kRowsPerMinute = 600;
  constexpr int kMinutes = 8 * 60;
  const test::TempFolder folder;
  test::MemoryFileSystem descriptions;
  descriptions.files["car.json"] = bench::carDescription(4, 10, 0);
  test::SteppedClock clock;
  test::ManualLinkClock linkClock;
  const auto vehicle = host::openVehicle("car.json", descriptions, {}, linkClock, {},
                                         std::make_unique<bench::PreparedLink>(10));
  SilentAcqScreen screen;
  test::ManualTimer timer;
  SystemFileSystem files;
  NoTarget target;
  JsonLinesSink json(target);
  Measurement measurement({.files = files, .clock = clock, .locale = {}, .programVersion = "1"});
  std::vector<SampleSink*> sinks = measurement.sinks();
  sinks.push_back(&json);
  TarnAcq acq(screen, {clock, timer, files, {}, "", sinks});
  acq.setSession(&vehicle->session());
  acq.StartReadingData(bench::everything(4, 10, folder.path()));
  const auto minute = [&] {
    for (int i = 0; i < kRowsPerMinute; ++i) {
      clock.step(100);
      linkClock.step(std::chrono::milliseconds(100));
      timer.fire();
      if (acq.hasRow() && !acq.Recording() && !acq.startPending()) acq.ToggleRecording();
    }
    acq.RecordUserEvent();
  };
  minute();
  const double first = residentMebibytes();
  for (int i = 1; i < kMinutes; ++i) minute();
  const double grown = residentMebibytes() - first;
  std::printf("%llu rows, %zu MiB of JSON lines, %llu answers lost\n",
              static_cast<unsigned long long>(acq.rowsWritten()), target.bytes >> 20U,
              static_cast<unsigned long long>(measurement.files().lostRecords()));
  std::printf("%llu rows, resident memory %.2f MiB after the first minute, %.2f MiB at the end\n",
              static_cast<unsigned long long>(acq.rowsWritten()), first, first + grown);
  std::printf("GOAL eight_hours_memory_growth_mib %.4g <=1 %s\n", grown, grown <= 1 ? "ok" : "missed");
  return grown <= 1 ? 0 : 1;
}
