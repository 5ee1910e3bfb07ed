#pragma once

#include <QAbstractFileIconProvider>
#include <QFileSystemModel>
#include <QIcon>
#include <QString>
#include <QTimer>
#include <QTreeView>

namespace tarnlog {

/// The folders of this machine as a tree. The current one is the chosen one.
class FolderTree : public QTreeView {
  Q_OBJECT

 public:
  explicit FolderTree(QWidget* parent = nullptr);
  /// Opens the tree at a folder, without a signal. When it does not exist, no folder is current and the tree
  /// opens at the nearest one above.
  void showFolder(const QString& folder);

 signals:
  /// By the user.
  void folderChosen(const QString& folder);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  bool viewportEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;
  void focusInEvent(QFocusEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  class FolderIcons : public QAbstractFileIconProvider {
   public:
    QIcon icon(IconType type) const override;
    QIcon icon(const QFileInfo& info) const override;
  };

  void reveal();

  FolderIcons icons_;
  QFileSystemModel* folders_;
  QTimer* settle_;
  QString revealed_;       ///< the folder that the tree was last opened at
  bool following_ = true;  ///< it stays in view while folders arrive, until the user moves
  bool moving_ = false;    ///< what becomes current now is not the user's choice
};

}  // namespace tarnlog
