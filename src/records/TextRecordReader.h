#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "records/Record.h"

namespace tarnlog {

/// Tab-separated text records and event files: windows-1252, header lines, a line for each row. One file may
/// hold several recordings, one after another, each with a header of its own.
class TextRecordReader : public RecordReader {
 public:
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

  std::vector<std::uint64_t> headerPlaces() const;
  void addPart(std::uint64_t header, std::uint64_t till, const std::string& name);
  void readPart(std::size_t position, RecordConsumer& consumer);

  const ReadableFile& file_;
  std::vector<Part> parts_;
  std::vector<std::string> cutHeaders_;
};

}  // namespace tarnlog
