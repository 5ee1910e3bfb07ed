#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/files/FollowedFile.h"
#include "records/Mf4Rows.h"

namespace tarnlog {

/// The answers of a measurement file that this recorder wrote or is writing, one after another as they stand
/// in it. Memory does not grow with its length.
class MeasurementAnswers {
 public:
  enum class Kind : std::uint8_t { Answer, Start, Stop };

  /// Of a file that is being written, what is in it now. Raises a TarnError when it is no such file.
  explicit MeasurementAnswers(const std::string& path);
  MeasurementAnswers(const MeasurementAnswers&) = delete;
  MeasurementAnswers& operator=(const MeasurementAnswers&) = delete;

  /// The file is whole up to this byte now; less than before changes nothing.
  void growTo(std::uint64_t till);

  /// Goes to the next answer, or to the beginning or end of a recording; false when there is none yet.
  bool next();
  /// What stands there is no record of it, or is none that can come next: nothing behind it is told.
  bool isDamaged() const;
  Kind kind() const { return kind_; }
  /// 1, 2, ... over all requests of an acquisition.
  std::uint64_t sequence() const { return sequence_; }
  /// Position of the request in `head().groups`.
  std::size_t group() const { return row_.group->column; }
  /// Seconds from the file's zero.
  double time() const { return row_.time; }
  /// Since 1970.
  std::int64_t utcNanoseconds() const;
  /// Of the data of `head().groups[group()]`, until the next one.
  std::span<const RecordValue> values() const;
  /// The name of the record file that an answer came in; empty outside of a recording.
  const std::string& recording() const { return recording_; }

  const RecordHead& head() const { return layout_.head; }
  /// What the file tells about itself under this name; empty when it does not.
  std::string fact(std::string_view name) const;

 private:
  void takeMark();

  FollowedFile file_;
  Mf4Layout layout_;
  Mf4Rows rows_;
  Mf4Row row_;
  Kind kind_ = Kind::Answer;
  std::uint64_t sequence_ = 0;
  bool isDamaged_ = false;
  std::string recording_;
};

}  // namespace tarnlog
