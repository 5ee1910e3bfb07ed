#include "platform/settings/FileSettingsStore.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/text/TextEncoding.h"

namespace tarnlog {

namespace {

/// Line breaks would end a value early.
std::string escaped(const std::string& value) {
  std::string out;
  for (const char c : value) {
    if (c == '\\')
      out += "\\\\";
    else if (c == '\n')
      out += "\\n";
    else if (c == '\r')
      out += "\\r";
    else
      out += c;
  }
  return out;
}

std::string unescaped(std::string_view value) {
  std::string out;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      out += value[i];
      continue;
    }
    const char next = value[++i];
    out += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
  }
  return out;
}

}  // namespace

FileSettingsStore::FileSettingsStore(FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)) {}

std::string FileSettingsStore::defaultPath() {
  const char* const config = std::getenv("XDG_CONFIG_HOME");
  const char* const home = std::getenv("HOME");
  const std::string base = config != nullptr && *config != '\0' ? std::string(config)
                           : home != nullptr                    ? joinPath(home, ".config")
                                                                : std::string(".config");
  return joinPath(base, "tarnlog2001/settings");
}

std::map<std::string, std::string> FileSettingsStore::readAll() const {
  std::map<std::string, std::string> values;
  if (!files_.fileExists(path_)) return values;
  const std::string text = files_.readAll(path_);
  if (!isUtf8(text) || text.find('\0') != std::string::npos)
    throw TarnError(1, "Settings", path_ + ": not a settings file, expected lines of Name=value in UTF-8");
  std::size_t number = 0;
  for (std::size_t start = 0; start < text.size(); ++number) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    const std::string_view line = std::string_view(text).substr(start, end - start);
    start = end + 1;
    if (line.empty()) continue;
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
      throw TarnError(1, "Settings",
                      path_ + ", line " + std::to_string(number + 1) + ": expected Name=value");
    values[std::string(line.substr(0, equals))] = unescaped(line.substr(equals + 1));
  }
  return values;
}

std::optional<std::string> FileSettingsStore::read(const std::string& name) const {
  const auto values = readAll();
  const auto found = values.find(name);
  return found == values.end() ? std::nullopt : std::optional(found->second);
}

/// A broken file cannot be read again by anybody: the new value starts it afresh.
void FileSettingsStore::write(const std::string& name, const std::string& value) {
  std::map<std::string, std::string> values;
  skipOnFailure([&] { values = readAll(); });
  values[name] = value;
  std::string text;
  for (const auto& [key, stored] : values) text += key + "=" + escaped(stored) + "\n";
  std::error_code ignored;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), ignored);
  files_.replace(path_, text);
}

}  // namespace tarnlog
