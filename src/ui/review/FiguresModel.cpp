#include "ui/review/FiguresModel.h"

#include <QGuiApplication>
#include <QPixmap>
#include <cmath>

#include "platform/text/Cell.h"
#include "ui/common/Convert.h"
#include "ui/review/ReviewLook.h"
#include "ui/review/ReviewTexts.h"

namespace tarnlog {

namespace {

constexpr int kSwatch = 12;  ///< pixels

QPixmap swatch(const QColor& colour) {
  QPixmap picture(kSwatch, kSwatch);
  picture.fill(colour);
  return picture;
}

}  // namespace

void FiguresModel::refresh() {
  QStringList names;
  for (const FigureRows::Row& row : rows_.rows()) {
    const QString unit = curveUnit(scene_, row.curve);
    const QString name = curveName(scene_, row.curve);
    names << (unit.isEmpty() ? name : name + " [" + unit + "]");
  }
  if (names.size() != names_.size()) {
    beginResetModel();
    names_ = names;
    endResetModel();
    return;
  }
  names_ = names;
  measured();
}

void FiguresModel::measured() {
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
  emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

int FiguresModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(names_.size());
}

int FiguresModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QString FiguresModel::number(const FigureRows::Row& row, double value) const {
  return toQString(figureText(value, row.range, locale_));
}

QString FiguresModel::valueAt(const FigureRows::Row& row, const FigureRows::Value& value) const {
  return value.label.empty() ? number(row, value.number) : toQString(value.label);
}

QString FiguresModel::text(int position, int column) const {
  const FigureRows::Row& row = rows_.rows()[static_cast<std::size_t>(position)];
  switch (column) {
    case kName:
      return names_[position];
    case kAtA:
      return valueAt(row, row.atA);
    case kAtB:
      return valueAt(row, row.atB);
    case kChange:
      return number(row, row.atB.number - row.atA.number);
    case kSlope:
      return toQString(figureText(row.slope, 0, locale_));
    case kLowest:
      return number(row, row.figures.lowest);
    case kLowestAt:
      return toQString(secondsText(row.figures.lowestAt, locale_));
    case kHighest:
      return number(row, row.figures.highest);
    case kHighestAt:
      return toQString(secondsText(row.figures.highestAt, locale_));
    case kMean:
      return number(row, row.figures.mean);
    case kMedian:
      return row.medianFound || row.figures.count == 0 ? number(row, row.median) : QString("...");
    case kDeviation:
      return number(row, row.figures.deviation);
    default:
      break;
  }
  if (rows_.level() && !row.aboveFound && row.figures.count != 0) return QStringLiteral("...");
  return toQString(secondsText(row.above, locale_));
}

QVariant FiguresModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const bool name = index.column() == kName;
  if (role == Qt::DisplayRole || (role == Qt::ToolTipRole && name)) return text(index.row(), index.column());
  if (role == Qt::DecorationRole && name)
    return swatch(
        curveColour(rows_.rows()[static_cast<std::size_t>(index.row())].curve, QGuiApplication::palette()));
  if (role == Qt::TextAlignmentRole && index.column() != kName)
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  return {};
}

QVariant FiguresModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue((section == kName ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  const QString headings[] = {
      tr("Data"),    tr("At A"), tr("At B"), tr("B - A"),  tr("Slope per s"),    tr("Minimum"),    tr("at"),
      tr("Maximum"), tr("at"),   tr("Mean"), tr("Median"), tr("Std. deviation"), tr("Above level")};
  if (section == kAbove && rows_.level())
    return tr("Above %1").arg(toQString(figureText(*rows_.level(), 0, locale_)));
  return headings[section];
}

QString FiguresModel::copied() const {
  QStringList lines;
  QStringList cells;
  for (int column = 0; column < kColumns; ++column)
    cells << headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  lines << cells.join('\t');
  for (int row = 0; row < rowCount(); ++row) {
    cells.clear();
    for (int column = 0; column < kColumns; ++column)
      cells << toQString(cleanCell(fromQString(text(row, column))));
    lines << cells.join('\t');
  }
  return lines.join('\n') + '\n';
}

}  // namespace tarnlog
