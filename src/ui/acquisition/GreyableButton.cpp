#include "ui/acquisition/GreyableButton.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace tarnlog {

namespace {

constexpr int kCountMargin = 10;  ///< pixels to the button's right edge

}  // namespace

void GreyableButton::setGreyed(bool greyed) {
  greyed_ = greyed;
  update();
}

void GreyableButton::setCount(int count) {
  count_ = count;
  update();
}

void GreyableButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  if (!greyed_) return;
  option->state &= ~(QStyle::State_Enabled | QStyle::State_MouseOver);
  option->palette.setCurrentColorGroup(QPalette::Disabled);
}

/// The number is not grey: it is news.
void GreyableButton::paintEvent(QPaintEvent* event) {
  QPushButton::paintEvent(event);
  if (count_ == 0) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.drawText(rect().adjusted(0, 0, -kCountMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                   QString::number(count_));
}

}  // namespace tarnlog
