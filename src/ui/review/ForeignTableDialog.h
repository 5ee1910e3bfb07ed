#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "platform/files/ReadableFile.h"
#include "records/ForeignTable.h"

class QComboBox;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace tarnlog {

class Notice;
class SettingsStore;

/// How a table of another program is to be read, with its first lines as they are read so. What was chosen
/// the last time is chosen already, where it suits the file; else what seems to suit it.
class ForeignTableDialog : public QDialog {
  Q_OBJECT
 public:
  /// Raises a TarnError for a file that cannot be read or is no table.
  explicit ForeignTableDialog(const std::string& path, SettingsStore* settings, QWidget* parent = nullptr);

  ForeignTableChoice choice() const;
  void accept() override;

 private:
  void createInputs(const ForeignTableChoice& proposed);
  QComboBox* addChoice(const char* name, const QString& accessibleName);
  void arrange();
  void read();
  void fillTimeColumns();
  void showPreview();
  void showTrouble();
  std::size_t columns() const;

  SystemReadableFile file_;
  SettingsStore* settings_;  ///< null: nothing is remembered
  std::vector<std::vector<std::string>> lines_;
  QComboBox* separator_ = nullptr;
  QComboBox* decimal_ = nullptr;
  QSpinBox* headers_ = nullptr;
  QComboBox* time_ = nullptr;
  QComboBox* unit_ = nullptr;
  QComboBox* coding_ = nullptr;
  QTableWidget* preview_ = nullptr;
  Notice* trouble_ = nullptr;
  QPushButton* accept_ = nullptr;
};

}  // namespace tarnlog
