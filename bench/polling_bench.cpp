// What does a polling cycle cost beside the work that it cannot avoid? 1,000 data in 100 requests, recorded
// every cycle, against a hand-written decode, number-to-text and write of the same bytes.

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "acquisition/SilentAcqScreen.h"
#include "acquisition/TarnAcq.h"
#include "bench/support/CountedAllocations.h"
#include "bench/support/Goals.h"
#include "bench/support/PreparedCar.h"
#include "host/link/SystemLinkClock.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/time/SystemClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/SteppedClock.h"
#include "tests/support/TempFolder.h"

namespace {

using namespace tarnlog;

constexpr std::size_t kRequests = 100;
constexpr std::size_t kDataPerRequest = 10;

void handWrittenCycle(benchmark::State& state) {
  const test::TempFolder folder;
  const int file = ::open((folder / "rows").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  bench::PreparedLink link(kDataPerRequest);
  std::array<char, 65536> line{};
  for (auto _ : state) {
    char* end = line.data();
    for (std::size_t r = 0; r < kRequests; ++r) {
      const auto& answer = link.next();
      for (std::size_t d = 0; d < kDataPerRequest; ++d) {
        const double value = (answer[3 + 2 * d] * 256 + answer[4 + 2 * d]) * 0.25;
        *end++ = '\t';
        end = std::to_chars(end, line.data() + line.size(), value).ptr;
      }
      link.fill();
    }
    *end++ = '\n';
    if (::write(file, line.data(), static_cast<std::size_t>(end - line.data())) < 0) std::abort();
  }
  ::close(file);
}

void recordedCycle(benchmark::State& state) {
  const test::TempFolder folder;
  test::MemoryFileSystem descriptions;
  descriptions.files["car.json"] = bench::carDescription(kRequests, kDataPerRequest, 0);
  host::SystemLinkClock linkClock;
  const auto vehicle = host::openVehicle("car.json", descriptions, {}, linkClock, {},
                                         std::make_unique<bench::PreparedLink>(kDataPerRequest));
  SilentAcqScreen screen;
  test::SteppedClock clock;
  test::ManualTimer timer;
  SystemFileSystem files;
  TarnAcq acq(screen, {clock, timer, files, {}, ""});
  acq.setSession(&vehicle->session());
  acq.StartReadingData(bench::everything(kRequests, kDataPerRequest, folder.path()));
  const auto cycle = [&] {
    clock.step(100);
    timer.fire();
  };
  while (!acq.hasRow()) cycle();
  acq.ToggleRecording();
  for (int i = 0; i < 50; ++i) cycle();
  if (!acq.Recording()) std::abort();
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) cycle();
  state.counters["allocations"] = static_cast<double>(bench::allocationCount() - before);
}

BENCHMARK(handWrittenCycle);
BENCHMARK(recordedCycle);

}  // namespace

int main(int argc, char** argv) {
  tarnlog::bench::Goals goals;
  goals.ratio("polling_cycle_time", "recordedCycle", "handWrittenCycle", tarnlog::bench::atMost(4));
  goals.absolute("polling_cycle_allocations", "recordedCycle", tarnlog::bench::atMost(0), "allocations");
  return goals.run(argc, argv);
}
