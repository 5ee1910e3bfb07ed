#include "ui/param/TarnParam.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "ui/common/Convert.h"
#include "ui/param/NumberInput.h"

namespace tarnlog {

namespace {

constexpr double kLongestPeriod = 10000;
constexpr int kCommentLines = 2;

}  // namespace

TarnParam::TarnParam(SettingsStore& settings, const FileSystem& files, QWidget* parent)
    : QWidget(parent),
      rules_(settings, files),
      start_(new TriggerFrame(rules_.start(), TriggerFrame::kStart)),
      stop_(new TriggerFrame(rules_.stop(), TriggerFrame::kStop)),
      save_(new SaveFrame(rules_.save())) {
  setObjectName("TarnParam");
  auto* const area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(createPage());
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(area);
  connect(start_, &TriggerFrame::edited, this, &TarnParam::edited);
  connect(stop_, &TriggerFrame::edited, this, &TarnParam::edited);
  connect(save_, &SaveFrame::edited, this, &TarnParam::edited);
  setParameters(nullptr);
}

QWidget* TarnParam::createPage() {
  auto* const page = new QWidget;
  auto* const top = new QHBoxLayout;
  top->addLayout(createComment(), 1);
  top->addWidget(createRecording(), 1);
  auto* const triggers = new QHBoxLayout;
  triggers->addWidget(start_, 1);
  triggers->addWidget(stop_, 1);
  auto* const rows = new QVBoxLayout(page);
  rows->addLayout(top);
  rows->addLayout(triggers);
  rows->addWidget(save_, 1);
  return page;
}

QLayout* TarnParam::createComment() {
  auto* const label = new QLabel(tr("User Comment"));
  comment_ = new QPlainTextEdit;
  comment_->setObjectName("tb_userComment");
  comment_->setTabChangesFocus(true);
  comment_->setMinimumHeight(comment_->fontMetrics().lineSpacing() * kCommentLines + 12);
  comment_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  label->setBuddy(comment_);
  connect(comment_, &QPlainTextEdit::textChanged, this, [this] {
    if (!refreshing_ && rules_.setComment(fromQString(comment_->toPlainText()))) emit edited();
  });
  auto* const rows = new QVBoxLayout;
  rows->addWidget(label);
  rows->addWidget(comment_, 1);
  return rows;
}

QWidget* TarnParam::createRecording() {
  auto* const frame = new QGroupBox(tr("Recording parameters"));
  frame->setObjectName("FrRecord");
  auto* const label = new QLabel(tr("Recording period (s)"));
  period_ = createSecondsInput("ValPeriod", 0, kLongestPeriod);
  label->setBuddy(period_);
  auto* const hint = new QLabel(tr("0 = Save all records"));
  connect(period_, &CWNumEdit::valueChanged, this, &TarnParam::enterPeriod);
  polled_ = new QLabel;
  polled_->setObjectName("polled");
  polled_->setWordWrap(true);
  polled_->setToolTip(tr("How fast the last acquisition polled the car, and what costs most of the time"));
  polled_->hide();
  auto* const row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(period_);
  row->addWidget(hint);
  row->addStretch(1);
  auto* const rows = new QVBoxLayout(frame);
  rows->addLayout(row);
  rows->addWidget(polled_);
  rows->addStretch(1);
  return frame;
}

void TarnParam::setPolled(const QString& text) {
  polled_->setText(text);
  polled_->setHidden(text.isEmpty());
}

std::vector<HelpRow> TarnParam::helpRows() {
  return {
      {tr("Up, Down"), tr("In a number: one step; Page Up and Page Down: a wide one")},
      {tr("Space"), tr("Choose the trigger's kind, turn its edge")},
      {tr("Left, Right"), tr("In the folders: close and open one; the current folder is the chosen one")},
  };
}

void TarnParam::enterPeriod(double seconds) {
  if (refreshing_) return;
  switch (rules_.setPeriod(seconds)) {
    case ParamRules::PeriodEntry::refused:
      return showNumber(*period_, Parameters()->recordingPeriod);
    case ParamRules::PeriodEntry::same:
      return;
    case ParamRules::PeriodEntry::changed:
      emit edited();
  }
}

void TarnParam::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  const QScopedValueRollback<bool> quiet(refreshing_, true);
  rules_.setParameters(std::move(parameters));
  if (const auto& shown = Parameters()) {
    const QString comment = toQString(shown->userDescription);
    if (comment_->toPlainText() != comment) comment_->setPlainText(comment);
    showNumber(*period_, shown->recordingPeriod);
  }
  start_->refresh(rules_.channels());
  stop_->refresh(rules_.channels());
  save_->refresh();
}

void TarnParam::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  save_->refreshFiles();
}

}  // namespace tarnlog
