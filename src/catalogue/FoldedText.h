#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Texts as people look for them: without upper case and without the accents of western European letters, so
/// that "debit" finds "Débit". Texts are UTF-8; a folded text is never longer.
namespace tarnlog {

void appendFolded(std::string& out, std::string_view text);
std::string folded(std::string_view text);

/// Below 0, 0 or above 0 as `a` comes before, with or behind `b` in an alphabetical list.
int compareFolded(std::string_view a, std::string_view b);

/// The first eight folded bytes as one number, which orders texts as compareFolded does unless it is equal.
std::uint64_t foldedPrefix(std::string_view text);

}  // namespace tarnlog
