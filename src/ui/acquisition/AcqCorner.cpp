#include "ui/acquisition/AcqCorner.h"

#include <QLabel>
#include <QToolButton>
#include <algorithm>
#include <initializer_list>

#include "acquisition/AcqWords.h"
#include "ui/common/Convert.h"
#include "ui/common/Icons.h"

namespace tarnlog {

namespace {

constexpr int kSpacing = 6;

QLabel* makeMark(const char* name, const QString& text, const QString& tip, QWidget& parent) {
  auto* const mark = new QLabel(text, &parent);
  mark->setObjectName(name);
  mark->setMargin(2);
  QPalette colours;
  colours.setColor(QPalette::Window, toQColor(words::colourOf(RecordingFact::Requested), colours));
  colours.setColor(QPalette::WindowText, Qt::black);
  mark->setPalette(colours);
  mark->setAutoFillBackground(true);
  mark->setToolTip(tip);
  mark->hide();
  return mark;
}

/// A click leaves the focus where it is, for the recorder's keys; who comes by the keyboard presses it with
/// space.
QToolButton* makeButton(const QString& icon, const QString& name, const QString& tip, QWidget& parent) {
  auto* const button = new QToolButton(&parent);
  button->setObjectName(icon);
  button->setIcon(tarnIcon(icon));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(name);
  button->setToolTip(tip);
  return button;
}

}  // namespace

AcqCorner::AcqCorner(QWidget& view)
    : window_(new QLabel(&view)),
      silenceMark_(makeMark("LblSilence", {}, tr("The values shown are as old as that."), view)),
      pausedMark_(makeMark("LblPaused", tr("Paused"),
                           tr("The picture stands still, recording goes on. P lets it run again."), view)),
      pauseButton_(makeButton("pause", tr("Pause"),
                              tr("Freeze the picture while recording goes on (P or Pause)"), view)),
      helpButton_(makeButton("help", tr("Help"), tr("Keys, guide and messages (F1)"), view)) {
  pauseButton_->setCheckable(true);
  window_->setObjectName("LblWindow");
  window_->hide();
}

void AcqCorner::setPaused(bool paused) {
  pauseButton_->setChecked(paused);
  pausedMark_->setVisible(paused);
}

void AcqCorner::setSilence(qint64 seconds) {
  silenceMark_->setText(tr("No connection for %1 s").arg(seconds));
  silenceMark_->setVisible(seconds > 0);
}

void AcqCorner::setWindow(const QString& time) {
  window_->setText(tr("window: %1").arg(time));
  window_->setVisible(!time.isEmpty());
}

QRect AcqCorner::place(const QRect& area) {
  int right = area.right() + 1;
  int used = right;
  for (QWidget* const control :
       std::initializer_list<QWidget*>{helpButton_, pauseButton_, pausedMark_, silenceMark_, window_}) {
    const QSize size = control->sizeHint();
    const int height = std::min(size.height(), area.height() - 2);
    right -= size.width();
    control->setGeometry(std::max(right, area.left()), area.top() + (area.height() - height) / 2,
                         size.width(), height);
    right -= kSpacing;
    if (!control->isHidden()) used = right;
  }
  return {area.topLeft(), QPoint(std::max(used, area.left()) - 1, area.bottom())};
}

}  // namespace tarnlog
