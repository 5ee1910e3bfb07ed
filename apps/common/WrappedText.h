#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnlog {

/// Characters of a UTF-8 text.
std::size_t charactersOf(std::string_view text);

/// The text in lines of at most `width` characters, where its words allow it; all but the first begin with
/// `indent` blanks, which do not count. A line that begins with a blank stays as it is: an example.
std::string wrappedText(std::string_view text, std::size_t width, std::size_t indent = 0);

}  // namespace tarnlog
