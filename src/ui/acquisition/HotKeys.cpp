#include "ui/acquisition/HotKeys.h"

#include <QKeyEvent>
#include <QWidget>

#include "acquisition/TarnAcq.h"

namespace tarnlog {

namespace {

constexpr int kNone = 0;
constexpr int kEnter = 13;
constexpr int kSpace = 32;

int codeOf(const QKeyEvent& key) {
  if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return kNone;
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return kEnter;
  return key.key() == Qt::Key_Space ? kSpace : kNone;
}

bool movesFocus(const QKeyEvent& key) { return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab; }

}  // namespace

void HotKeys::watch(QWidget& control) { control.installEventFilter(this); }

void HotKeys::swallow(QWidget& control) {
  watch(control);
  swallowing_ = &control;
}

bool HotKeys::take(const QKeyEvent& key) {
  const int code = codeOf(key);
  if (code == kNone) return false;
  if (key.isAutoRepeat()) return true;
  const bool taken = acq_.HandleHotKey(code);
  if (taken && taken_) taken_();
  return taken;
}

bool HotKeys::eventFilter(QObject* control, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(control, event);
  const auto& key = static_cast<QKeyEvent&>(*event);
  return take(key) || (control == swallowing_ && !movesFocus(key));
}

}  // namespace tarnlog
