// Does a record row cost more than the system's share of it? Rows of 100 columns, from the cells to the end
// of write(2) on a real file, against a loop that appends the same texts to one array of bytes.

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "acquisition/RollingBuffer.h"
#include "bench/support/CountedAllocations.h"
#include "bench/support/Goals.h"
#include "bench/support/RowTexts.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/text/Numbers.h"
#include "platform/xml/XmlWriter.h"
#include "tests/support/TempFolder.h"

namespace {

using namespace tarnlog;

constexpr std::int32_t kColumns = 100;
const bench::RowTexts texts(kColumns);

/// The least that a row can cost: its bytes put together by hand, and one write.
void appendedTextRow(benchmark::State& state) {
  const test::TempFolder folder;
  const int file = ::open((folder / "rows").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  std::array<char, 8192> line{};
  std::string time;
  std::size_t number = 0;
  for (auto _ : state) {
    char* end = line.data();
    const auto append = [&](std::string_view text) {
      std::memcpy(end, text.data(), text.size());
      end += text.size();
    };
    time.clear();
    appendSeconds2(time, static_cast<std::int64_t>(number) * 100, '.');
    append(time);
    append("\t\"\"");
    for (const std::string& cell : texts.row(number)) {
      *end++ = '\t';
      append(cell);
    }
    append("\r\n");
    ++number;
    if (::write(file, line.data(), static_cast<std::size_t>(end - line.data())) < 0) std::abort();
  }
  ::close(file);
}

void fill(RollingBuffer& buffer, std::size_t number) {
  buffer.AddRow(static_cast<Milliseconds>(number * 100));
  std::int32_t column = 0;
  for (const std::string& cell : texts.row(number)) buffer.SetData(++column, cell);
}

/// Runs a row writer, counting what it allocates once warm.
template <class WriteRow>
void writeRows(benchmark::State& state, WriteRow writeRow) {
  std::size_t number = 0;
  for (; number < 100; ++number) writeRow(number);
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) writeRow(number++);
  state.counters["allocations"] = static_cast<double>(bench::allocationCount() - before);
}

void recordTextRows(benchmark::State& state, const std::string& path) {
  SystemFileSystem files;
  TextStream stream(files.openForAppending(path));
  RollingBuffer buffer;
  buffer.Create(kColumns, 20);
  writeRows(state, [&](std::size_t number) {
    fill(buffer, number);
    buffer.WriteCurrentToFile(stream, 0, "");
  });
}

void recordedTextRow(benchmark::State& state) { recordTextRows(state, test::TempFolder() / "rows"); }

void recordedXmlRow(benchmark::State& state) {
  const test::TempFolder folder;
  SystemFileSystem files;
  const auto file = files.create(folder / "rows");
  XmlWriter writer([&](std::string_view bytes) { file->write(bytes); });
  writer.startDocument();
  writer.startElement("Tarnlog2000");
  RollingBuffer buffer;
  buffer.Create(kColumns, 20);
  writeRows(state, [&](std::size_t number) {
    fill(buffer, number);
    buffer.WriteCurrentToSaxFile(writer, 0, "");
  });
}

BENCHMARK(appendedTextRow);
BENCHMARK(recordedTextRow);
BENCHMARK(recordedXmlRow);

}  // namespace

int main(int argc, char** argv) {
  using tarnlog::bench::atMost;
  tarnlog::bench::Goals goals;
  goals.ratio("text_row_time", "recordedTextRow", "appendedTextRow", atMost(1.3));
  goals.absolute("text_row_allocations", "recordedTextRow", atMost(0), "allocations");
  goals.ratio("xml_row_with_write_time", "recordedXmlRow", "appendedTextRow", atMost(2.0));
  goals.absolute("xml_row_with_write_allocations", "recordedXmlRow", atMost(0), "allocations");
  return goals.run(argc, argv);
}
