#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <cstddef>
#include <functional>
#include <vector>

#include "ui/select/CatalogueModel.h"
#include "ui/select/DragPayload.h"
#include "ui/select/SelectionRules.h"

namespace tarnlog {

/// Shows the list of data to record to a view: the rows in which every word of a filter is found. Takes data
/// dropped from the tree and its own rows.
class SelectedDataModel : public DraggedModel<QAbstractTableModel> {
  Q_OBJECT
 public:
  /// Both outlive the model.
  SelectedDataModel(SelectionRules& rules, const CatalogueModel& catalogue, QObject* parent = nullptr);

  /// Does something to the rules that changes rows.
  void change(const std::function<void()>& operation);
  void setFilter(const QString& text);
  bool filtering() const { return !filter_.trimmed().isEmpty(); }

  /// From a row of the view to one of the rules and back; kNoRow and invalid when there is none.
  std::size_t rowOf(const QModelIndex& index) const;
  QModelIndex indexOf(std::size_t row) const;
  /// Of the row, else of the next one that is shown, else of the last one.
  QModelIndex indexFrom(std::size_t row) const;
  std::size_t hiddenRows() const { return rules_.rows().size() - visible_.size(); }
  std::vector<std::size_t> rowsOf(const QModelIndexList& indexes) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  /// Texts, pictures, and under Qt::UserRole the columns' keys.
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                       const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;

 signals:
  /// Dropped before that row, or at the end (kNoRow).
  void nodesDropped(const std::vector<CatalogueNode>& nodes, std::size_t before);
  void rowsDropped(const std::vector<std::size_t>& rows, std::size_t before);

 private:
  void findVisible();

  SelectionRules& rules_;
  const CatalogueModel& catalogue_;
  CatalogueIcons icons_;
  QString filter_;
  std::vector<std::size_t> visible_;
};

}  // namespace tarnlog
