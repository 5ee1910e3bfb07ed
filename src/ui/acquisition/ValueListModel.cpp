#include "ui/acquisition/ValueListModel.h"

#include <QGuiApplication>
#include <QPalette>
#include <cstddef>
#include <utility>

#include "platform/controls/Readable.h"
#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr const char* kKeys[] = {"HeaderNameData", "HeaderValueData", "HeaderUnitData"};

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
  valuesChanged(Qt::DisplayRole);
}

void ValueListModel::setOld(bool old) {
  if (std::exchange(old_, old) != old) valuesChanged(Qt::ForegroundRole);
}

void ValueListModel::valuesChanged(int role) {
  if (rowCount() > 0) emit dataChanged(index(0, kValue), index(rowCount() - 1, kValue), {role});
}

int ValueListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ValueListModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QVariant ValueListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::TextAlignmentRole && index.column() == kValue)
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role == Qt::ForegroundRole && index.column() == kValue && old_) {
    const QPalette palette = QGuiApplication::palette();
    const QColor base = palette.color(QPalette::Base);
    return readable(blend(base, palette.color(QPalette::Text), 0.5F), base, kTextContrast);
  }
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const Row& row = (frozen_ ? *frozen_ : rows_)[static_cast<std::size_t>(index.row())];
  switch (index.column()) {
    case kData:
      return toQString(row.text);
    case kValue:
      return toQString(row.value);
    default:
      return toQString(row.unit);
  }
}

QVariant ValueListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= kColumns) return {};
  if (role == Qt::UserRole) return QLatin1String(kKeys[section]);
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue((section == kValue ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  switch (section) {
    case kData:
      return tr("Data");
    case kValue:
      return tr("Value");
    default:
      return tr("Unit");
  }
}

}  // namespace tarnlog
