#pragma once

#include <deque>
#include <string>
#include <vector>

#include "ui/common/Convert.h"
#include "ui/common/Dialogs.h"

namespace tarnlog::test {

/// A user whose answers are known beforehand; an unexpected question is cancelled.
class ScriptedDialogs : public Dialogs {
 public:
  std::deque<QString> filesToOpen;
  std::deque<QString> filesToSave;
  std::deque<Changed> decisions;
  std::deque<Incomplete> places;
  std::vector<std::string> asked;  ///< every question and message in turn

  std::optional<QString> fileToOpen(QWidget*, const FileQuestion& question) override {
    return answer(filesToOpen, "open " + question.filter);
  }
  std::optional<QString> fileToSave(QWidget*, const FileQuestion& question) override {
    return answer(filesToSave, "save " + question.proposed);
  }
  void error(QWidget*, const QString& title, const QString& text) override {
    asked.push_back(fromQString(title + ": " + text));
  }
  Changed changedWork(QWidget*, const QString& what) override {
    return answer(decisions, "changed " + what).value_or(Changed::Cancel);
  }
  Incomplete incompleteWork(QWidget*, const QString& what) override {
    return answer(places, "incomplete " + what).value_or(Incomplete::Cancel);
  }

 private:
  template <class T>
  std::optional<T> answer(std::deque<T>& answers, const QString& question) {
    asked.push_back(fromQString(question));
    if (answers.empty()) return std::nullopt;
    T given = answers.front();
    answers.pop_front();
    return given;
  }
};

}  // namespace tarnlog::test
