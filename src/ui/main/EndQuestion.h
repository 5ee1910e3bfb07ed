#pragma once

#include <functional>

class QWidget;

namespace tarnlog {

/// Whether a recording that runs may end. A host that asks its user stands behind it.
class EndQuestion {
 public:
  virtual ~EndQuestion() = default;
  /// Returns without waiting for the answer: the recording goes on meanwhile, and a request may be under way.
  /// The answer may come before this returns, and is taken once.
  virtual void ask(QWidget* parent, std::function<void(bool end)> answer) = 0;
  /// The recording has ended by itself: the answer is not wanted any longer.
  virtual void withdraw() = 0;
};

}  // namespace tarnlog
