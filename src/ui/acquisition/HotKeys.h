#pragma once

#include <QObject>
#include <functional>
#include <utility>

class QKeyEvent;
class QWidget;

namespace tarnlog {

class TarnAcq;

/// Brings Enter and space to the recorder, whichever control has the focus, before the control itself would
/// use them: on a button, too, a key acts once and as it does everywhere else.
class HotKeys : public QObject {
 public:
  HotKeys(TarnAcq& acq, QObject* parent) : QObject(parent), acq_(acq) {}

  void watch(QWidget& control);
  /// The control itself never sees a key, but those that move the focus.
  void swallow(QWidget& control);

  /// Called after the recorder has taken a key.
  void setTaken(std::function<void()> taken) { taken_ = std::move(taken); }

  /// True when the key was one of the recorder's. Keys that repeat while they are held act once.
  bool take(const QKeyEvent& key);

 protected:
  bool eventFilter(QObject* control, QEvent* event) override;

 private:
  TarnAcq& acq_;
  std::function<void()> taken_;
  QWidget* swallowing_ = nullptr;
};

}  // namespace tarnlog
