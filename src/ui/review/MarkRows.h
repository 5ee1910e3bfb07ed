#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// The marks of all records that are looked at, in the order of their times.
class MarkRows {
 public:
  struct Row {
    std::size_t record = 0;
    TableMark mark;
    double time = 0;  ///< of the scene
  };

  explicit MarkRows(const ReviewScene& scene) : scene_(scene) {}

  /// After records changed; true when there are other rows now.
  bool refresh();
  const std::vector<Row>& rows() const { return rows_; }
  bool severalRecords() const { return scene_.records().size() > 1; }

  /// Where the file of an event may lie: what its mark names, and what an event of that number of this record
  /// is called, both beside the record. Empty where no event has a file.
  static std::vector<std::string> eventFiles(const TableMark& mark, const std::string& recordPath);

 private:
  const ReviewScene& scene_;
  std::vector<Row> rows_;
};

}  // namespace tarnlog
