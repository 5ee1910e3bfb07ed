#pragma once

#include <QString>
#include <functional>

class QAction;
class QMenu;

/// What stands in a menu.
namespace tarnlog {

/// A name as a menu shows it: its "&" is no mark of a key.
QString itemText(QString name);
/// `name` is for those who look for the item.
QAction* addDeed(QMenu& menu, const QString& text, const char* name, const std::function<void()>& deed);
/// With a check mark.
QAction* addChoice(QMenu& menu, const QString& text, const char* name, bool checked,
                   const std::function<void(bool)>& choose);

}  // namespace tarnlog
