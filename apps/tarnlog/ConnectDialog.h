#pragma once

#include <QDialog>
#include <functional>
#include <optional>
#include <vector>

#include "apps/tarnlog/CarConnection.h"
#include "apps/tarnlog/LinkChoices.h"

class QBoxLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QToolButton;

namespace tarnlog {

class Notice;
struct Guide;

/// Asks how a car is reached and what is known about it. It stays open until the connection stands: what
/// fails is said in it, for the user to mend and to try again.
class ConnectDialog : public QDialog {
  Q_OBJECT
 public:
  /// Asks for a file that exists, maybe later, when no request is under way; the arguments are title,
  /// proposed file, filter, and what takes the file.
  using AskFile = std::function<void(const QString&, const QString&, const QString&,
                                     std::function<void(const QString&)>)>;

  ConnectDialog(const std::vector<CarConnection>& recent, const std::vector<LinkChoice>& choices,
                AskFile askFile, const Guide& guide, QWidget* parent = nullptr);

  CarConnection connection() const;
  /// With what to do about it.
  void setFailure(const QString& text);

 signals:
  /// "Connect" was pressed.
  void connectWanted();

 private:
  QBoxLayout* createLinkRow();
  QBoxLayout* createVehicleRows();
  QBoxLayout* createFailureRow(const Guide& guide);
  void addRecent(const CarConnection& connection);
  void addChoice(const LinkChoice& choice);
  void choose(int row);
  void showState();
  void browseLink();
  void browseVehicle();

  AskFile askFile_;
  std::vector<CarConnection> connections_;  ///< one for each row of `links_`
  QListWidget* links_;
  QLineEdit* link_;
  QToolButton* browseLink_;
  QRadioButton* askCar_;
  QRadioButton* described_;
  QLineEdit* vehicle_;
  QToolButton* browseVehicle_;
  Notice* failure_;
  QPushButton* messages_;
  QPushButton* connect_;
};

}  // namespace tarnlog
