#include "ui/common/PopUpMenu.h"

#include <QMenu>

namespace tarnlog {

void popUpMenu(QWidget& owner, const QList<QAction*>& actions, const QPoint& place) {
  auto* const menu = new QMenu(&owner);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setAccessibleName(owner.accessibleName());
  menu->addActions(actions);
  menu->popup(place);
}

}  // namespace tarnlog
