#include "ui/review/MarkListModel.h"

#include "ui/common/Convert.h"
#include "ui/review/ReviewTexts.h"

namespace tarnlog {

void MarkListModel::refresh() {
  beginResetModel();
  endResetModel();
}

int MarkListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.rows().size());
}

int MarkListModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QString MarkListModel::kind(const TableMark& mark) const {
  switch (mark.kind) {
    case RecordNote::Kind::Start:
      return tr("Start of recording");
    case RecordNote::Kind::Stop:
      return tr("Stop of recording");
    case RecordNote::Kind::Gap:
      return tr("Gap");
    case RecordNote::Kind::Failure:
      return tr("Failure");
    case RecordNote::Kind::ClockStep:
      return tr("Clock was set");
    case RecordNote::Kind::Event:
      break;
  }
  return mark.number == 0 ? tr("Event") : tr("Event %1").arg(mark.number);
}

QString MarkListModel::details(const MarkRows::Row& row) const {
  const TableMark& mark = row.mark;
  if (mark.kind == RecordNote::Kind::Gap)
    return tr("for %1").arg(toQString(secondsText(mark.till - mark.time, locale_)));
  if (mark.kind == RecordNote::Kind::ClockStep)
    return tr("by %1").arg(toQString(secondsText(mark.till, locale_)));
  return toQString(mark.text);
}

QVariant MarkListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::TextAlignmentRole && index.column() == kTime)
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const MarkRows::Row& row = rows_.rows()[static_cast<std::size_t>(index.row())];
  if (index.column() == kTime) return toQString(secondsText(row.time, locale_));
  if (index.column() == kText) return details(row);
  const QString what = kind(row.mark);
  return rows_.severalRecords() ? tr("%1 (record %2)").arg(what).arg(row.record + 1) : what;
}

QVariant MarkListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole && section == kTime)
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return section == kTime ? tr("Time") : section == kMark ? tr("Mark") : tr("Details");
}

}  // namespace tarnlog
