#pragma once

#include <string>

#include "platform/base/TarnError.h"

namespace tarnlog::test {

/// What a step fails with: the error's text; "none" when it does not fail.
template <class Step>
std::string failureOf(Step&& step) {
  try {
    step();
  } catch (const std::exception& error) {
    return error.what();
  }
  return "none";
}

/// The same with number and source: "1 TarnAcq: no session".
template <class Step>
std::string errorOf(Step&& step) {
  try {
    step();
  } catch (const TarnError& error) {
    return std::to_string(error.number()) + " " + error.source() + ": " + error.description();
  }
  return "none";
}

}  // namespace tarnlog::test
