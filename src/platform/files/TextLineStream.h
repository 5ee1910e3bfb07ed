#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/files/FileSystem.h"
#include "platform/text/TextEncoding.h"

namespace tarnlog {

/// The text form of record files over any byte stream: windows-1252, CR LF, one write per line.
class TextLineStream : public TextStream {
 public:
  explicit TextLineStream(std::unique_ptr<FileStream> bytes) : bytes_(std::move(bytes)) {}

  void write(std::string_view text) override { appendWindows1252(line_, text); }
  void writeLine(std::string_view text) override {
    write(text);
    line_.append("\r\n");
    struct Emptied {
      std::string& line;
      ~Emptied() { line.clear(); }
    } const emptied{line_};
    bytes_->write(line_);
  }
  void writeHeading(const std::vector<std::string>& lines) override {
    std::string heading;
    for (const std::string& line : lines) {
      appendWindows1252(heading, line);
      heading.append("\r\n");
    }
    bytes_->writeOrOwe(heading);
  }
  bool failing() const override { return bytes_->failing(); }

 private:
  std::unique_ptr<FileStream> bytes_;
  std::string line_;  ///< kept for its capacity
};

}  // namespace tarnlog
