#pragma once

#include <QList>

class QAction;
class QPoint;
class QWidget;

namespace tarnlog {

/// A menu of these actions, named after its owner, at this place of the screen. It does not wait for a
/// choice: a tick of the acquisition may be waiting for the event that asks for it.
void popUpMenu(QWidget& owner, const QList<QAction*>& actions, const QPoint& place);

}  // namespace tarnlog
