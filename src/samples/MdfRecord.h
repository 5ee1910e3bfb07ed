#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "acquisition/SampleSink.h"
#include "samples/MdfLayout.h"

namespace tarnlog {

/// One record of a group as every file can take it: the cells and the invalidation bytes as they stand in a
/// file, but with times in microseconds and with the length of a value of variable length in its cell; those
/// values follow, in the order of their columns. Allocates nothing once it has held a record as long.
class MdfRecord {
 public:
  /// Everything is 0 and valid.
  void begin(const MdfGroup& group);
  void setTime(const MdfColumn& column, std::int64_t microseconds);
  /// Takes as many of the low bytes as the cell has.
  void setBits(const MdfColumn& column, std::uint64_t bits);
  void setNumber(const MdfColumn& column, double number);
  /// Values of variable length are set in the order of their columns, each of them.
  void setVariable(const MdfColumn& column, std::string_view value);
  void setInvalid(const MdfColumn& column);

  std::string_view bytes() const { return bytes_; }

 private:
  std::string bytes_;
  std::size_t dataBytes_ = 0;
};

/// Records of the groups that are no request's. Times are microseconds, the step is in seconds.
void mdfMark(const MdfLayout& layout, SampleMark::Kind kind, std::int64_t at, std::int32_t number,
             std::string_view file, MdfRecord& record);
void mdfGap(const MdfLayout& layout, std::int64_t from, std::int64_t till, MdfRecord& record);
void mdfFailure(const MdfLayout& layout, std::int64_t at, std::int64_t sent, std::string_view request,
                std::string_view reason, MdfRecord& record);
void mdfClockStep(const MdfLayout& layout, std::int64_t at, double step, MdfRecord& record);

/// The record of an answer: its items' values as they are now.
void encodeAnswer(const SampleRequest& request, const MdfGroup& group, const SampleAnswer& answer,
                  MdfRecord& record);

}  // namespace tarnlog
