#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/tarnlog/CarConnection.h"
#include "apps/tarnlog/LinkChoices.h"
#include "apps/tarnlog/RecordViewer.h"
#include "apps/tarnlog/RecordingNotices.h"
#include "apps/tarnlog/UnfinishedOffer.h"
#include "apps/tarnlog/VehicleSlot.h"
#include "ui/common/NoticeBar.h"
#include "ui/main/MainEnvironment.h"
#include "ui/main/RecentFiles.h"

class QAction;
class QLabel;
class QMenu;
class QStackedWidget;

namespace tarnlog {

class ConnectDialog;
class HelpPanel;
class StartPage;
class TarnMain;
class WhenIdle;

/// What the window needs from around it; all of it outlives the window.
struct WindowEnvironment {
  MainEnvironment recorder;
  /// Where the car is waited for, it lets events run, too.
  VehicleSlot::Opener openVehicle;
  std::string usualLink = {};  ///< of vehicles that are opened without naming one
  std::vector<std::string> exampleVehicles = {};
  std::function<CarDevices()> findDevices = {};
  bool folderPerVehicle = false;  ///< whatever the settings say
  /// The folder below `folder` for the files of a vehicle; `folder` itself, and the reason told, when it
  /// cannot be made.
  std::function<std::string(const std::string& folder, const host::VehicleDescription& vehicle,
                            const std::function<void(const std::string& why)>& tell)>
      folderOfVehicle = {};
  UnfinishedRecords unfinished = {};
  /// Takes a line for whoever reads along at the terminal.
  std::function<void(const std::string& line)> say = {};
};

/// The program's window: first a choice of vehicles, then the recorder on the chosen one. It remembers
/// vehicles, configurations and its place on the screen. Closing ends an acquisition in order first.
class RecorderWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit RecorderWindow(WindowEnvironment environment);
  ~RecorderWindow() override;

  /// Begins anew with this vehicle, unless there is changed work that the user keeps. Failures are shown.
  void openVehicle(const QString& path);
  /// The same over a link of the user's choice.
  void openConnection(const CarConnection& connection);
  /// Opens a configuration and acquires at once; before there is a vehicle, as soon as there is one. The
  /// files go into the folder when one is given. Failures are shown.
  void acquire(const QString& configuration, std::optional<std::string> folder = std::nullopt);
  /// Opens a configuration to look at and to change.
  void openConfiguration(const QString& path);

  /// Ends an acquisition in order, then closes without a question; open ones are cancelled.
  void endAndClose();
  /// Vehicles, configurations and records: those in a window of their own, the second and third laid over the
  /// first.
  void openFiles(const std::vector<std::string>& paths);
  /// In front of other windows.
  void bringUp();

  /// What is told of recordings.
  RecordingNotices& recordings() { return *recordings_; }

  TarnMain& recorder() { return *recorder_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void createContent();
  void createMenus();
  void addFileActions(QMenu& menu);
  void addHelpActions(QMenu& menu);
  void addFolderPerVehicle(QMenu& menu);
  void restorePlace();
  void storePlace();
  void toggleHelp();
  void openOther(const QString& path);
  bool isBeingRecorded(const std::string& path) const;
  void chooseVehicle();
  void connectToCar();
  void connectAsAsked(ConnectDialog& dialog);
  void showChange(bool opened);
  void showNotes();
  void rememberVehicle();
  void forgetVehicle(const CarConnection& connection);
  void acquireWaiting();
  void noteConfiguration();
  void showEarlyConfiguration();
  void lookForUnfinished();
  void showStart();
  void showTitle();
  void showPlace();
  QString vehicleText() const;
  std::string folderFor(const std::string& folder);
  void say(const QString& subject, const QString& text, const NoticeBar::Action& action = {});
  void sayOfVehicle(const QString& subject, const QString& text);
  void askAndClose();
  void closeNow();
  void about();

  WindowEnvironment environment_;
  RecentFiles recentVehicles_;
  RecentFiles recentConfigurations_;
  RecentConnections recentConnections_;
  WhenIdle* whenIdle_;    ///< no request is under way
  WhenIdle* whenOpened_;  ///< no vehicle is being opened
  QString waitingConfiguration_;
  std::optional<std::string> waitingFolder_;
  QString notedConfiguration_;
  bool closing_ = false;
  bool mayClose_ = false;

  QStackedWidget* pages_ = nullptr;
  NoticeBar* notices_ = nullptr;
  StartPage* start_ = nullptr;
  HelpPanel* startHelp_ = nullptr;
  QLabel* place_ = nullptr;  ///< vehicle and link, beside the menus
  QAction* folderPerVehicle_ = nullptr;
  TarnMain* recorder_ = nullptr;
  std::unique_ptr<VehicleSlot> slot_;
  std::optional<RecordViewer> viewer_;
  std::optional<RecordingNotices> recordings_;
  std::optional<UnfinishedOffer> unfinished_;
};

}  // namespace tarnlog
