#include "ui/common/Notice.h"

#include <QHBoxLayout>
#include <QStyle>

#include "ui/common/Icons.h"

namespace tarnlog {

Notice::Notice(QWidget* parent) : QWidget(parent), text_(new QLabel) {
  const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
  auto* const sign = new QLabel;
  sign->setPixmap(tarnIcon("warning").pixmap(QSize(side, side), devicePixelRatioF()));
  sign->setAlignment(Qt::AlignTop);
  text_->setWordWrap(true);
  text_->setTextFormat(Qt::PlainText);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(sign);
  row->addWidget(text_, 1);
  hide();
}

void Notice::setText(const QString& text) {
  text_->setText(text);
  setAccessibleName(text);
  setVisible(!text.isEmpty());
}

}  // namespace tarnlog
