// Is a record on the screen as fast as its numbers can be parsed, and measured much faster than by a loop? A
// text record of 100 data, opened, against a loop that only finds the cells of the same file in memory and
// converts them; figures of 10,000,000 rows; a record that grows. The record has 128 MB, or as many as
// TARNLOG_RECORD_MB says: TARNLOG_RECORD_MB=1024 bench/table_bench

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "bench/support/BigRecord.h"
#include "bench/support/Goals.h"
#include "platform/files/FollowedFile.h"
#include "records/RecordFigures.h"
#include "records/RecordLoading.h"
#include "records/TableReader.h"

namespace {

using namespace tarnlog;

constexpr std::size_t kColumns = 100;
constexpr std::size_t kMegabyte = 1024 * 1024;
constexpr std::int64_t kRows = 10'000'000;

std::size_t recordRows() {
  constexpr std::size_t kRowBytes = 660;
  const char* const megabytes = std::getenv("TARNLOG_RECORD_MB");
  return (megabytes == nullptr ? 128 : std::strtoul(megabytes, nullptr, 10)) * kMegabyte / kRowBytes;
}

bench::BigRecord& bigRecord() {
  static bench::BigRecord made(kColumns, recordRows());
  return made;
}

/// A file in memory.
class MappedFile {
 public:
  explicit MappedFile(const std::string& path) : file_(path, O_RDONLY) {
    const off_t size = ::lseek(file_.get(), 0, SEEK_END);
    void* const begin =
        ::mmap(nullptr, static_cast<std::size_t>(size), PROT_READ, MAP_PRIVATE, file_.get(), 0);
    if (begin == MAP_FAILED) std::abort();
    bytes_ = {static_cast<const char*>(begin), static_cast<std::size_t>(size)};
  }
  ~MappedFile() { ::munmap(const_cast<char*>(bytes_.data()), bytes_.size()); }
  std::string_view bytes() const { return bytes_; }

 private:
  Descriptor file_;
  std::string_view bytes_;
};

/// Finds the cells and converts them.
double parseCells(std::string_view bytes) {
  double sum = 0;
  const char* at = bytes.data();
  for (const char* const end = at + bytes.size(); at < end;) {
    const auto* line = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    if (line == nullptr) line = end;
    while (at < line) {
      const auto* cell = static_cast<const char*>(std::memchr(at, '\t', static_cast<std::size_t>(line - at)));
      if (cell == nullptr) cell = line;
      double value = 0;
      if (std::from_chars(at, cell, value).ec == std::errc()) sum += value;
      at = cell + 1;
    }
    at = line + 1;
  }
  return sum;
}

void parseFile(benchmark::State& state) {
  const std::string path = bigRecord().path();
  for (auto _ : state) benchmark::DoNotOptimize(parseCells(MappedFile(path).bytes()));
}

void openRecord(benchmark::State& state) {
  const std::string path = bigRecord().path();
  for (auto _ : state) {
    const RecordTable table = loadRecord(path);
    if (table.recordings.front().rows() != static_cast<std::int64_t>(recordRows())) std::abort();
  }
}

std::size_t statusBytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with(name)) return std::strtoul(line.c_str() + name.size(), nullptr, 10) * 1024;
  return 0;
}

/// How much memory opening takes at most, for each number. In a process of its own, which ends with it.
double memoryOfOpening(const std::string& path) {
  int pipe[2];
  if (::pipe(pipe) != 0) std::abort();
  const pid_t child = ::fork();
  if (child == 0) {
    const std::size_t before = statusBytes("VmRSS:");
    std::ofstream("/proc/self/clear_refs") << "5";
    const RecordLoading loading(path);
    std::shared_ptr<const RecordTable> table;
    while (loading.state() == RecordLoading::State::Reading) {
      table = loading.newest();
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    table = loading.newest();
    const std::size_t numbers = static_cast<std::size_t>(table->recordings.front().rows()) * kColumns;
    const double result = static_cast<double>(statusBytes("VmHWM:") - before) / static_cast<double>(numbers);
    if (::write(pipe[1], &result, sizeof result) < 0) std::abort();
    ::_exit(0);
  }
  double result = 0;
  if (::read(pipe[0], &result, sizeof result) != sizeof result) std::abort();
  ::waitpid(child, nullptr, 0);
  ::close(pipe[0]);
  ::close(pipe[1]);
  return result;
}

void memory(benchmark::State& state) {
  const std::string path = bigRecord().path();
  double bytes = 0;
  for (auto _ : state) bytes = memoryOfOpening(path);
  state.counters["bytes"] = bytes;
}

void firstRows(benchmark::State& state) {
  const std::string path = bigRecord().path();
  double part = 0;
  for (auto _ : state) {
    const RecordLoading loading(path);
    while (loading.newest() == nullptr) std::this_thread::yield();
    const auto table = loading.newest();
    if (table->recordings.front().rows() == 0) std::abort();
    part = static_cast<double>(table->bytesRead) / static_cast<double>(table->bytes);
  }
  state.counters["part"] = part;
}

/// A signal that goes up and down.
const TableGroup& longSignal() {
  static const TableGroup group = [] {
    TableGroup made;
    made.columns.emplace_back();
    for (std::int64_t row = 0; row < kRows; ++row) {
      made.times.append(static_cast<double>(row) * 0.1);
      made.columns[0].numbers.append(static_cast<double>((row * 7919) % 10007) * 0.01);
    }
    return made;
  }();
  return group;
}

constexpr std::int64_t kFirst = 12345;
constexpr std::int64_t kLast = kRows - 54321;

void figuresOfALoop(benchmark::State& state) {
  std::vector<double> numbers;
  for (std::int64_t row = kFirst; row < kLast; ++row) numbers.push_back(longSignal().columns[0].numbers[row]);
  for (auto _ : state) {
    double lowest = INFINITY;
    double highest = -INFINITY;
    double sum = 0;
    double squares = 0;
    for (const double number : numbers) {
      lowest = std::min(lowest, number);
      highest = std::max(highest, number);
      sum += number;
      squares += number * number;
    }
    benchmark::DoNotOptimize(lowest + highest + sum + squares);
  }
}

void figures(benchmark::State& state) {
  const TableGroup& group = longSignal();
  const TimeSpan span{group.times[kFirst], group.times[kLast - 1]};
  for (auto _ : state) benchmark::DoNotOptimize(figuresOf(group, group.columns[0], span));
}

/// What a recorder of ten rows a second writes in ten looks.
constexpr int kLooks = 10;
constexpr int kRowsOfALook = 100;

std::string someRows() {
  std::string rows;
  for (int i = 0; i < kRowsOfALook; ++i) bigRecord().appendRow(rows);
  return rows;
}

void parseGrowth(benchmark::State& state) {
  const std::string rows = someRows();
  for (auto _ : state)
    for (int i = 0; i < kLooks; ++i) benchmark::DoNotOptimize(parseCells(rows));
}

/// A copy for whoever draws it is made after each look.
void follow(benchmark::State& state) {
  bench::BigRecord record(kColumns, 10000);
  SystemFileSystem files;
  const auto stream = files.openForAppending(record.path());
  const std::string rows = someRows();
  FollowedFile file(record.path());
  const auto reader = openTable(file, "", [] {});
  reader->readOn();
  for (auto _ : state)
    for (int i = 0; i < kLooks; ++i) {
      state.PauseTiming();
      stream->write(rows);
      state.ResumeTiming();
      if (file.look() != FollowedFile::Change::Changed) std::abort();
      reader->readOn();
      benchmark::DoNotOptimize(reader->table());
    }
}

BENCHMARK(parseFile)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(openRecord)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(memory)->Iterations(1)->Repetitions(2)->Unit(benchmark::kMillisecond);
BENCHMARK(firstRows)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(figuresOfALoop)->Unit(benchmark::kMicrosecond);
BENCHMARK(figures)->Unit(benchmark::kMicrosecond);
BENCHMARK(parseGrowth)->Unit(benchmark::kMicrosecond);
BENCHMARK(follow)->Iterations(20)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  using tarnlog::bench::atLeast;
  using tarnlog::bench::atMost;
  tarnlog::bench::Goals goals;
  goals.ratio("open_text_speed", "parseFile/iterations:1/repeats:3", "openRecord/iterations:1/repeats:3",
              atLeast(0.7));
  goals.absolute("open_text_memory", "memory/iterations:1/repeats:2", atMost(12), "bytes");
  goals.absolute("first_rows_part", "firstRows/iterations:1/repeats:3", atMost(0.1), "part");
  goals.ratio("interval_figures", "figures", "figuresOfALoop", atMost(0.05));
  goals.ratio("follow_text", "follow/iterations:20", "parseGrowth", atMost(3));
  return goals.run(argc, argv);
}
