#pragma once

#include <QLabel>

namespace tarnlog {

/// One line that ends with "..." where the room ends; the tool tip then has the whole text.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
};

}  // namespace tarnlog
