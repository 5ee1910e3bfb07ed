#pragma once

#include <memory>
#include <string>
#include <vector>

#include "config/oTarnParameters.h"
#include "platform/files/FileSystem.h"
#include "platform/settings/SettingsStore.h"
#include "ui/param/SaveRules.h"
#include "ui/param/TriggerRules.h"

namespace tarnlog {

/// What the recording parameters screen shows, and what its controls do to the configuration. Every action
/// writes at once and tells whether the configuration changed; without parameters it does nothing.
class ParamRules {
 public:
  /// An entry of the channel lists.
  struct Channel {
    std::string text;  ///< "[Injection] Speed (Block1)"
    std::string unit;
  };

  ParamRules(SettingsStore& settings, const FileSystem& files)
      : settings_(settings), save_(settings, files) {}

  /// Takes over everything from the configuration; null is none.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return parameters_; }

  /// One per data item, in order; entry 0 of the lists, "no channel", comes before.
  const std::vector<Channel>& channels() const { return channels_; }
  TriggerRules& start() { return start_; }
  TriggerRules& stop() { return stop_; }
  SaveRules& save() { return save_; }

  enum class PeriodEntry { refused, same, changed };
  /// Rounded to whole seconds, halves to even, and kept as the default of new configurations. What is no
  /// period (no number, below 0, beyond 32 bits) is refused.
  PeriodEntry setPeriod(double seconds);
  bool setComment(const std::string& comment);

 private:
  void listChannels();

  SettingsStore& settings_;
  std::shared_ptr<oTarnParameters> parameters_;
  std::vector<Channel> channels_;
  TriggerRules start_{TriggerRules::Kind::start};
  TriggerRules stop_{TriggerRules::Kind::stop};
  SaveRules save_;
};

}  // namespace tarnlog
