#include "ui/review/RecordLine.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>
#include <cmath>

#include "platform/text/DateText.h"
#include "ui/common/Convert.h"
#include "ui/common/ElidedLabel.h"
#include "ui/common/Icons.h"
#include "ui/common/WheelGuard.h"
#include "ui/review/ReviewTexts.h"

namespace tarnlog {

namespace {

constexpr double kMostOffset = 1e9;  ///< seconds
constexpr double kSame = 5e-4;       ///< seconds; the offset is shown to the millisecond

}  // namespace

RecordLine::RecordLine(ReviewScene& scene, std::size_t position, const UserLocale& locale, QWidget* parent)
    : QWidget(parent),
      scene_(scene),
      position_(position),
      locale_(locale),
      name_(lookedAt().name),
      recording_(lookedAt().recording),
      recordings_(lookedAt().table->recordings.size()) {
  auto* const line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  addName(*line);
  if (recordings_ > 1) addRecordings(*line);
  if (position_ != 0) addAlignment(*line);
  addRemove(*line);
  refresh();
}

void RecordLine::addName(QHBoxLayout& line) {
  const TableRecording& recording = lookedAt().recordingTable();
  QString text = toQString(name_);
  if (recording.head.local)
    text += "   " + toQString(shortDateText(*recording.head.local, locale_) + " " +
                              timeOfDayText(*recording.head.local, locale_));
  auto* const name = new ElidedLabel(this);
  name->setText(QString("%1  %2").arg(position_ + 1).arg(text));
  name->setAccessibleName(tr("Record %1: %2").arg(position_ + 1).arg(text));
  line.addWidget(name, 1);
}

void RecordLine::addRecordings(QHBoxLayout& line) {
  auto* const choice = new QComboBox(this);
  choice->setObjectName("reviewRecording");
  choice->setAccessibleName(tr("Recording of the file"));
  for (std::size_t i = 0; i < recordings_; ++i)
    choice->addItem(tr("Recording %1 of %2").arg(i + 1).arg(recordings_));
  choice->setCurrentIndex(static_cast<int>(recording_));
  changeByWheelOnlyWithFocus(*choice);
  connect(choice, &QComboBox::activated, this,
          [this](int entry) { emit recordingWanted(static_cast<std::size_t>(entry)); });
  line.addWidget(choice);
}

void RecordLine::addAlignment(QHBoxLayout& line) {
  aligned_ = new QComboBox(this);
  aligned_->setObjectName("reviewAligned");
  aligned_->setAccessibleName(tr("How record %1 is laid over the first one").arg(position_ + 1));
  changeByWheelOnlyWithFocus(*aligned_);
  connect(aligned_, &QComboBox::activated, this, &RecordLine::align);
  offset_ = new QDoubleSpinBox(this);
  offset_->setObjectName("reviewOffset");
  offset_->setAccessibleName(tr("Seconds that record %1 is moved to the right").arg(position_ + 1));
  offset_->setToolTip(tr("Moves it to the right; so does dragging a curve with Ctrl held"));
  offset_->setRange(-kMostOffset, kMostOffset);
  offset_->setDecimals(3);
  offset_->setSuffix(tr(" s"));
  offset_->setKeyboardTracking(false);
  changeByWheelOnlyWithFocus(*offset_);
  connect(offset_, &QDoubleSpinBox::valueChanged, this,
          [this](double seconds) { scene_.setOffset(position_, seconds); });
  line.addWidget(aligned_);
  line.addWidget(offset_);
}

void RecordLine::addRemove(QHBoxLayout& line) {
  auto* const remove = new QToolButton(this);
  remove->setObjectName("reviewRemoveRecord");
  remove->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
  remove->setAutoRaise(true);
  remove->setFocusPolicy(Qt::StrongFocus);
  remove->setToolTip(tr("Close this record"));
  remove->setAccessibleName(tr("Close record %1").arg(position_ + 1));
  connect(remove, &QToolButton::clicked, this, &RecordLine::removeWanted);
  line.addWidget(remove);
}

QString RecordLine::alignmentText(const RecordAlignment& alignment) const {
  switch (alignment.on) {
    case RecordAlignment::On::Start:
      return tr("At the start of recording");
    case RecordAlignment::On::Stop:
      return tr("At the stop of recording");
    case RecordAlignment::On::Clock:
      return tr("By clock");
    case RecordAlignment::On::Event:
      break;
  }
  return alignment.event == 0 ? tr("At an event") : tr("At event %1").arg(alignment.event);
}

/// The entry whose offset it has; the last one is "by hand".
void RecordLine::refresh() {
  if (aligned_ == nullptr) return;
  const TableRecording& first = scene_.records().front().recordingTable();
  const TableRecording& own = lookedAt().recordingTable();
  const QSignalBlocker silent(aligned_);
  const QSignalBlocker quiet(offset_);
  const auto known = alignmentsOf(first, own);
  if (known != alignments_ || aligned_->count() == 0) {
    alignments_ = known;
    aligned_->clear();
    for (const RecordAlignment& alignment : alignments_) aligned_->addItem(alignmentText(alignment));
    aligned_->addItem(tr("By hand"));
  }
  std::size_t entry = 0;
  while (entry < alignments_.size() &&
         std::fabs(offsetFor(alignments_[entry], first, own).value_or(kMostOffset) - lookedAt().offset) >
             kSame)
    ++entry;
  aligned_->setCurrentIndex(static_cast<int>(entry));
  if (!offset_->hasFocus() || std::fabs(offset_->value() - lookedAt().offset) > kSame)
    offset_->setValue(lookedAt().offset);
}

void RecordLine::align(int entry) {
  if (entry < 0 || static_cast<std::size_t>(entry) >= alignments_.size()) return offset_->setFocus();
  const auto offset = offsetFor(alignments_[static_cast<std::size_t>(entry)],
                                scene_.records().front().recordingTable(), lookedAt().recordingTable());
  if (offset) scene_.setOffset(position_, *offset);
}

}  // namespace tarnlog
