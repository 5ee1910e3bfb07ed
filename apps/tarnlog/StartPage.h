#pragma once

#include <QWidget>
#include <string>
#include <vector>

class QListWidget;
class QPushButton;

namespace tarnlog {

/// What is shown before there is a vehicle: the recent ones, the examples that came along, and the way to any
/// other.
class StartPage : public QWidget {
  Q_OBJECT
 public:
  explicit StartPage(QWidget* parent = nullptr);

  /// Paths of vehicle descriptions. An example that is recent is shown once.
  void setVehicles(const std::vector<std::string>& recent, const std::vector<std::string>& examples);

 signals:
  void vehicleChosen(const QString& path);
  void otherVehicleWanted();

 private:
  void addVehicle(const QString& path, bool example);

  QListWidget* vehicles_;
  QPushButton* other_;
};

}  // namespace tarnlog
