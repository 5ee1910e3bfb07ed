#include "ui/common/WheelGuard.h"

#include <QEvent>
#include <QObject>

namespace tarnlog {

namespace {

class WheelGuard : public QObject {
 public:
  enum class Allowed { WithFocus, Never };

  WheelGuard(Allowed allowed, QObject* parent) : QObject(parent), allowed_(allowed) {}
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    if (allowed_ == Allowed::WithFocus && static_cast<QWidget*>(watched)->hasFocus()) return false;
    event->ignore();
    return true;
  }

 private:
  Allowed allowed_;
};

}  // namespace

void changeByWheelOnlyWithFocus(QWidget& input) {
  input.setFocusPolicy(Qt::StrongFocus);
  input.installEventFilter(new WheelGuard(WheelGuard::Allowed::WithFocus, &input));
}

void changeNeverByWheel(QWidget& input) {
  input.installEventFilter(new WheelGuard(WheelGuard::Allowed::Never, &input));
}

}  // namespace tarnlog
