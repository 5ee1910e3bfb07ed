#include "ui/select/TarnSelect.h"

#include <QAction>
#include <QActionGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStringList>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/common/BusyPointer.h"
#include "ui/common/Convert.h"
#include "ui/common/Icons.h"
#include "ui/select/CatalogueModel.h"
#include "ui/select/FilterBox.h"
#include "ui/select/HintedTreeView.h"
#include "ui/select/ListColumns.h"
#include "ui/select/SelectedDataModel.h"
#include "ui/select/TreeExpansion.h"

namespace tarnlog {

// --- construction

TarnSelect::TarnSelect(QWidget* parent)
    : QWidget(parent),
      catalogue_(new CatalogueModel(rules_, this)),
      selected_(new SelectedDataModel(rules_, *catalogue_, this)),
      treeAllData_(new HintedTreeView(this)),
      listDataToRecord_(new HintedTreeView(this)),
      treeFilter_(new FilterBox(*treeAllData_, this)),
      listFilter_(new FilterBox(*listDataToRecord_, this)) {
  createTree();
  createList();
  auto* const frames = new QSplitter(this);
  frames->setChildrenCollapsible(false);
  frames->addWidget(createAvailable());
  frames->addWidget(createToRecord());
  frames->setStretchFactor(0, 1);
  frames->setStretchFactor(1, 1);
  frames->setSizes({1000, 1000});  // shares: half each
  auto* const row = new QHBoxLayout(this);
  row->addWidget(frames);
  createKeys();
  putInTabOrder();
  showShape();
  updateHints();
  updateButtons();
}

/// The models look at the rules until they are gone.
TarnSelect::~TarnSelect() {
  delete selected_;
  delete catalogue_;
}

void TarnSelect::createTree() {
  treeAllData_->setObjectName("TreeAllData");
  treeAllData_->setAccessibleName(tr("Available data"));
  treeAllData_->setModel(catalogue_);
  treeAllData_->setHeaderHidden(true);
  treeAllData_->setUniformRowHeights(true);
  treeAllData_->setExpandsOnDoubleClick(false);
  treeAllData_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  treeAllData_->setDragDropMode(QAbstractItemView::DragDrop);
  treeAllData_->setDropIndicatorShown(false);
  expansion_ = new TreeExpansion(*treeAllData_, *catalogue_, rules_);
  connect(treeAllData_, &QTreeView::doubleClicked, this, &TarnSelect::addActivated);
  connect(treeAllData_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &TarnSelect::updateButtons);
  connect(catalogue_, &QAbstractItemModel::modelReset, this, &TarnSelect::updateButtons);
  connect(catalogue_, &CatalogueModel::rowsDropped, this, &TarnSelect::removeRows);
}

void TarnSelect::createList() {
  listDataToRecord_->setObjectName("ListDataToRecord");
  listDataToRecord_->setAccessibleName(tr("Data to record"));
  listDataToRecord_->setModel(selected_);
  listDataToRecord_->setRootIsDecorated(false);
  listDataToRecord_->setUniformRowHeights(true);
  listDataToRecord_->setAllColumnsShowFocus(true);
  listDataToRecord_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  listDataToRecord_->setDragDropMode(QAbstractItemView::DragDrop);
  listDataToRecord_->header()->setStretchLastSection(false);
  listDataToRecord_->header()->setMinimumSectionSize(1);
  listDataToRecord_->header()->setSectionsMovable(false);
  new ListColumns(*listDataToRecord_);
  connect(listDataToRecord_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &TarnSelect::updateButtons);
  connect(selected_, &QAbstractItemModel::modelReset, this, &TarnSelect::updateButtons);
  connect(selected_, &SelectedDataModel::nodesDropped, this, &TarnSelect::addNodes);
  connect(selected_, &SelectedDataModel::rowsDropped, this, &TarnSelect::moveRows);
}

QWidget* TarnSelect::createAvailable() {
  auto* const frame = new QGroupBox(tr("Available data"), this);
  frame->setObjectName("FrChooseData");
  treeFilter_->setObjectName("filterAllData");
  treeFilter_->setAccessibleName(tr("Filter the available data"));
  treeFilter_->setToolTip(tr("Words of name, request, ECU or unit (Ctrl+F)"));
  connect(treeFilter_, &QLineEdit::textChanged, this, &TarnSelect::filterTree);
  auto* const column = new QVBoxLayout(frame);
  column->addWidget(createShapes());
  column->addWidget(treeFilter_);
  column->addWidget(treeAllData_, 1);
  return frame;
}

QToolBar* TarnSelect::createShapes() {
  tbSelect_ = new QToolBar(this);
  tbSelect_->setObjectName("TbSelect");
  tbSelect_->setAccessibleName(tr("Order of the available data"));
  const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
  tbSelect_->setIconSize({icon, icon});
  tbSelect_->layout()->setContentsMargins(0, 0, 0, 0);
  auto* const exclusive = new QActionGroup(tbSelect_);
  const auto add = [&](const char* key, const char* drawing, const QString& toolTip) {
    QAction* const shape = exclusive->addAction(tarnIcon(drawing), toolTip);
    shape->setObjectName(key);
    shape->setCheckable(true);
    tbSelect_->addAction(shape);
    tbSelect_->widgetForAction(shape)->setFocusPolicy(Qt::TabFocus);
    connect(shape, &QAction::triggered, this, [this, key] { chooseShape(key[0]); });
  };
  add("R", "request", tr("Select by request/data"));
  add("D", "data", tr("Select by data"));
  add("O", "device", tr("Select by devices/data"));
  return tbSelect_;
}

QWidget* TarnSelect::createToRecord() {
  auto* const frame = new QGroupBox(tr("Data to record"), this);
  frame->setObjectName("FrSelData");
  addData_ = new QPushButton(tarnIcon("add"), tr("Add data"), frame);
  addData_->setObjectName("addData");
  removeData_ = new QPushButton(tarnIcon("remove"), tr("Remove data"), frame);
  removeData_->setObjectName("removeData");
  removeData_->setToolTip(tr("Delete; Ctrl+Z takes it back"));
  dataUp_ = createMover("dataUp", "up", tr("Move up (Ctrl+Up)"));
  dataDown_ = createMover("dataDown", "down", tr("Move down (Ctrl+Down)"));
  listFilter_->setObjectName("filterToRecord");
  listFilter_->setAccessibleName(tr("Filter the data to record"));
  listFilter_->setToolTip(tr("Words of name, request, ECU or unit"));
  connect(addData_, &QAbstractButton::clicked, this, &TarnSelect::addSelected);
  connect(removeData_, &QAbstractButton::clicked, this, &TarnSelect::removeSelected);
  connect(dataUp_, &QAbstractButton::clicked, this, [this] { move(&SelectionRules::moveUp); });
  connect(dataDown_, &QAbstractButton::clicked, this, [this] { move(&SelectionRules::moveDown); });
  connect(listFilter_, &QLineEdit::textChanged, this, &TarnSelect::filterList);
  auto* const column = new QVBoxLayout(frame);
  auto* const row = new QHBoxLayout;
  row->addWidget(addData_);
  row->addWidget(removeData_);
  row->addStretch(1);
  row->addWidget(dataUp_);
  row->addWidget(dataDown_);
  // As high as the other frame's toolbar, so that tree and list begin at the same height.
  const int height = std::max(row->sizeHint().height(), tbSelect_->sizeHint().height());
  tbSelect_->setFixedHeight(height);
  column->addLayout(row);
  row->addStrut(height);
  column->addWidget(listFilter_);
  column->addWidget(listDataToRecord_, 1);
  return frame;
}

QAbstractButton* TarnSelect::createMover(const char* name, const char* icon, const QString& toolTip) {
  auto* const button = new QToolButton(this);
  button->setObjectName(name);
  button->setIcon(tarnIcon(icon));
  button->setToolTip(toolTip);
  button->setAccessibleName(toolTip);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

void TarnSelect::createKeys() {
  const auto key = [](const QKeySequence& keys, QWidget* widget, Qt::ShortcutContext context, auto&& action) {
    auto* const shortcut = new QShortcut(keys, widget);
    shortcut->setContext(context);
    connect(shortcut, &QShortcut::activated, widget, action);
  };
  const auto add = [this] {
    if (treeAllData_->selectionModel()->selectedIndexes().size() > 1)
      addSelected();
    else
      addActivated(treeAllData_->currentIndex());
  };
  key(Qt::Key_Return, treeAllData_, Qt::WidgetShortcut, add);
  key(Qt::Key_Enter, treeAllData_, Qt::WidgetShortcut, add);
  key(Qt::Key_Delete, listDataToRecord_, Qt::WidgetShortcut, [this] { removeSelected(); });
  key(Qt::CTRL | Qt::Key_Up, listDataToRecord_, Qt::WidgetShortcut,
      [this] { move(&SelectionRules::moveUp); });
  key(Qt::CTRL | Qt::Key_Down, listDataToRecord_, Qt::WidgetShortcut,
      [this] { move(&SelectionRules::moveDown); });
  key(QKeySequence::Undo, this, Qt::WidgetWithChildrenShortcut, [this] { undoRemoval(); });
  key(QKeySequence::Find, this, Qt::WidgetWithChildrenShortcut, [this] {
    treeFilter_->setFocus(Qt::ShortcutFocusReason);
    treeFilter_->selectAll();
  });
}

/// The list moves first: at the end of the circle that the tab order is, it would seem to be in its place.
void TarnSelect::putInTabOrder() {
  std::vector<QWidget*> widgets;
  for (QAction* const shape : tbSelect_->actions()) widgets.push_back(tbSelect_->widgetForAction(shape));
  setTabOrder(widgets.front(), listDataToRecord_);
  widgets.insert(widgets.end(), {treeFilter_, treeAllData_, addData_, removeData_, dataUp_, dataDown_,
                                 listFilter_, listDataToRecord_});
  for (std::size_t i = 1; i < widgets.size(); ++i) setTabOrder(widgets[i - 1], widgets[i]);
}

// --- what is shown

void TarnSelect::setXmlSession(std::shared_ptr<const SessionDocument> document) {
  const BusyPointer busy;
  selected_->change([&] { rules_.setXmlSession(std::move(document)); });
  expansion_->forget();
  showShape();
  updateHints();
}

template <class Operation>
void TarnSelect::refill(Operation&& operation) {
  selected_->change(operation);
  expansion_->restore();
}

void TarnSelect::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  refill([&] { rules_.setParameters(std::move(parameters)); });
  selectRow(rules_.selectedRow());
}

std::int32_t TarnSelect::DisplayDataList(const oTarnScope* selectScope) {
  std::int32_t count = 0;
  refill([&] { count = rules_.DisplayDataList(selectScope); });
  selectRow(rules_.selectedRow());
  return count;
}

void TarnSelect::Clear() {
  refill([this] { rules_.Clear(); });
}

void TarnSelect::showShape() {
  for (QAction* const shape : tbSelect_->actions())
    shape->setChecked(shape->objectName() == QString(QLatin1Char(rules_.tree().mode)));
}

void TarnSelect::updateHints() {
  const QString noneFound = tr("No data with these words.");
  QString treeHint = rules_.xmlSession() == nullptr ? tr("No vehicle.") : tr("The vehicle offers no data.");
  if (rules_.filtering()) treeHint = noneFound;
  treeAllData_->setHint(treeHint);
  listDataToRecord_->setHint(selected_->filtering() ? noneFound
                                                    : tr("Select data on the left and press \"Add data\", "
                                                         "double-click them or drag them here."));
}

void TarnSelect::updateButtons() {
  addData_->setEnabled(treeAllData_->selectionModel()->hasSelection());
  removeData_->setEnabled(listDataToRecord_->selectionModel()->hasSelection());
  // Among found rows a neighbour may be hidden: moving past it would seem to do nothing.
  const bool movable = !rules_.rows().empty() && !selected_->filtering();
  dataUp_->setEnabled(movable);
  dataDown_->setEnabled(movable);
}

void TarnSelect::chooseShape(char key) {
  rules_.setShape(key);
  expansion_->restore();
}

void TarnSelect::filterTree(const QString& text) {
  rules_.setFilter(fromQString(text));
  expansion_->restore();
  updateHints();
}

void TarnSelect::filterList(const QString& text) {
  const std::size_t row = focusedRow();
  selected_->setFilter(text);
  const QModelIndex index = selected_->indexOf(row);
  if (index.isValid()) listDataToRecord_->setCurrentIndex(index);
  updateHints();
  updateButtons();
}

// --- what clicks do

template <class Operation>
void TarnSelect::edit(Operation&& operation) {
  const std::size_t focus = focusedRow();
  bool changed = false;
  {
    const BusyPointer busy;
    refill([&] { changed = operation(); });
    selectRow(changed ? rules_.selectedRow() : focus);
  }
  if (changed) emit edited();
}

void TarnSelect::addSelected() {
  addNodes(catalogue_->nodes(treeAllData_->selectionModel()->selectedIndexes()), SelectionRules::kNoRow);
}

/// A double click, or Enter.
void TarnSelect::addActivated(const QModelIndex& index) {
  if (!index.isValid()) return;
  const CatalogueNode node = catalogue_->node(index);
  if (rules_.addsOnDoubleClick(node))
    addNodes({node}, SelectionRules::kNoRow);
  else
    treeAllData_->setExpanded(index, !treeAllData_->isExpanded(index));
}

void TarnSelect::addNodes(const std::vector<CatalogueNode>& nodes, std::size_t before) {
  const auto leaving = rules_.dataNodes(nodes);
  if (leaving.empty()) return;
  const QPersistentModelIndex next = catalogue_->besides(leaving.back());
  edit([&] { return rules_.addData(nodes, before); });
  if (!treeAllData_->selectionModel()->hasSelection() && next.isValid()) treeAllData_->setCurrentIndex(next);
}

void TarnSelect::removeSelected() { removeRows(selectedRows()); }

void TarnSelect::removeRows(const std::vector<std::size_t>& rows) {
  if (rows.empty()) return;
  std::vector<std::string> notFound;
  edit([&] {
    auto removal = rules_.removeData(rows, focusedRow());
    notFound = std::move(removal.notFound);
    return removal.changed;
  });
  reportNotFound(notFound);
}

void TarnSelect::undoRemoval() {
  edit([this] { return rules_.undoRemoval(); });
}

void TarnSelect::move(bool (SelectionRules::*step)(std::size_t)) {
  const std::size_t row = focusedRow();
  if (row == SelectionRules::kNoRow || selected_->filtering()) return;
  edit([&] { return (rules_.*step)(row); });
}

void TarnSelect::moveRows(const std::vector<std::size_t>& rows, std::size_t before) {
  edit([&] { return rules_.moveRows(rows, before); });
}

/// Selects this row alone and shows it; a filter that hides it has served its purpose.
void TarnSelect::selectRow(std::size_t row) {
  if (row != SelectionRules::kNoRow) {
    if (!selected_->indexOf(row).isValid()) listFilter_->clear();
    listDataToRecord_->setCurrentIndex(selected_->indexOf(row));
    listDataToRecord_->scrollTo(selected_->indexOf(row));
  }
  updateHints();
  updateButtons();
}

void TarnSelect::reportNotFound(const std::vector<std::string>& names) {
  if (names.empty()) return;
  QStringList lines;
  for (const std::string& name : names) lines << tr("Internal error, data %1 not found").arg(toQString(name));
  auto* const box =
      new QMessageBox(QMessageBox::NoIcon, window()->windowTitle(), lines.join('\n'), QMessageBox::Ok, this);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

std::vector<std::size_t> TarnSelect::selectedRows() const {
  return selected_->rowsOf(listDataToRecord_->selectionModel()->selectedIndexes());
}

std::size_t TarnSelect::focusedRow() const { return selected_->rowOf(listDataToRecord_->currentIndex()); }

}  // namespace tarnlog
