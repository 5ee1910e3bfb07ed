#include "ui/param/SaveFrame.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStorageInfo>
#include <QVBoxLayout>
#include <utility>

#include "ui/common/Convert.h"
#include "ui/common/WheelGuard.h"
#include "ui/param/Drives.h"

namespace tarnlog {

namespace {

/// Lists take the height that is left over.
void fillHeight(QAbstractItemView& list) {
  constexpr int kAtLeast = 80;
  list.setMinimumHeight(kAtLeast);
  list.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

}  // namespace

std::vector<std::string> systemDrives() {
  std::vector<MountedFileSystem> mounted;
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
    if (QFileInfo(volume.rootPath()).isDir())
      mounted.push_back({fromQString(volume.rootPath()), volume.device().toStdString(),
                         volume.fileSystemType().toStdString()});
  return driveFolders(mounted);
}

SaveFrame::SaveFrame(SaveRules& rules, QWidget* parent)
    : QGroupBox(parent),
      rules_(rules),
      fileNames_(new QStringListModel(this)),
      watcher_(new QFileSystemWatcher(this)) {
  setObjectName("FrSave");
  setTitle(tr("Folder and Save parameters"));
  auto* const columns = new QHBoxLayout;
  columns->addLayout(createNames(), 3);
  columns->addSpacing(columns->spacing());
  columns->addLayout(createFolders(), 4);
  columns->addLayout(createFiles(), 3);
  notice_ = new Notice;
  auto* const rows = new QVBoxLayout(this);
  rows->addWidget(notice_);
  rows->addLayout(columns, 1);
  rows->addLayout(createExample());
  setDrives(systemDrives());
  connectControls();
}

QLayout* SaveFrame::createFolders() {
  auto* const label = new QLabel(tr("Destination folder"));
  folder_ = new FolderTree;
  folder_->setObjectName("SaveDir");
  folder_->setAccessibleName(label->text());
  fillHeight(*folder_);
  label->setBuddy(folder_);
  auto* const rows = new QVBoxLayout;
  rows->addWidget(label);
  rows->addWidget(folder_, 1);
  return rows;
}

QLayout* SaveFrame::createFiles() {
  auto* const label = new QLabel(tr("existing file"));
  files_ = new QListView;
  files_->setObjectName("SaveFile");
  files_->setAccessibleName(tr("Files that are in the folder"));
  files_->setTextElideMode(Qt::ElideMiddle);
  files_->setModel(fileNames_);
  files_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  files_->setUniformItemSizes(true);
  fillHeight(*files_);
  label->setBuddy(files_);
  auto* const rows = new QVBoxLayout;
  rows->addWidget(label);
  rows->addWidget(files_, 1);
  return rows;
}

QLayout* SaveFrame::createNames() {
  driveLabel_ = new QLabel(tr("Destination drive"));
  drive_ = new QComboBox;
  drive_->setObjectName("SaveDrive");
  drive_->setAccessibleName(driveLabel_->text());
  driveLabel_->setBuddy(drive_);
  auto* const formatLabel = new QLabel(tr("File format"));
  formatLabel->setObjectName("SaveLbFormat");
  format_ = new QComboBox;
  format_->setObjectName("SaveFormat");
  format_->setAccessibleName(formatLabel->text());
  formatLabel->setBuddy(format_);
  measurement_ = new QCheckBox(tr("Also measurement data (MF4)"));
  measurement_->setObjectName("SaveMeasurement");
  measurement_->setToolTip(
      tr("Writes an ASAM MDF 4 file beside each record: every answer of the vehicle with its own time"));
  auto* const prefixLabel = new QLabel(tr("File Prefix"));
  prefixLabel->setObjectName("SaveLbPrefix");
  prefix_ = new QLineEdit;
  prefix_->setObjectName("SavePrefix");
  prefixLabel->setBuddy(prefix_);
  for (QComboBox* const list : {drive_, format_}) {
    changeByWheelOnlyWithFocus(*list);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(5);
  }
  auto* const button = new QPushButton(tr("Browse..."));
  button->setObjectName("SaveBrowse");
  connect(button, &QPushButton::clicked, this, &SaveFrame::browse);
  auto* const form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(driveLabel_, drive_);
  form->addRow(button);
  form->addRow(formatLabel, format_);
  form->addRow(measurement_);
  form->addRow(prefixLabel, prefix_);
  return form;
}

QLayout* SaveFrame::createExample() {
  auto* const label = new QLabel(tr("Ex :"));
  example_ = new ElidedLabel;
  example_->setObjectName("SaveExample");
  auto* const row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(example_, 1);
  return row;
}

void SaveFrame::connectControls() {
  connect(folder_, &FolderTree::folderChosen, this, [this](const QString& folder) {
    const bool changed = rules_.setFolder(fromQString(folder));
    showDrive();
    refreshFiles();
    acted(changed);
  });
  connect(drive_, &QComboBox::activated, this, [this](int entry) {
    const bool changed = rules_.setDrive(drives_.at(static_cast<std::size_t>(entry)), drives_);
    showFolder();
    acted(changed);
  });
  connect(format_, &QComboBox::currentIndexChanged, this, [this] {
    if (refreshing_) return;
    const bool changed = rules_.setFormat(fromQString(format_->currentText()));
    refreshFiles();
    acted(changed);
  });
  connect(measurement_, &QCheckBox::clicked, this, [this](bool on) { rules_.measurement().set(on); });
  connect(prefix_, &QLineEdit::textChanged, this, [this](const QString& prefix) {
    if (!refreshing_) acted(rules_.setPrefix(fromQString(prefix)));
  });
  connect(watcher_, &QFileSystemWatcher::directoryChanged, this, &SaveFrame::refreshFiles);
}

/// The dialog has no loop of its own: an acquisition may be ending meanwhile.
void SaveFrame::browse() {
  auto* const dialog = new QFileDialog(this, tr("Destination folder"), toQString(rules_.folder()));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& folder) {
    const bool changed = rules_.setFolder(fromQString(folder));
    showFolder();
    acted(changed);
  });
  dialog->open();
}

void SaveFrame::setDrives(std::vector<std::string> drives) {
  drives_ = std::move(drives);
  drive_->clear();
  for (const std::string& drive : drives_) drive_->addItem(toQString(drive));
  driveLabel_->setVisible(drives_.size() > 1);
  drive_->setVisible(drives_.size() > 1);
  showDrive();
}

void SaveFrame::refresh() {
  const QScopedValueRollback<bool> quiet(refreshing_, true);
  format_->clear();
  for (const std::string& format : rules_.formats()) format_->addItem(toQString(format));
  format_->setCurrentText(toQString(rules_.format()));
  measurement_->setChecked(rules_.measurement().on());
  if (const QString prefix = toQString(rules_.prefix()); prefix_->text() != prefix) prefix_->setText(prefix);
  showFolder();
  showExample();
}

void SaveFrame::showFolder() {
  folder_->showFolder(toQString(rules_.folder()));
  showDrive();
  refreshFiles();
}

void SaveFrame::showDrive() { drive_->setCurrentIndex(driveOf(rules_.folder(), drives_)); }

void SaveFrame::refreshFiles() {
  const QDir folder(toQString(rules_.folder()));
  if (const QStringList watched = watcher_->directories(); !watched.isEmpty()) watcher_->removePaths(watched);
  if (folder.exists()) watcher_->addPath(folder.absolutePath());
  fileNames_->setStringList(folder.entryList({toQString(rules_.pattern())}, QDir::Files, QDir::Name));
  showExample();
}

void SaveFrame::showExample() {
  example_->setText(toQString(rules_.example()));
  const QString folder = QDir::toNativeSeparators(toQString(rules_.folder()));
  switch (rules_.problem()) {
    case SaveRules::Problem::none:
      return notice_->setText({});
    case SaveRules::Problem::folderMissing:
      return notice_->setText(
          tr("The folder %1 does not exist: records will go to the current folder instead.").arg(folder));
    case SaveRules::Problem::folderReadOnly:
      return notice_->setText(tr("No files can be made in the folder %1.").arg(folder));
    case SaveRules::Problem::prefixNamesFolder:
      return notice_->setText(
          tr("The prefix contains a \"/\": records will go to a folder below, which must exist."));
  }
}

void SaveFrame::acted(bool changed) {
  showExample();
  if (changed) emit edited();
}

}  // namespace tarnlog
