#include "ui/live/ScrolledGraphs.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

#include "ui/common/Convert.h"

namespace tarnlog {

namespace {

constexpr int kLine = 20;  ///< pixels for each step of the wheel's three

}  // namespace

ScrolledGraphs::ScrolledGraphs(QWidget& parent)
    : QObject(&parent),
      visible_(new QWidget(&parent)),
      surface_(new GraphicFrameWidget(visible_)),
      bar_(new QScrollBar(Qt::Vertical, &parent)) {
  visible_->setObjectName("FrScroll");
  visible_->setAccessibleName(tr("Graphs"));
  visible_->setAutoFillBackground(true);  // of one colour behind labels and graphs, whatever a tab's pane has
  surface_->setObjectName("FrGraphic");
  bar_->setObjectName("VScroll");
  bar_->setAccessibleName(tr("Scroll the graphs"));
  bar_->setSingleStep(kLine);
  bar_->setRange(0, 0);
  visible_->installEventFilter(this);
  connect(bar_, &QScrollBar::valueChanged, this, &ScrolledGraphs::scrolled);
}

void ScrolledGraphs::place(const QRect& area) {
  const int barWidth = std::min(bar_->sizeHint().width(), area.width());
  bar_->setGeometry(area.right() + 1 - barWidth, area.top(), barWidth, area.height());
  visible_->setGeometry(area.left(), area.top(), area.width() - barWidth, area.height());
  bar_->setPageStep(std::max(area.height(), 1));
  surface_->arrangeSoon();
}

void ScrolledGraphs::setVisible(bool visible) {
  visible_->setVisible(visible);
  bar_->setVisible(visible);
}

bool ScrolledGraphs::isVisible() const { return !visible_->isHidden(); }

void ScrolledGraphs::turnPages(int pages) { bar_->setValue(bar_->value() + pages * bar_->pageStep()); }

Twips ScrolledGraphs::visibleWidth() const { return toTwips(visible_->width()); }

Twips ScrolledGraphs::visibleHeight() const { return toTwips(visible_->height()); }

void ScrolledGraphs::setScrollRange(std::int16_t maximum, std::int16_t value) {
  // Whoever says so has placed the surface already.
  const QSignalBlocker quiet(bar_);
  bar_->setRange(0, maximum);
  bar_->setValue(value);
}

std::int16_t ScrolledGraphs::scrollValue() const { return static_cast<std::int16_t>(bar_->value()); }

bool ScrolledGraphs::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return QObject::eventFilter(watched, event);
  QCoreApplication::sendEvent(bar_, event);
  return true;
}

}  // namespace tarnlog
