#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/files/Descriptor.h"

namespace tarnlog::record {

/// What a command writes piece by piece: a file beside its place that is renamed when it is whole, so that
/// one that is there stays until then. Standard output, a device or a pipe gets the pieces as they come.
class ExportFile {
 public:
  explicit ExportFile(const std::string& path);
  ~ExportFile();
  ExportFile(const ExportFile&) = delete;
  ExportFile& operator=(const ExportFile&) = delete;

  /// Raises a TarnError.
  void write(std::string_view bytes);
  void finish();

 private:
  std::string path_;
  std::string beside_;                ///< empty: written in place
  std::unique_ptr<Descriptor> file_;  ///< none: standard output
};

}  // namespace tarnlog::record
