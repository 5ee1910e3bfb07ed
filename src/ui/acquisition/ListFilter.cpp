#include "ui/acquisition/ListFilter.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace tarnlog {

namespace {

constexpr int kSpacing = 6;
constexpr int kCharacters = 24;  ///< that it is wide where there is room

}  // namespace

ListFilter::ListFilter(QWidget* parent) : QWidget(parent), box_(new QLineEdit), count_(new QLabel) {
  box_->setObjectName("ListFilter");
  box_->setAccessibleName(tr("Filter the values by name"));
  box_->setPlaceholderText(tr("Filter (Ctrl+F)"));
  box_->setToolTip(tr("Show only values whose name has all these words. Escape shows all."));
  box_->setClearButtonEnabled(true);
  for (QToolButton* const button : box_->findChildren<QToolButton*>())
    button->setAccessibleName(tr("Empty the filter"));
  box_->installEventFilter(this);
  count_->setObjectName("LblFilter");
  count_->hide();

  auto* const line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(kSpacing);
  line->addWidget(box_, 1);
  line->addWidget(count_);
  connect(box_, &QLineEdit::textChanged, this, &ListFilter::changed);
}

void ListFilter::enter(QWidget* from) {
  if (from != box_) before_ = from;
  box_->setFocus(Qt::ShortcutFocusReason);
  box_->selectAll();
}

void ListFilter::setCounts(int shown, int all) {
  count_->setText(tr("%1 of %2", "rows of the list that match").arg(shown).arg(all));
  count_->setVisible(!box_->text().isEmpty());
  box_->setAccessibleDescription(count_->isHidden() ? QString() : count_->text());
}

QSize ListFilter::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kCharacters, box_->sizeHint().height()};
}

/// A shortcut of the same key comes first unless the box says that it takes it.
bool ListFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  if (event->type() == QEvent::KeyPress && take(static_cast<QKeyEvent*>(event)->key())) return true;
  return QWidget::eventFilter(watched, event);
}

bool ListFilter::take(int key) {
  switch (key) {
    case Qt::Key_Escape:
      box_->clear();
      leave();
      return true;
    case Qt::Key_Down:
      before_ = nullptr;
      leave();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return true;
    default:
      return false;
  }
}

void ListFilter::leave() {
  const QPointer<QWidget> before = before_;
  before_ = nullptr;
  if (before != nullptr && before->isVisible())
    before->setFocus(Qt::ShortcutFocusReason);
  else
    emit left();
}

}  // namespace tarnlog
