#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Which language the user wants to read, and where its texts are.
namespace tarnlog {

/// The value of a variable of the environment; null when it is not set.
using Environment = std::function<const char*(const char* name)>;

/// In the order of preference, each as in "de_CH" and then as in "de". By the rules of gettext: the list in
/// LANGUAGE, else the locale of LC_ALL, LC_MESSAGES or LANG. Empty in the locales C and POSIX.
std::vector<std::string> userLanguages(const Environment& environment);
std::vector<std::string> userLanguages();

/// The first language that there is a file for, "FOLDER/NAME_de.SUFFIX"; none when that is English, which the
/// texts in the code are.
std::optional<std::string> languageWithTexts(const std::vector<std::string>& languages,
                                             const std::string& folder, const std::string& name,
                                             const std::string& suffix);

/// Installed with the program, seen from its folder; else the one it was built with.
std::string translationsFolder(const std::string& fromProgram, const std::string& built);

}  // namespace tarnlog
