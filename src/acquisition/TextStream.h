#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/base/ByteBuffer.h"
#include "platform/files/FileSystem.h"
#include "platform/text/TextEncoding.h"

namespace tarnlog {

/// The text of a record file: windows-1252, lines that end with CR LF, each of them one write to the system
/// when it is whole.
class TextStream {
 public:
  explicit TextStream(std::unique_ptr<FileStream> file) : file_(std::move(file)) {}

  /// An empty line, to be filled with UTF-8 text and ended.
  ByteBuffer& newLine() {
    line_.clear();
    return line_;
  }
  /// Ends the line and hands it out. `ascii`: it has no other characters, which saves looking for them.
  /// Raises as `FileStream::write` does; the line is dropped then.
  void endLine(bool ascii) {
    line_.append("\r\n");
    if (ascii) return file_->write(line_.view());
    encoded_.clear();
    appendWindows1252(encoded_, line_.view());
    file_->write(encoded_);
  }
  /// Lines that must stand before whatever is written after them, as `FileStream::writeOrOwe`.
  void writeHeading(const std::vector<std::string>& lines) {
    encoded_.clear();
    for (const std::string& line : lines) {
      appendWindows1252(encoded_, line);
      encoded_.append("\r\n");
    }
    file_->writeOrOwe(encoded_);
  }
  void sync() { file_->sync(); }
  /// That were ended, without headings.
  std::uint64_t lines() const { return file_->writes(); }
  std::uint64_t linesSynced() const { return file_->writesSynced(); }
  bool failing() const { return file_->failing(); }

 private:
  std::unique_ptr<FileStream> file_;
  ByteBuffer line_;
  std::string encoded_;
};

}  // namespace tarnlog
