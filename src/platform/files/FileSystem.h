#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/base/TarnError.h"
#include "platform/files/WriteTrouble.h"

namespace tarnlog {

/// A text file open for appending. Lines go out in windows-1252 with CR LF, each line as one write to the
/// system when `writeLine` ends it, so that a killed process loses no finished line. A write that fails is
/// told to the file system's trouble handler, at the first one, and raised as a TarnError; the failed line is
/// dropped, and what got out of it is cut off again.
class TextStream {
 public:
  virtual ~TextStream() = default;
  /// Adds UTF-8 text to the current line.
  virtual void write(std::string_view text) = 0;
  /// Adds the text, ends the line and hands it to the system.
  virtual void writeLine(std::string_view text = {}) = 0;
  /// Lines that must stand before whatever is written after them, as one write. Never raises: while they
  /// cannot be written they are kept, and the next write begins with them.
  virtual void writeHeading(const std::vector<std::string>& lines) = 0;
  /// What is written now gets lost.
  virtual bool failing() const = 0;
};

/// A file that takes bytes as they are, each `write` as one write to the system. Closing is destroying.
/// Failures as with TextStream: a write is in the file whole or not at all. Where part of it cannot be cut
/// off again, the next write begins with the rest of it.
class FileStream {
 public:
  virtual ~FileStream() = default;
  virtual void write(std::string_view bytes) = 0;
  /// Like a heading: kept until it can be written, and never raises.
  virtual void writeOrOwe(std::string_view bytes) = 0;
  /// What is written now gets lost.
  virtual bool failing() const = 0;
};

/// The name belongs to a file that is there already and must not be replaced, or to one that is being
/// written.
class NameTaken : public TarnError {
 public:
  using TarnError::TarnError;
};

/// Folders and files. Paths are UTF-8. Failures are TarnErrors whose description is the path and the system's
/// text. It must outlive the streams that it opened.
class FileSystem {
 public:
  using TroubleHandler = std::function<void(const WriteTrouble&)>;

  virtual ~FileSystem() = default;
  virtual bool folderExists(const std::string& path) const = 0;
  /// Whether new files can be made in this folder; false when there is none.
  virtual bool folderWritable(const std::string& path) const = 0;
  virtual bool fileExists(const std::string& path) const = 0;
  virtual std::string currentFolder() const = 0;
  /// Opens a text file for appending, creating it when missing; null when the system gives no stream. The
  /// file is this stream's until it is closed: where another one writes it, in whatever process, raises
  /// NameTaken.
  virtual std::unique_ptr<TextStream> openForAppending(const std::string& path) = 0;
  /// Creates a file that must not exist yet; else raises NameTaken. A file that got nothing since every write
  /// failed is removed when it is closed.
  virtual std::unique_ptr<FileStream> create(const std::string& path) = 0;
  /// Writes a whole file beside `path` and renames it into place. What is no regular file, such as a device,
  /// a pipe, or where the program's own output goes, is written to instead.
  virtual void replace(const std::string& path, std::string_view bytes) = 0;
  virtual std::string readAll(const std::string& path) const = 0;
  /// At most so many bytes.
  virtual std::string readBeginning(const std::string& path, std::size_t most) const {
    return readAll(path).substr(0, most);
  }

  /// Called when writes to a stream that this file system opened begin to fail and when that ends; also when
  /// such a file was removed or cut short meanwhile, which fails no write.
  void setWriteTroubleHandler(TroubleHandler handler) { troubleHandler_ = std::move(handler); }

 protected:
  void tellTrouble(const WriteTrouble& trouble) const {
    if (troubleHandler_) troubleHandler_(trouble);
  }

 private:
  TroubleHandler troubleHandler_;
};

/// Folder and name with exactly one separator between them.
std::string joinPath(std::string_view folder, std::string_view name);

}  // namespace tarnlog
