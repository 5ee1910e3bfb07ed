#pragma once

#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

/// Runs the single settings of a build, each of which a control may refuse. A refused setting is either
/// raised to the caller, or skipped so that what follows is still set: `skipFailures` chooses.
class GuardedSteps {
 public:
  void skipFailures(bool skip) { skip_ = skip; }

  template <class Step>
  void run(Step&& step) const {
    if (skip_) {
      skipOnFailure(std::forward<Step>(step));
    } else {
      step();
    }
  }

  /// One setting of a control. A control that could not be made refuses everything.
  template <class Target, class Base, class... Parameters, class... Arguments>
  void set(Target* control, void (Base::*operation)(Parameters...), const Arguments&... arguments) const {
    run([&] { (required(control).*operation)(arguments...); });
  }

  template <class Target>
  static Target& required(Target* control) {
    if (control == nullptr) throw TarnError(91, "ScopeItem.BuildDisplay", "The control could not be created");
    return *control;
  }

 private:
  bool skip_ = false;
};

}  // namespace tarnlog
