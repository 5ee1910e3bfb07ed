#include "ui/scope/ScopeListModel.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "ui/common/Convert.h"
#include "ui/scope/ScopeTexts.h"

namespace tarnlog {

void ScopeListModel::setRows(std::vector<ScopeRow> rows) {
  const bool same = std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(),
                               [](const ScopeRow& a, const ScopeRow& b) { return a.key == b.key; });
  if (!same) beginResetModel();
  rows_ = std::move(rows);
  if (!same) return endResetModel();
  if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void ScopeListModel::setRow(int row, ScopeRow content) {
  if (row < 0 || row >= rowCount()) return;
  rows_[static_cast<std::size_t>(row)] = std::move(content);
  emit dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

int ScopeListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ScopeListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant ScopeListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const ScopeRow& row = rows_[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole) return text(row, index.column());
  if (role == Qt::ToolTipRole) return toolTip(row, index.column());
  const bool coloured = role == Qt::ForegroundRole || role == Qt::DecorationRole;
  if (!coloured || index.column() != Type || !row.colour) return {};
  return toQColor(static_cast<Colour>(*row.colour), QGuiApplication::palette());
}

/// The display type may be too long for its column.
QString ScopeListModel::toolTip(const ScopeRow& row, int column) const {
  const QString item = tr("%1 [%2]").arg(toQString(row.data), toQString(row.request));
  return column == Type ? item + '\n' + typeText(row) : item;
}

QString ScopeListModel::text(const ScopeRow& row, int column) const {
  switch (column) {
    case Data:
      return toQString(row.data);
    case Request:
      return toQString(row.request);
    case Ecu:
      return toQString(row.ecu);
    default:
      return typeText(row);
  }
}

QVariant ScopeListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  switch (section) {
    case Data:
      return tr("Data");
    case Request:
      return tr("Request");
    case Ecu:
      return tr("ECU");
    case Type:
      return tr("Display");
    default:
      return {};
  }
}

}  // namespace tarnlog
