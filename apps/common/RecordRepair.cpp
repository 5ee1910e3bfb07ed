#include "apps/common/RecordRepair.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "apps/common/BadInput.h"
#include "records/RecordWalk.h"
#include "platform/files/Descriptor.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

namespace {

constexpr std::size_t kBatch = 1024 * 1024;

/// From the beginning of the file on, whatever was read of it before.
RecordFaults walkFile(const std::string& path, const Descriptor& file, const TakePiece& take) {
  off_t at = 0;
  const auto read = [&](char* block, std::size_t size) {
    ssize_t count = 0;
    do {
      count = ::pread(file.get(), block, size, at);
    } while (count < 0 && errno == EINTR);
    if (count < 0) throw systemError(path, errno);
    at += count;
    return static_cast<std::size_t>(count);
  };
  try {
    return walkRecord(read, take);
  } catch (const NotARecord& error) {
    throw BadInput(path + ": " + error.what());
  }
}

/// Parses a record with the parser that reads it later, some rows at a time: as a whole it would need several
/// times the file's size in memory.
class ParsedInParts {
 public:
  explicit ParsedInParts(const std::string& path) : path_(path) {}

  void add(std::string_view piece) {
    batch_.append(piece);
    if (!headParsed_ || batch_.size() >= kBatch) {
      parse(batch_ + kEnd);
      headParsed_ = true;
      batch_ = kStart;
    }
  }
  /// The last part has the document's own end.
  void finish() { parse(batch_); }

 private:
  static constexpr const char* kStart = "<Tarnlog2000>";
  static constexpr const char* kEnd = "</Tarnlog2000>";

  void parse(const std::string& part) {
    XmlDocument document;
    if (const auto error = document.parse(part))
      throw BadInput(path_ + ": cannot be repaired, the result could not be read: " + error->reason);
  }

  std::string path_;
  std::string batch_;
  bool headParsed_ = false;
};

/// The repaired file before it takes the place of the original; removed when it does not come to that.
class RepairedCopy {
 public:
  /// The original is locked: a copy that is there already is one of a repair that was killed.
  RepairedCopy(const std::string& original, mode_t mode)
      : path_(unused(original + ".repairing")), file_(path_, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, 0600) {
    if (::fchmod(file_.get(), mode) != 0) throw systemError(path_, errno);
  }
  ~RepairedCopy() {
    if (!placed_) ::unlink(path_.c_str());
  }
  RepairedCopy(const RepairedCopy&) = delete;
  RepairedCopy& operator=(const RepairedCopy&) = delete;

  void add(std::string_view piece) {
    block_.append(piece);
    if (block_.size() >= kBatch) writeBlock();
  }
  void finish() {
    writeBlock();
    if (::fsync(file_.get()) != 0) throw systemError(path_, errno);
  }
  void check(const std::string& original) const {
    ParsedInParts parsed(original);
    const auto faults = walkFile(path_, file_, [&](std::string_view piece) { parsed.add(piece); });
    if (!faults.record || !faults.whole()) throw BadInput(original + ": cannot be repaired");
    parsed.finish();
  }
  void take(const std::string& place) {
    if (::rename(path_.c_str(), place.c_str()) != 0) throw systemError(place, errno);
    placed_ = true;
  }

 private:
  static std::string unused(const std::string& path) {
    ::unlink(path.c_str());
    return path;
  }

  void writeBlock() {
    if (file_.writeAll(block_) < block_.size()) throw systemError(path_, errno);
    block_.clear();
  }

  std::string path_;
  Descriptor file_;
  std::string block_;
  bool placed_ = false;
};

/// A second name for the original. A file system without links gets it as the only one, for a moment.
std::string keepOriginal(const std::string& path) {
  for (int number = 1;; ++number) {
    std::string kept = path + ".bak" + (number == 1 ? std::string() : std::to_string(number));
    if (::link(path.c_str(), kept.c_str()) == 0) return kept;
    if (errno == EEXIST) continue;
    std::error_code error;
    if (std::filesystem::exists(std::filesystem::symlink_status(kept, error))) continue;
    if (::rename(path.c_str(), kept.c_str()) != 0) throw systemError(kept, errno);
    return kept;
  }
}

std::string counted(std::uint64_t count, const char* one, const char* several) {
  return count == 0 ? std::string() : ", " + std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string told(const RecordFaults& faults) {
  return (faults.closed ? std::string("repaired") : std::string("closed")) +
         counted(faults.cutRows, "row that was cut kept with its whole cells",
                 "rows that were cut kept with their whole cells") +
         counted(faults.addedEnds, "element before the rows closed", "elements before the rows closed") +
         counted(faults.droppedBytes, "byte of what was not finished dropped",
                 "bytes of what was not finished dropped");
}

}  // namespace

std::string repairRecord(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  const std::string place = error ? path : target.string();
  const Descriptor file(place, O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
    throw BadInput(path + ": not a file that can be repaired");
  if (!file.lock()) throw BadInput(path + ": is being written, repair it when its recording has ended");

  const RecordFaults faults = walkFile(path, file, [](std::string_view) {});
  if (!faults.record)
    throw BadInput(path + ": not an XML record file, expected the root element Tarnlog2000");
  if (faults.whole()) return path + ": whole, nothing to do\n";

  RepairedCopy copy(place, status.st_mode);
  walkFile(path, file, [&](std::string_view piece) { copy.add(piece); });
  copy.finish();
  copy.check(path);
  const std::string kept = keepOriginal(place);
  copy.take(place);
  return path + ": " + told(faults) + "\n" + path + ": the original is " + kept + "\n";
}

}  // namespace tarnlog
