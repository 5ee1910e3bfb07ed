#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files/FileSystem.h"
#include "platform/text/TextEncoding.h"

namespace tarnlog {

/// The text of a record file: windows-1252, lines that end with CR LF, each of them one write to the system
/// when it is whole.
class TextStream {
 public:
  explicit TextStream(std::unique_ptr<FileStream> file) : file_(std::move(file)) {}

  /// Ends the line and hands it out; raises as `FileStream::write` does, the line is dropped then.
  void writeLine(std::string_view utf8) {
    line_.clear();
    appendWindows1252(line_, utf8);
    line_.append("\r\n");
    file_->write(line_);
  }
  /// Lines that must stand before whatever is written after them, as `FileStream::writeOrOwe`.
  void writeHeading(const std::vector<std::string>& lines) {
    line_.clear();
    for (const std::string& line : lines) {
      appendWindows1252(line_, line);
      line_.append("\r\n");
    }
    file_->writeOrOwe(line_);
  }
  bool failing() const { return file_->failing(); }

 private:
  std::unique_ptr<FileStream> file_;
  std::string line_;  ///< kept for its capacity
};

}  // namespace tarnlog
