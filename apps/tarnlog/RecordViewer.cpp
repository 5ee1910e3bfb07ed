#include "apps/tarnlog/RecordViewer.h"

#include <QKeySequence>
#include <QMenu>
#include <utility>

#include "apps/tarnlog/RecentMenu.h"
#include "apps/tarnlog/ReviewWindow.h"
#include "ui/common/Convert.h"
#include "ui/review/TarnReview.h"

namespace tarnlog {

RecordViewer::RecordViewer(const MainEnvironment& environment, Recorder recorder)
    : environment_{environment.dialogs, &environment.settings,        environment.locale,
                   environment.guide,   std::move(recorder.whenIdle), std::move(recorder.isBeingRecorded)},
      settings_(environment.settings),
      recent_(environment.settings, "RecentRecords"),
      showRecorder_(std::move(recorder.show)) {}

RecordViewer::~RecordViewer() = default;

ReviewWindow& RecordViewer::shown() {
  if (!window_) window_ = std::make_unique<ReviewWindow>(environment_, settings_, recent_, showRecorder_);
  window_->bringUp();
  return *window_;
}

void RecordViewer::open(const std::vector<std::string>& paths) { shown().review().open(paths); }

void RecordViewer::askOpen() { shown().review().askOpen(); }

void RecordViewer::addActions(QMenu& menu) {
  menu.addAction(tr("Ope&n record..."), [this] { askOpen(); })->setObjectName("openRecord");
  addRecentMenu(menu, tr("Recent recor&ds"), recent_,
                [this](const QString& path) { open({fromQString(path)}); });
}

void RecordViewer::close() {
  if (window_) window_->close();
}

}  // namespace tarnlog
