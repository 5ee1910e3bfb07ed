#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QFileSystemWatcher>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>
#include <string>
#include <vector>

#include "ui/common/ElidedLabel.h"
#include "ui/common/Notice.h"
#include "ui/param/FolderTree.h"
#include "ui/param/SaveRules.h"

namespace tarnlog {

/// The frame that says where records go: drive, folder, format and prefix; beside them the files that are
/// there already.
class SaveFrame : public QGroupBox {
  Q_OBJECT

 public:
  /// The rules must outlive the frame.
  explicit SaveFrame(SaveRules& rules, QWidget* parent = nullptr);

  /// Shows what the rules say, without writing anything.
  void refresh();
  /// Looks at the folder again.
  void refreshFiles();
  /// The folders of the drives; with less than two there is nothing to choose, and no list.
  void setDrives(std::vector<std::string> drives);

 signals:
  /// The user changed where records go.
  void edited();

 private:
  QLayout* createNames();
  QLayout* createFolders();
  QLayout* createFiles();
  QLayout* createExample();
  void connectControls();
  void browse();

  void showFolder();
  void showDrive();
  void showExample();
  void acted(bool changed);

  SaveRules& rules_;
  std::vector<std::string> drives_;
  bool refreshing_ = false;
  QLabel* driveLabel_ = nullptr;
  QComboBox* drive_ = nullptr;
  QComboBox* format_ = nullptr;
  QCheckBox* measurement_ = nullptr;
  QLineEdit* prefix_ = nullptr;
  FolderTree* folder_ = nullptr;
  QListView* files_ = nullptr;
  QStringListModel* fileNames_;
  QFileSystemWatcher* watcher_;
  ElidedLabel* example_ = nullptr;
  Notice* notice_ = nullptr;
};

/// The drives of this machine.
std::vector<std::string> systemDrives();

}  // namespace tarnlog
