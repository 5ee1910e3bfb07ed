#include "ui/review/ReviewPanes.h"

#include <QAction>
#include <QHideEvent>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/settings/SettingsStore.h"

namespace tarnlog {

namespace {

constexpr int kUsualGraphs = 800;  ///< pixels
constexpr int kUsualPanes = 200;   ///< pixels
constexpr int kNarrow = 720;       ///< pixels; below, the data list is one of the panes below the graphs
constexpr const char* kSizes = "ReviewPanes";

QSplitter* splitter(Qt::Orientation direction, QWidget& first, QWidget& second, QWidget* parent) {
  auto* const made = new QSplitter(direction, parent);
  made->addWidget(&first);
  made->addWidget(&second);
  made->setChildrenCollapsible(false);
  return made;
}

}  // namespace

ReviewPanes::ReviewPanes(QWidget& list, QWidget& graphs, SettingsStore* settings, QWidget* parent)
    : QWidget(parent),
      data_(list),
      graphs_(graphs),
      settings_(settings),
      across_(splitter(Qt::Horizontal, list, graphs, this)),
      panes_(new QTabWidget(this)),
      down_(splitter(Qt::Vertical, *across_, *panes_, this)),
      showData_(makeAction(tr("Data"), tr("Show or hide the list of data"))),
      showPanes_(makeAction(tr("Figures"), tr("Show or hide what is below the graphs"))) {
  panes_->setObjectName("reviewPanes");
  panes_->setDocumentMode(true);
  across_->setStretchFactor(1, 1);
  across_->setSizes({data_.sizeHint().width(), kUsualGraphs});
  down_->setStretchFactor(0, 1);
  down_->setSizes({kUsualGraphs, kUsualPanes});
  restoreSizes();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(down_);
  showParts();
}

QAction* ReviewPanes::makeAction(const QString& text, const QString& toolTip) {
  auto* const action = new QAction(text, this);
  action->setToolTip(toolTip);
  action->setCheckable(true);
  action->setChecked(true);
  connect(action, &QAction::toggled, this, &ReviewPanes::showParts);
  return action;
}

void ReviewPanes::addPane(QWidget& pane, const QString& title) { panes_->addTab(&pane, title); }

void ReviewPanes::setEmpty(bool empty) {
  empty_ = empty;
  showParts();
}

/// As a tab, the list of data is the tabs' to show.
void ReviewPanes::showParts() {
  if (!narrow_) data_.setVisible(!empty_ && showData_->isChecked());
  panes_->setVisible(!empty_ && showPanes_->isChecked());
}

void ReviewPanes::bring(QWidget& part) {
  const bool beside = &part == &data_ && !narrow_;
  (beside ? showData_ : showPanes_)->setChecked(true);
  if (!beside) panes_->setCurrentWidget(&part);
}

void ReviewPanes::moveFocus(int step) {
  QWidget* const all[] = {&data_, &graphs_, panes_};
  int now = 0;
  for (int i = 0; i < 3; ++i)
    if (all[i]->isAncestorOf(focusWidget())) now = i;
  for (int i = 0; i < 3; ++i) {
    now = (now + 3 + step) % 3;
    if (all[now]->isVisible()) break;
  }
  (all[now] == panes_ ? panes_->currentWidget() : all[now])->setFocus(Qt::TabFocusReason);
}

void ReviewPanes::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeData(width() < kNarrow);
}

void ReviewPanes::placeData(bool narrow) {
  if (std::exchange(narrow_, narrow) == narrow) return;
  if (narrow) {
    wideSizes_ = across_->saveState();
    panes_->insertTab(0, &data_, tr("Data"));
  } else {
    panes_->removeTab(panes_->indexOf(&data_));
    across_->insertWidget(0, &data_);
    across_->setStretchFactor(1, 1);
    across_->restoreState(wideSizes_);
  }
  emit narrowed(narrow);
  showParts();
}

void ReviewPanes::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) storeSizes();
}

void ReviewPanes::restoreSizes() {
  if (settings_ == nullptr) return;
  skipOnFailure([this] {
    const QByteArray stored = QByteArray::fromStdString(settings_->read(kSizes).value_or(""));
    const QList<QByteArray> sizes = stored.split(' ');
    if (sizes.size() != 2) return;
    across_->restoreState(QByteArray::fromBase64(sizes[0]));
    down_->restoreState(QByteArray::fromBase64(sizes[1]));
  });
}

void ReviewPanes::storeSizes() {
  if (settings_ == nullptr) return;
  const QByteArray across = narrow_ ? wideSizes_ : across_->saveState();
  skipOnFailure([&] {
    settings_->write(kSizes, (across.toBase64() + ' ' + down_->saveState().toBase64()).toStdString());
  });
}

}  // namespace tarnlog
