#include "ui/acquisition/AcqHeader.h"

#include <algorithm>

#include "acquisition/AcqWords.h"
#include "acquisition/UserEvents.h"
#include "ui/acquisition/GreyableButton.h"
#include "ui/acquisition/Indicator.h"
#include "ui/acquisition/LogList.h"
#include "ui/acquisition/UserWords.h"

namespace tarnlog {

namespace {

constexpr int kLogLines = 5;  ///< that the log shows at least
constexpr int kLeastLogWidth = 120;

Indicator* makeLamp(const char* name, const QString& accessibleName, QWidget& parent) {
  auto* const lamp = new Indicator(accessibleName, &parent);
  lamp->setObjectName(name);
  return lamp;
}

GreyableButton* makeButton(const char* name, const QString& tip, QWidget& parent) {
  auto* const button = new GreyableButton(&parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

AcqHeader::AcqHeader(QWidget& view)
    : lblRec_(makeLamp("LblRec", tr("Recording"), view)),
      lblDiag_(makeLamp("LblDiag", tr("State of the acquisition"), view)),
      commandStartStop_(makeButton("CommandStartStop", tr("Start or stop recording (Enter)"), view)),
      eventBouton_(makeButton("EventBouton", {}, view)),
      log_(new LogList(&view)) {
  lblRec_->setText(inUsersWords(words::kRecording));
  setState(AcquisitionState::kIdle);
  setRecording(RecordingFact::Off);
  setEventNumber(0);
  setButtonsAct(false);
}

void AcqHeader::setState(AcquisitionState state) {
  const words::StateSign sign = words::of(state);
  lblDiag_->setText(inUsersWords(sign.caption));
  lblDiag_->setColour(sign.colour);
  lblDiag_->setMeaning(Indicator::Sign::None, stateMeaning(state));
}

void AcqHeader::setRecording(RecordingFact fact) {
  recording_ = fact;
  lblRec_->setColour(words::colourOf(fact));
  if (fact == RecordingFact::Off) commandStartStop_->setText(inUsersWords(words::kStartRecording));
  if (fact == RecordingFact::On) commandStartStop_->setText(inUsersWords(words::kStopRecording));
  showMeaning();
}

void AcqHeader::setWriteFailing(bool failing) {
  writeFailing_ = failing;
  showMeaning();
}

void AcqHeader::showMeaning() {
  const IndicatorMeaning meaning = recordingMeaning(recording_, writeFailing_);
  lblRec_->setMeaning(meaning.sign, meaning.words);
}

void AcqHeader::setEventNumber(std::int32_t number) {
  const QString event = inUsersWords(words::kEvent);
  eventBouton_->setText(number == 0 ? event : event + ' ' + QString::number(number));
}

void AcqHeader::setButtonsAct(bool act) {
  buttonsAct_ = act;
  commandStartStop_->setGreyed(!act);
  showEvent();
}

/// In each polling cycle while a file is filled: only the number is another one then.
void AcqHeader::setEventProgress(EventProgress progress) {
  const bool told = progress.goesOn == event_.goesOn && (progress.cyclesLeft > 0) == (event_.cyclesLeft > 0);
  event_ = progress;
  eventBouton_->setCount(event_.cyclesLeft);
  if (!told) showEvent();
}

QString AcqHeader::whyNoEvent() const {
  if (!event_.goesOn) return {};
  if (event_.cyclesLeft == 0)
    return tr("The file of the last event was closed with the recording. There can be another in a moment.");
  return tr("The file of the last event is being filled. That takes %1 polling cycles; then there can be "
            "another one.")
      .arg(UserEvents::kRowsAfter);
}

void AcqHeader::showEvent() {
  const QString reason = whyNoEvent();
  eventBouton_->setGreyed(!buttonsAct_ || event_.goesOn);
  eventBouton_->setToolTip(
      event_.goesOn ? reason : tr("Write the rows around this moment into an event file (Space)"));
  eventBouton_->setAccessibleDescription(reason);
}

QSize AcqHeader::leastViewSize() const {
  const QSize lamp = lblRec_->sizeHint();
  return {2 * lamp.width() + kLeastLogWidth + 4 * kSpacing, 16 * lamp.height()};
}

int AcqHeader::place(const QRect& area) {
  const int lamp = std::max(lblRec_->sizeHint().width(), commandStartStop_->sizeHint().width() / 2);
  const int left = 2 * lamp + kSpacing;
  const int lampHeight = lblRec_->sizeHint().height();
  const int buttonHeight = commandStartStop_->sizeHint().height();
  int y = area.top();
  lblRec_->setGeometry(area.left(), y, lamp, lampHeight);
  lblDiag_->setGeometry(area.left() + lamp + kSpacing, y, lamp, lampHeight);
  y += lampHeight + kSpacing;
  commandStartStop_->setGeometry(area.left(), y, left, buttonHeight);
  y += buttonHeight + kSpacing;
  eventBouton_->setGeometry(area.left(), y, left, buttonHeight);
  y += buttonHeight;
  const int logHeight = kLogLines * (log_->fontMetrics().height() + 2) + 2 * log_->frameWidth();
  const int bottom = std::max(y, area.top() + logHeight);
  const int logLeft = area.left() + left + kSpacing;
  log_->setGeometry(logLeft, area.top(), std::max(area.right() + 1 - logLeft, 0), bottom - area.top());
  return bottom;
}

}  // namespace tarnlog
