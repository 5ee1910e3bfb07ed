#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "records/ForeignTable.h"
#include "records/RecordFigures.h"
#include "tests/support/TableText.h"

namespace {

using namespace tarnlog;

void measure(const RecordTable& table) {
  for (const TableRecording& recording : table.recordings)
    for (const TableGroup& group : recording.groups)
      for (const TableColumn& column : group.columns) {
        const TimeSpan span{recording.begin(), recording.end()};
        const RecordFigures figures = figuresOf(group, column, span);
        secondsAbove(recording, group, column, figures.mean, span);
        largestStep(group, column, span);
        nextCrossing(column, {1, figures.mean}, -1);
        previousChange(column, group.rows());
      }
}

/// A file that grows gives the same table as the whole one.
void readInPieces(const std::string& bytes) {
  test::GrowingFile file;
  file.bytes = bytes;
  const auto whole = openTable(file, "", [] {});
  const std::string expected = test::tableText(*whole);
  measure(*whole->table());
  file.bytes.resize(bytes.size() / 2);
  const auto follower = openTable(file, "", [] {});
  if (!skipOnFailure([&] { follower->readOn(); })) return;
  file.bytes = bytes;
  if (test::tableText(*follower) != expected) std::abort();
}

void readForeign(const std::string& bytes) {
  test::GrowingFile file;
  file.bytes = bytes;
  const auto reader = openTable(file, lookAtForeignTable(file).choice, [] {});
  reader->readOn();
  measure(*reader->table());
}

}  // namespace

/// Reads arbitrary bytes into a table: as a record, at once and while it grows, and as a table of another
/// program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string file(reinterpret_cast<const char*>(bytes), size);
  skipOnFailure([&] { readInPieces(file); });
  skipOnFailure([&] { readForeign(file); });
  return 0;
}
