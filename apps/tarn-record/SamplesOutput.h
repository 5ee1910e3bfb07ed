#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "apps/common/NonWaitingStream.h"
#include "platform/files/Descriptor.h"
#include "platform/files/FileSystem.h"
#include "samples/JsonLinesSink.h"

namespace tarnlog::record {

/// Where `--samples` goes: a file, which is appended to; or standard output ("-"), a pipe or a device, none
/// of which is waited for. Standard output that the shell sent into a file is written as a file.
class SamplesOutput : public LineTarget {
 public:
  /// Raises a TarnError when it cannot be opened. A pipe that nobody reads yet can be.
  SamplesOutput(const std::string& given, FileSystem& files);

  bool take(std::string_view lines) override;
  /// To be called now and then.
  void flush();
  /// Nothing more comes. Whoever reads standard output gets all of it, whoever reads a pipe what he takes
  /// within a second. Tells what is left then; empty when there is nothing.
  std::string finish();
  bool onStandardOutput() const { return standardOutput_; }

 private:
  bool standardOutput_;
  std::optional<Descriptor> pipe_;
  std::optional<NonWaitingStream> stream_;
  std::unique_ptr<FileStream> file_;
};

}  // namespace tarnlog::record
