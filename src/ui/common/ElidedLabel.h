#pragma once

#include <QLabel>

namespace tarnlog {

/// A label that takes the room there is: a text that is too long loses its middle on the screen only, and the
/// tool tip shows the whole.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent = nullptr);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
};

}  // namespace tarnlog
