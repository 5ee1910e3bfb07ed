#pragma once

#include <string>

namespace tarnlog {

/// Whether both links need a thing that only one of them can have at a time: the same serial port, or the
/// same adapter or gateway on the network. Links are given as the user writes them; one that `openLink` would
/// refuse needs nothing.
bool shareAddress(const std::string& link, const std::string& other);

}  // namespace tarnlog
