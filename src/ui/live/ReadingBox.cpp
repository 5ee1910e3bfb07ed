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

ReadingBox::Widths ReadingBox::widths() const {
  const QFontMetrics metrics = fontMetrics();
  Widths widths;
  for (const QString& title : reading_.columns) widths.values.push_back(metrics.horizontalAdvance(title));
  for (const GraphReading::Row& row : reading_.rows) {
    widths.name = std::max(widths.name, metrics.horizontalAdvance(row.name) + 1);  // measures are rounded
    widths.values.resize(std::max(widths.values.size(), static_cast<std::size_t>(row.values.size())));
    for (std::size_t i = 0; i < widths.values.size() && static_cast<qsizetype>(i) < row.values.size(); ++i)
      widths.values[i] =
          std::max(widths.values[i], metrics.horizontalAdvance(row.values[static_cast<qsizetype>(i)]));
  }
  return widths;
}

/// Where there is less room, names are elided.
QSize ReadingBox::wanted(const QSize& most) {
  Widths& wide = widths_ = widths();
  int row = kSwatch + kPadding + wide.name;
  for (const int value : wide.values) row += kGap + value;
  const int tooWide = std::clamp(row + 2 * kPadding - most.width(), 0, wide.name);
  wide.name -= tooWide;
  row -= tooWide;
  const int lines = static_cast<int>(reading_.rows.size()) + (reading_.columns.isEmpty() ? 1 : 2);
  return {std::max(row, fontMetrics().horizontalAdvance(reading_.when)) + 2 * kPadding,
          std::min(lines * fontMetrics().height() + 2 * kPadding, most.height())};
}

void ReadingBox::showBeside(const GraphReading& reading, const QPoint& anchor, const QRect& within) {
  reading_ = reading;
  const QSize size = wanted(within.size());
  const bool left = anchor.x() + kGap + size.width() > within.right();
  const int x = left ? anchor.x() - kGap - size.width() : anchor.x() + kGap;
  showAt(QPoint(x, anchor.y() - size.height() / 2), size, within);
}

void ReadingBox::showInCorner(const GraphReading& reading, const QRect& within) {
  reading_ = reading;
  const QSize size = wanted(within.size());
  showAt(QPoint(within.right() + 1 - size.width() - kGap, within.top() + kGap), size, within);
}

void ReadingBox::showAt(const QPoint& corner, const QSize& size, const QRect& within) {
  const int y =
      std::clamp(corner.y(), within.top(), std::max(within.bottom() + 1 - size.height(), within.top()));
  setGeometry(QRect(QPoint(std::max(corner.x(), within.left()), y), size));
  setAccessibleName(reading_.text());
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
  if (!reading_.columns.isEmpty()) {
    room.translate(0, line);
    paintValues(painter, room, reading_.columns);
  }
  for (const GraphReading::Row& row : reading_.rows) {
    room.translate(0, line);
    if (room.bottom() > inside.bottom()) return;
    if (row.colour.isValid())
      painter.fillRect(room.left(), room.center().y() - kSwatch / 2 + 1, kSwatch, kSwatch, row.colour);
    painter.drawText(room.adjusted(kSwatch + kPadding, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(row.name, Qt::ElideRight, widths_.name));
    paintValues(painter, room, row.values);
  }
}

/// In their columns, from the right.
void ReadingBox::paintValues(QPainter& painter, QRect room, const QStringList& values) const {
  for (qsizetype i = values.size(); i-- > 0;) {
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, values[i]);
    room.setRight(room.right() - widths_.values[static_cast<std::size_t>(i)] - kGap);
  }
}

}  // namespace tarnlog
