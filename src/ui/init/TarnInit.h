#pragma once

#include <QGroupBox>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <QTreeWidget>
#include <QWidget>
#include <memory>
#include <vector>

#include "ui/common/HelpPanel.h"
#include "ui/common/Notice.h"
#include "ui/init/InitRules.h"

namespace tarnlog {

/// The screen of the initialisation scenario: the request that starts the sessions, and the requests that are
/// sent to single ECUs before polling. What the user changes is written into the configuration at once.
class TarnInit : public QWidget {
  Q_OBJECT

 public:
  explicit TarnInit(QWidget* parent = nullptr);

  /// Kept until the next `setParameters`, which shows its requests. The host owns it. May be null.
  void setSession(ferrox3::Session* session) { rules_.setSession(session); }
  /// Shows the configuration anew. Without a session the screen stays as it is; null clears the tree.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return rules_.Parameters(); }

  static std::vector<HelpRow> helpRows();

 signals:
  /// The user changed the configuration.
  void edited();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QGroupBox* createGlobal();
  QGroupBox* createScenario();
  QLayout* createTransferButtons();
  QLayout* createMoveButtons();
  void createTree();
  void createList();
  void connectControls();
  void addShortcuts();

  void fillRequestTree();
  void displayScenario();
  void showStartSession();
  void markStartSession();
  void enableButtons();

  InitRules::Rows selectedRows() const;
  void addSelected();
  void act(bool changed);

  InitRules rules_;
  std::vector<OfferedEcu> shown_;  ///< what the tree holds
  QLineEdit* startSession_ = nullptr;
  QAction* startSessionMark_ = nullptr;
  QTreeWidget* requests_ = nullptr;
  QTreeWidget* scenario_ = nullptr;
  QPushButton* add_ = nullptr;
  QPushButton* remove_ = nullptr;
  QPushButton* up_ = nullptr;
  QPushButton* down_ = nullptr;
  Notice* notice_ = nullptr;
};

}  // namespace tarnlog
