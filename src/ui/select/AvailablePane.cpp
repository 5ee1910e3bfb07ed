#include "ui/select/AvailablePane.h"

#include <QAction>
#include <QActionGroup>
#include <QItemSelectionModel>
#include <QShortcut>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

#include "ui/common/Convert.h"
#include "ui/common/FilterBox.h"
#include "ui/common/HintedTreeView.h"
#include "ui/common/Icons.h"
#include "ui/select/CatalogueModel.h"
#include "ui/select/TreeExpansion.h"

namespace tarnlog {

AvailablePane::AvailablePane(SelectionRules& rules, CatalogueModel& catalogue, QWidget* parent)
    : QGroupBox(tr("Available data"), parent),
      rules_(rules),
      catalogue_(catalogue),
      tree_(new HintedTreeView(this)),
      filter_(new FilterBox(*tree_, this)),
      tbSelect_(new QToolBar(this)) {
  setObjectName("FrChooseData");
  createShapes();
  filter_->setObjectName("filterAllData");
  filter_->setAccessibleName(tr("Filter the available data"));
  filter_->setToolTip(tr("Words of name, request, ECU or unit (Ctrl+F)"));
  connect(filter_, &QLineEdit::textChanged, this, &AvailablePane::filter);
  createTree();
  addEnterKeys();
  auto* const column = new QVBoxLayout(this);
  column->addWidget(tbSelect_);
  column->addWidget(filter_);
  column->addWidget(tree_, 1);
  showShape();
  showHint();
}

void AvailablePane::createShapes() {
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
}

void AvailablePane::createTree() {
  tree_->setObjectName("TreeAllData");
  tree_->setAccessibleName(tr("Available data"));
  tree_->setModel(&catalogue_);
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  tree_->setExpandsOnDoubleClick(false);
  tree_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  tree_->setDragDropMode(QAbstractItemView::DragDrop);
  tree_->setDropIndicatorShown(false);
  expansion_ = new TreeExpansion(*tree_, catalogue_, rules_);
  connect(tree_, &QTreeView::doubleClicked, this, &AvailablePane::activate);
  connect(tree_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &AvailablePane::selectionChanged);
  connect(&catalogue_, &QAbstractItemModel::modelReset, this, &AvailablePane::selectionChanged);
}

void AvailablePane::addEnterKeys() {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* const shortcut = new QShortcut(key, tree_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, [this] {
      if (tree_->selectionModel()->selectedIndexes().size() > 1)
        emit addWanted(selectedNodes());
      else
        activate(tree_->currentIndex());
    });
  }
}

void AvailablePane::refresh() { expansion_->restore(); }

void AvailablePane::beginAnew() {
  expansion_->forget();
  showShape();
  showHint();
}

void AvailablePane::showHint() {
  QString hint = rules_.xmlSession() == nullptr ? tr("No vehicle.") : tr("The vehicle offers no data.");
  if (rules_.filtering()) hint = tr("No data with these words.");
  tree_->setHint(hint);
}

bool AvailablePane::hasSelection() const { return tree_->selectionModel()->hasSelection(); }

std::vector<CatalogueNode> AvailablePane::selectedNodes() const {
  return catalogue_.nodes(tree_->selectionModel()->selectedIndexes());
}

void AvailablePane::goOnAt(const QModelIndex& index) {
  if (!hasSelection() && index.isValid()) tree_->setCurrentIndex(index);
}

void AvailablePane::focusFilter() {
  filter_->setFocus(Qt::ShortcutFocusReason);
  filter_->selectAll();
}

std::vector<QWidget*> AvailablePane::stops() const {
  std::vector<QWidget*> stops;
  for (QAction* const shape : tbSelect_->actions()) stops.push_back(tbSelect_->widgetForAction(shape));
  stops.insert(stops.end(), {filter_, tree_});
  return stops;
}

void AvailablePane::showShape() {
  for (QAction* const shape : tbSelect_->actions())
    shape->setChecked(shape->objectName() == QString(QLatin1Char(rules_.tree().mode)));
}

void AvailablePane::chooseShape(char key) {
  rules_.setShape(key);
  refresh();
}

void AvailablePane::filter(const QString& text) {
  rules_.setFilter(fromQString(text));
  refresh();
  showHint();
}

/// A double click, or Enter.
void AvailablePane::activate(const QModelIndex& index) {
  if (!index.isValid()) return;
  const CatalogueNode node = catalogue_.node(index);
  if (rules_.addsOnDoubleClick(node))
    emit addWanted({node});
  else
    tree_->setExpanded(index, !tree_->isExpanded(index));
}

}  // namespace tarnlog
