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

 private:
  void readHead(const std::string& name);
  void tellFaults(const RecordFaults& faults);
  bool readRow(std::string_view piece, RecordConsumer& consumer);

  const ReadableFile& file_;
  char separator_ = '.';
  XmlRow row_;
  std::vector<RecordValue> values_;  ///< of one row
  std::string unnamed_;              ///< why the columns have no names
};

}  // namespace tarnlog
