#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "bench/support/RowTexts.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/text/Numbers.h"
#include "tests/support/TempFolder.h"

namespace tarnlog::bench {

/// The text record of a long drive, a row for each tenth of a second.
class BigRecord {
 public:
  BigRecord(std::size_t columns, std::size_t rows) : columns_(columns), texts_(columns) {
    SystemFileSystem files;
    const auto stream = files.create(path());
    std::string out = header();
    for (std::size_t row = 0; row < rows; ++row) {
      appendRow(out);
      if (out.size() < kBlock && row + 1 < rows) continue;
      stream->write(out);
      out.clear();
    }
  }

  std::string path() const { return folder_ / "16-11-26_19h05mn08.txt"; }
  /// The next one.
  void appendRow(std::string& out) {
    appendSeconds2(out, static_cast<std::int64_t>(rows_) * 100, '.');
    out += "\t\"\"";
    for (const std::string& cell : texts_.row(rows_)) out.append("\t").append(cell);
    out += "\r\n";
    ++rows_;
  }

 private:
  static constexpr std::size_t kBlock = 256 * 1024;

  std::string header() const {
    return line("time\tevent", "Engine") + line("16/11/26\t", "Status") + line("19:05:08\t", "Speed(km/h)");
  }
  std::string line(std::string start, const std::string& cell) const {
    for (std::size_t i = 0; i < columns_; ++i) start.append("\t\"").append(cell).append("\"");
    return start + "\r\n";
  }

  test::TempFolder folder_;
  std::size_t columns_;
  RowTexts texts_;
  std::size_t rows_ = 0;
};

}  // namespace tarnlog::bench
