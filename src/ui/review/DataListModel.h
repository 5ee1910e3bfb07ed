#pragma once

#include <QAbstractTableModel>

#include "ui/review/CurveDrag.h"
#include "ui/review/DataRows.h"

namespace tarnlog {

/// The rows of DataRows; a check mark tells what a graph shows, and changes it.
class DataListModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { kData, kUnit, kKind, kWhere, kColumns };

  explicit DataListModel(DataRows& rows, QObject* parent = nullptr)
      : QAbstractTableModel(parent), rows_(rows) {}

  /// There are other rows.
  void refresh();
  /// Graphs have other curves.
  void marksChanged();
  void setFilter(const QString& text);
  const DataRows::Row& row(const QModelIndex& index) const {
    return rows_.rows()[static_cast<std::size_t>(index.row())];
  }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QStringList mimeTypes() const override { return {QLatin1String(kDraggedCurves)}; }
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

 private:
  QString text(const DataRows::Row& row, int column) const;

  DataRows& rows_;
};

}  // namespace tarnlog
