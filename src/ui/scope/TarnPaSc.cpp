#include "ui/scope/TarnPaSc.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QMenu>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "ui/common/Convert.h"
#include "ui/common/Icons.h"
#include "ui/scope/ScopeListModel.h"
#include "ui/scope/ScopeListView.h"

namespace tarnlog {

namespace {

constexpr int kBetweenButtons = 10;

void askPlatform(QWidget* parent, const QColor& initial, std::function<void(const QColor&)> chosen) {
  for (std::size_t i = 0; i < kScopePalette.size(); ++i)
    QColorDialog::setCustomColor(static_cast<int>(i), toQColor(static_cast<Colour>(paletteColour(i)), {}));
  auto* const dialog = new QColorDialog(initial, parent);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  QObject::connect(dialog, &QColorDialog::colorSelected, parent, std::move(chosen));
  dialog->open();
}

}  // namespace

TarnPaSc::TarnPaSc(QWidget* parent) : QWidget(parent) {
  model_ = new ScopeListModel(this);
  listViewScope_ = new ScopeListView;
  listViewScope_->setObjectName("ListViewScope");
  listViewScope_->setAccessibleName(tr("Data and how they are shown"));
  listViewScope_->setAccessibleDescription(
      tr("Up and Down move the data; with Ctrl they go from row to row; Shift+F10 opens the menu"));
  listViewScope_->setModel(model_);
  panel_ = new ScopePanel(editor_);
  panel_->setAskColour(askPlatform);
  dataUp_ = makeButton("dataUp", "up", tr("Move up"), tr("Move the data up (Up arrow in the list)"));
  dataDown_ =
      makeButton("dataDown", "down", tr("Move down"), tr("Move the data down (Down arrow in the list)"));

  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(kBetweenButtons);
  buttons->addWidget(dataUp_);
  buttons->addWidget(dataDown_);
  buttons->addStretch();
  auto* const column = new QVBoxLayout;
  column->addLayout(buttons);
  column->addWidget(panel_, 1);
  auto* const screen = new QHBoxLayout(this);
  screen->addWidget(listViewScope_, 1);
  screen->addLayout(column);
  setTabOrder(listViewScope_, dataUp_);
  setTabOrder(dataUp_, dataDown_);
  setFocusProxy(listViewScope_);
  makeMenu();
  connectParts();
  fillList();
}

QToolButton* TarnPaSc::makeButton(const char* name, const char* icon, const QString& accessibleName,
                                  const QString& toolTip) {
  auto* const button = new QToolButton;
  button->setObjectName(name);
  button->setIcon(tarnIcon(icon));
  button->setAccessibleName(accessibleName);
  button->setToolTip(toolTip);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

void TarnPaSc::makeMenu() {
  menuPopup_ = new QMenu(this);
  menuPopup_->setObjectName("MenuPopup");
  menuPopup_->setAccessibleName(listViewScope_->accessibleName());
  menuPopup_->setToolTipsVisible(true);
  addAction("MenuPopupNone", ScopeAction::None, tr("&None"),
            tr("Record the selected data without showing them"));
  addAction("MenuPopupNumeric", ScopeAction::Numeric, tr("&Digital"), tr("Show each as digits or text"));
  addAction("MenuPopupBarGraph", ScopeAction::BarGraph, tr("&BarGraph"),
            tr("Show each as a bar from 0 to 100"));
  addAction("MenuPopupGraph", ScopeAction::Graph, tr("&Graph"), tr("A graph for each"));
  addAction("MenuPopupSingle", ScopeAction::Single, tr("&Single graph"),
            tr("All on the graph of the first one"));
  addAction("MenuPopupXY", ScopeAction::XY, tr("&X-Y graph"),
            tr("All on the graph of the first one, the last as its X axis"));
  menuPopup_->addSeparator();
  addAction("MenuPopupUnify", ScopeAction::Unify, tr("&Unify number of points"),
            tr("Give all selected graphs the number of points of the first one"));
  addSettings();
}

/// What changes settings of all selected data at once.
void TarnPaSc::addSettings() {
  points_ = menuPopup_->addAction(tr("Number of &points..."), this, &TarnPaSc::askForPoints);
  points_->setObjectName("MenuPopupPoints");
  points_->setToolTip(tr("Of all selected graphs"));
  addAction("MenuPopupColours", ScopeAction::Colours, tr("&Colours in turn"),
            tr("Give the selected graphs and curves colours that are easily told apart"));
  addAction("MenuPopupAutomaticOn", ScopeAction::AutomaticOn, tr("&Automatic range"),
            tr("The axes of the selected graphs follow the values"));
  addAction("MenuPopupAutomaticOff", ScopeAction::AutomaticOff, tr("&Fixed range"),
            tr("The axes of the selected graphs go from their minimum to their maximum"));
  addAction("MenuPopupEmptyCaption", ScopeAction::EmptyCaption, tr("&Empty captions"),
            tr("The selected data are shown under their own names"));
}

void TarnPaSc::addAction(const char* name, ScopeAction action, const QString& text, const QString& toolTip) {
  QAction* const entry = menuPopup_->addAction(text, this, [this, action] { apply(action); });
  entry->setObjectName(name);
  entry->setToolTip(toolTip);
  actions_.emplace_back(entry, action);
}

void TarnPaSc::connectParts() {
  connect(listViewScope_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) { showRow(current.row()); });
  connect(listViewScope_, &ScopeListView::moveUpRequested, this, [this] { move(true); });
  connect(listViewScope_, &ScopeListView::moveDownRequested, this, [this] { move(false); });
  connect(listViewScope_, &ScopeListView::menuRequested, this, &TarnPaSc::popUpMenu);
  connect(dataUp_, &QToolButton::clicked, this, [this] { move(true); });
  connect(dataDown_, &QToolButton::clicked, this, [this] { move(false); });
  connect(panel_, &ScopePanel::typeEdited, this, [this] {
    fillList();
    emit edited();
  });
  connect(panel_, &ScopePanel::colourEdited, this, [this] {
    refreshRow();
    emit edited();
  });
  connect(panel_, &ScopePanel::valueEdited, this, &TarnPaSc::edited);
}

std::vector<HelpRow> TarnPaSc::helpRows() {
  return {
      {tr("Up, Down"), tr("In the list: move the data up, down")},
      {tr("Ctrl+Up, Ctrl+Down"), tr("In the list: go from row to row")},
      {tr("Shift+click, Ctrl+A"), tr("Select several data, all data")},
      {tr("Shift+F10, Menu"), tr("What can be done to all selected data: graphs, colours, ranges, captions")},
  };
}

void TarnPaSc::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  editor_.setParameters(std::move(parameters));
  fillList();
}

void TarnPaSc::showRow(int row) {
  if (filling_ || row < 0) return;
  editor_.show(static_cast<std::size_t>(row) + 1);
  panel_->load();
}

void TarnPaSc::fillList() {
  const QScopedValueRollback filling(filling_, true);
  model_->setRows(Parameters() == nullptr ? std::vector<ScopeRow>() : scopeRows(*Parameters()));
  if (editor_.current() == nullptr) editor_.show(1);
  const int row = static_cast<int>(editor_.currentPosition()) - 1;
  const bool kept =
      row == listViewScope_->currentIndex().row() && listViewScope_->selectionModel()->hasSelection();
  if (row >= 0 && !kept) listViewScope_->selectRow(row);
  panel_->load();
  dataUp_->setEnabled(row >= 0);
  dataDown_->setEnabled(row >= 0);
}

void TarnPaSc::refreshRow() {
  if (const oTarnScope* const scope = editor_.current())
    model_->setRow(static_cast<int>(editor_.currentPosition()) - 1, scopeRow(*Parameters(), *scope));
}

void TarnPaSc::move(bool up) {
  if (!(up ? editor_.moveUp() : editor_.moveDown())) return;
  fillList();
  emit edited();
}

/// From 1.
std::vector<std::size_t> TarnPaSc::positions() const {
  std::vector<std::size_t> positions = listViewScope_->selectedRows();
  for (std::size_t& position : positions) ++position;
  return positions;
}

void TarnPaSc::apply(ScopeAction action) {
  if (!editor_.apply(action, positions())) return;
  fillList();
  emit edited();
}

/// The dialog has no loop of its own: an acquisition may be ending meanwhile.
void TarnPaSc::askForPoints() {
  const auto points = editor_.pointsOf(positions());
  if (!points) return;
  auto* const dialog = new QInputDialog(this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setObjectName("askPoints");
  dialog->setWindowTitle(tr("Number of points"));
  dialog->setLabelText(tr("Values that the selected graphs show across their width:"));
  dialog->setInputMode(QInputDialog::IntInput);
  dialog->setIntRange(1, ScopePanel::kMostPoints);
  dialog->setIntValue(*points);
  connect(dialog, &QInputDialog::intValueSelected, this, &TarnPaSc::takePoints);
  dialog->open();
}

void TarnPaSc::takePoints(int points) {
  if (!editor_.applyPoints(points, positions())) return;
  fillList();
  emit edited();
}

void TarnPaSc::popUpMenu(const QPoint& globalPosition) {
  // Some platforms report the menu key twice, as a key and as a wish for the menu.
  if (menuPopup_->isVisible() || listViewScope_->selectedRows().empty()) return;
  for (const auto& [entry, action] : actions_) entry->setEnabled(editor_.actsOn(action, positions()));
  points_->setEnabled(editor_.pointsOf(positions()).has_value());
  menuPopup_->popup(globalPosition);
}

}  // namespace tarnlog
