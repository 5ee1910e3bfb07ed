#pragma once

#include <QCoreApplication>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ui/main/MainEnvironment.h"
#include "ui/main/RecentFiles.h"
#include "ui/review/ReviewEnvironment.h"

class QMenu;

namespace tarnlog {

class ReviewWindow;

/// Looking at records, for the recorder's window: one window for it, made when it is first wanted, and the
/// records that were opened last.
class RecordViewer {
  Q_DECLARE_TR_FUNCTIONS(RecordViewer)

 public:
  /// What the viewer asks of the recorder.
  struct Recorder {
    /// Brings the recorder's window to the front.
    std::function<void()> show;
    /// Runs what must not hold up a request.
    std::function<void(std::function<void()> action)> whenIdle;
    std::function<bool(const std::string& path)> isBeingRecorded;
  };

  /// What is in the environment outlives it.
  RecordViewer(const MainEnvironment& environment, Recorder recorder);
  ~RecordViewer();

  /// In place of what is looked at. The second and third are laid over the first.
  void open(const std::vector<std::string>& paths);
  /// Asks which one.
  void askOpen();
  /// Of the recorder's menu.
  void addActions(QMenu& menu);
  /// The window goes, if there is one.
  void close();

  /// Null until something was opened.
  ReviewWindow* window() { return window_.get(); }

 private:
  ReviewWindow& shown();

  ReviewEnvironment environment_;
  SettingsStore& settings_;
  RecentFiles recent_;
  std::function<void()> showRecorder_;
  std::unique_ptr<ReviewWindow> window_;
};

}  // namespace tarnlog
