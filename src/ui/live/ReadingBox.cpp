#include "ui/live/ReadingBox.h"

#include <QPainter>
#include <algorithm>

#include "platform/controls/Readable.h"

namespace tarnlog {
namespace {

constexpr int kPadding = 5;
constexpr int kSwatch = 8;
constexpr int kGap = 10;  ///< between names and values, and between the box and the pointer

}  // namespace

ReadingBox::ReadingBox(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

QSize ReadingBox::wanted(int mostHeight) const {
  const QFontMetrics metrics = fontMetrics();
  int names = 0;
  int values = 0;
  for (const GraphReading::Row& row : reading_.rows) {
    names = std::max(names, metrics.horizontalAdvance(row.name));
    values = std::max(values, metrics.horizontalAdvance(row.value));
  }
  const int rows = kSwatch + kPadding + names + kGap + values;
  const int lines = static_cast<int>(reading_.rows.size()) + 1;
  return {std::max(rows, metrics.horizontalAdvance(reading_.when)) + 2 * kPadding,
          std::min(lines * metrics.height() + 2 * kPadding, mostHeight)};
}

void ReadingBox::showBeside(const GraphReading& reading, const QPoint& anchor, const QRect& within) {
  reading_ = reading;
  const QSize size = wanted(within.height());
  const bool left = anchor.x() + kGap + size.width() > within.right();
  const int x = left ? anchor.x() - kGap - size.width() : anchor.x() + kGap;
  const int y = std::clamp(anchor.y() - size.height() / 2, within.top(),
                           std::max(within.bottom() + 1 - size.height(), within.top()));
  setGeometry(QRect(QPoint(std::max(x, within.left()), y), size));
  show();
  raise();
  update();
}

void ReadingBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor base = palette().color(QPalette::ToolTipBase);
  const QColor text = palette().color(QPalette::ToolTipText);
  painter.fillRect(rect(), base);
  painter.setPen(blend(base, text, 0.4F));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(text);
  const int line = painter.fontMetrics().height();
  const QRect inside = rect().adjusted(kPadding, kPadding, -kPadding, -kPadding);
  QRect room(inside.left(), inside.top(), inside.width(), line);
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, reading_.when);
  for (const GraphReading::Row& row : reading_.rows) {
    room.translate(0, line);
    if (room.bottom() > inside.bottom()) return;
    if (row.colour.isValid())
      painter.fillRect(room.left(), room.center().y() - kSwatch / 2 + 1, kSwatch, kSwatch, row.colour);
    painter.drawText(room.adjusted(kSwatch + kPadding, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, row.name);
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, row.value);
  }
}

}  // namespace tarnlog
