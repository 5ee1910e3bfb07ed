#pragma once

#include <stdexcept>
#include <string>

namespace tarnlog::host {

/// Why a service or a data item cannot be taken over.
class LeftOut : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tarnlog::host
