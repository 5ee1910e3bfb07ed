#pragma once

namespace tarnlog {

/// One visitor made of a function for each alternative of a variant. An alternative without one does not
/// compile.
template <class... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

}  // namespace tarnlog
