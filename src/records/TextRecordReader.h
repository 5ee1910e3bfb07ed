#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/base/TextArena.h"
#include "records/LineReader.h"
#include "records/Record.h"

namespace tarnlog {

/// Tab-separated text records and event files: windows-1252, header lines, a line for each row. One file may
/// hold several recordings, one after another, each with a header of its own.
class TextRecordReader : public RecordReader {
 public:
  /// How such a file begins.
  static constexpr std::string_view kBeginning = "time\tevent";

  /// Looks for the headers. Raises NotARecord when the first one is not whole.
  TextRecordReader(const ReadableFile& file, const std::string& name);
  void read(RecordConsumer& consumer) override;

 private:
  /// The rows of a recording.
  struct Part {
    std::uint64_t from = 0;
    std::uint64_t till = 0;
    char separator = '.';
  };
  /// Rows that were passed over.
  struct Damage {
    std::uint64_t rows = 0;
    std::uint64_t first = 0;  ///< its place
  };

  std::vector<std::uint64_t> headerPlaces() const;
  void addPart(std::uint64_t header, std::uint64_t till, const std::string& name);
  char separatorOf(const Part& part) const;
  void readPart(std::size_t position, RecordConsumer& consumer);
  bool readRow(LineReader& line, char separator, RecordConsumer& consumer);
  void tellMark(std::string_view cell, double time, RecordConsumer& consumer);

  const ReadableFile& file_;
  std::vector<Part> parts_;
  std::vector<std::string> cutHeaders_;
  std::vector<RecordValue> values_;  ///< of one row
  TextArena texts_;                  ///< of one row, where they are not as in the file
};

}  // namespace tarnlog
