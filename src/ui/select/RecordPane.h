#pragma once

#include <QGroupBox>
#include <cstddef>
#include <vector>

class QAbstractButton;
class QHBoxLayout;
class QLabel;

namespace tarnlog {

class FilterBox;
class HintedTreeView;
class SelectedDataModel;

/// `FrSelData`: the list of data to record, its filter, and the buttons that fill and order it. Rows are
/// those of the rules, from 0.
class RecordPane : public QGroupBox {
  Q_OBJECT
 public:
  /// `selected` outlives the pane's use of it. The row of buttons is at least that high, in pixels.
  RecordPane(SelectedDataModel& selected, int buttonsHeight, QWidget* parent = nullptr);

  int buttonsHeight() const { return buttonsHeight_; }
  /// Enables what can be done; whether data of the tree can be added is for others to know.
  void showButtons(bool canAdd);
  void showHint();
  /// Gives the focus back to a control that had it; where that can do nothing any more, to the list.
  void keepFocus(QWidget& control);
  /// Selects this row alone and shows it. A filter stays: where it hides the row, nothing is selected, or the
  /// next row that can be seen, and the number of hidden rows tells.
  void selectRow(std::size_t row);
  void selectRowOrNext(std::size_t row);
  std::vector<std::size_t> selectedRows() const;
  /// SelectionRules::kNoRow when there is none.
  std::size_t focusedRow() const;
  /// Those that take the keyboard, in order.
  std::vector<QWidget*> stops() const;

 signals:
  void addWanted();
  void removeWanted();
  void moveUpWanted();
  void moveDownWanted();
  /// Selection or filter: other things can be done now.
  void changed();

 private:
  void createButtons();
  void createList();
  QAbstractButton* createMover(const char* name, const char* icon, const QString& toolTip);
  void addKeys();
  void filter(const QString& text);
  void showHidden();
  void select(const QModelIndex& index);

  SelectedDataModel& selected_;
  HintedTreeView* list_;
  FilterBox* filter_;
  QLabel* hidden_;
  QHBoxLayout* buttons_;
  QAbstractButton* addData_ = nullptr;
  QAbstractButton* removeData_ = nullptr;
  QAbstractButton* dataUp_ = nullptr;
  QAbstractButton* dataDown_ = nullptr;
  int buttonsHeight_;
};

}  // namespace tarnlog
