#include "ui/acquisition/ListActions.h"

#include <QAction>
#include <utility>

#include "ui/acquisition/ValueListView.h"
#include "ui/common/PopUpMenu.h"

namespace tarnlog {

ListActions::ListActions(ValueListView& list) : list_(list) {
  const auto separator = [&] {
    auto* const line = new QAction(&list_);
    line->setSeparator(true);
    return line;
  };
  rows_ = {add(tr("Copy"), [&] { list_.copySelected(); }, {QKeySequence::Copy}),
           add(tr("Select all"), [&] { list_.selectAll(); }, {QKeySequence::SelectAll}), separator()};
  for (QAction* const action : std::as_const(rows_)) action->setShortcutContext(Qt::WidgetShortcut);
  list_.addActions(rows_);

  reset_ = add(tr("Reset minimum and maximum"), [&] { emit list_.resetAsked(); });
  zoom_ = {add(tr("Larger"), [&] { list_.zoomIn(); }, {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}),
           add(tr("Smaller"), [&] { list_.zoomOut(); }, {Qt::CTRL | Qt::Key_Minus}),
           add(tr("Usual size"), [&] { list_.resetZoom(); }, {Qt::CTRL | Qt::Key_0})};
  for (QAction* const action : std::as_const(zoom_))
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  columns_ = {addSwitch(tr("Minimum"), ListChoices::kMinimum),
              addSwitch(tr("Maximum"), ListChoices::kMaximum),
              reset_,
              separator(),
              addSwitch(tr("Values near their names"), ListChoices::kNearNames),
              separator()};
  columns_ += zoom_;
  showReset();
}

QAction* ListActions::add(const QString& text, std::function<void()> act, const QList<QKeySequence>& keys) {
  auto* const action = new QAction(text, &list_);
  action->setShortcuts(keys);
  QObject::connect(action, &QAction::triggered, &list_, [act = std::move(act)] { act(); });
  return action;
}

QAction* ListActions::addSwitch(const QString& text, ListChoices::Switch choice) {
  auto* const action = new QAction(text, &list_);
  action->setCheckable(true);
  action->setChecked(list_.choices().isOn(choice));
  QObject::connect(action, &QAction::toggled, &list_, [this, choice](bool on) {
    list_.choose(choice, on);
    showReset();
  });
  return action;
}

void ListActions::showReset() {
  const ListChoices& choices = list_.choices();
  reset_->setEnabled(choices.isOn(ListChoices::kMinimum) || choices.isOn(ListChoices::kMaximum));
}

void ListActions::popUpForRows(const QPoint& place) const { popUpMenu(list_, rows_ + columns_, place); }

void ListActions::popUpForColumns(const QPoint& place) const { popUpMenu(list_, columns_, place); }

}  // namespace tarnlog
