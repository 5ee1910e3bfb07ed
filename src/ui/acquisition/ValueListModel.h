#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// The rows of the live value list; its columns have their keys under Qt::UserRole. While frozen it shows the
/// values of that moment and goes on taking new ones.
class ValueListModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { kData, kValue, kUnit, kColumns };

  using QAbstractTableModel::QAbstractTableModel;

  void addRow(std::string_view text, std::string_view unit);
  /// Row from 0; one that is not there is ignored.
  void setValue(int row, std::string_view text);
  /// Also ends a freeze.
  void clear();
  void setFrozen(bool frozen);
  /// Old values are grey.
  void setOld(bool old);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Row {
    std::string text;
    std::string value;
    std::string unit;
  };

  void valuesChanged(int role);

  std::vector<Row> rows_;
  std::optional<std::vector<Row>> frozen_;
  bool old_ = false;
};

}  // namespace tarnlog
