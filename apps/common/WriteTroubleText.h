#pragma once

#include <string>

#include "platform/files/WriteTrouble.h"

namespace tarnlog {

/// One line for the user.
std::string textOf(const WriteTrouble& trouble);

}  // namespace tarnlog
