#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/ByteBuffer.h"
#include "platform/files/FileSystem.h"
#include "samples/MdfClosing.h"
#include "samples/MdfHead.h"
#include "samples/MdfLayout.h"

namespace tarnlog {

/// A measurement file that is being written. Records are gathered and written as one block, which spans at
/// most 100 ms. A block that does not get into the file is dropped whole, as if its records had never been.
class MdfFile {
 public:
  static constexpr std::int64_t kBlockSpan = 100'000;  ///< microseconds

  /// The file's times count from `about.start`. The layout outlives the file.
  MdfFile(std::unique_ptr<FileStream> stream, std::string path, const MdfLayout& layout,
          const MdfAbout& about);

  /// Takes the record of an MdfRecord. What came before the file's start is left out. Never raises.
  void add(std::size_t group, std::int64_t at, std::string_view record);
  /// The time has come to this; the next record is expected then.
  void passed(std::int64_t now, std::int64_t next);
  void flush();

  /// What is to be found at a moment of this file, in the clock's microseconds.
  void note(MdfEvent event);

  /// Ends the file: it takes no records any more, and `closeMdf` with these two finishes it. Nothing when
  /// there is no file to finish, since not even what stands before the records could be written, or when
  /// another program cut it short: then nothing is where the closing would look for it.
  std::optional<MdfClosing> closing();
  bool cutShort() const { return stream_->cutShort(); }
  std::unique_ptr<FileStream> takeStream() { return std::move(stream_); }

  /// Every byte before this one is in the file, and none of them changes but when it is closed; 0: none is.
  std::uint64_t wholeTill() const { return headWritten_ ? data_ + mdf::kBlockHead + dataBytes_ : 0; }
  const std::string& path() const { return path_; }
  std::int64_t start() const { return start_; }
  /// Records that were dropped since they could not be written.
  std::uint64_t lostRecords() const { return lostRecords_; }

 private:
  /// How much of the records is in the file or, gathered, on the way to it.
  struct Counts {
    std::vector<std::uint64_t> records;     ///< of the groups
    std::vector<std::uint64_t> valueBytes;  ///< of values of variable length, each with its length
    std::uint64_t all = 0;
  };

  bool writePending();
  char* putId(char* to, std::uint64_t id) const;
  char* putValues(char* to, const MdfGroup& group, std::string_view record) const;
  char* putRecord(char* to, const MdfGroup& group, std::string_view record);
  void patchTimes(char* cells, const MdfGroup& group) const;
  void patchValues(char* cells, const MdfGroup& group);

  std::unique_ptr<FileStream> stream_;
  std::string path_;
  const MdfLayout& layout_;
  std::int64_t start_;
  std::vector<MdfGroupPlace> places_;
  std::uint64_t history_ = 0;
  std::uint64_t data_ = 0;
  bool headWritten_ = false;
  ByteBuffer pending_;
  std::int64_t firstPending_ = 0;
  std::uint64_t dataBytes_ = 0;
  Counts counts_;
  Counts written_;
  std::uint64_t lostRecords_ = 0;
  std::vector<MdfEvent> events_;
};

}  // namespace tarnlog
