#include "ui/review/RecordsBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

#include "ui/common/Convert.h"
#include "ui/common/ElidedLabel.h"
#include "ui/review/RecordLine.h"

namespace tarnlog {

namespace {

constexpr int kParts = 1000;
}  // namespace

RecordsBar::RecordsBar(ReviewScene& scene, const UserLocale& locale, QWidget* parent)
    : QWidget(parent), scene_(scene), locale_(locale), lines_(new QVBoxLayout) {
  lines_->setSpacing(2);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 0, 4, 0);
  column->setSpacing(2);
  column->addLayout(lines_);
  column->addWidget(makeProgress());
  follow(kRecordsChanged);
}

QWidget* RecordsBar::makeProgress() {
  progress_ = new QWidget(this);
  reading_ = new ElidedLabel(progress_);
  part_ = new QProgressBar(progress_);
  part_->setObjectName("reviewProgress");
  part_->setRange(0, kParts);
  part_->setAccessibleName(tr("How far the record is read"));
  auto* const cancel = new QPushButton(tr("Cancel"), progress_);
  cancel->setObjectName("reviewCancel");
  cancel->setToolTip(tr("Stop reading; what is read can be looked at"));
  connect(cancel, &QPushButton::clicked, this, &RecordsBar::cancelWanted);
  auto* const line = new QHBoxLayout(progress_);
  line->setContentsMargins(0, 0, 0, 0);
  line->addWidget(reading_, 1);
  line->addWidget(part_, 1);
  line->addWidget(cancel);
  progress_->hide();
  return progress_;
}

void RecordsBar::showProgress(const QString& name, double part) {
  reading_->setText(tr("Reading %1").arg(name));
  part_->setValue(static_cast<int>(std::lround(part * kParts)));
  progress_->show();
}

void RecordsBar::hideProgress() { progress_->hide(); }

void RecordsBar::follow(unsigned changes) {
  if ((changes & kRecordsChanged) == 0) return;
  if (!sameLines()) buildLines();
  for (RecordLine* const line : shown_) line->refresh();
}

bool RecordsBar::sameLines() const {
  if (shown_.size() != scene_.records().size()) return false;
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    const LookedAtRecord& record = scene_.records()[i];
    if (shown_[i]->record() != record.name || shown_[i]->recording() != record.recording ||
        shown_[i]->recordings() != record.table->recordings.size())
      return false;
  }
  return true;
}

/// A line may be inside its own click.
void RecordsBar::buildLines() {
  for (RecordLine* const line : std::exchange(shown_, {})) {
    lines_->removeWidget(line);
    line->hide();
    line->deleteLater();
  }
  for (std::size_t i = 0; i < scene_.records().size(); ++i) {
    auto* const line = new RecordLine(scene_, i, locale_, this);
    connect(line, &RecordLine::removeWanted, this, [this, i] { emit removeWanted(i); });
    connect(line, &RecordLine::recordingWanted, this,
            [this, i](std::size_t recording) { emit recordingWanted(i, recording); });
    lines_->addWidget(line);
    shown_.push_back(line);
  }
}

}  // namespace tarnlog
