#pragma once

#include <QObject>
#include <functional>

namespace tarnlog {

/// Puts off what must not run inside a request: a click arrives there when the session lets events run, and a
/// dialog opened there would hold up the acquisition until it is answered.
class WhenIdle : public QObject {
  Q_OBJECT
 public:
  /// `busy` tells whether a request is under way.
  WhenIdle(std::function<bool()> busy, QObject* parent);

  /// Runs the action at once, or as soon as no request is under way. An action takes the place of one that
  /// still waits.
  void run(std::function<void()> action);
  /// What still waits is not wanted any longer.
  void drop() { waiting_ = nullptr; }

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  std::function<bool()> busy_;
  std::function<void()> waiting_;
  int timer_ = 0;
};

}  // namespace tarnlog
