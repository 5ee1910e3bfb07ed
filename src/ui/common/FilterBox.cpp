#include "ui/common/FilterBox.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace tarnlog {

FilterBox::FilterBox(QAbstractItemView& view, QWidget* parent) : QLineEdit(parent), view_(view) {
  setPlaceholderText(tr("Filter"));
  setClearButtonEnabled(true);
}

void FilterBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down) {
    view_.setFocus();
    if (!view_.currentIndex().isValid()) view_.setCurrentIndex(view_.model()->index(0, 0));
  } else if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
    clear();
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

}  // namespace tarnlog
