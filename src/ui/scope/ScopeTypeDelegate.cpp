#include "ui/scope/ScopeTypeDelegate.h"

#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include "platform/controls/Readable.h"
#include "ui/scope/ReadableColour.h"

namespace tarnlog {

namespace {

/// Empty for an invalid colour: types without one are to begin at the same place.
QPixmap patch(const QColor& colour, const QColor& outline, int size, qreal ratio) {
  QPixmap picture(QSize(size, size) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  if (!colour.isValid()) return picture;
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(outline);
  painter.setBrush(colour);
  painter.drawRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), 2, 2);
  return picture;
}

}  // namespace

void ScopeTypeDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const QPalette palette = option->widget == nullptr ? option->palette : option->widget->palette();
  const QColor colour = index.data(Qt::DecorationRole).value<QColor>();
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  if (colour.isValid()) option->palette.setColor(QPalette::Text, readableOn(base, text, colour));

  const int size = option->fontMetrics.ascent();
  const bool selected = option->state.testFlag(QStyle::State_Selected);
  const QColor outline = selected ? palette.color(QPalette::HighlightedText) : blend(base, text, 0.45F);
  const qreal ratio = option->widget == nullptr ? 1 : option->widget->devicePixelRatioF();
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->decorationSize = {size, size};
  option->icon = QIcon();
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})  // styles tint what they have no picture of
    option->icon.addPixmap(patch(colour, outline, size, ratio), mode);
}

}  // namespace tarnlog
