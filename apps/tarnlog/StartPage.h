#pragma once

#include <QStringList>
#include <QWidget>
#include <string>
#include <vector>

#include "apps/tarnlog/CarConnection.h"
#include "ui/common/HelpPanel.h"

class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace tarnlog {

/// What is shown before there is a vehicle: the recent ones, the examples that came along, and the way to any
/// other.
class StartPage : public QWidget {
  Q_OBJECT
 public:
  explicit StartPage(QWidget* parent = nullptr);
  static HelpPage helpPage();

  /// Cars that were connected before, and paths of vehicle descriptions. An example that is recent is shown
  /// once.
  void setVehicles(const std::vector<CarConnection>& connections, const std::vector<std::string>& recent,
                   const std::vector<std::string>& examples);

 signals:
  void vehicleChosen(const QString& path);
  void connectionChosen(const tarnlog::CarConnection& connection);
  void otherVehicleWanted();
  void carWanted();
  void recordWanted();
  /// Files of the desktop were dropped on the page.
  void filesDropped(const QStringList& paths);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void addConnection(const CarConnection& connection);
  void addVehicle(const QString& path, bool example);
  void choose(const QListWidgetItem& item);

  QListWidget* vehicles_;
  QPushButton* car_;
  QPushButton* other_;
  QPushButton* record_;
};

}  // namespace tarnlog
