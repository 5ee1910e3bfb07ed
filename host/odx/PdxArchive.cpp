#include "host/odx/PdxArchive.h"

#include <zip.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "platform/base/TarnError.h"
#include "platform/files/SystemFileSystem.h"

namespace tarnlog::host {
namespace {

[[noreturn]] void fail(const std::string& path, const std::string& text) {
  throw TarnError(1, "readPdx", path + ": " + text);
}

/// Keeps the documents to what a computer with 4 GB of memory can hold once they are parsed: that grows with
/// their tags more than with their bytes.
class Budget {
 public:
  explicit Budget(std::string path) : path_(std::move(path)) {}

  void takeBytes(std::uint64_t bytes) {
    if (bytes > kMostBytes - bytes_) fail(path_, "has more than 256 MiB of ODX, unpacked");
    bytes_ += bytes;
  }
  void takeTags(std::string_view document) {
    tags_ += std::ranges::count(document, '<');
    if (tags_ > kMostTags) fail(path_, "has more than 8 million XML tags");
  }

 private:
  static constexpr std::uint64_t kMostBytes = std::uint64_t{256} << 20;
  static constexpr std::ptrdiff_t kMostTags = 8'000'000;

  std::string path_;
  std::uint64_t bytes_ = 0;
  std::ptrdiff_t tags_ = 0;
};

struct CloseArchive {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

/// ".odx", ".odx-d", ".ODX-V", ...
bool isOdx(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || name.size() < dot + 4) return false;
  const std::string_view extension = name.substr(dot + 1, 3);
  return std::ranges::equal(extension, std::string_view("odx"),
                            [](char a, char b) { return (a | 0x20) == b; });
}

std::string readEntry(zip_t* archive, zip_uint64_t index, zip_uint64_t size, const std::string& place) {
  const std::unique_ptr<zip_file_t, CloseFile> file(zip_fopen_index(archive, index, 0));
  if (!file) fail(place, zip_strerror(archive));
  std::string bytes(size, '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const zip_int64_t count = zip_fread(file.get(), bytes.data() + filled, bytes.size() - filled);
    if (count <= 0) fail(place, "is damaged");
    filled += static_cast<std::size_t>(count);
  }
  return bytes;
}

std::vector<PdxEntry> readArchive(zip_t* archive, const std::string& path) {
  std::vector<PdxEntry> entries;
  Budget budget(path);
  const zip_int64_t count = zip_get_num_entries(archive, 0);
  for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
    zip_stat_t status;
    if (zip_stat_index(archive, i, 0, &status) != 0 || !isOdx(status.name)) continue;
    budget.takeBytes(status.size);
    entries.push_back({status.name, readEntry(archive, i, status.size, path + ": " + status.name)});
    budget.takeTags(entries.back().bytes);
  }
  if (entries.empty()) fail(path, "expected a container with ODX documents, found none");
  return entries;
}

}  // namespace

std::vector<PdxEntry> readPdx(const std::string& path) {
  return unpackPdx(SystemFileSystem().readAll(path), path);
}

std::vector<PdxEntry> unpackPdx(std::string bytes, const std::string& path) {
  if (!bytes.starts_with("PK")) {
    Budget budget(path);
    budget.takeBytes(bytes.size());
    budget.takeTags(bytes);
    return {{path, std::move(bytes)}};
  }
  zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
  if (source == nullptr) fail(path, "does not fit in memory");
  const std::unique_ptr<zip_t, CloseArchive> archive(zip_open_from_source(source, ZIP_RDONLY, nullptr));
  if (!archive) {
    zip_source_free(source);
    fail(path, "expected a PDX container (ZIP), which this is not");
  }
  return readArchive(archive.get(), path);
}

}  // namespace tarnlog::host
