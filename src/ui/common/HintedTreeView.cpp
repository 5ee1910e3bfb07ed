#include "ui/common/HintedTreeView.h"

#include <QGuiApplication>
#include <QPainter>

namespace tarnlog {

void HintedTreeView::setHint(const QString& hint) {
  hint_ = hint;
  viewport()->update();
}

/// Whoever let go of the button meanwhile drags nothing any more.
void HintedTreeView::startDrag(Qt::DropActions actions) {
  if (!dragRule_) return QTreeView::startDrag(actions);
  dragRule_([this, actions] {
    if ((QGuiApplication::mouseButtons() & Qt::LeftButton) != 0) QTreeView::startDrag(actions);
  });
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
