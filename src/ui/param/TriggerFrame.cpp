#include "ui/param/TriggerFrame.h"

#include <QAbstractItemView>
#include <QScopedValueRollback>

#include "ui/common/Convert.h"
#include "ui/common/Icons.h"
#include "ui/common/WheelGuard.h"
#include "ui/param/NumberInput.h"

namespace tarnlog {

namespace {

constexpr double kLongest = 10000;  ///< seconds

/// Columns of the frame: all numbers stand in the last one.
enum Column { kCaption, kChoice, kNumber, kColumns };

}  // namespace

const TriggerFrame::Names TriggerFrame::kStart{"FrStartTrigger",       "TrgStartType",  "TrgStartChannel",
                                               "TrgStartEdge",         "TrgStartLevel", "TrgStartPrePost",
                                               "TrgStartLabelPrePost", "TrgStartAuto",  nullptr};
const TriggerFrame::Names TriggerFrame::kStop{"FrStopTrigger",       "TrgStopType",  "TrgStopChannel",
                                              "TrgStopEdge",         "TrgStopLevel", "TrgStopPrePost",
                                              "TrgStopLabelPrePost", nullptr,        "TrgStopTime"};

TriggerFrame::TriggerFrame(TriggerRules& rules, const Names& names, QWidget* parent)
    : QGroupBox(parent), rules_(rules), names_(names), type_(new QButtonGroup(this)) {
  setObjectName(names_.frame);
  setTitle(isStart() ? tr("Start Trigger") : tr("Stop Trigger"));
  type_->setObjectName(names_.type);
  auto* const grid = new QGridLayout(this);
  grid->setColumnStretch(kChoice, 1);
  addManual(*grid);
  if (!isStart()) addTime(*grid);
  addChannel(*grid);
  addCrossing(*grid);
  addPrepost(*grid);
  grid->setRowStretch(grid->rowCount(), 1);
  connectControls();
}

QRadioButton* TriggerFrame::addOption(const QString& caption) {
  auto* const option = new QRadioButton(caption);
  const int number = static_cast<int>(type_->buttons().size());
  option->setObjectName(names_.type + QString::number(number));
  type_->addButton(option, number);
  return option;
}

void TriggerFrame::addManual(QGridLayout& grid) {
  grid.addWidget(addOption(tr("Manual")), 0, kCaption, 1, kColumns);
}

void TriggerFrame::addTime(QGridLayout& grid) {
  QRadioButton* const option = addOption(tr("Duration of recording (s)"));
  time_ = createSecondsInput(names_.time, 0, kLongest);
  time_->setToolTip(tr("Time in second"));
  time_->setAccessibleName(option->text());
  const int row = grid.rowCount();
  grid.addWidget(option, row, kCaption, 1, kNumber);
  grid.addWidget(time_, row, kNumber);
}

void TriggerFrame::addChannel(QGridLayout& grid) {
  QRadioButton* const option = addOption(tr("Channel"));
  channel_ = new QComboBox;
  channel_->setObjectName(names_.channel);
  channel_->setAccessibleName(option->text());
  channel_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  channel_->setMinimumContentsLength(12);
  channel_->view()->setTextElideMode(Qt::ElideMiddle);
  changeByWheelOnlyWithFocus(*channel_);
  const int row = grid.rowCount();
  grid.addWidget(option, row, kCaption);
  grid.addWidget(channel_, row, kChoice, 1, kColumns - kChoice);
}

void TriggerFrame::addCrossing(QGridLayout& grid) {
  auto* const edgeLabel = new QLabel(tr("Edge"));
  edge_ = new CWButton;
  edge_->setObjectName(names_.edge);
  edge_->setAccessibleName(tr("Edge"));
  edge_->setPictures(tarnIcon("rising"), tarnIcon("falling"));
  edgeLabel->setBuddy(edge_);
  levelLabel_ = new QLabel;
  level_ = createLevelInput(names_.level);
  levelLabel_->setBuddy(level_);
  const int row = grid.rowCount();
  grid.addWidget(edgeLabel, row, kCaption);
  grid.addWidget(edge_, row, kNumber);
  grid.addWidget(levelLabel_, row + 1, kCaption, 1, kNumber);
  grid.addWidget(level_, row + 1, kNumber);
}

void TriggerFrame::addPrepost(QGridLayout& grid) {
  auto* const label = new QLabel(isStart() ? tr("Pre trigger (s)") : tr("Post trigger (s)"));
  label->setObjectName(names_.prepostLabel);
  prepost_ = isStart() ? createSecondsBeforeInput(names_.prepost, kLongest)
                       : createSecondsInput(names_.prepost, 0, kLongest);
  prepost_->setToolTip(isStart() ? tr("Time in second") + "\n" + tr("Negative: before the start, as in -5")
                                 : tr("Time in second"));
  label->setBuddy(prepost_);
  const int row = grid.rowCount();
  grid.addWidget(label, row, kCaption, 1, kNumber);
  grid.addWidget(prepost_, row, kNumber);
  if (!isStart()) return;
  restart_ = new QCheckBox(tr("Auto-restart"));
  restart_->setObjectName(names_.restart);
  grid.addWidget(restart_, row + 1, kCaption, 1, kColumns);
}

void TriggerFrame::connectControls() {
  const auto act = [this](auto&& action) {
    return [this, action](auto value) {
      if (!refreshing_) acted(action(value));
    };
  };
  connect(type_, &QButtonGroup::idToggled, this, [this](int id, bool on) {
    if (on && !refreshing_) acted(rules_.chooseOption(id));
  });
  // The entry that is selected already can be chosen, too: it turns a manual trigger into that channel's.
  const auto choose = act([this](int entry) { return rules_.chooseChannel(entry); });
  connect(channel_, &QComboBox::currentIndexChanged, this, choose);
  connect(channel_, &QComboBox::activated, this, choose);
  connect(edge_, &CWButton::toggled, this, act([this](bool down) { return rules_.setFalling(down); }));
  connect(level_, &CWNumEdit::valueChanged, this,
          act([this](double level) { return rules_.setLevel(level); }));
  connect(prepost_, &CWNumEdit::valueChanged, this, act([this](double s) { return rules_.setPrepost(s); }));
  if (time_ != nullptr)
    connect(time_, &CWNumEdit::valueChanged, this, act([this](double s) { return rules_.setSeconds(s); }));
  if (restart_ != nullptr)
    connect(restart_, &QCheckBox::toggled, this, act([this](bool on) { return rules_.setRestart(on); }));
}

void TriggerFrame::refresh(const std::vector<ParamRules::Channel>& channels) {
  const QScopedValueRollback<bool> quiet(refreshing_, true);
  listChannels(channels);
  showNumber(*level_, rules_.level());
  showNumber(*prepost_, rules_.prepost());
  if (time_ != nullptr) showNumber(*time_, rules_.seconds());
  if (restart_ != nullptr) restart_->setChecked(rules_.restart());
  edge_->setChecked(rules_.falling());
  showChoice();
}

void TriggerFrame::listChannels(const std::vector<ParamRules::Channel>& channels) {
  channels_ = channels;
  channel_->clear();
  channel_->addItem(tr("[No Channel]"));
  for (const ParamRules::Channel& channel : channels_) channel_->addItem(toQString(channel.text));
  type_->button(rules_.channelOption())->setEnabled(rules_.channelOffered());
}

void TriggerFrame::showChoice() {
  const QScopedValueRollback<bool> quiet(refreshing_, true);
  type_->button(rules_.option())->setChecked(true);
  channel_->setCurrentIndex(rules_.channel());
  showEdge();
  showUnit();
}

void TriggerFrame::showEdge() {
  const QString edge = rules_.falling() ? tr("Falling edge") : tr("Rising edge");
  edge_->setToolTip(edge);
  edge_->setAccessibleDescription(edge);
}

void TriggerFrame::showUnit() {
  const int entry = rules_.channel();
  const std::string unit = entry > 0 ? channels_.at(static_cast<std::size_t>(entry - 1)).unit : std::string();
  const QString caption = tr("Trigger level");
  levelLabel_->setText(unit.empty() ? caption : caption + " (" + toQString(unit) + ")");
  level_->setToolTip(entry > 0 ? channel_->currentText() : QString());
  channel_->setToolTip(level_->toolTip());
}

void TriggerFrame::acted(bool changed) {
  showChoice();
  if (changed) emit edited();
}

}  // namespace tarnlog
