#include "ui/review/DataList.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "ui/common/FilterBox.h"
#include "ui/common/HintedTreeView.h"

namespace tarnlog {

namespace {

constexpr int kCharacters = 46;  ///< that it is wide where there is room
constexpr int kNameCharacters = 25;
constexpr int kUnitCharacters = 7;
constexpr int kKindCharacters = 12;

}  // namespace

DataList::DataList(ReviewScene& scene, QWidget* parent)
    : QWidget(parent),
      scene_(scene),
      rows_(scene),
      model_(rows_),
      list_(new HintedTreeView(this)),
      filter_(new FilterBox(*list_, this)) {
  filter_->setObjectName("filterReviewData");
  filter_->setAccessibleName(tr("Filter the data of the record"));
  filter_->setPlaceholderText(tr("Filter (Ctrl+F)"));
  filter_->setToolTip(tr("Words of name, request, ECU or unit. Escape shows all."));
  connect(filter_, &QLineEdit::textChanged, this, &DataList::filter);
  createList();
  addKeys();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(filter_);
  column->addWidget(list_, 1);
  setFocusProxy(list_);
  showHint();
}

QSize DataList::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kCharacters, QWidget::sizeHint().height()};
}

void DataList::createList() {
  list_->setObjectName("reviewData");
  list_->setAccessibleName(tr("Data of the record"));
  list_->setModel(&model_);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setDragDropMode(QAbstractItemView::DragOnly);
  list_->header()->setSectionsMovable(false);
  const int character = fontMetrics().averageCharWidth();
  const auto give = [&](int section, int characters) {
    list_->setColumnWidth(section,
                          std::max(character * characters, list_->header()->sectionSizeHint(section)));
  };
  give(DataListModel::kData, kNameCharacters);
  give(DataListModel::kUnit, kUnitCharacters);
  give(DataListModel::kKind, kKindCharacters);
  connect(list_, &QTreeView::doubleClicked, this, [this] { eachSelected(&DataRows::add); });
}

void DataList::addKeys() {
  const auto key = [this](const QKeySequence& keys, void (DataRows::*act)(const CurvePlace&)) {
    auto* const shortcut = new QShortcut(keys, list_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, act] { eachSelected(act); });
  };
  for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
    key(enter, &DataRows::add);
    key(Qt::CTRL | enter, &DataRows::addToChosen);
  }
  key(Qt::Key_Delete, &DataRows::remove);
}

void DataList::eachSelected(void (DataRows::*act)(const CurvePlace&)) {
  std::vector<CurvePlace> places;
  for (const QModelIndex& index : list_->selectionModel()->selectedRows())
    places.push_back(model_.row(index).place);
  for (const CurvePlace& place : places) (rows_.*act)(place);
}

void DataList::follow(unsigned changes) {
  if ((changes & kRecordsChanged) != 0 && rows_.refresh()) {
    model_.refresh();
    showHint();
  }
  if ((changes & (kGraphsChanged | kRecordsChanged)) != 0) model_.marksChanged();
}

void DataList::focusFilter() {
  filter_->setFocus(Qt::ShortcutFocusReason);
  filter_->selectAll();
}

void DataList::filter(const QString& text) {
  model_.setFilter(text);
  showHint();
}

void DataList::showHint() {
  list_->setHint(rows_.filtering() ? tr("No data with these words.") : tr("No data yet."));
}

}  // namespace tarnlog
