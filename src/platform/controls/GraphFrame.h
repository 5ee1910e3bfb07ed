#pragma once

#include <QFontMetrics>
#include <QLocale>
#include <QRect>
#include <QStaticText>
#include <cstddef>
#include <vector>

#include "platform/controls/GraphAxis.h"

class QPainter;

namespace tarnlog {

/// What stands around the curves of a graph: border, numbers and captions; and the room that they leave.
class GraphFrame {
 public:
  struct Text {
    QPointF corner;  ///< top left
    QStaticText text;
  };

  void layOut(const QSize& size, const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& x,
              const GraphAxis& y);
  /// The ranges have changed; the room has not.
  void renumber(const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& x, const GraphAxis& y);

  const QRect& plotArea() const { return area_; }
  /// The marks that have a line in the grid, and a number when the axis has numbers. Along Y they stand at
  /// the values that have names, where there are some.
  const AxisTicks& xTicks() const { return xTicks_; }
  const std::vector<double>& yMarks() const { return yMarks_; }
  const std::vector<Text>& texts() const { return texts_; }
  /// In the painter's font and pen; the border in its own colour.
  void paint(QPainter& painter, const QColor& border) const;

 private:
  void numberX(const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& x);
  void markY(const GraphAxis& y, int line);
  QStringList textsY(const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& y, int room) const;
  void numberY(const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& y);
  void write(const QPointF& corner, const QString& text);
  void caption(const QFontMetrics& metrics, const GraphAxis& x, const GraphAxis& y);

  QSize size_;
  QRect area_;
  AxisTicks xTicks_;
  AxisTicks yTicks_;
  std::vector<double> yMarks_;
  bool named_ = false;  ///< the marks along Y
  std::vector<Text> texts_;
  std::size_t written_ = 0;  ///< texts since the numbers began to change
};

}  // namespace tarnlog
