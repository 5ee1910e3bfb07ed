#pragma once

#include <QString>
#include <functional>

namespace tarnlog {

/// What there is to read about the program; what it does not have is empty. Given by whoever knows where its
/// files are.
struct Guide {
  std::function<void()> open = {};         ///< shows the user guide, outside of the program
  std::function<QString()> messages = {};  ///< what the messages mean, in Markdown; may raise
};

}  // namespace tarnlog
