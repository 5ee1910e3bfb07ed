#pragma once

#include <QCoreApplication>
#include <QKeySequence>
#include <QList>
#include <functional>

#include "ui/acquisition/ListChoices.h"

class QAction;
class QPoint;

namespace tarnlog {

class ValueListView;

/// What the user can do with the value list, by key or from its menus. The actions belong to the list.
class ListActions {
  Q_DECLARE_TR_FUNCTIONS(ListActions)
 public:
  explicit ListActions(ValueListView& list);

  /// Their keys act wherever they are added.
  const QList<QAction*>& zoom() const { return zoom_; }

  void popUpForRows(const QPoint& place) const;
  void popUpForColumns(const QPoint& place) const;

 private:
  QAction* add(const QString& text, std::function<void()> act, const QList<QKeySequence>& keys = {});
  QAction* addSwitch(const QString& text, ListChoices::Switch choice);
  void showReset();

  ValueListView& list_;
  QList<QAction*> rows_;
  QList<QAction*> columns_;
  QList<QAction*> zoom_;
  QAction* reset_ = nullptr;
};

}  // namespace tarnlog
