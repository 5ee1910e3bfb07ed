#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QTimer>

#include "host/link/SystemLinkClock.h"
#include "host/vehicle/Vehicle.h"
#include "platform/base/TarnError.h"
#include "platform/files/SystemFileSystem.h"
#include "ui/main/TarnMain.h"

namespace {

void tell(QWidget* window, const tarnlog::TarnError& error) {
  QMessageBox::critical(window, "Embed", QString::fromStdString(error.description()));
}

/// The program's own window with the recorder in it.
int show(tarnlog::ferrox3::Session& session, const QStringList& arguments) {
  QMainWindow window;
  auto* const recorder = new tarnlog::TarnMain(&window);
  window.setCentralWidget(recorder);
  window.resize(1000, 700);
  window.show();
  try {
    recorder->setSession(&session);
    if (arguments.size() > 2) recorder->OpenConfigFile(arguments[2].toStdString());
  } catch (const tarnlog::TarnError& error) {
    tell(&window, error);
  }
  if (arguments.size() > 3)  // a picture of what it shows, then the end
    QTimer::singleShot(1000, &window, [&] { window.grab().save(arguments[3]) && window.close(); });
  return QApplication::exec();
}

}  // namespace

/// embed VEHICLE [CONFIGURATION [PICTURE]]
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) return 2;
  tarnlog::SystemFileSystem files;
  tarnlog::host::SystemLinkClock clock;
  try {
    // While the vehicle is awaited, the window goes on living.
    const auto vehicle =
        tarnlog::host::openVehicle(arguments[1].toStdString(), files, tarnlog::systemLocale(), clock,
                                   [] { QCoreApplication::processEvents(); });
    return show(vehicle->session(), arguments);
  } catch (const tarnlog::TarnError& error) {
    tell(nullptr, error);
    return 1;
  }
}
