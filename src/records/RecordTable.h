#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/GrowingList.h"
#include "records/NumberSeries.h"
#include "records/Record.h"

/// A record in memory, as far as it has been read: what is looked at, measured and drawn. Copies are cheap
/// and share what is stored.
namespace tarnlog {

/// For each row the number of its text, from 1 on, or 0. Rows without a text take no memory while no row of
/// their stretch has one. Shared by copies as numbers are.
class TextIds {
 public:
  /// For rows in their order. Only the original may be added to, no copy.
  void set(std::int64_t row, std::uint32_t id);
  std::uint32_t operator[](std::int64_t row) const;

 private:
  static constexpr std::size_t kChunk = 8192;
  std::vector<std::shared_ptr<std::vector<std::uint32_t>>> chunks_;
};

/// One data item over the rows of its group.
struct TableColumn {
  RecordColumn about;
  NumberSeries numbers;  ///< NaN where the row has a text or nothing
  /// Texts that stand in the column, each once; `textOf` tells where.
  GrowingList<std::string, 1024> texts;
  TextIds textIds;
  bool onOff = false;  ///< all its numbers, so far, are 0 or 1, and it has no unit

  /// The row's own text; empty where it has a number or nothing.
  std::string_view textOf(std::int64_t row) const;
  /// What the row's number stands for, or its own text; empty where it has neither.
  std::string_view labelOf(std::int64_t row) const;
  /// Whether labels or texts tell what its values mean.
  bool isEnumeration() const { return !about.labels.empty() || !texts.empty(); }
};

/// Columns that share their times, in seconds from the recording's zero. Times never go back: a row whose
/// time does has that of the row before it, and `missing` tells so.
struct TableGroup {
  std::string ecu;
  std::string request;
  NumberSeries times;
  std::vector<TableColumn> columns;

  std::int64_t rows() const { return times.size(); }
  /// The first row that is not before this time; rows() when there is none.
  std::int64_t firstFrom(double time) const;
  /// The last row that is not after this time; none when all are.
  std::optional<std::int64_t> rowAt(double time) const;
};

struct TableMark {
  RecordNote::Kind kind = RecordNote::Kind::Event;
  double time = 0;
  double till = 0;           ///< end of a gap; seconds of a clock step
  std::uint32_t number = 0;  ///< of an event
  std::string text;          ///< a file's name; the reason of a failure
};

struct TableRecording {
  RecordHead head;  ///< its groups tell columns as below
  std::vector<TableGroup> groups;
  std::vector<TableMark> marks;

  /// Of its rows, in seconds; 0 when there are none.
  double begin() const;
  double end() const;
  std::int64_t rows() const;
};

/// Where a column stands.
struct ColumnPlace {
  std::size_t recording = 0;
  std::size_t group = 0;
  std::size_t column = 0;
  bool operator==(const ColumnPlace&) const = default;
};

struct RecordTable {
  std::string path;
  std::vector<TableRecording> recordings;
  std::vector<std::string> missing;  ///< what the file lacks, a sentence for each matter
  std::uint64_t bytesRead = 0;
  std::uint64_t bytes = 0;  ///< of the file, when it was looked at
  bool complete = false;    ///< all that the file has, so far, is here

  const TableGroup& groupOf(const ColumnPlace& place) const {
    return recordings[place.recording].groups[place.group];
  }
  const TableColumn& columnOf(const ColumnPlace& place) const { return groupOf(place).columns[place.column]; }
};

}  // namespace tarnlog
