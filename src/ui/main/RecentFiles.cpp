#include "ui/main/RecentFiles.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace tarnlog {

RecentFiles::RecentFiles(SettingsStore& settings, std::string name)
    : settings_(&settings), name_(std::move(name)) {}

std::vector<std::string> RecentFiles::paths() const {
  std::vector<std::string> paths;
  std::istringstream lines(settings_.read(name_).value_or(""));
  for (std::string path; std::getline(lines, path) && paths.size() < kMost;)
    if (!path.empty()) paths.push_back(path);
  return paths;
}

void RecentFiles::add(const std::string& path) {
  std::vector<std::string> all = paths();
  all.erase(std::remove(all.begin(), all.end(), path), all.end());
  all.insert(all.begin(), path);
  all.resize(std::min(all.size(), kMost));
  store(all);
}

void RecentFiles::remove(const std::string& path) {
  std::vector<std::string> all = paths();
  all.erase(std::remove(all.begin(), all.end(), path), all.end());
  store(all);
}

void RecentFiles::store(const std::vector<std::string>& paths) {
  std::string text;
  for (const std::string& path : paths) text += path + "\n";
  settings_.write(name_, text);
}

}  // namespace tarnlog
