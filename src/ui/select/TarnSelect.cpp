#include "ui/select/TarnSelect.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QShortcut>
#include <QSplitter>
#include <QStringList>
#include <QToolBar>
#include <utility>

#include "ui/common/BusyPointer.h"
#include "ui/common/Convert.h"
#include "ui/select/AvailablePane.h"
#include "ui/select/CatalogueModel.h"
#include "ui/select/RecordPane.h"
#include "ui/select/SelectedDataModel.h"

namespace tarnlog {

// --- construction

TarnSelect::TarnSelect(QWidget* parent)
    : QWidget(parent),
      catalogue_(new CatalogueModel(rules_, this)),
      selected_(new SelectedDataModel(rules_, *catalogue_, this)),
      available_(new AvailablePane(rules_, *catalogue_, this)),
      record_(new RecordPane(*selected_, available_->shapes().sizeHint().height(), this)) {
  available_->shapes().setFixedHeight(record_->buttonsHeight());  // tree and list begin at the same height
  auto* const frames = new QSplitter(this);
  frames->setChildrenCollapsible(false);
  frames->addWidget(available_);
  frames->addWidget(record_);
  frames->setStretchFactor(0, 1);
  frames->setStretchFactor(1, 1);
  frames->setSizes({1000, 1000});  // shares: half each
  auto* const row = new QHBoxLayout(this);
  row->addWidget(frames);
  connectPanes();
  createKeys();
  putInTabOrder();
  updateButtons();
}

/// The panes look at the models, and these at the rules, until they are gone.
TarnSelect::~TarnSelect() {
  delete record_;
  delete available_;
  delete selected_;
  delete catalogue_;
}

void TarnSelect::connectPanes() {
  constexpr std::size_t kAtEnd = SelectionRules::kNoRow;
  connect(available_, &AvailablePane::addWanted, this,
          [this](const std::vector<CatalogueNode>& nodes) { addNodes(nodes, kAtEnd); });
  connect(available_, &AvailablePane::selectionChanged, this, &TarnSelect::updateButtons);
  connect(record_, &RecordPane::addWanted, this, [this] { addNodes(available_->selectedNodes(), kAtEnd); });
  connect(record_, &RecordPane::removeWanted, this, [this] { removeRows(record_->selectedRows()); });
  connect(record_, &RecordPane::moveUpWanted, this, [this] { move(&SelectionRules::moveUp); });
  connect(record_, &RecordPane::moveDownWanted, this, [this] { move(&SelectionRules::moveDown); });
  connect(record_, &RecordPane::changed, this, &TarnSelect::updateButtons);
  connect(catalogue_, &CatalogueModel::rowsDropped, this, &TarnSelect::removeRows);
  connect(selected_, &SelectedDataModel::nodesDropped, this, &TarnSelect::addNodes);
  connect(selected_, &SelectedDataModel::rowsDropped, this, &TarnSelect::moveRows);
}

void TarnSelect::createKeys() {
  const auto key = [this](const QKeySequence& keys, auto&& action) {
    auto* const shortcut = new QShortcut(keys, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, action);
  };
  key(QKeySequence::Undo, [this] { undoRemoval(); });
  key(QKeySequence::Find, [this] { focusFilter(); });
}

/// The last one moves first: at the end of the circle that the tab order is, it would seem to be in its
/// place.
void TarnSelect::putInTabOrder() {
  std::vector<QWidget*> stops = available_->stops();
  for (QWidget* const stop : record_->stops()) stops.push_back(stop);
  setTabOrder(stops.front(), stops.back());
  for (std::size_t i = 1; i < stops.size(); ++i) setTabOrder(stops[i - 1], stops[i]);
}

void TarnSelect::updateButtons() { record_->showButtons(rules_.canAdd(available_->selectedNodes())); }

void TarnSelect::focusFilter() { available_->focusFilter(); }
void TarnSelect::focusTree() { available_->stops().back()->setFocus(); }

std::vector<HelpRow> TarnSelect::helpRows() {
  return {
      {tr("Ctrl+F"),
       tr("Filter the available data; Escape empties the filter, Down goes on to what it found")},
      {tr("Left, Right"), tr("Close and open an ECU or a request")},
      {tr("Enter"), tr("Add the selected data to those to record")},
      {tr("Ctrl+Up, Ctrl+Down"), tr("In the list: move the data up, down")},
      {tr("Delete"), tr("In the list: take the selected data out")},
      {tr("Ctrl+Z"), tr("Take a removal back")},
  };
}

// --- what is shown

void TarnSelect::setXmlSession(std::shared_ptr<const SessionDocument> document) {
  const BusyPointer busy;
  selected_->change([&] { rules_.setXmlSession(std::move(document)); });
  available_->beginAnew();
}

template <class Operation>
void TarnSelect::refill(Operation&& operation) {
  selected_->change(operation);
  available_->refresh();
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

// --- what clicks do

template <class Operation>
void TarnSelect::edit(Operation&& operation) {
  const std::size_t focus = record_->focusedRow();
  bool changed = false;
  {
    const BusyPointer busy;
    refill([&] { changed = operation(); });
    selectRow(changed ? rules_.selectedRow() : focus);
  }
  if (changed) emit edited();
}

void TarnSelect::addNodes(const std::vector<CatalogueNode>& nodes, std::size_t before) {
  const auto leaving = rules_.dataNodes(nodes);
  if (leaving.empty()) return;
  const QPersistentModelIndex next = catalogue_->neighbourOf(leaving.back());
  QWidget* const focused = focusWidget();
  edit([&] { return rules_.addData(nodes, before); });
  available_->goOnAt(next);
  // The button was disabled in between, while nothing was selected, and has lost the focus to "Remove data".
  if (focused != nullptr && focused != focusWidget()) record_->keepFocus(*focused);
}

void TarnSelect::removeRows(const std::vector<std::size_t>& rows) {
  if (rows.empty()) return;
  SelectionRules::Removal removal;
  edit([&] {
    removal = rules_.removeData(rows, record_->focusedRow());
    return removal.changed;
  });
  if (removal.changed) record_->selectRowOrNext(rules_.selectedRow());
  reportNotFound(removal.notFound);
}

void TarnSelect::undoRemoval() {
  edit([this] { return rules_.undoRemoval(); });
}

void TarnSelect::move(bool (SelectionRules::*step)(std::size_t)) {
  const std::size_t row = record_->focusedRow();
  if (row == SelectionRules::kNoRow || selected_->filtering()) return;
  edit([&] { return (rules_.*step)(row); });
}

void TarnSelect::moveRows(const std::vector<std::size_t>& rows, std::size_t before) {
  edit([&] { return rules_.moveRows(rows, before); });
}

void TarnSelect::selectRow(std::size_t row) {
  if (row != SelectionRules::kNoRow) record_->selectRow(row);
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

}  // namespace tarnlog
