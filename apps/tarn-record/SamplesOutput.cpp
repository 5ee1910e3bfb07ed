#include "apps/tarn-record/SamplesOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <system_error>

#include "apps/tarn-record/OutputFile.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

namespace {

/// A reader that stalls for a moment loses nothing.
constexpr std::size_t kBound = std::size_t{1} << 20;
constexpr std::chrono::seconds kPipePatience{1};

bool becomesFile(const std::string& path) {
  std::error_code none;
  const auto kind = std::filesystem::status(path, none).type();
  return kind == std::filesystem::file_type::regular || kind == std::filesystem::file_type::not_found;
}

/// Where the shell sent it; empty when that is no file. Written as a file, a full disk is noticed at once.
std::string fileOfStandardOutput() {
  std::error_code none;
  const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/fd/1", none);
  return !none && std::filesystem::is_regular_file(path, none) ? path.string() : std::string();
}

}  // namespace

/// A pipe is opened for reading, too: so nobody needs to read it yet, and who reads it may come and go.
SamplesOutput::SamplesOutput(const std::string& given, FileSystem& files)
    : standardOutput_(isStandardOutput(outputPath(given))) {
  if (const std::string file = standardOutput_ ? fileOfStandardOutput() : std::string(); !file.empty()) {
    file_ = files.openForAppending(file);
  } else if (standardOutput_) {
    stream_.emplace(STDOUT_FILENO, kBound);
  } else if (becomesFile(given)) {
    file_ = files.openForAppending(given);
  } else {
    pipe_.emplace(given, O_RDWR | O_NONBLOCK | O_NOCTTY);
    stream_.emplace(pipe_->get(), kBound);
  }
}

bool SamplesOutput::take(std::string_view lines) {
  if (stream_) return stream_->offer(lines);
  if (file_) file_->write(lines);
  return file_ != nullptr;
}

void SamplesOutput::flush() {
  if (stream_) stream_->flush();
}

std::string SamplesOutput::finish() {
  if (!stream_) return {};
  if (standardOutput_)
    stream_->wait();
  else
    stream_->wait(kPipePatience);
  if (const std::size_t lines = stream_->linesKept(); lines > 0)
    return Told::tr("the last {} lines were not taken", lines);
  return {};
}

}  // namespace tarnlog::record
