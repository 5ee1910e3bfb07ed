#include "apps/tarnlog/ReviewWindow.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>

#include "apps/tarnlog/RecentMenu.h"
#include "platform/base/TarnError.h"
#include "ui/common/Convert.h"
#include "ui/common/Icons.h"
#include "ui/review/TarnReview.h"

namespace tarnlog {

namespace {

constexpr const char* kGeometry = "ReviewGeometry";
constexpr const char* kProgram = "Tarnlog2001";

}  // namespace

ReviewWindow::ReviewWindow(const ReviewEnvironment& environment, SettingsStore& settings, RecentFiles& recent,
                           const std::function<void()>& showRecorder)
    : settings_(settings), recent_(recent), review_(new TarnReview(environment)) {
  setObjectName("reviewWindow");
  setWindowIcon(tarnIcon("tarnlog"));
  setWindowTitle(kProgram);
  setCentralWidget(review_);
  review_->setFocus();
  createMenus(environment.guide, showRecorder);
  resize(1100, 760);
  skipOnFailure([this] {
    if (const auto stored = settings_.read(kGeometry))
      restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(*stored)));
  });
  connect(review_, &TarnReview::titleChanged, this, [this](const QString& title) {
    setWindowTitle(title.isEmpty() ? QString(kProgram) : title + " - " + kProgram);
  });
  connect(review_, &TarnReview::opened, this, &ReviewWindow::remember);
}

void ReviewWindow::createMenus(const Guide& guide, const std::function<void()>& showRecorder) {
  QMenu& file = *menuBar()->addMenu(tr("&File"));
  const auto keys = [](const QKeySequence& sequence) {  // the control's own: a second one would block both
    return "\t" + sequence.toString(QKeySequence::NativeText);
  };
  file.addAction(tr("&Open record...") + keys(QKeySequence::Open), review_, &TarnReview::askOpen);
  file.addAction(tr("&Lay another one over...") + keys(Qt::CTRL | Qt::Key_L), review_,
                 &TarnReview::askLayOver);
  addRecentMenu(file, tr("&Recent records"), recent_,
                [this](const QString& path) { review_->open(fromQString(path)); });
  file.addSeparator();
  file.addAction(tr("R&ecorder"), this, showRecorder);
  file.addSeparator();
  file.addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);
  QMenu& help = *menuBar()->addMenu(tr("&Help"));
  help.addAction(tr("&Keys of this window") + "\tF1", review_, &TarnReview::toggleHelp);
  if (guide.open) help.addAction(tr("User &guide"), this, guide.open);
}

void ReviewWindow::remember(const QString& path) {
  recent_.add(fromQString(QFileInfo(path).absoluteFilePath()));
}

void ReviewWindow::bringUp() {
  show();
  raise();
  activateWindow();
}

/// Files are let go: somebody may want to move them.
void ReviewWindow::closeEvent(QCloseEvent* event) {
  skipOnFailure([this] { settings_.write(kGeometry, saveGeometry().toBase64().toStdString()); });
  review_->closeRecords();
  QMainWindow::closeEvent(event);
}

}  // namespace tarnlog
