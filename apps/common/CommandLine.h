#pragma once

#include <string>

namespace CLI {  // NOLINT(readability-identifier-naming): the library's own name
class App;
}

namespace tarnlog {

/// The word of a command line that could not be parsed that is no command or option, and what was probably
/// meant; empty when there is none, and something else is wrong. The parser itself misses what was not given
/// before it looks at what it does not know.
std::string unknownWord(const CLI::App& app, int argc, const char* const* argv);

}  // namespace tarnlog
