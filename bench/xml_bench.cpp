#include <string>
#include <vector>

#include "bench/support/CountedAllocations.h"
#include "bench/support/Goals.h"
#include "platform/xml/XmlWriter.h"

namespace {

using namespace tarnlog;

/// A row of a recording of 100 items: time, event and the cells.
struct Row {
  std::vector<std::string> names = {"Time", "Event"};
  std::vector<std::string> values = {"1234.56", ""};
  Row() {
    for (int i = 1; i <= 100; ++i) {
      names.push_back(std::string("C").append(std::to_string(i)));
      values.push_back(std::to_string(i * 37 % 1000).append(".").append(std::to_string(i % 90 + 10)));
    }
  }
};

const Row& row() {
  static const Row made;
  return made;
}

void writeXmlRow(benchmark::State& state) {
  std::string written;
  XmlWriter writer([&](std::string_view bytes) { written.assign(bytes); });
  SaxAttributes attributes;
  writer.startElement("Tarnlog2000");
  const auto writeRow = [&] {
    attributes.clear();
    for (std::size_t i = 0; i < row().names.size(); ++i)
      attributes.addAttribute(row().names[i], row().values[i]);
    writer.startElement("row", attributes);
    writer.endElement("row");
  };
  writeRow();
  writeRow();
  const std::size_t before = bench::allocationCount();
  for (auto _ : state) writeRow();
  state.counters["allocations"] = static_cast<double>(bench::allocationCount() - before);
  state.SetBytesProcessed(static_cast<std::int64_t>(written.size()) * state.iterations());
}

/// The same bytes put together without a look at what they are.
void appendRowUnescaped(benchmark::State& state) {
  std::string line;
  std::string written;
  for (auto _ : state) {
    line.assign("\t<row");
    for (std::size_t i = 0; i < row().names.size(); ++i)
      line.append(" ").append(row().names[i]).append("=\"").append(row().values[i]).append("\"");
    line.append("/>\r\n");
    written.assign(line);
    benchmark::DoNotOptimize(written.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(written.size()) * state.iterations());
}

BENCHMARK(writeXmlRow);
BENCHMARK(appendRowUnescaped);

}  // namespace

int main(int argc, char** argv) {
  tarnlog::bench::Goals goals;
  goals.absolute("xml_row_allocations", "writeXmlRow", tarnlog::bench::atMost(0), "allocations");
  goals.ratio("xml_row_time", "writeXmlRow", "appendRowUnescaped", tarnlog::bench::atMost(2));
  return goals.run(argc, argv);
}
