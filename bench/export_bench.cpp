// Does exporting a record cost more than reading its numbers and printing them? A text record of 1,000,000
// rows of 50 data, exported as CSV, against a loop that only parses each cell and prints it again.

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "bench/support/BigRecord.h"
#include "bench/support/Goals.h"
#include "records/CsvExport.h"

namespace {

using namespace tarnlog;

constexpr std::size_t kRows = 1000000;
constexpr std::size_t kColumns = 50;
constexpr std::size_t kBlock = 256 * 1024;

const bench::BigRecord& bigRecord() {
  static const bench::BigRecord made(kColumns, kRows);
  return made;
}

/// The bytes go where they cost nothing.
class Sink {
 public:
  void write(std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), file_); }
  ~Sink() { std::fclose(file_); }

 private:
  std::FILE* file_ = std::fopen("/dev/null", "w");
};

void exportCsv(benchmark::State& state) {
  const std::string path = bigRecord().path();
  for (auto _ : state) {
    Sink sink;
    const SystemReadableFile file(path);
    const auto reader = openRecord(file, path);
    CsvExport csv(reader->recordings(), {}, [&](std::string_view bytes) { sink.write(bytes); });
    reader->read(csv);
    csv.finish();
    if (!reader->missing().empty()) std::abort();
  }
}

void parseAndPrint(benchmark::State& state) {
  const std::string path = bigRecord().path();
  std::vector<char> line(kBlock);
  for (auto _ : state) {
    Sink sink;
    std::FILE* const file = std::fopen(path.c_str(), "r");
    std::string out;
    while (std::fgets(line.data(), static_cast<int>(line.size()), file) != nullptr) {
      for (const char* cell = line.data(); *cell != '\n' && *cell != '\0';) {
        const char* const end = cell + std::strcspn(cell, "\t\r\n");
        double value = 0;
        if (std::from_chars(cell, end, value).ec == std::errc()) {
          char text[32];
          out.append(text, std::to_chars(text, text + sizeof text, value).ptr);
        } else {
          out.append(cell, end);
        }
        out += ',';
        cell = *end == '\r' || *end == '\t' ? end + 1 : end;
      }
      out.back() = '\n';
      if (out.size() < kBlock) continue;
      sink.write(out);
      out.clear();
    }
    sink.write(out);
    std::fclose(file);
  }
}

BENCHMARK(exportCsv)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK(parseAndPrint)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  tarnlog::bench::Goals goals;
  goals.ratio("text_export_speed", "parseAndPrint/iterations:1/repeats:3", "exportCsv/iterations:1/repeats:3",
              tarnlog::bench::atLeast(0.7));
  return goals.run(argc, argv);
}
