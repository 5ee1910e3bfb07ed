#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/files/WriteTrouble.h"

namespace tarnlog {

/// A file that takes bytes as they are, each `write` as one write to the system, so that a killed process
/// loses none that has returned. Closing is destroying. A write that fails is told to the file system's
/// trouble handler, at the first one, and raised as a TarnError. It is in the file whole or not at all: where
/// part of it cannot be cut off again, the next write begins with the rest of it (WrittenInPart).
class FileStream {
 public:
  virtual ~FileStream() = default;
  virtual void write(std::string_view bytes) = 0;
  /// What must stand before whatever is written after it. Never raises: while it cannot be written it is
  /// kept, and the next write begins with it.
  virtual void writeOrOwe(std::string_view bytes) = 0;
  /// Writes over bytes that are in the file already, `offset` bytes from its beginning. Raises and tells as
  /// `write` does; what was there may be partly replaced then.
  virtual void writeAt(std::uint64_t offset, std::string_view bytes) = 0;
  /// Returns when everything that was written is on the disk; nothing to do for what is no regular file.
  /// Closing does the same without waiting. Raises a TarnError when that fails or takes too long, and tells
  /// it.
  virtual void sync() = 0;
  /// How many `write`s the file got, and how many of these are on the disk for certain.
  virtual std::uint64_t writes() const { return 0; }
  virtual std::uint64_t writesSynced() const { return 0; }
  /// What is written now gets lost.
  virtual bool failing() const = 0;
  /// Another program took away bytes that were in the file: what is written now does not stand where it was
  /// to be.
  virtual bool cutShort() { return false; }
};

/// The name belongs to a file that is there already and must not be replaced, or to one that is being
/// written.
class NameTaken : public TarnError {
 public:
  using TarnError::TarnError;
};

/// A write that failed, but of which a part is in the file and cannot be cut off: the next write begins with
/// the rest of it.
class WrittenInPart : public TarnError {
 public:
  explicit WrittenInPart(const TarnError& why) : TarnError(why) {}
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
  /// Opens a file for appending, creating it when missing; null when the system gives no stream. The
  /// file is this stream's until it is closed: where another one writes it, in whatever process, raises
  /// NameTaken. It is one of lines: a last one that is not whole, because it was cut, ends before the next
  /// one.
  virtual std::unique_ptr<FileStream> openForAppending(const std::string& path) = 0;
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
  /// such a file was removed or cut short meanwhile, which fails no write, and when it cannot be synced.
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
