#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "records/Mf4Rows.h"

namespace tarnlog {

/// Records of one data group in the order of their times. Those of a recorder come nearly so; as many as
/// `kWindow` may come before one that is older.
class Mf4Stream {
 public:
  static constexpr std::size_t kWindow = 1024;

  /// `window` 1 leaves the records in their order.
  Mf4Stream(const ReadableFile& file, const Mf4DataGroup& data, std::size_t block, std::size_t window,
            const Mf4Group* only = nullptr)
      : rows_(file, data, block, only), data_(data), window_(window) {}

  /// False behind the last one.
  bool next();
  /// The data group has more records now; some may be older than those that came.
  void goOn() {
    ended_ = false;
    rows_.goOn();
  }
  /// The record gone to, until the next one.
  Mf4Row& row() { return *current_; }
  const Mf4Row& row() const { return *current_; }

  const Mf4Rows& rows() const { return rows_; }
  const Mf4DataGroup& data() const { return data_; }

 private:
  void fill();

  Mf4Rows rows_;
  const Mf4DataGroup& data_;
  std::size_t window_;
  bool ended_ = false;
  std::vector<std::unique_ptr<Mf4Row>> waiting_;  ///< a heap
  std::unique_ptr<Mf4Row> current_ = std::make_unique<Mf4Row>();
  std::vector<std::unique_ptr<Mf4Row>> unused_;
};

/// Whether a window is enough to put the records of this data group in order.
bool nearlyOrdered(const ReadableFile& file, const Mf4DataGroup& data, std::size_t block);

}  // namespace tarnlog
