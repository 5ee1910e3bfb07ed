#include "ui/common/HintedTreeView.h"

#include <QPainter>

namespace tarnlog {

void HintedTreeView::setHint(const QString& hint) {
  hint_ = hint;
  viewport()->update();
}

void HintedTreeView::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (hint_.isEmpty() || model() == nullptr || model()->rowCount() > 0) return;
  constexpr int kMargin = 12;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                   Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

}  // namespace tarnlog
