#include "ui/acquisition/LogList.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QStringList>

#include "ui/common/PopUpMenu.h"

namespace tarnlog {

LogList::LogList(QWidget* parent) : QListWidget(parent) {
  setObjectName("log");
  setAccessibleName(tr("Acquisition log"));
  setSelectionMode(ExtendedSelection);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);

  auto* const copy = new QAction(tr("Copy"), this);
  copy->setShortcut(QKeySequence::Copy);
  auto* const selectEverything = new QAction(tr("Select all"), this);
  selectEverything->setShortcut(QKeySequence::SelectAll);
  for (QAction* const action : {copy, selectEverything}) {
    action->setShortcutContext(Qt::WidgetShortcut);
    addAction(action);
  }
  connect(copy, &QAction::triggered, this, &LogList::copySelected);
  connect(selectEverything, &QAction::triggered, this, &LogList::selectAll);
}

void LogList::appendLine(const QString& line) {
  auto* const item = new QListWidgetItem(line, this);
  item->setToolTip(line);
  // As wide as the list, so that the text is elided.
  item->setSizeHint({0, fontMetrics().height() + 2});
  scrollToItem(item, PositionAtTop);
}

void LogList::copySelected() const {
  QStringList lines;
  for (int row = 0; row < count(); ++row)
    if (item(row)->isSelected()) lines << item(row)->text();
  if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines.join('\n'));
}

void LogList::contextMenuEvent(QContextMenuEvent* event) { popUpMenu(*this, actions(), event->globalPos()); }

}  // namespace tarnlog
