#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "acquisition/SampleSink.h"

namespace tarnlog::record {

/// The newest value of each datum that is acquired, as the host shows it.
class LiveValues {
 public:
  struct Row {
    const ferrox3::DataItem* item = nullptr;
    std::string path;  ///< ECU/REQUEST/DATA
    std::string name;  ///< DATA where no other datum is called so, else the path
    std::string unit;
    std::string text;  ///< empty before the first answer
  };

  void begin(const SampleBeginning& beginning);
  /// Takes the values of a request; gives the rows that changed, by position.
  const std::vector<std::size_t>& take(std::size_t request);

  /// In the order in which they are asked.
  const std::vector<Row>& rows() const { return rows_; }

 private:
  void nameRows();

  std::vector<Row> rows_;
  std::vector<std::size_t> firstRow_;  ///< of each request, and one behind the last
  std::vector<std::size_t> changed_;
};

}  // namespace tarnlog::record
