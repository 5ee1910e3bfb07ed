#include "apps/common/RecordRepair.h"

#include <fmt/ranges.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "apps/common/BadInput.h"
#include "apps/common/MeasurementRepair.h"
#include "apps/common/RepairedCopy.h"
#include "mdf/Mdf.h"
#include "platform/files/Descriptor.h"
#include "platform/text/Told.h"
#include "platform/xml/XmlDocument.h"
#include "records/RecordWalk.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBatch = 1024 * 1024;

/// From the beginning of the file on, whatever was read of it before.
RecordFaults walkFile(const std::string& path, const Descriptor& file, const TakePiece& take) {
  std::uint64_t at = 0;
  const auto read = [&](char* block, std::size_t size) {
    const std::size_t count = readAt(file, path, at, block, size);
    at += count;
    return count;
  };
  try {
    return walkRecord(read, take);
  } catch (const NotARecord& error) {
    throw BadInput(path + ": " + error.what());
  }
}

/// Parses a record with the parser that reads it later, some rows at a time: as a whole it would need several
/// times the file's size in memory.
class ParsedInParts {
 public:
  explicit ParsedInParts(const std::string& path) : path_(path) {}

  void add(std::string_view piece) {
    batch_.append(piece);
    if (!headParsed_ || batch_.size() >= kBatch) {
      parse(batch_ + kEnd);
      headParsed_ = true;
      batch_ = kStart;
    }
  }
  /// The last part has the document's own end.
  void finish() { parse(batch_); }

 private:
  static constexpr const char* kStart = "<Tarnlog2000>";
  static constexpr const char* kEnd = "</Tarnlog2000>";

  void parse(const std::string& part) {
    XmlDocument document;
    if (const auto error = document.parse(part))
      throw BadInput(
          Told::tr("{}: cannot be repaired, the result could not be read: {}", path_, error->reason));
  }

  std::string path_;
  std::string batch_;
  bool headParsed_ = false;
};

void check(const RepairedCopy& copy, const std::string& original) {
  ParsedInParts parsed(original);
  const auto faults =
      walkFile(copy.path(), copy.descriptor(), [&](std::string_view piece) { parsed.add(piece); });
  if (!faults.record || !faults.whole()) throw BadInput(Told::tr("{}: cannot be repaired", original));
  parsed.finish();
}

std::string told(const RecordFaults& faults) {
  std::vector<std::string> what{faults.closed ? Told::tr("repaired") : Told::tr("closed")};
  const auto add = [&](std::uint64_t count, const std::string& one, const std::string& several) {
    if (count != 0) what.push_back(count == 1 ? one : several);
  };
  add(faults.cutRows, Told::tr("1 row that was cut kept with its whole cells"),
      Told::tr("{} rows that were cut kept with their whole cells", faults.cutRows));
  add(faults.addedEnds, Told::tr("1 element before the rows closed"),
      Told::tr("{} elements before the rows closed", faults.addedEnds));
  add(faults.droppedBytes, Told::tr("1 byte of what was not finished dropped"),
      Told::tr("{} bytes of what was not finished dropped", faults.droppedBytes));
  return fmt::format("{}", fmt::join(what, ", "));
}

std::string repairXml(const FileToRepair& file) {
  const std::string& path = file.path();
  const RecordFaults faults = walkFile(path, file.descriptor(), [](std::string_view) {});
  if (!faults.record)
    throw BadInput(Told::tr(
        "{}: not an XML record file, expected the root element Tarnlog2000, nor a measurement file", path));
  if (faults.whole()) return Told::tr("{}: whole, nothing to do", path) + "\n";

  RepairedCopy copy(file);
  walkFile(path, file.descriptor(), [&](std::string_view piece) { copy.add(piece); });
  copy.finish();
  check(copy, path);
  const std::string kept = copy.take();
  return path + ": " + told(faults) + "\n" + Told::tr("{}: the original is {}", path, kept) + "\n";
}

bool isMeasurement(const FileToRepair& file) {
  char start[mdf::kFinished.size()];
  const std::size_t count = readAt(file.descriptor(), file.path(), 0, start, sizeof start);
  const std::string_view known(start, count);
  return known == mdf::kFinished || known == mdf::kUnfinished;
}

}  // namespace

std::string repairRecord(const std::string& path) {
  const FileToRepair file(path);
  return isMeasurement(file) ? repairMeasurement(file) : repairXml(file);
}

}  // namespace tarnlog
