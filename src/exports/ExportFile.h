#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files/Descriptor.h"

namespace tarnlog {

/// What is written piece by piece: a file beside its place that is renamed when it is whole, so that
/// one that is there stays until then. Standard output, a device or a pipe gets the pieces as they come.
class ExportFile {
 public:
  static constexpr const char* kStandardOutput = "/dev/stdout";

  explicit ExportFile(const std::string& path);
  ~ExportFile();
  ExportFile(const ExportFile&) = delete;
  ExportFile& operator=(const ExportFile&) = delete;

  /// Raises a TarnError.
  void write(std::string_view bytes);
  void finish();
  /// Writes over bytes that are there already. Only where `replaces`.
  void overwrite(std::uint64_t offset, std::string_view bytes);
  /// The file is written beside its place first.
  bool replaces() const { return !beside_.empty(); }

 private:
  std::string path_;
  std::string beside_;                ///< empty: written in place
  std::unique_ptr<Descriptor> file_;  ///< none: standard output
};

}  // namespace tarnlog
