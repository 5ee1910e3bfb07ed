#include "ui/review/DataListModel.h"

#include <QMimeData>
#include <vector>

#include "ui/common/Convert.h"

namespace tarnlog {

void DataListModel::refresh() {
  beginResetModel();
  endResetModel();
}

void DataListModel::marksChanged() {
  if (rowCount() > 0) emit dataChanged(index(0, kData), index(rowCount() - 1, kData), {Qt::CheckStateRole});
}

void DataListModel::setFilter(const QString& text) {
  beginResetModel();
  rows_.setFilter(fromQString(text));
  endResetModel();
}

int DataListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.rows().size());
}

int DataListModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QString DataListModel::text(const DataRows::Row& row, int column) const {
  switch (column) {
    case kData:
      return row.place.record == 0
                 ? toQString(row.name)
                 : QStringLiteral("%1 (%2)").arg(toQString(row.name)).arg(row.place.record + 1);
    case kUnit:
      return toQString(row.unit);
    case kWhere:
      return toQString(row.where);
    default:
      break;
  }
  if (row.kind == DataRows::Kind::Labels) return tr("labels");
  return row.kind == DataRows::Kind::OnOff ? tr("on/off") : tr("numbers");
}

QVariant DataListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const DataRows::Row& item = row(index);
  if (role == Qt::CheckStateRole && index.column() == kData)
    return rows_.shown(item.place) ? Qt::Checked : Qt::Unchecked;
  if (role == Qt::DisplayRole) return text(item, index.column());
  if (role == Qt::ToolTipRole)
    return item.where.empty() ? text(item, kData) : text(item, kData) + "\n" + text(item, kWhere);
  return {};
}

bool DataListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::CheckStateRole || index.column() != kData) return false;
  const CurvePlace place = row(index).place;  // the change may fill the rows anew
  if (value.toInt() == Qt::Checked)
    rows_.add(place);
  else
    rows_.remove(place);
  return true;
}

QVariant DataListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  switch (section) {
    case kData:
      return tr("Data");
    case kUnit:
      return tr("Unit");
    case kKind:
      return tr("Kind");
    default:
      return tr("From");
  }
}

Qt::ItemFlags DataListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
  return index.column() == kData ? usual | Qt::ItemIsUserCheckable : usual;
}

QMimeData* DataListModel::mimeData(const QModelIndexList& indexes) const {
  std::vector<CurvePlace> places;
  for (const QModelIndex& index : indexes)
    if (index.column() == kData) places.push_back(row(index).place);
  return curvePayload(places);
}

}  // namespace tarnlog
