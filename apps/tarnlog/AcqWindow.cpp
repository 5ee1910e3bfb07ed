#include "apps/tarnlog/AcqWindow.h"

#include <QCloseEvent>
#include <QMetaObject>
#include <utility>

#include "ui/common/Icons.h"

namespace tarnlog {

AcqWindow::AcqWindow(const AcqView::Environment& environment, QWidget* parent)
    : QMainWindow(parent), view_(new AcqView(environment, this)) {
  setWindowIcon(tarnIcon("tarnlog"));
  setCentralWidget(view_);
  view_->setFocus();
}

void AcqWindow::closeEvent(QCloseEvent* event) {
  if (stopped_) return event->accept();
  event->ignore();
  if (std::exchange(closing_, true)) return;
  setCursor(Qt::BusyCursor);
  view_->setEnabled(false);
  acq().setAcqStoppedHandler([this] {
    stopped_ = true;
    // Not now: the acquisition is still on its way out of the tick.
    QMetaObject::invokeMethod(
        this, [this] { close(); }, Qt::QueuedConnection);
  });
  acq().AskStopAcqNow();
}

}  // namespace tarnlog
