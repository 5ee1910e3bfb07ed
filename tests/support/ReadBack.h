#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/TarnError.h"
#include "records/CsvExport.h"
#include "records/JsonExport.h"
#include "records/Record.h"

namespace tarnlog::test {

/// A file in memory, to be read.
class MemoryReadableFile : public ReadableFile {
 public:
  explicit MemoryReadableFile(std::string bytes) : bytes_(std::move(bytes)) {}
  std::uint64_t size() const override { return bytes_.size(); }
  std::size_t readAt(std::uint64_t place, char* to, std::size_t most) const override {
    return place >= bytes_.size() ? 0 : bytes_.copy(to, most, static_cast<std::size_t>(place));
  }

 private:
  std::string bytes_;
};

/// A record as CSV, and what is missing; what it is refused with.
struct ReadBack {
  std::string text;
  std::vector<std::string> missing;
  std::string refused;

  std::size_t lines() const { return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')); }
};

inline ReadBack readBack(const std::string& bytes, const ExportChoice& choice = {},
                         const std::string& name = "16-11-26_19h05mn07.txt", bool json = false) {
  ReadBack back;
  try {
    const MemoryReadableFile file(bytes);
    const auto reader = openRecord(file, name);
    const auto output = [&](std::string_view written) { back.text += written; };
    if (json) {
      JsonExport lines(reader->recordings(), choice, output);
      reader->read(lines);
      lines.finish(reader->missing());
    } else {
      CsvExport csv(reader->recordings(), choice, output);
      reader->read(csv);
      csv.finish();
    }
    back.missing = reader->missing();
  } catch (const TarnError& error) {
    back.refused = error.what();
  }
  return back;
}

}  // namespace tarnlog::test
