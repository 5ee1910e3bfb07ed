#include "ui/acquisition/ValueListModel.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/controls/Readable.h"
#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr const char* kKeys[] = {"HeaderNameData", "HeaderValueData", "HeaderUnitData", "HeaderMinimumData",
                                 "HeaderMaximumData"};

bool isNumber(ValueListModel::Column column) {
  return column != ValueListModel::kData && column != ValueListModel::kUnit;
}

}  // namespace

void ValueListModel::addRow(std::string_view text, std::string_view unit) {
  const int row = rowCount();
  beginInsertRows({}, row, row);
  rows_.push_back({std::string(text), {}, std::string(unit)});
  if (frozen_) frozen_->push_back(rows_.back());
  endInsertRows();
}

void ValueListModel::setValue(int row, std::string_view text) {
  if (row < 0 || row >= rowCount()) return;
  rows_[static_cast<std::size_t>(row)].value = text;
  const QModelIndex cell = index(row, kValue);
  if (!frozen_) emit dataChanged(cell, cell, {Qt::DisplayRole});
}

void ValueListModel::setExtremes(int row, std::string_view least, std::string_view greatest) {
  if (row < 0 || row >= rowCount()) return;
  Row& target = rows_[static_cast<std::size_t>(row)];
  target.least = least;
  target.greatest = greatest;
  if (!frozen_ && columnCount() > kMinimum)
    emit dataChanged(index(row, kMinimum), index(row, columnCount() - 1), {Qt::DisplayRole});
}

void ValueListModel::clearExtremes() {
  const auto empty = [](std::vector<Row>& rows) {
    for (Row& row : rows) {
      row.least.clear();
      row.greatest.clear();
    }
  };
  empty(rows_);
  if (frozen_) empty(*frozen_);
  if (columnCount() > kMinimum) valuesChanged(kMinimum, columnCount() - 1, Qt::DisplayRole);
}

void ValueListModel::setColumn(Column extreme, bool there) {
  const auto place = std::ranges::lower_bound(columns_, extreme);
  const bool found = place != columns_.end() && *place == extreme;
  if (found == there) return;
  const int position = static_cast<int>(place - columns_.begin());
  if (there) {
    beginInsertColumns({}, position, position);
    columns_.insert(place, extreme);
    endInsertColumns();
  } else {
    beginRemoveColumns({}, position, position);
    columns_.erase(place);
    endRemoveColumns();
  }
}

void ValueListModel::clear() {
  beginResetModel();
  rows_.clear();
  frozen_.reset();
  endResetModel();
}

void ValueListModel::setFrozen(bool frozen) {
  if (frozen == frozen_.has_value()) return;
  if (frozen) {
    frozen_ = rows_;
    return;
  }
  frozen_.reset();
  valuesChanged(kValue, columnCount() - 1, Qt::DisplayRole);
}

void ValueListModel::setOld(bool old) {
  if (std::exchange(old_, old) != old) valuesChanged(kValue, kValue, Qt::ForegroundRole);
}

void ValueListModel::valuesChanged(int firstColumn, int lastColumn, int role) {
  if (rowCount() > 0) emit dataChanged(index(0, firstColumn), index(rowCount() - 1, lastColumn), {role});
}

int ValueListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ValueListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

const std::string& ValueListModel::text(const Row& row, Column column) const {
  switch (column) {
    case kData:
      return row.text;
    case kValue:
      return row.value;
    case kUnit:
      return row.unit;
    case kMinimum:
      return row.least;
    case kMaximum:
      break;
  }
  return row.greatest;
}

QVariant ValueListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Column column = columnAt(index.column());
  if (role == Qt::TextAlignmentRole && isNumber(column))
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role == Qt::ForegroundRole && column == kValue && old_) {
    const QPalette palette = QGuiApplication::palette();
    const QColor base = palette.color(QPalette::Base);
    return readable(blend(base, palette.color(QPalette::Text), 0.5F), base, kTextContrast);
  }
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  return toQString(text((frozen_ ? *frozen_ : rows_)[static_cast<std::size_t>(index.row())], column));
}

QVariant ValueListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const Column column = columnAt(section);
  if (role == Qt::UserRole) return QLatin1String(kKeys[column]);
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue((isNumber(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  switch (column) {
    case kData:
      return tr("Data");
    case kValue:
      return tr("Value");
    case kUnit:
      return tr("Unit");
    case kMinimum:
      return tr("Minimum");
    case kMaximum:
      break;
  }
  return tr("Maximum");
}

}  // namespace tarnlog
