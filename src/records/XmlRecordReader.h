#pragma once

#include <string>

#include "records/Record.h"
#include "records/RecordWalk.h"
#include "records/XmlRow.h"

namespace tarnlog {

/// XML records and event files, also those whose recording was killed or goes on.
class XmlRecordReader : public RecordReader {
 public:
  /// Reads the head, and rows until the decimal separator is known. Raises NotARecord when it is none, or
  /// ends before its data are named.
  XmlRecordReader(const ReadableFile& file, const std::string& name);
  void read(RecordConsumer& consumer) override;
  bool readOn(RecordConsumer& consumer) override;
  bool isOpenEnded() const override { return openEnded_; }

 private:
  void readHead(const std::string& name);
  void readFrom(std::uint64_t place, RecordConsumer& consumer);
  void tellFaults(const RecordFaults& faults);
  bool readRow(std::string_view piece, RecordConsumer& consumer);

  const ReadableFile& file_;
  char separator_ = '.';
  bool separatorKnown_ = false;
  bool openEnded_ = false;
  std::uint64_t place_ = 0;    ///< behind the last whole row
  std::uint64_t bad_ = 0;      ///< rows
  std::uint64_t cut_ = 0;      ///< rows
  std::uint64_t dropped_ = 0;  ///< bytes up to `place_`
  XmlRow row_;
  std::vector<RecordValue> values_;  ///< of one row
  std::string unnamed_;              ///< why the columns have no names
};

}  // namespace tarnlog
