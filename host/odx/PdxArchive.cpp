#include "host/odx/PdxArchive.h"

#include <zip.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "platform/base/TarnError.h"
#include "platform/files/SystemFileSystem.h"

namespace tarnlog::host {
namespace {

constexpr zip_uint64_t kMostBytes = zip_uint64_t{512} << 20;
/// A parsed document takes memory by its tags; a real one has 20 bytes and more to each.
constexpr std::ptrdiff_t kMostTags = 32'000'000;

[[noreturn]] void fail(const std::string& path, const std::string& text) {
  throw TarnError(1, "readPdx", path + ": " + text);
}

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
  zip_uint64_t total = 0;
  std::ptrdiff_t tags = 0;
  const zip_int64_t count = zip_get_num_entries(archive, 0);
  for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
    zip_stat_t status;
    if (zip_stat_index(archive, i, 0, &status) != 0 || !isOdx(status.name)) continue;
    if (status.size > kMostBytes - total) fail(path, "is more than 512 MiB unpacked");
    total += status.size;
    entries.push_back({status.name, readEntry(archive, i, status.size, path + ": " + status.name)});
    tags += std::ranges::count(entries.back().bytes, '<');
    if (tags > kMostTags) fail(path, "has more than 32 million XML tags");
  }
  if (entries.empty()) fail(path, "expected a container with ODX documents, found none");
  return entries;
}

}  // namespace

std::vector<PdxEntry> readPdx(const std::string& path) {
  std::string bytes = SystemFileSystem().readAll(path);
  if (!bytes.starts_with("PK")) return {{path, std::move(bytes)}};
  int error = 0;
  const std::unique_ptr<zip_t, CloseArchive> archive(zip_open(path.c_str(), ZIP_RDONLY, &error));
  if (!archive) fail(path, "expected a PDX container (ZIP), which this is not");
  return readArchive(archive.get(), path);
}

}  // namespace tarnlog::host
