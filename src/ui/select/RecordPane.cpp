#include "ui/select/RecordPane.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/common/FilterBox.h"
#include "ui/common/HintedTreeView.h"
#include "ui/common/Icons.h"
#include "ui/select/ListColumns.h"
#include "ui/select/SelectedDataModel.h"

namespace tarnlog {

RecordPane::RecordPane(SelectedDataModel& selected, int buttonsHeight, QWidget* parent)
    : QGroupBox(tr("Data to record"), parent),
      selected_(selected),
      list_(new HintedTreeView(this)),
      filter_(new FilterBox(*list_, this)),
      hidden_(new QLabel(this)),
      buttons_(new QHBoxLayout) {
  setObjectName("FrSelData");
  createButtons();
  buttonsHeight_ = std::max(buttons_->sizeHint().height(), buttonsHeight);
  filter_->setObjectName("filterToRecord");
  filter_->setAccessibleName(tr("Filter the data to record"));
  filter_->setToolTip(tr("Words of name, request, ECU or unit"));
  connect(filter_, &QLineEdit::textChanged, this, &RecordPane::filter);
  createList();
  addKeys();
  auto* const column = new QVBoxLayout(this);
  column->addLayout(buttons_);
  buttons_->addStrut(buttonsHeight_);
  auto* const filterRow = new QHBoxLayout;
  filterRow->addWidget(filter_, 1);
  filterRow->addWidget(hidden_);
  column->addLayout(filterRow);
  column->addWidget(list_, 1);
  hidden_->setObjectName("hiddenToRecord");
  showHint();
  showHidden();
}

void RecordPane::createButtons() {
  addData_ = new QPushButton(tarnIcon("add"), tr("Add data"), this);
  addData_->setObjectName("addData");
  removeData_ = new QPushButton(tarnIcon("remove"), tr("Remove data"), this);
  removeData_->setObjectName("removeData");
  removeData_->setToolTip(tr("Delete; Ctrl+Z takes it back"));
  dataUp_ = createMover("dataUp", "up", tr("Move up (Ctrl+Up)"));
  dataDown_ = createMover("dataDown", "down", tr("Move down (Ctrl+Down)"));
  connect(addData_, &QAbstractButton::clicked, this, &RecordPane::addWanted);
  connect(removeData_, &QAbstractButton::clicked, this, &RecordPane::removeWanted);
  connect(dataUp_, &QAbstractButton::clicked, this, &RecordPane::moveUpWanted);
  connect(dataDown_, &QAbstractButton::clicked, this, &RecordPane::moveDownWanted);
  buttons_->addWidget(addData_);
  buttons_->addWidget(removeData_);
  buttons_->addStretch(1);
  buttons_->addWidget(dataUp_);
  buttons_->addWidget(dataDown_);
}

QAbstractButton* RecordPane::createMover(const char* name, const char* icon, const QString& toolTip) {
  auto* const button = new QToolButton(this);
  button->setObjectName(name);
  button->setIcon(tarnIcon(icon));
  button->setToolTip(toolTip);
  button->setAccessibleName(toolTip);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

void RecordPane::createList() {
  list_->setObjectName("ListDataToRecord");
  list_->setAccessibleName(tr("Data to record"));
  list_->setModel(&selected_);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setDragDropMode(QAbstractItemView::DragDrop);
  list_->header()->setStretchLastSection(false);
  list_->header()->setMinimumSectionSize(1);
  list_->header()->setSectionsMovable(false);
  new ListColumns(*list_);
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &RecordPane::changed);
  connect(&selected_, &QAbstractItemModel::modelReset, this, [this] {
    showHidden();
    emit changed();
  });
}

void RecordPane::addKeys() {
  const auto key = [this](const QKeySequence& keys, void (RecordPane::*wanted)()) {
    auto* const shortcut = new QShortcut(keys, list_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, wanted);
  };
  key(Qt::Key_Delete, &RecordPane::removeWanted);
  key(Qt::CTRL | Qt::Key_Up, &RecordPane::moveUpWanted);
  key(Qt::CTRL | Qt::Key_Down, &RecordPane::moveDownWanted);
}

void RecordPane::showButtons(bool canAdd) {
  addData_->setEnabled(canAdd);
  removeData_->setEnabled(list_->selectionModel()->hasSelection());
  // Among found rows a neighbour may be hidden: moving past it would seem to do nothing.
  const bool movable = selected_.rowCount() > 0 && !selected_.filtering();
  dataUp_->setEnabled(movable);
  dataDown_->setEnabled(movable);
}

void RecordPane::keepFocus(QWidget& control) {
  QWidget& place = control.isEnabled() ? control : *list_;
  place.setFocus();
}

void RecordPane::showHint() {
  list_->setHint(selected_.filtering() ? tr("No data with these words.")
                                       : tr("Select data on the left and press \"Add data\", "
                                            "double-click them or drag them here."));
}

void RecordPane::filter(const QString& text) {
  const std::size_t row = focusedRow();
  selected_.setFilter(text);
  const QModelIndex index = selected_.indexOf(row);
  if (index.isValid()) list_->setCurrentIndex(index);
  showHint();
  emit changed();
}

void RecordPane::showHidden() {
  const std::size_t hidden = selected_.hiddenRows();
  hidden_->setText(tr("%1 hidden").arg(hidden));
  hidden_->setToolTip(tr("Data to record that the filter does not show"));
  hidden_->setVisible(hidden > 0);
}

void RecordPane::selectRow(std::size_t row) { select(selected_.indexOf(row)); }

void RecordPane::selectRowOrNext(std::size_t row) { select(selected_.indexFrom(row)); }

/// Whichever keys are held: Ctrl would turn the selection of the row around.
void RecordPane::select(const QModelIndex& index) {
  list_->selectionModel()->setCurrentIndex(index,
                                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (index.isValid()) list_->scrollTo(index);
}

std::vector<std::size_t> RecordPane::selectedRows() const {
  return selected_.rowsOf(list_->selectionModel()->selectedIndexes());
}

std::size_t RecordPane::focusedRow() const { return selected_.rowOf(list_->currentIndex()); }

std::vector<QWidget*> RecordPane::stops() const {
  return {addData_, removeData_, dataUp_, dataDown_, filter_, list_};
}

}  // namespace tarnlog
