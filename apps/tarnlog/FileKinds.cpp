#include "apps/tarnlog/FileKinds.h"

#include <algorithm>
#include <filesystem>

#include "config/RecordMark.h"

namespace tarnlog {

namespace {

/// ".xml" of "drive.XML".
std::string suffixOf(const std::string& path) {
  std::string suffix = std::filesystem::path(path).extension().string();
  std::ranges::transform(suffix, suffix.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return suffix;
}

}  // namespace

FileKinds sortedByKind(const std::vector<std::string>& paths, const FileSystem& files) {
  FileKinds kinds;
  for (const std::string& path : paths) {
    const std::string suffix = suffixOf(path);
    const bool xml = suffix == ".xml";
    if (suffix == ".txt" || suffix == ".csv" || suffix == ".mf4" || (xml && isRecordFile(files, path)))
      kinds.records.push_back(path);
    else if (xml)
      kinds.configurations.push_back(path);
    else
      kinds.others.push_back(path);
  }
  return kinds;
}

}  // namespace tarnlog
