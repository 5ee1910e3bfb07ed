#pragma once

#include <functional>
#include <optional>
#include <string>

#include "acquisition/SampleSink.h"
#include "apps/common/PublishOptions.h"
#include "platform/settings/OptionalSettings.h"
#include "publish/PublishSink.h"

namespace tarnlog {

/// Where the user wants values published, in all acquisitions that begin from now on.
class PublishChoice {
 public:
  /// The store outlives it.
  explicit PublishChoice(SettingsStore& settings) : settings_(&settings) {}

  /// Empty: nowhere.
  std::string to() const { return settings_.read(kTo).value_or(""); }
  std::string access() const { return settings_.read(kAccess).value_or(""); }
  void set(const std::string& to, const std::string& access) {
    settings_.write(kTo, to);
    settings_.write(kAccess, access);
  }

 private:
  static constexpr char kTo[] = "PublishTo";
  static constexpr char kAccess[] = "PublishAccess";

  OptionalSettings settings_;
};

/// Publishes what the window acquires where its user wants that. What cannot be published at once is
/// published later, while the window is open, or in a later acquisition.
class LivePublishing : public SampleSink {
 public:
  using Tell = std::function<void(const std::string& text, bool trouble)>;

  /// `given`, when it names a broker, takes the place of the user's choice. The settings outlive this.
  LivePublishing(SettingsStore& settings, PublishOptions given);

  /// Of the recorder; hears of samples before this.
  void follow(const MdfSink& file) { file_ = &file; }
  void setTell(Tell tell) { tell_ = std::move(tell); }
  bool isWanted() const { return !options().to.empty(); }

  void begin(const SampleBeginning& beginning) override;
  void cycle(const SampleCycle& cycle) override;
  void state(AcquisitionState state, std::int64_t at) override;
  void end(std::int64_t at) override;

  /// Tells what went wrong or goes on; to be called now and then.
  void tellNews();
  /// The window closes: waits a little for what is on the way.
  void finish();

 private:
  PublishOptions options() const;
  void openPublisher(const SampleBeginning& beginning);

  PublishChoice choice_;
  PublishOptions given_;
  const MdfSink* file_ = nullptr;
  Tell tell_;
  std::optional<Publisher> publisher_;
  std::optional<PublishSink> sink_;
};

}  // namespace tarnlog
