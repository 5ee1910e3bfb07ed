#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "ui/scope/ScopeRow.h"

namespace tarnlog {

/// The rows of `ListViewScope`: data, request, ECU, display type.
class ScopeListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { Data, Request, Ecu, Type, ColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  /// The same items in the same order change in place, which keeps what is selected; else the list begins
  /// anew.
  void setRows(std::vector<ScopeRow> rows);
  /// 0-based.
  void setRow(int row, ScopeRow content);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  /// The type's cell has the item's colour as colour of the text and as decoration.
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString toolTip(const ScopeRow& row, int column) const;
  QString text(const ScopeRow& row, int column) const;

  std::vector<ScopeRow> rows_;
};

}  // namespace tarnlog
