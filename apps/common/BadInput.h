#pragma once

#include <stdexcept>

namespace tarnlog {

/// What a program ends with.
enum ExitCode { kDone = 0, kFailed = 1, kBadInput = 2, kNoDisplay = 3 };

/// The user gave something that cannot be used; the text says what and what was expected.
class BadInput : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tarnlog
