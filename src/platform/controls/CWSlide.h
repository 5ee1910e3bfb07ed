#pragma once

#include <QColor>
#include <QWidget>
#include <array>
#include <optional>

#include "platform/controls/PaintPacer.h"
#include "platform/plotting/AxisTicks.h"

namespace tarnlog {

/// A bar along an axis, with three pointers: the value (1, a filled bar) and two markers of a range (2 and 3,
/// triangles). Values may lie outside of the axis or be NaN; pointers are drawn at its ends or not at all.
class CWSlide : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString title READ accessibleName WRITE setTitle)
  Q_PROPERTY(double value READ value WRITE setValue)
  Q_PROPERTY(double minimum READ minimum)
  Q_PROPERTY(double maximum READ maximum)

 public:
  explicit CWSlide(QWidget* parent = nullptr);
  void setTitle(const QString& title);
  void setAxisRange(double minimum, double maximum);
  double minimum() const { return axis_.minimum; }
  double maximum() const { return axis_.maximum; }
  double value() const { return pointers_[0].value; }
  void setValue(double value) { setPointerValue(1, value); }
  /// NaN for a pointer that there is not.
  double pointerValue(int pointer) const;
  void setPointerValue(int pointer, double value);
  /// Of pointer 1's bar. A colour that the background would swallow is painted in a near one.
  void setPointerFillColour(int pointer, const QColor& colour);
  /// Of the markers; an invalid colour takes the palette's.
  void setPointerColour(int pointer, const QColor& colour);
  /// A frozen bar goes on showing this moment's pointers; those that are set are shown when it is released.
  void setFrozen(bool frozen);
  bool isFrozen() const { return held_.has_value(); }
  /// A pale bar, for a value that is old; its scale can be read as before.
  void setFaded(bool faded);
  bool isFaded() const { return faded_; }
  /// Of pointer 1 in the picture: the one of the moment when it was frozen.
  double shownValue() const { return shown()[0].value; }
  /// The value that is shown, in the widget's locale: what assistive technology reads.
  QString valueText() const;

  QSize sizeHint() const override { return {240, 32}; }
  QSize minimumSizeHint() const override { return {1, 1}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Pointer {
    double value = 0;
    QColor colour;
    QColor fill;
  };
  using Pointers = std::array<Pointer, 3>;
  const Pointers& shown() const { return held_ ? *held_ : pointers_; }
  Pointer* pointer(int number);
  void repaintWith(QColor& colour, const QColor& wanted);
  double place(double value) const;
  bool hasScale() const;
  AxisTicks scale() const;
  QRect track() const;
  /// What changes with the pointers.
  QRect movingPart() const;
  void paintTrack(QPainter& painter, const QRect& track) const;
  void paintMarker(QPainter& painter, const Pointer& marker, const QRect& track) const;
  void paintScale(QPainter& painter, const QRect& track) const;

  AxisRange axis_;
  Pointers pointers_;
  std::optional<Pointers> held_;
  bool faded_ = false;
  PaintPacer pacer_{this};
};

}  // namespace tarnlog
