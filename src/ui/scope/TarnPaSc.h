#pragma once

#include <QWidget>
#include <memory>
#include <utility>
#include <vector>

#include "ui/common/HelpPanel.h"
#include "ui/scope/ScopeEditor.h"
#include "ui/scope/ScopePanel.h"

class QAction;
class QMenu;
class QToolButton;

namespace tarnlog {

class ScopeListModel;
class ScopeListView;

/// The screen on which the user decides how each data item is shown while recording. Changes go into the
/// configuration at once.
class TarnPaSc : public QWidget {
  Q_OBJECT

 public:
  explicit TarnPaSc(QWidget* parent = nullptr);

  /// Null when there is none. To be set again after another screen or a load changed the items.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return editor_.Parameters(); }

  /// The catalogue, for the ranges of the data. May be null.
  void setXmlSession(std::shared_ptr<const SessionDocument> document) {
    editor_.setXmlSession(std::move(document));
    panel_->load();
  }

  static std::vector<HelpRow> helpRows();

  /// Instead of the platform's colour dialog.
  void setAskColour(ScopePanel::AskColour ask) { panel_->setAskColour(std::move(ask)); }

 signals:
  /// The user changed the configuration.
  void edited();

 private:
  void makeMenu();
  void addSettings();
  void addAction(const char* name, ScopeAction action, const QString& text, const QString& toolTip);
  QToolButton* makeButton(const char* name, const char* icon, const QString& accessibleName,
                          const QString& toolTip);
  void connectParts();
  void showRow(int row);
  void fillList();
  void refreshRow();
  void move(bool up);
  void apply(ScopeAction action);
  void askForPoints();
  void takePoints(int points);
  std::vector<std::size_t> positions() const;
  void popUpMenu(const QPoint& globalPosition);

  ScopeEditor editor_;
  ScopeListModel* model_ = nullptr;
  ScopeListView* listViewScope_ = nullptr;
  ScopePanel* panel_ = nullptr;
  QToolButton* dataUp_ = nullptr;
  QToolButton* dataDown_ = nullptr;
  QMenu* menuPopup_ = nullptr;
  std::vector<std::pair<QAction*, ScopeAction>> actions_;  ///< of the menu
  QAction* points_ = nullptr;
  bool filling_ = false;  ///< the list is being filled: what it selects is no click
};

}  // namespace tarnlog
