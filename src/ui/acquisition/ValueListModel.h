#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnlog {

/// The rows of the live value list; its columns have their keys under Qt::UserRole. Columns of extremes come
/// behind the others and are there when they are wanted. While frozen it shows the values of that moment and
/// goes on taking new ones.
class ValueListModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { kData, kValue, kUnit, kMinimum, kMaximum };

  using QAbstractTableModel::QAbstractTableModel;

  void addRow(std::string_view text, std::string_view unit);
  /// Row from 0; one that is not there is ignored.
  void setValue(int row, std::string_view text);
  void setExtremes(int row, std::string_view least, std::string_view greatest);
  /// Also in a frozen picture: who resets them wants to see that.
  void clearExtremes();
  /// Also ends a freeze.
  void clear();
  void setFrozen(bool frozen);
  /// Old values are grey.
  void setOld(bool old);

  std::string_view name(int row) const { return rows_[static_cast<std::size_t>(row)].text; }
  /// Adds or removes a column of extremes.
  void setColumn(Column extreme, bool there);
  Column columnAt(int position) const { return columns_[static_cast<std::size_t>(position)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Row {
    std::string text;
    std::string value;
    std::string unit;
    std::string least{};
    std::string greatest{};
  };

  void valuesChanged(int firstColumn, int lastColumn, int role);
  const std::string& text(const Row& row, Column column) const;

  std::vector<Column> columns_{kData, kValue, kUnit};
  std::vector<Row> rows_;
  std::optional<std::vector<Row>> frozen_;
  bool old_ = false;
};

}  // namespace tarnlog
