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

/// The record of an answer: its items' values as they are now.
void encodeAnswer(const SampleRequest& request, const MdfGroup& group, const SampleAnswer& answer,
                  MdfRecord& record);

}  // namespace tarnlog
