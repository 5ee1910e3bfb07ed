#include "apps/tarnlog/RecentMenu.h"

#include <QCoreApplication>
#include <QMenu>

#include "ui/common/Convert.h"
#include "ui/common/MenuItems.h"
#include "ui/main/RecentFiles.h"

namespace tarnlog {

QMenu* addRecentMenu(QMenu& menu, const QString& title, const RecentFiles& files,
                     const std::function<void(const QString& path)>& open) {
  QMenu* const recent = menu.addMenu(title);
  QObject::connect(recent, &QMenu::aboutToShow, recent, [recent, &files, open] {
    recent->clear();
    for (const std::string& path : files.paths())
      recent->addAction(itemText(toQString(path)), [open, path = toQString(path)] { open(path); });
    if (recent->isEmpty())
      recent->addAction(QCoreApplication::translate("RecentMenu", "(none)"))->setEnabled(false);
  });
  return recent;
}

}  // namespace tarnlog
