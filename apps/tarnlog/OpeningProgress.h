#pragma once

#include <QProgressDialog>
#include <exception>
#include <optional>

#include "ui/common/BusyPointer.h"

namespace tarnlog {

/// The user does not want to wait for the car any longer.
class OpeningCancelled : public std::exception {
 public:
  const char* what() const noexcept override { return "cancelled"; }
};

/// For as long as it lives the window is not to be used, because a car is being opened. What takes longer
/// than a moment is told, with a button to cancel it.
class OpeningProgress : public QObject {
  Q_OBJECT
 public:
  /// `what` tells what is waited for. The window outlives it.
  OpeningProgress(QWidget& window, const QString& what);
  ~OpeningProgress() override;

  /// Tells what is done just now.
  void showStep(const QString& step);
  void cancel() { cancelled_ = true; }
  bool cancelled() const { return cancelled_; }
  /// To be called while the car is waited for: raises OpeningCancelled when the user has cancelled. Not while
  /// another failure is on its way already.
  void raiseIfCancelled() const;

 private:
  void show();

  QWidget& window_;
  QString what_;
  QProgressDialog dialog_;
  std::optional<BusyPointer> pointer_{std::in_place};
  bool cancelled_ = false;
};

}  // namespace tarnlog
