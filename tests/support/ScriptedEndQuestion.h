#pragma once

#include <functional>

#include "ui/main/EndQuestion.h"

namespace tarnlog::test {

/// A host that lets the test answer when it likes.
class ScriptedEndQuestion : public EndQuestion {
 public:
  int asked = 0;
  int withdrawn = 0;
  std::function<void(bool end)> answer;

  void ask(QWidget*, std::function<void(bool end)> given) override {
    ++asked;
    answer = std::move(given);
  }
  void withdraw() override { ++withdrawn; }
};

}  // namespace tarnlog::test
