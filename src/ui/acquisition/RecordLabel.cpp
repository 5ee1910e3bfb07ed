#include "ui/acquisition/RecordLabel.h"

#include <QMouseEvent>

namespace tarnlog {

void RecordLabel::setPath(const QString& path) {
  path_ = path;
  present(path, lookAt_ != nullptr);
}

void RecordLabel::setNotice(const QString& text) {
  path_.clear();
  present(text, false);
}

void RecordLabel::present(const QString& text, bool isLink) {
  setText(text);
  QFont font = this->font();
  font.setUnderline(isLink);
  setFont(font);
  setForegroundRole(isLink ? QPalette::Link : QPalette::WindowText);
  isLink ? setCursor(Qt::PointingHandCursor) : unsetCursor();
  setAccessibleDescription(isLink ? tr("A click looks at this record") : QString());
}

void RecordLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->pos()) && lookAt_ && !path_.isEmpty())
    return lookAt_(path_);
  ElidedLabel::mouseReleaseEvent(event);
}

}  // namespace tarnlog
