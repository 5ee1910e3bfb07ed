#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "records/RecordTable.h"

namespace tarnlog {

/// Puts what a record's reader tells into a table. Rows are gathered and put into their columns some at a
/// time, as a row's numbers stand together and a table's do not.
class TableBuilder : public RecordConsumer {
 public:
  /// `table` must outlive this.
  explicit TableBuilder(RecordTable& table) : table_(table) {}

  /// Its columns, and no rows yet.
  void addRecording(const RecordHead& head);
  void removeNewest();
  /// Forgets the rows of the newest recording.
  void beginAgain();
  /// Puts all rows there that were told.
  void finishRows();
  /// What is wrong with the rows themselves.
  void tellMissing(std::vector<std::string>& missing) const;

  void recording(std::size_t position) override;
  void row(const RecordRow& row) override;
  void note(const RecordNote& note) override;

 private:
  using KnownTexts = std::unordered_map<std::string, std::uint32_t>;
  /// Of a group: what need not be in the table.
  struct Beside {
    std::vector<double> gathered;   ///< row by row: what is not in the columns yet
    double newest = 0;              ///< of its times
    std::vector<bool> other;        ///< by column: it has a number that is neither 0 nor 1
    std::vector<KnownTexts> texts;  ///< by column; empty while no row has one
  };
  /// Of a recording.
  struct Besides {
    std::vector<Beside> groups;
    std::size_t together = 1;    ///< rows that are gathered
    std::int64_t timesBack = 0;  ///< rows whose time goes back
    double firstBack = 0;        ///< where the first one goes to
  };

  double forward(double time, Beside& beside);
  static void addText(std::size_t column, TableGroup& group, Beside& beside, std::string_view text);
  static void putRows(TableGroup& group, Beside& beside);

  RecordTable& table_;
  std::vector<Besides> besides_;
  std::size_t position_ = 0;
};

}  // namespace tarnlog
