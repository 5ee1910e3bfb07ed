#include "ui/select/SelectedDataModel.h"

#include <algorithm>

#include "ui/common/Convert.h"
#include "ui/select/DataToolTip.h"
#include "ui/select/DragPayload.h"

namespace tarnlog {

namespace {

struct Column {
  const char* text;
  const char* key;
  CatalogueImage image;
  std::string SelectedRow::*content;
};

const Column kColumns[] = {
    {QT_TRANSLATE_NOOP("tarnlog::SelectedDataModel", "Data"), "data", CatalogueImage::data,
     &SelectedRow::data},
    {QT_TRANSLATE_NOOP("tarnlog::SelectedDataModel", "Request"), "request", CatalogueImage::request,
     &SelectedRow::request},
    {QT_TRANSLATE_NOOP("tarnlog::SelectedDataModel", "ECU"), "UCE", CatalogueImage::ecu, &SelectedRow::ecu},
    {QT_TRANSLATE_NOOP("tarnlog::SelectedDataModel", "Device"), "Device", CatalogueImage::device,
     &SelectedRow::device},
};

}  // namespace

SelectedDataModel::SelectedDataModel(SelectionRules& rules, const CatalogueModel& catalogue, QObject* parent)
    : DraggedModel(parent), rules_(rules), catalogue_(catalogue) {
  findVisible();
}

void SelectedDataModel::change(const std::function<void()>& operation) {
  beginResetModel();
  operation();
  findVisible();
  endResetModel();
}

void SelectedDataModel::setFilter(const QString& text) {
  change([&] { filter_ = text; });
}

void SelectedDataModel::findVisible() {
  visible_.clear();
  const std::string words = fromQString(filter_);
  for (std::size_t row = 0; row < rules_.rows().size(); ++row)
    if (!filtering() || CatalogueSearch::matches(rules_.rows()[row].element, words)) visible_.push_back(row);
}

std::size_t SelectedDataModel::rowOf(const QModelIndex& index) const {
  return index.isValid() ? visible_[static_cast<std::size_t>(index.row())] : SelectionRules::kNoRow;
}

QModelIndex SelectedDataModel::indexOf(std::size_t row) const {
  const auto found = std::lower_bound(visible_.begin(), visible_.end(), row);
  if (found == visible_.end() || *found != row) return {};
  return createIndex(static_cast<int>(found - visible_.begin()), 0);
}

QModelIndex SelectedDataModel::indexFrom(std::size_t row) const {
  if (visible_.empty()) return {};
  const auto found = std::lower_bound(visible_.begin(), visible_.end(), row);
  return indexOf(found == visible_.end() ? visible_.back() : *found);
}

std::vector<std::size_t> SelectedDataModel::rowsOf(const QModelIndexList& indexes) const {
  std::vector<std::size_t> rows;
  for (const QModelIndex& index : indexes)
    if (index.column() == 0) rows.push_back(rowOf(index));
  return rows;
}

int SelectedDataModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(visible_.size());
}

int SelectedDataModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(std::size(kColumns));
}

QVariant SelectedDataModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const SelectedRow& row = rules_.rows()[rowOf(index)];
  if (role == Qt::DisplayRole) return toQString(row.*kColumns[index.column()].content);
  if (role == Qt::DecorationRole && index.column() == 0) return icons_.of(dataImage(row.element));
  if (role == Qt::ToolTipRole) return DataToolTip::ofData(row.element);
  return {};
}

QVariant SelectedDataModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const Column& column = kColumns[section];
  if (role == Qt::DisplayRole) return tr(column.text);
  if (role == Qt::DecorationRole) return icons_.of(column.image);
  if (role == Qt::UserRole) return QString(column.key);
  if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
  return {};
}

Qt::ItemFlags SelectedDataModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::ItemIsDropEnabled;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

// --- drag and drop

QMimeData* SelectedDataModel::mimeData(const QModelIndexList& indexes) const {
  QStringList rows;
  for (const std::size_t row : rowsOf(indexes)) rows << QString::number(row);
  return rows.isEmpty() ? nullptr : dragPayload(kDraggedRows, &rules_, rows);
}

bool SelectedDataModel::canDropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int /*row*/,
                                        int /*column*/, const QModelIndex& /*parent*/) const {
  return draggedEntries(data, kDraggedNodes, &rules_) || draggedEntries(data, kDraggedRows, &rules_);
}

bool SelectedDataModel::dropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int row,
                                     int /*column*/, const QModelIndex& parent) {
  if (row < 0 && parent.isValid()) row = parent.row();
  const std::size_t before = row < 0 ? SelectionRules::kNoRow : rowOf(index(row, 0));
  if (const auto nodes = catalogue_.dragged(data)) {
    emit nodesDropped(*nodes, before);
    return true;
  }
  if (const auto rows = draggedRows(data, &rules_)) {
    emit rowsDropped(*rows, before);
    return true;
  }
  return false;
}

}  // namespace tarnlog
