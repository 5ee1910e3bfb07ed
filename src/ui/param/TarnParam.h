#pragma once

#include <QPlainTextEdit>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/CWNumEdit.h"
#include "platform/files/FileSystem.h"
#include "platform/settings/SettingsStore.h"
#include "ui/common/HelpPanel.h"
#include "ui/param/ParamRules.h"
#include "ui/param/SaveFrame.h"
#include "ui/param/TriggerFrame.h"

namespace tarnlog {

/// The screen of the recording parameters: comment, period, triggers, and where records go. What the user
/// changes is written into the configuration at once.
class TarnParam : public QWidget {
  Q_OBJECT

 public:
  /// Settings and files must outlive the screen.
  TarnParam(SettingsStore& settings, const FileSystem& files, QWidget* parent = nullptr);

  /// Shows the configuration (null: none); again whenever it changed elsewhere.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return rules_.Parameters(); }

  static std::vector<HelpRow> helpRows();

  /// Folders to offer as drives instead of this machine's mounted file systems.
  void setDrives(std::vector<std::string> drives) { save_->setDrives(std::move(drives)); }

  /// How fast the last acquisition polled, below the period; empty: nobody knows.
  void setPolled(const QString& text);

 signals:
  /// The user changed the configuration.
  void edited();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* createPage();
  QLayout* createComment();
  QWidget* createRecording();
  void enterPeriod(double seconds);

  ParamRules rules_;
  bool refreshing_ = false;
  QPlainTextEdit* comment_ = nullptr;
  CWNumEdit* period_ = nullptr;
  QLabel* polled_ = nullptr;
  TriggerFrame* start_;
  TriggerFrame* stop_;
  SaveFrame* save_;
};

}  // namespace tarnlog
