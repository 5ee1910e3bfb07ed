#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace tarnlog {

/// What can stand in place of the word that is being typed.
struct Candidate {
  std::string word;
  std::string description = {};

  bool operator==(const Candidate&) const = default;
};

/// In place of candidates: file or folder names, which shells know best.
inline constexpr const char* kFiles = ":files";
inline constexpr const char* kFolders = ":folders";

/// Candidates for the last of these words, which follow the program's name, as the options of the program and
/// of its commands allow them; names of data come from the vehicle description or the record that the words
/// name. A car is never asked, and what cannot be read gives nothing. A candidate that goes on ends with one
/// of / : = < >.
std::vector<Candidate> completions(CLI::App& app, const std::vector<std::string>& words);

/// For the scripts of the shells: whether the program was called as "PROGRAM ASKED -- WORDS...". Then the
/// candidates are printed, one a line, with their description behind a tab.
bool printCompletions(CLI::App& app, const char* asked, int argc, const char* const* argv);

}  // namespace tarnlog
