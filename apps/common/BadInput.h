#pragma once

#include <stdexcept>

#include "platform/base/TarnError.h"

namespace tarnlog {

/// What a program ends with.
enum ExitCode { kDone = 0, kFailed = 1, kBadInput = 2, kNoDisplay = 3 };

/// The user gave something that cannot be used; the text says what and what was expected.
class BadInput : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a program ends with after this failure.
inline ExitCode exitCodeAfter(const std::exception& error) {
  const bool input =
      dynamic_cast<const BadInput*>(&error) != nullptr || dynamic_cast<const TarnError*>(&error) != nullptr;
  return input ? kBadInput : kFailed;
}

}  // namespace tarnlog
