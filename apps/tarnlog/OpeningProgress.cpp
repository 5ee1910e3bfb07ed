#include "apps/tarnlog/OpeningProgress.h"

#include <QTimer>
#include <chrono>
#include <limits>

namespace tarnlog {

namespace {

constexpr std::chrono::milliseconds kMoment{500};

}  // namespace

OpeningProgress::OpeningProgress(QWidget& window, const QString& what)
    : window_(window), what_(what), dialog_(&window) {
  // It is shown by `show` alone; by itself it would come only once there was progress.
  dialog_.setMinimumDuration(std::numeric_limits<int>::max());
  dialog_.setObjectName("openingProgress");
  dialog_.setWindowTitle(tr("Connecting"));
  dialog_.setWindowModality(Qt::WindowModal);
  dialog_.setRange(0, 0);
  showStep({});
  connect(&dialog_, &QProgressDialog::canceled, this, &OpeningProgress::cancel);
  QTimer::singleShot(kMoment, this, &OpeningProgress::show);
  window_.setEnabled(false);
  dialog_.setEnabled(true);  // it went with its window
}

OpeningProgress::~OpeningProgress() { window_.setEnabled(true); }

void OpeningProgress::showStep(const QString& step) { dialog_.setLabelText(what_ + "\n" + step); }

/// Whoever can click "Cancel" needs a pointer that says so.
void OpeningProgress::show() {
  if (cancelled_) return;
  pointer_.reset();
  dialog_.show();
}

void OpeningProgress::raiseIfCancelled() const {
  if (cancelled_ && std::uncaught_exceptions() == 0) throw OpeningCancelled();
}

}  // namespace tarnlog
