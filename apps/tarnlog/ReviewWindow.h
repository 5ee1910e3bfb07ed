#pragma once

#include <QMainWindow>
#include <functional>

#include "ui/main/RecentFiles.h"
#include "ui/review/ReviewEnvironment.h"

namespace tarnlog {

class TarnReview;

/// A window that looks at records. It stands beside the recorder's, whatever that one does.
class ReviewWindow : public QMainWindow {
  Q_OBJECT
 public:
  /// The references outlive it. `showRecorder` brings the recorder's window to the front.
  ReviewWindow(const ReviewEnvironment& environment, SettingsStore& settings, RecentFiles& recent,
               const std::function<void()>& showRecorder);

  TarnReview& review() { return *review_; }
  /// Shows it in front of others.
  void bringUp();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void createMenus(const Guide& guide, const std::function<void()>& showRecorder);
  void remember(const QString& path);

  SettingsStore& settings_;
  RecentFiles& recent_;
  TarnReview* review_;
};

}  // namespace tarnlog
