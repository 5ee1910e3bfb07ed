#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "records/RecordCell.h"
#include "records/TableBuilder.h"
#include "records/TableReader.h"
#include "records/TextRows.h"

namespace tarnlog {

/// Text records, as `TextRecordReader` reads them, but in one walk that goes on where the file has grown.
/// Which decimal separator a recording has is known when the first time tells; until then the cells read so
/// far say, and the recording is read again when later ones say otherwise.
class TextTableReader : public TableReader {
 public:
  TextTableReader(const ReadableFile& file, std::string name, Pause pause);

  void readOn() override;
  bool isOpenEnded() const override { return true; }
  std::shared_ptr<RecordTable> table() override;
  std::uint64_t bytesRead() const override { return place_; }

 private:
  /// The newest recording.
  struct Newest {
    std::uint64_t header = 0;  ///< places
    std::uint64_t rows = 0;
    bool headerAlone = false;  ///< the header ends with the file and may go on
    SeparatorVote vote;
    bool decided = false;        ///< a time told the separator
    std::uint64_t counted = 0;   ///< place: what is before it has voted
    std::uint64_t doubtful = 0;  ///< place: not before it is reached, the recording is read again
    char separator = '.';
  };

  std::string_view load(std::size_t most);
  bool readPiece();
  bool takeHeader(std::string_view text, bool atEnd);
  void takeRows(std::size_t length);
  void vote(std::string_view text);
  bool readAgain(bool atEnd);

  const ReadableFile& file_;
  std::string name_;
  Pause pause_;
  RecordTable table_;
  TableBuilder builder_;
  std::vector<TextRows> rows_;  ///< by recording
  Newest newest_;
  std::vector<std::string> cutHeaders_;
  std::uint64_t place_ = 0;  ///< what is before it has been read
  std::vector<char> block_;  ///< what stands there
  std::size_t loaded_ = 0;
};

}  // namespace tarnlog
