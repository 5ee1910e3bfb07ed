#pragma once

#include <cstdint>

#include "config/oTarnTrigger.h"

namespace tarnlog {

/// The controls of one trigger as they stand on the screen, and what using them does to the trigger. The
/// numbers of the option buttons are not the trigger's type codes: the stop trigger's are manual, time,
/// channel. Every action tells whether the trigger changed; without a trigger it does nothing.
class TriggerRules {
 public:
  enum class Kind { start, stop };

  explicit TriggerRules(Kind kind) : kind_(kind) {}

  /// Takes over the trigger (null: none), for a configuration of this many data items.
  void refresh(oTarnTrigger* trigger, std::int32_t dataItems);

  int option() const { return option_; }    ///< the option button that is on
  int channel() const { return channel_; }  ///< the selected entry of the channel list; 0 is "no channel"
  bool falling() const { return falling_; }
  double level() const { return level_; }
  std::int32_t prepost() const { return prepost_; }
  std::int32_t seconds() const { return seconds_; }
  bool restart() const { return restart_; }
  /// A channel can be chosen: there are data items.
  bool channelOffered() const { return dataItems_ > 0; }
  Kind kind() const { return kind_; }
  int channelOption() const { return kind_ == Kind::start ? 1 : 2; }

  bool chooseOption(int option);
  /// An entry of the channel list, which also chooses the option: 0 manual, any other the channel.
  bool chooseChannel(int entry);
  bool setFalling(bool falling);
  bool setLevel(double level);
  /// Whole seconds; what does not fit is limited.
  bool setPrepost(double seconds);
  bool setSeconds(double seconds);
  bool setRestart(bool restart);

 private:
  void watchChannel(int entry);

  Kind kind_;
  oTarnTrigger* trigger_ = nullptr;
  std::int32_t dataItems_ = 0;
  int option_ = 0;
  int channel_ = 0;
  bool falling_ = false;
  double level_ = 0;
  std::int32_t prepost_ = 0;
  std::int32_t seconds_ = 0;
  bool restart_ = false;
};

}  // namespace tarnlog
