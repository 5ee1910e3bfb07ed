#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "platform/files/FileSystem.h"
#include "samples/JsonLinesSink.h"

namespace tarnlog::bench {

/// Takes JSON lines into a file.
struct FileTarget : LineTarget {
  explicit FileTarget(std::unique_ptr<FileStream> stream) : file(std::move(stream)) {}
  bool take(std::string_view lines) override {
    file->write(lines);
    return true;
  }
  std::unique_ptr<FileStream> file;
};

}  // namespace tarnlog::bench
