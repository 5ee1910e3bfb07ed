#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tarnlog {

/// A text file open for appending. Lines go out in windows-1252 with CR LF, each line as one write to the
/// system when `writeLine` ends it, so that a killed process loses no finished line. A write that fails is
/// reported through the file system's write-failure handler and raised as a TarnError; the failed line is
/// dropped, and what got out of it is cut off again.
class TextStream {
 public:
  virtual ~TextStream() = default;
  /// Adds UTF-8 text to the current line.
  virtual void write(std::string_view text) = 0;
  /// Adds the text, ends the line and hands it to the system.
  virtual void writeLine(std::string_view text = {}) = 0;
};

/// A file that takes bytes as they are, each `write` as one write to the system. Closing is destroying.
/// Failures as with TextStream: a write is in the file whole or not at all.
class FileStream {
 public:
  virtual ~FileStream() = default;
  virtual void write(std::string_view bytes) = 0;
};

/// Folders and files. Paths are UTF-8. Failures are TarnErrors whose description is the path and the system's
/// text. It must outlive the streams that it opened.
class FileSystem {
 public:
  using WriteFailure = std::function<void(const std::string& path, const std::string& description)>;

  virtual ~FileSystem() = default;
  virtual bool folderExists(const std::string& path) const = 0;
  /// Whether new files can be made in this folder; false when there is none.
  virtual bool folderWritable(const std::string& path) const = 0;
  virtual bool fileExists(const std::string& path) const = 0;
  virtual std::string currentFolder() const = 0;
  /// Opens a text file for appending, creating it when missing; null when the system gives no stream.
  virtual std::unique_ptr<TextStream> openForAppending(const std::string& path) = 0;
  /// Creates a file that must not exist yet.
  virtual std::unique_ptr<FileStream> create(const std::string& path) = 0;
  /// Writes a whole file beside `path` and renames it into place. What is no regular file, such as a device,
  /// a pipe, or where the program's own output goes, is written to instead.
  virtual void replace(const std::string& path, std::string_view bytes) = 0;
  virtual std::string readAll(const std::string& path) const = 0;
  /// At most so many bytes.
  virtual std::string readBeginning(const std::string& path, std::size_t most) const {
    return readAll(path).substr(0, most);
  }

  /// Called with the system's text at each failed write of a stream that this file system opened; also, once,
  /// when the file was removed meanwhile, which fails no write.
  void setWriteFailureHandler(WriteFailure handler) { writeFailure_ = std::move(handler); }

 protected:
  void reportWriteFailure(const std::string& path, const std::string& description) const {
    if (writeFailure_) writeFailure_(path, description);
  }

 private:
  WriteFailure writeFailure_;
};

/// Folder and name with exactly one separator between them.
std::string joinPath(std::string_view folder, std::string_view name);

}  // namespace tarnlog
