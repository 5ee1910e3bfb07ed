#pragma once

#include <QLabel>

namespace tarnlog {

/// A line of text that gives way: what does not fit is elided in its middle (of a path the name stays), and
/// the tool tip has it whole.
class ElidedLabel : public QLabel {
  Q_OBJECT
 public:
  using QLabel::QLabel;

  void showText(const QString& text);
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarnlog
