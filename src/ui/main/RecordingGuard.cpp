#include "ui/main/RecordingGuard.h"

#include <QPointer>
#include <QWidget>
#include <utility>

#include "ui/main/EndQuestion.h"

namespace tarnlog {

namespace {

constexpr int kLookAgain = 50;  // ms

}  // namespace

RecordingGuard::RecordingGuard(EndQuestion* question, Running running, QWidget* parent)
    : QObject(parent), question_(question), running_(std::move(running)), parent_(parent) {}

RecordingGuard::~RecordingGuard() {
  if (timer_ != 0) question_->withdraw();
}

void RecordingGuard::whenMayEnd(std::function<void()> action) {
  if (question_ == nullptr || !running_()) {
    withdraw();
    return action();
  }
  waiting_ = std::move(action);
  recording_ = running_();
  if (timer_ != 0) return;
  timer_ = startTimer(kLookAgain);
  question_->ask(parent_, [guard = QPointer(this), number = ++asked_](bool end) {
    if (guard != nullptr && guard->timer_ != 0 && guard->asked_ == number) guard->take(end);
  });
}

void RecordingGuard::take(bool end) {
  killTimer(std::exchange(timer_, 0));
  const auto action = std::exchange(waiting_, nullptr);
  if (end) action();
}

void RecordingGuard::withdraw() {
  if (timer_ == 0) return;
  take(false);
  question_->withdraw();
}

void RecordingGuard::timerEvent(QTimerEvent* /*event*/) {
  if (running_() != recording_) withdraw();
}

}  // namespace tarnlog
