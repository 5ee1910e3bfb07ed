#pragma once

#include <QAbstractTableModel>

#include "platform/text/UserLocale.h"
#include "ui/review/MarkRows.h"

namespace tarnlog {

/// The rows of MarkRows as texts.
class MarkListModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { kTime, kMark, kText, kColumns };

  MarkListModel(const MarkRows& rows, const UserLocale& locale, QObject* parent)
      : QAbstractTableModel(parent), rows_(rows), locale_(locale) {}

  /// There are other rows.
  void refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString kind(const TableMark& mark) const;
  QString details(const MarkRows::Row& row) const;

  const MarkRows& rows_;
  UserLocale locale_;
};

}  // namespace tarnlog
