#pragma once

#include <QDialog>

#include "platform/settings/SettingsStore.h"

class QLineEdit;
class QMenu;

namespace tarnlog {

class Dialogs;
class Notice;

/// Asks where values are published while they are acquired: the broker's address, and the file with what it
/// asks for. What cannot be used is said in it.
class PublishDialog : public QDialog {
  Q_OBJECT
 public:
  /// Both outlive it.
  PublishDialog(SettingsStore& settings, Dialogs& dialogs, QWidget* parent = nullptr);

  void accept() override;

 private:
  void browse();

  SettingsStore& settings_;
  Dialogs& dialogs_;
  QLineEdit* to_;
  QLineEdit* access_;
  Notice* failure_;
};

/// An entry that opens it; all outlive the menu.
void addPublishing(QMenu& menu, SettingsStore& settings, Dialogs& dialogs, QWidget& window);

}  // namespace tarnlog
