#include "ui/acquisition/ValueListView.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <cmath>

#include "ui/acquisition/ValueListModel.h"
#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr int kRowPadding = 3;  ///< pixels above and below the text, so that eyes find the row

class RoomyRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * kRowPadding);
  }
};

}  // namespace

ValueListView::ValueListView(QWidget* parent) : QTreeView(parent) {
  setObjectName("LVvisuText");
  setAccessibleName(tr("Live values"));
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setItemDelegate(new RoomyRows(this));
  setAlternatingRowColors(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ExtendedSelection);
  header()->setSectionsMovable(false);
  header()->setMinimumSectionSize(8);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(header(), &QHeaderView::sectionResized, this, [this](int column) {
    // The last one takes what is left, at any time; it has no edge to drag.
    if (!applying_ && column != ValueListModel::kUnit) leaveToUser();
  });
}

/// Columns that the user makes wider may leave the list.
void ValueListView::leaveToUser() {
  dragged_ = true;
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void ValueListView::rebuildColumns() {
  dragged_ = false;
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  applyWidths();
}

void ValueListView::applyWidths() {
  const Twips seventh = std::floor(toTwips(viewport()->width()) / 7);
  const QScopedValueRollback applying(applying_, true);
  setColumnWidth(ValueListModel::kData, toPixels(seventh * 4 - 6));
  setColumnWidth(ValueListModel::kValue, toPixels(seventh * 2));
}

void ValueListView::resizeEvent(QResizeEvent* event) {
  {
    // A scroll bar that comes or goes resizes the list once more inside.
    const QScopedValueRollback applying(applying_, true);
    QTreeView::resizeEvent(event);
  }
  if (!dragged_) applyWidths();
}

void ValueListView::dataChanged(const QModelIndex& first, const QModelIndex& last,
                                const QList<int>& /*roles*/) {
  if (!isVisible()) return;
  const QRect changed = visualRect(first).united(visualRect(last));
  if (changed.intersects(viewport()->rect())) pacer_.request(changed);
}

}  // namespace tarnlog
