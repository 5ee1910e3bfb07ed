#pragma once

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QPaintEvent>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

#include "platform/controls/PaintBeat.h"

namespace tarnlog::test {

inline QImage pictureOf(QWidget& widget) { return widget.grab().toImage(); }

/// Of a place of the widget, whatever the screen's pixels.
inline QColor colourAt(const QImage& picture, int x, int y) {
  return picture.pixelColor((QPointF(x, y) * picture.devicePixelRatio()).toPoint());
}

/// Calls `see(colour, row)` for every pixel, row by row.
template <class See>
void eachPixel(const QImage& picture, See see) {
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) see(picture.pixelColor(x, y), y);
}

inline int countOf(const QColor& colour, const QImage& picture) {
  int count = 0;
  eachPixel(picture, [&](const QColor& pixel, int) { count += pixel == colour; });
  return count;
}

/// What of a widget was painted.
class PaintSpy : public QObject {
 public:
  explicit PaintSpy(QWidget& widget) { widget.installEventFilter(this); }
  int times = 0;
  QRegion painted;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    ++times;
    painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

/// Has the screen show pictures, with what was asked for until now.
inline void showPictures(QWidget& window, int count) {
  for (int i = 0; i < count; ++i) {
    QTimerEvent picture(0);
    QApplication::sendEvent(PaintBeat::of(window.screen()), &picture);
    QEvent now(QEvent::UpdateRequest);
    QApplication::sendEvent(&window, &now);
  }
}

}  // namespace tarnlog::test
