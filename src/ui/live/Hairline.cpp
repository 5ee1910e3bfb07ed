#include "ui/live/Hairline.h"

#include <QPainter>
#include <utility>

#include "platform/controls/Readable.h"

namespace tarnlog {

Hairline::Hairline(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void Hairline::showAt(const QRect& area, int x, std::vector<Dot> dots) {
  x_ = x;
  dots_ = std::move(dots);
  setGeometry(area);
  show();
  raise();
  update();
}

void Hairline::paintEvent(QPaintEvent* /*event*/) {
  constexpr double kRadius = 3;
  QPainter painter(this);
  const QColor base = palette().color(QPalette::Base);
  painter.setPen(blend(base, palette().color(QPalette::Text), 0.6F));
  painter.drawLine(x_, 0, x_, height());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(base, 1));
  for (const Dot& dot : dots_) {
    painter.setBrush(dot.colour);
    painter.drawEllipse(dot.place, kRadius, kRadius);
  }
}

}  // namespace tarnlog
