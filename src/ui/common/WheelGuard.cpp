#include "ui/common/WheelGuard.h"

#include <QEvent>
#include <QObject>

namespace tarnlog {

namespace {

class WheelGuard : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
    event->ignore();
    return true;
  }
};

}  // namespace

void changeByWheelOnlyWithFocus(QWidget& input) {
  input.setFocusPolicy(Qt::StrongFocus);
  input.installEventFilter(new WheelGuard(&input));
}

}  // namespace tarnlog
