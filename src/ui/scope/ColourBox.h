#pragma once

#include <QAbstractButton>
#include <QColor>

namespace tarnlog {

/// A box full of one colour; a click, or the space key, asks for another.
class ColourBox : public QAbstractButton {
  Q_OBJECT

 public:
  explicit ColourBox(QWidget* parent = nullptr);
  void setColour(const QColor& colour);
  const QColor& colour() const { return colour_; }
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QColor colour_ = Qt::black;
};

}  // namespace tarnlog
