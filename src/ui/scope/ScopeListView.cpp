#include "ui/scope/ScopeListView.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "ui/scope/ScopeListModel.h"
#include "ui/scope/ScopeTypeDelegate.h"

namespace tarnlog {

namespace {

constexpr int kBorders = 4;

Qt::KeyboardModifiers modifiersOf(const QKeyEvent& event) {
  return event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
}

}  // namespace

ScopeListView::ScopeListView(QWidget* parent) : QTreeView(parent) {
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(ExtendedSelection);
  setTabKeyNavigation(false);
  setTextElideMode(Qt::ElideMiddle);  // names end in what tells them apart, or in their unit
  setItemDelegateForColumn(ScopeListModel::Type, new ScopeTypeDelegate(this));
  header()->setStretchLastSection(false);
  header()->setSectionsMovable(false);
}

void ScopeListView::selectRow(int row) {
  const QModelIndex index = model()->index(row, 0);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(index);
}

std::vector<std::size_t> ScopeListView::selectedRows() const {
  std::vector<std::size_t> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows())
    rows.push_back(static_cast<std::size_t>(index.row()));
  std::sort(rows.begin(), rows.end());
  return rows;
}

void ScopeListView::keyPressEvent(QKeyEvent* event) {
  const bool menuKey = event->key() == Qt::Key_Menu ||
                       (event->key() == Qt::Key_F10 && modifiersOf(*event) == Qt::ShiftModifier);
  if (menuKey) {
    emit menuRequested(menuPlace());
  } else if (!handleArrow(*event)) {
    QTreeView::keyPressEvent(event);
  }
}

bool ScopeListView::handleArrow(const QKeyEvent& event) {
  const bool up = event.key() == Qt::Key_Up;
  if (!up && event.key() != Qt::Key_Down) return false;
  if (modifiersOf(event) == Qt::NoModifier) {
    if (up) {
      emit moveUpRequested();
    } else {
      emit moveDownRequested();
    }
    return true;
  }
  if (modifiersOf(event) != Qt::ControlModifier) return false;
  goToRow(currentIndex().row() + (up ? -1 : 1));
  return true;
}

void ScopeListView::goToRow(int row) {
  if (row >= 0 && row < model()->rowCount()) selectRow(row);
}

void ScopeListView::contextMenuEvent(QContextMenuEvent* event) {
  emit menuRequested(event->reason() == QContextMenuEvent::Keyboard ? menuPlace() : event->globalPos());
}

/// Under the current row when the keyboard asks.
QPoint ScopeListView::menuPlace() const {
  const QRect row = visualRect(currentIndex()) & viewport()->rect();
  return viewport()->mapToGlobal(row.isEmpty() ? QPoint() : row.bottomLeft());
}

void ScopeListView::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  layOutColumns();
}

void ScopeListView::layOutColumns() {
  const int scrollBar = width() - 2 * frameWidth() - viewport()->width();
  header()->resizeSection(ScopeListModel::Data, width() * 30 / 100);
  header()->resizeSection(ScopeListModel::Request, width() * 30 / 100);
  header()->resizeSection(ScopeListModel::Ecu, width() * 20 / 100);
  header()->resizeSection(ScopeListModel::Type, width() * 20 / 100 - kBorders - scrollBar);
}

void ScopeListView::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (model()->rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
                   tr("No data to show yet. Choose some in \"Data selection\"."));
}

}  // namespace tarnlog
