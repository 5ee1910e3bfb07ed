#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include "platform/text/UserLocale.h"
#include "ui/review/FigureRows.h"

namespace tarnlog {

/// The rows of FigureRows as texts.
class FiguresModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column {
    kName,
    kAtA,
    kAtB,
    kChange,
    kSlope,
    kLowest,
    kLowestAt,
    kHighest,
    kHighestAt,
    kMean,
    kMedian,
    kDeviation,
    kAbove,
    kColumns
  };

  FiguresModel(const ReviewScene& scene, const FigureRows& rows, const UserLocale& locale,
               QObject* parent = nullptr)
      : QAbstractTableModel(parent), scene_(scene), rows_(rows), locale_(locale) {}

  /// There may be other rows.
  void refresh();
  /// The same rows have other values.
  void measured();
  /// With a line of headings, tabs between the cells.
  QString copied() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString text(int row, int column) const;
  QString number(const FigureRows::Row& row, double value) const;
  QString valueAt(const FigureRows::Row& row, const FigureRows::Value& value) const;

  const ReviewScene& scene_;
  const FigureRows& rows_;
  const UserLocale& locale_;
  QStringList names_;  ///< of the rows that the views know
};

}  // namespace tarnlog
