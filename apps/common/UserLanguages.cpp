#include "apps/common/UserLanguages.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/text/TakeUntil.h"

namespace tarnlog {

namespace {

namespace fs = std::filesystem;

std::string_view valueOf(const Environment& environment, const char* name) {
  const char* const value = environment(name);
  return value == nullptr ? std::string_view() : std::string_view(value);
}

std::string_view localeOf(const Environment& environment) {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"})
    if (const auto value = valueOf(environment, name); !value.empty()) return value;
  return {};
}

/// Without the coding: "C.UTF-8" has no language either.
std::string_view nameOf(std::string_view locale) { return locale.substr(0, locale.find_first_of(".@")); }

bool hasLanguage(std::string_view locale) {
  const std::string_view name = nameOf(locale);
  return !name.empty() && name != "C" && name != "POSIX";
}

/// It becomes part of a path.
bool isName(std::string_view language) {
  return !language.empty() && std::ranges::all_of(language, [](unsigned char c) {
    return std::isalnum(c) != 0 || c == '_' || c == '-';
  });
}

void add(std::vector<std::string>& languages, std::string_view locale) {
  const std::string_view name = nameOf(locale);
  for (const std::string_view each : {name, name.substr(0, name.find('_'))})
    if (isName(each) && std::ranges::find(languages, each) == languages.end()) languages.emplace_back(each);
}

bool isEnglish(std::string_view language) { return language.substr(0, language.find('_')) == "en"; }

}  // namespace

std::vector<std::string> userLanguages(const Environment& environment) {
  const std::string_view locale = localeOf(environment);
  std::vector<std::string> languages;
  if (!hasLanguage(locale)) return languages;
  std::string_view list = valueOf(environment, "LANGUAGE");
  while (!list.empty()) add(languages, takeUntil(list, ':'));
  if (languages.empty()) add(languages, locale);
  return languages;
}

std::vector<std::string> userLanguages() {
  return userLanguages([](const char* name) { return std::getenv(name); });
}

std::optional<std::string> languageWithTexts(const std::vector<std::string>& languages,
                                             const std::string& folder, const std::string& name,
                                             const std::string& suffix) {
  const std::string beginning = folder + "/" + name + "_";
  for (const std::string& language : languages) {
    if (isEnglish(language)) return std::nullopt;
    fs::path file = beginning;
    file += language;
    file += suffix;
    std::error_code none;
    if (fs::exists(file, none)) return language;
  }
  return std::nullopt;
}

std::string translationsFolder(const std::string& fromProgram, const std::string& built) {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  const fs::path installed = (program.parent_path() / fromProgram).lexically_normal();
  return !error && fs::is_directory(installed, error) ? installed.string() : built;
}

}  // namespace tarnlog
