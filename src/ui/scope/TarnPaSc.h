#pragma once

#include <QWidget>
#include <memory>

#include "ui/scope/ScopeEditor.h"
#include "ui/scope/ScopePanel.h"

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

  /// Instead of the platform's colour dialog.
  void setAskColour(ScopePanel::AskColour ask) { panel_->setAskColour(std::move(ask)); }

 signals:
  /// The user changed the configuration.
  void edited();

 private:
  void makeMenu();
  QToolButton* makeButton(const char* name, const char* icon, const QString& accessibleName,
                          const QString& toolTip);
  void connectParts();
  void showRow(int row);
  void fillList();
  void refreshRow();
  void move(bool up);
  void apply(ScopeAction action);
  void popUpMenu(const QPoint& globalPosition);

  ScopeEditor editor_;
  ScopeListModel* model_ = nullptr;
  ScopeListView* listViewScope_ = nullptr;
  ScopePanel* panel_ = nullptr;
  QToolButton* dataUp_ = nullptr;
  QToolButton* dataDown_ = nullptr;
  QMenu* menuPopup_ = nullptr;
  bool filling_ = false;  ///< the list is being filled: what it selects is no click
};

}  // namespace tarnlog
