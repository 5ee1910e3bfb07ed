#include "ui/review/MarkList.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/common/Convert.h"
#include "ui/common/HintedTreeView.h"
#include "ui/review/MarkListModel.h"
#include "ui/review/SceneJump.h"

namespace tarnlog {

namespace {

constexpr int kTimeCharacters = 16;
constexpr int kMarkCharacters = 36;

}  // namespace

MarkList::MarkList(ReviewScene& scene, const UserLocale& locale, QWidget* parent)
    : QWidget(parent),
      scene_(scene),
      rows_(scene),
      model_(new MarkListModel(rows_, locale, this)),
      list_(new HintedTreeView(this)),
      open_(new QPushButton(tr("&Open the event's file"), this)) {
  list_->setObjectName("reviewMarks");
  list_->setAccessibleName(tr("Marks of the records"));
  list_->setModel(model_);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->header()->setSectionsMovable(false);
  list_->setHint(tr("No marks in this record."));
  const int character = fontMetrics().averageCharWidth();
  const auto give = [&](int section, int characters) {
    list_->setColumnWidth(section,
                          std::max(character * characters, list_->header()->sectionSizeHint(section)));
  };
  give(MarkListModel::kTime, kTimeCharacters);
  give(MarkListModel::kMark, kMarkCharacters);
  connect(list_, &QTreeView::clicked, this, &MarkList::jump);
  connect(list_, &QTreeView::activated, this, &MarkList::jump);
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, &MarkList::showButton);
  connect(model_, &QAbstractItemModel::modelReset, this, &MarkList::showButton);

  open_->setObjectName("openEventFile");
  open_->setToolTip(tr("Lay the event's own file over its record: it has every row around the event"));
  connect(open_, &QPushButton::clicked, this, [this] {
    if (const MarkRows::Row* const row = current()) emit eventFileWanted(eventFile(), row->record);
  });
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(list_, 1);
  auto* const line = new QHBoxLayout;
  line->addWidget(open_);
  line->addStretch(1);
  column->addLayout(line);
  setFocusProxy(list_);
  showButton();
}

void MarkList::follow(unsigned changes, const std::vector<std::string>& paths) {
  paths_ = paths;
  if ((changes & kRecordsChanged) != 0 && rows_.refresh()) model_->refresh();
}

const MarkRows::Row* MarkList::current() const {
  const QModelIndex index = list_->currentIndex();
  return index.isValid() ? &rows_.rows()[static_cast<std::size_t>(index.row())] : nullptr;
}

void MarkList::jump() {
  if (const MarkRows::Row* const row = current()) jumpTo(scene_, row->time);
}

QString MarkList::eventFile() const {
  const MarkRows::Row* const row = current();
  if (row == nullptr || row->record >= paths_.size()) return {};
  for (const std::string& path : MarkRows::eventFiles(row->mark, paths_[row->record]))
    if (QFileInfo(toQString(path)).isFile()) return toQString(path);
  return {};
}

void MarkList::showButton() { open_->setEnabled(!eventFile().isEmpty()); }

}  // namespace tarnlog
