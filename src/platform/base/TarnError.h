#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace tarnlog {

/// A failure that is raised to the caller: a number (1 where the recorder raises its own), the component and
/// operation that failed, and a text for the user.
class TarnError : public std::exception {
 public:
  TarnError(std::int32_t number, std::string source, std::string description)
      : number_(number), source_(std::move(source)), description_(std::move(description)) {}

  std::int32_t number() const { return number_; }
  const std::string& source() const { return source_; }
  const std::string& description() const { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
};

/// Runs a step whose failure changes nothing for the caller; false when it failed. Where a failure is
/// skipped, this says so; where it is turned into something else, a `catch` does.
template <class Step>
bool skipOnFailure(Step&& step) noexcept {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace tarnlog
