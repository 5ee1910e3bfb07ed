#include "ui/common/MenuItems.h"

#include <QMenu>

namespace tarnlog {

QString itemText(QString name) { return name.replace(QLatin1Char('&'), QStringLiteral("&&")); }

QAction* addDeed(QMenu& menu, const QString& text, const char* name, const std::function<void()>& deed) {
  QAction* const action = menu.addAction(text, &menu, deed);
  action->setObjectName(QLatin1String(name));
  return action;
}

QAction* addChoice(QMenu& menu, const QString& text, const char* name, bool checked,
                   const std::function<void(bool)>& choose) {
  QAction* const action = menu.addAction(text);
  action->setObjectName(QLatin1String(name));
  action->setCheckable(true);
  action->setChecked(checked);
  QObject::connect(action, &QAction::triggered, &menu, choose);
  return action;
}

}  // namespace tarnlog
