#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/ferrox3/Session.h"

class QTabBar;

namespace tarnlog {

class AcqView;
class HelpPanel;
class LogView;
class Measurement;
class PollCosts;
class NoticeBar;
class RecordingGuard;
class Tarn2001;
class TarnAcq;
class SettingsStore;
class oTarnParameters;
struct MainEnvironment;

/// The recorder, whole, for a place on a host's window: configuring, acquiring and the log of the latest
/// acquisition. One thread, the user interface's. Deleting it ends an acquisition in order; nobody may do so
/// from inside a request, that is while the session lets events run.
class TarnMain : public QWidget {
  Q_OBJECT
 public:
  /// With the clock, files, settings, dialogs and locale of this system.
  explicit TarnMain(QWidget* parent = nullptr);
  /// With those that it is given, which outlive it.
  explicit TarnMain(const MainEnvironment& environment, QWidget* parent = nullptr);
  ~TarnMain() override;

  /// The diagnostic session to record from; the host owns it and keeps it until it has given another (or
  /// null) and no request of the old one is under way. Every assignment begins anew with an empty
  /// configuration, but for one that the user opened before there was a session, and ends an acquisition.
  /// What the session raises while its catalogue is read is raised; there is no session then.
  void setSession(ferrox3::Session* session);
  /// Loads a configuration file (UTF-8 path) and starts acquiring at once. Raises a TarnError with source
  /// "Tarnlog2001" and a description that begins with "Open file error : " when the file cannot be loaded, or
  /// while the configuration view is not the one shown; and the error of an acquisition that cannot start.
  /// The configuration view is shown then.
  void OpenConfigFile(const std::string& filename);

  /// Path of the configuration's file, empty when it has none yet; and whether it was changed since.
  std::string configurationFile() const;
  bool configurationChanged() const;
  /// Asks the user what to do with changed work before it would be lost. False when it must be kept.
  bool configurationMayBeLost();
  /// Asks the acquisition to end, files closed; `acquisitionStopped` comes exactly once, maybe before this
  /// returns. The configuration view takes the place of the acquisition's.
  void stopAcquisition();
  /// A recording runs, in an acquisition that nobody has asked to end.
  bool recordingRuns() const;
  /// For what ends the acquisition by the user's wish (closing, another vehicle): runs `then` at once when
  /// nothing records, else once the environment's question was answered with yes. A later wish takes the
  /// place of one that waits; when the recording ends while the question is open, `then` is dropped with it.
  /// `then` may run inside a request.
  void whenRecordingMayEnd(std::function<void()> then);

  /// Shows or closes the keys of the view that is shown; F1 does the same.
  void toggleHelp();
  /// Gives the keyboard to the view that is shown.
  void focusView();
  /// The configuration view with one of its screens in front. A recording that runs is asked about first.
  void openScreen(const QString& key);

  Tarn2001& ctlTarnConfigure() { return *configure_; }
  TarnAcq& ctlTarnAcq();
  /// How well recordings go, and the measurement files that the user may ask for.
  Measurement& measurement() { return *measurement_; }
  NoticeBar& notices() { return *notices_; }

 signals:
  /// The configuration's file, or whether it was changed, may be another.
  void configurationStateChanged();
  void acquisitionStopped();

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// Its number in the acquisition; none when no recording runs.
  std::optional<std::int32_t> runningRecording() const;

  class OwnEnvironment;
  TarnMain(std::unique_ptr<OwnEnvironment> own, QWidget* parent);

  void create(const MainEnvironment& environment);
  void createAcquisition(const MainEnvironment& environment);
  void createTabs();
  void onTab(int tab);
  void enter(const QString& key);
  void enterConfiguration();
  void enterAcquisition();
  void enterLog();
  void showConfiguration();
  void offerToMend(const QString& failure);
  void offerToEnd();
  void withdrawOffer();
  void selectTab(const QString& key);
  bool current(const char* key) const;

  std::unique_ptr<OwnEnvironment> own_;
  const SettingsStore* settings_ = nullptr;  ///< defaults of new configurations
  std::shared_ptr<oTarnParameters> parameters_;
  NoticeBar* notices_ = nullptr;
  HelpPanel* help_ = nullptr;
  QTabBar* tabs_ = nullptr;
  Tarn2001* configure_ = nullptr;
  AcqView* acq_ = nullptr;
  LogView* log_ = nullptr;
  RecordingGuard* guard_ = nullptr;
  std::unique_ptr<Measurement> measurement_;
  std::unique_ptr<PollCosts> costs_;
};

}  // namespace tarnlog
