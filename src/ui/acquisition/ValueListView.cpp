#include "ui/acquisition/ValueListView.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStringList>
#include <QStyledItemDelegate>
#include <algorithm>

#include "platform/text/Cell.h"
#include "ui/acquisition/ListWidths.h"
#include "ui/acquisition/ValueListModel.h"
#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr int kRowPadding = 3;         ///< pixels above and below the text, so that eyes find the row
constexpr int kTextMargin = 12;        ///< pixels in a cell, left and right of its text
constexpr int kUsualValueLength = 14;  ///< digits

class RoomyRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * kRowPadding);
  }
};

}  // namespace

ValueListView::ValueListView(ValueListModel& values, SettingsStore* settings, QWidget* parent)
    : QTreeView(parent), values_(values), choices_(settings), actions_(*this) {
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
  header()->setObjectName("ListHeader");
  header()->setContextMenuPolicy(Qt::CustomContextMenu);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setModel(&values);
  applyZoom();
  showColumns();
  connect(header(), &QHeaderView::sectionResized, this, [this](int column) {
    // A last one that takes what is left, at any time, has no edge to drag.
    const bool stretched = header()->stretchLastSection() && column == values_.columnCount() - 1;
    if (!applying_ && !stretched) leaveToUser();
  });
  connect(header(), &QHeaderView::customContextMenuRequested, this,
          [this](const QPoint& place) { actions_.popUpForColumns(header()->mapToGlobal(place)); });
}

// --- columns

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

void ValueListView::choose(ListChoices::Switch choice, bool on) {
  choices_.setOn(choice, on);
  showColumns();
  rebuildColumns();
}

void ValueListView::showColumns() {
  const QScopedValueRollback applying(applying_, true);
  values_.setColumn(ValueListModel::kMinimum, choices_.isOn(ListChoices::kMinimum));
  values_.setColumn(ValueListModel::kMaximum, choices_.isOn(ListChoices::kMaximum));
}

void ValueListView::applyWidths() {
  const int columns = values_.columnCount();
  const bool near = choices_.isOn(ListChoices::kNearNames);
  ListWidths widths = ListWidths::byParts(toTwips(viewport()->width()), columns - ValueListModel::kUnit - 1);
  if (near) {
    const int usualValue = kUsualValueLength * fontMetrics().horizontalAdvance('0');
    widths = widths.near(toTwips(longestName_ + kTextMargin), toTwips(usualValue + kTextMargin));
  }
  const QScopedValueRollback applying(applying_, true);
  header()->setStretchLastSection(!near);
  setColumnWidth(ValueListModel::kData, toPixels(widths.name));
  setColumnWidth(ValueListModel::kValue, toPixels(widths.value));
  // Rounded down, so that all of them fit. A last one that takes the rest is never narrower than it was told.
  for (int column = ValueListModel::kUnit; column < columns; ++column) {
    const Twips width = column == ValueListModel::kUnit ? widths.unit : widths.value;
    setColumnWidth(column, static_cast<int>(width / kTwipsPerPixel));
  }
}

void ValueListView::resizeEvent(QResizeEvent* event) {
  {
    // A scroll bar that comes or goes resizes the list once more inside.
    const QScopedValueRollback applying(applying_, true);
    QTreeView::resizeEvent(event);
  }
  if (!dragged_) applyWidths();
}

// --- zoom

void ValueListView::zoomIn() {
  choices_.zoomIn();
  applyZoom();
}

void ValueListView::zoomOut() {
  choices_.zoomOut();
  applyZoom();
}

void ValueListView::resetZoom() {
  choices_.resetZoom();
  applyZoom();
}

void ValueListView::applyZoom() {
  QFont zoomed;  // says nothing: all is the parent's
  const QFont usual = parentWidget() == nullptr ? QGuiApplication::font() : parentWidget()->font();
  if (choices_.zoom() != 100) {
    if (usual.pointSizeF() > 0)
      zoomed.setPointSizeF(usual.pointSizeF() * choices_.zoom() / 100);
    else
      zoomed.setPixelSize(std::max(usual.pixelSize() * choices_.zoom() / 100, 1));
  }
  setFont(zoomed);
  longestName_ = 0;
  for (int row = 0; row < values_.rowCount(); ++row) measureName(row);
  if (!dragged_) applyWidths();
}

// --- rows

void ValueListView::reset() {
  QTreeView::reset();
  shown_ = longestName_ = 0;
  emit filtered(0, 0);
}

void ValueListView::rowsInserted(const QModelIndex& parent, int first, int last) {
  QTreeView::rowsInserted(parent, first, last);
  const int longest = longestName_;
  for (int row = first; row <= last; ++row) {
    filterRow(row);
    measureName(row);
  }
  if (longestName_ != longest && !dragged_ && choices_.isOn(ListChoices::kNearNames)) applyWidths();
  emit filtered(shown_, values_.rowCount());
}

void ValueListView::filterRow(int row) {
  const bool hidden = !filter_.matches(values_.name(row));
  if (!hidden) ++shown_;
  if (hidden != isRowHidden(row, {})) setRowHidden(row, {}, hidden);
}

void ValueListView::measureName(int row) {
  longestName_ = std::max(longestName_, fontMetrics().horizontalAdvance(toQString(values_.name(row))));
}

void ValueListView::setFilter(const QString& text) {
  filter_.setText(fromQString(text));
  shown_ = 0;
  for (int row = 0; row < values_.rowCount(); ++row) filterRow(row);
  emit filtered(shown_, values_.rowCount());
}

void ValueListView::copySelected() const {
  QStringList lines;
  for (int row = 0; row < values_.rowCount(); ++row)
    if (!isRowHidden(row, {}) && isRowSelected(row)) lines << copied(row);
  if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines.join('\n'));
}

/// A column that came after the selection is not in it.
bool ValueListView::isRowSelected(int row) const {
  return selectionModel()->isSelected(values_.index(row, ValueListModel::kData));
}

QString ValueListView::copied(int row) const {
  QStringList cells;
  for (const int column : {ValueListModel::kData, ValueListModel::kValue, ValueListModel::kUnit})
    cells << toQString(cleanCell(fromQString(values_.index(row, column).data().toString())));
  return cells.join('\t');
}

void ValueListView::contextMenuEvent(QContextMenuEvent* event) { actions_.popUpForRows(event->globalPos()); }

/// A range of rows may begin or end with one that is not seen.
void ValueListView::dataChanged(const QModelIndex& first, const QModelIndex& last,
                                const QList<int>& /*roles*/) {
  if (!isVisible()) return;
  if (first.row() != last.row()) return pacer_.request(viewport()->rect());
  const QRect changed = visualRect(first).united(visualRect(last));
  if (changed.intersects(viewport()->rect())) pacer_.request(changed);
}

}  // namespace tarnlog
