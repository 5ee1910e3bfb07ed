#include "ui/acquisition/TabStrip.h"

#include <QStyle>
#include <QStyleOptionTabWidgetFrame>
#include <QStylePainter>
#include <algorithm>

namespace tarnlog {

namespace {

constexpr int kFrame = 3;  ///< pixels, with room for a highlight

}  // namespace

TabStrip::TabStrip(QWidget* parent) : QWidget(parent), bar_(new QTabBar(this)) {
  bar_->setDrawBase(false);
  bar_->setExpanding(false);
  setFocusProxy(bar_);
  connect(bar_, &QTabBar::currentChanged, this, [this] { emit selected(currentKey()); });
}

void TabStrip::addTab(const QString& key, const QString& caption) {
  bar_->setTabData(bar_->addTab(caption), key);
}

QString TabStrip::currentKey() const { return bar_->tabData(bar_->currentIndex()).toString(); }

void TabStrip::select(const QString& key) {
  for (int i = 0; i < bar_->count(); ++i)
    if (bar_->tabData(i).toString() == key) bar_->setCurrentIndex(i);
}

QRect TabStrip::pane() const {
  const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, bar_);
  const int top = bar_->sizeHint().height() - overlap;
  return rect().adjusted(0, top, 0, 0);
}

QRect TabStrip::clientArea() const {
  const QRect area = pane().adjusted(kFrame, kFrame, -kFrame, -kFrame);
  return {area.topLeft(), area.size().expandedTo({0, 0})};
}

QRect TabStrip::corner() const {
  const QSize tabs = bar_->sizeHint();
  return {tabs.width(), 0, std::max(width() - tabs.width(), 0), pane().top()};
}

void TabStrip::setHighlight(const QColor& colour) {
  highlight_ = colour;
  update();
}

void TabStrip::paintEvent(QPaintEvent* /*event*/) {
  QStyleOptionTabWidgetFrame option;
  option.initFrom(this);
  option.rect = pane();
  option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
  option.shape = bar_->shape();
  option.tabBarSize = bar_->sizeHint();
  option.tabBarRect = bar_->geometry();
  QStylePainter painter(this);
  painter.drawPrimitive(QStyle::PE_FrameTabWidget, option);
  if (!highlight_.isValid()) return;
  painter.setPen(QPen(highlight_, kFrame - 1));
  painter.drawRect(pane().adjusted(1, 1, -2, -2));
}

void TabStrip::resizeEvent(QResizeEvent* /*event*/) {
  const QSize size = bar_->sizeHint();
  bar_->setGeometry(0, 0, std::min(size.width(), width()), size.height());
}

}  // namespace tarnlog
