#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// How many single-character changes lie between two texts.
std::size_t distance(std::string_view a, std::string_view b);

/// The one of these names that was probably meant; empty when none is near.
std::string nearestName(const std::vector<std::string>& names, std::string_view given);

/// Up to five of these names that may have been meant, the nearest first, each once: those that hold the
/// given text, or nearly, whatever their case.
std::vector<std::string> nearNames(const std::vector<std::string>& names, std::string_view given);

/// "; near are:" and these names, a line each; empty without any.
std::string nearNamesText(const std::vector<std::string>& near);

}  // namespace tarnlog
