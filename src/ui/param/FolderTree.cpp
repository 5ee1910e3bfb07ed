#include "ui/param/FolderTree.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "ui/common/Icons.h"

namespace tarnlog {

namespace {

QString nearestFolder(QString folder) {
  while (!QFileInfo(folder).isDir() && folder != "/") folder = QFileInfo(folder).absolutePath();
  return folder;
}

}  // namespace

QIcon FolderTree::FolderIcons::icon(IconType /*type*/) const { return tarnIcon("folder"); }
QIcon FolderTree::FolderIcons::icon(const QFileInfo& /*info*/) const { return tarnIcon("folder"); }

FolderTree::FolderTree(QWidget* parent)
    : QTreeView(parent), folders_(new QFileSystemModel(this)), settle_(new QTimer(this)) {
  folders_->setIconProvider(&icons_);
  folders_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  folders_->setOption(QFileSystemModel::DontUseCustomDirectoryIcons);
  folders_->setRootPath("/");
  folders_->sort(0);
  setModel(folders_);
  for (int column = 1; column < folders_->columnCount(); ++column) hideColumn(column);
  setHeaderHidden(true);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  setUniformRowHeights(true);
  // The model reads folders in the background and sorts them later still.
  settle_->setSingleShot(true);
  settle_->setInterval(0);
  connect(settle_, &QTimer::timeout, this, &FolderTree::reveal);
  const auto settle = [this] {
    if (following_) settle_->start();
  };
  connect(folders_, &QFileSystemModel::directoryLoaded, this, settle);
  connect(folders_, &QFileSystemModel::layoutChanged, this, settle);
}

void FolderTree::showFolder(const QString& folder) {
  const QScopedValueRollback<bool> quiet(moving_, true);
  const QString wanted = QFileInfo(folder).absoluteFilePath();
  revealed_ = nearestFolder(wanted);
  following_ = true;
  setCurrentIndex(revealed_ == wanted ? folders_->index(wanted) : QModelIndex());
  reveal();
}

void FolderTree::reveal() {
  const QModelIndex folder = folders_->index(revealed_);
  for (QModelIndex above = folder.parent(); above.isValid(); above = above.parent()) expand(above);
  scrollTo(folder, PositionAtCenter);
  // Sideways no further than a deep folder needs.
  horizontalScrollBar()->setValue(0);
  horizontalScrollBar()->setValue(visualRect(folder).left() - viewport()->width() / 2);
}

void FolderTree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTreeView::currentChanged(current, previous);
  if (moving_ || !current.isValid()) return;
  revealed_ = folders_->filePath(current);
  emit folderChosen(revealed_);
}

bool FolderTree::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel) following_ = false;
  return QTreeView::viewportEvent(event);
}

void FolderTree::keyPressEvent(QKeyEvent* event) {
  following_ = false;
  QTreeView::keyPressEvent(event);
}

/// A folder that disappears makes another one current: that is not the user's choice.
void FolderTree::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) {
  const QScopedValueRollback<bool> quiet(moving_, true);
  QTreeView::rowsAboutToBeRemoved(parent, first, last);
}

/// Nor is the first row that becomes current when the focus comes in.
void FolderTree::focusInEvent(QFocusEvent* event) {
  const QScopedValueRollback<bool> quiet(moving_, true);
  QTreeView::focusInEvent(event);
}

void FolderTree::showEvent(QShowEvent* event) {
  QTreeView::showEvent(event);
  reveal();
}

}  // namespace tarnlog
