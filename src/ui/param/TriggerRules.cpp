#include "ui/param/TriggerRules.h"

#include "platform/text/Numbers.h"

namespace tarnlog {

namespace {

constexpr int kManualOption = 0;
constexpr int kTimeOption = 1;  ///< of the stop trigger

template <class T>
bool assign(T& field, T value) {
  if (field == value) return false;
  field = value;
  return true;
}

}  // namespace

void TriggerRules::refresh(oTarnTrigger* trigger, std::int32_t dataItems) {
  trigger_ = trigger;
  dataItems_ = dataItems;
  option_ = kManualOption;
  channel_ = 0;
  if (trigger_ == nullptr) return;
  falling_ = trigger_->edge == -1;
  level_ = trigger_->level;
  prepost_ = trigger_->prepost;
  seconds_ = trigger_->timeSeconde;
  restart_ = trigger_->restart;
  const std::int32_t watched = trigger_->DataIndex;
  if (watched >= 1 && watched <= dataItems_) channel_ = watched;
  if (trigger_->typeTrigger == oTarnTrigger::kChannel) option_ = channelOption();
  if (trigger_->typeTrigger == oTarnTrigger::kTime && kind_ == Kind::stop) option_ = kTimeOption;
}

bool TriggerRules::chooseOption(int option) {
  if (trigger_ == nullptr || option == option_) return false;
  if (option == channelOption()) {
    if (!channelOffered()) return false;
    // The start trigger always begins with the first item; the stop trigger keeps the one that is selected.
    watchChannel(kind_ == Kind::start || channel_ == 0 ? 1 : channel_);
    return true;
  }
  option_ = option;
  trigger_->typeTrigger = option == kManualOption ? oTarnTrigger::kManual : oTarnTrigger::kTime;
  if (option == kTimeOption) trigger_->timeSeconde = seconds_;
  return true;
}

bool TriggerRules::chooseChannel(int entry) {
  if (trigger_ == nullptr) return false;
  if (entry == 0) {
    channel_ = 0;
    return chooseOption(kManualOption);
  }
  const bool changed = option_ != channelOption() || channel_ != entry;
  watchChannel(entry);
  return changed;
}

void TriggerRules::watchChannel(int entry) {
  option_ = channelOption();
  channel_ = entry;
  trigger_->typeTrigger = oTarnTrigger::kChannel;
  trigger_->edge = falling_ ? -1 : 1;
  trigger_->level = level_;
  trigger_->prepost = prepost_;
  trigger_->DataIndex = entry;
}

bool TriggerRules::setFalling(bool falling) {
  if (trigger_ == nullptr) return false;
  falling_ = falling;
  return assign(trigger_->edge, falling ? -1 : 1);
}

bool TriggerRules::setLevel(double level) {
  if (trigger_ == nullptr) return false;
  level_ = level;
  return assign(trigger_->level, level);
}

bool TriggerRules::setPrepost(double seconds) {
  if (trigger_ == nullptr) return false;
  prepost_ = roundHalfEven(seconds);
  return assign(trigger_->prepost, prepost_);
}

bool TriggerRules::setSeconds(double seconds) {
  if (trigger_ == nullptr) return false;
  seconds_ = roundHalfEven(seconds);
  return assign(trigger_->timeSeconde, seconds_);
}

bool TriggerRules::setRestart(bool restart) {
  if (trigger_ == nullptr) return false;
  restart_ = restart;
  return assign(trigger_->restart, restart);
}

}  // namespace tarnlog
