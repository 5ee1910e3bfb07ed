#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "acquisition/SampleSink.h"
#include "platform/files/FileSystem.h"
#include "platform/text/UserLocale.h"
#include "platform/time/Clock.h"
#include "samples/MdfFile.h"
#include "samples/MdfLayout.h"
#include "samples/MdfRecord.h"
#include "samples/QualityCounter.h"
#include "samples/SampleHistory.h"

namespace tarnlog {

/// What an MdfSink works with. The references outlive it.
struct MdfSinkSetup {
  FileSystem& files;
  const Clock& clock;
  UserLocale locale;
  std::string programVersion;
  /// Whether each recording of an acquisition that begins now gets a file, beside its record file.
  std::function<bool()> recordings = [] { return true; };
  /// Whether one that begins now gets a file of its own, from its first answer on.
  std::function<bool()> whole = [] { return false; };
  const QualityCounter* quality = nullptr;  ///< stands in the files; it hears everything before this sink
  std::size_t mostHistory = 64 << 20;       ///< bytes
};

/// Writes measurement files (MDF 4.10): what was answered and when, raw, with all that is needed to
/// understand it.
class MdfSink : public SampleSink {
 public:
  explicit MdfSink(MdfSinkSetup setup);
  ~MdfSink() override;

  /// Called with the path of each file that was closed.
  void setFinished(std::function<void(const std::string& path)> finished) { finished_ = std::move(finished); }
  /// Called when a file could not be made, or lacks something, with the reason and the path.
  void setFailed(std::function<void(const std::string& why)> failed) { failed_ = std::move(failed); }
  /// Gives the folder of the whole acquisition's file; its argument is the configured one, which is the
  /// default.
  void setFolderRule(std::function<std::string(const std::string& folder)> rule) {
    folderRule_ = std::move(rule);
  }

  void begin(const SampleBeginning& beginning) override;
  void context(const SampleContext& context) override { facts_ = context.facts; }
  void answer(const SampleAnswer& answer) override;
  void failure(const SampleFailure& failure) override;
  void state(AcquisitionState state, std::int64_t at) override;
  void cycle(const SampleCycle& cycle) override;
  void recordingBegan(const SampleRecording& recording) override;
  void mark(const SampleMark& mark) override;
  void recordingEnded(std::int64_t at, std::uint64_t rows) override;
  void gap(std::int64_t from, std::int64_t till) override;
  void clockStep(std::int64_t at, std::int64_t nanoseconds) override;
  void end(std::int64_t at) override;

  /// Records of this acquisition that could not be written, or not be kept for a recording.
  std::uint64_t lostRecords() const;
  /// The whole acquisition's file, from its first answer on until the end, and up to which byte it is whole.
  std::optional<std::pair<std::string_view, std::uint64_t>> wholeFile() const;
  /// Of the files that are being written.
  std::vector<std::string> openPaths() const;

 private:
  struct Open {
    MdfFile file;
    SampleId id;
  };

  void add(std::size_t group, std::int64_t at);
  bool isBefore(std::int64_t from, std::size_t group, std::string_view record) const;
  void note(const MdfEvent& event);
  void flush();
  MdfAbout aboutFrom(std::int64_t start, const std::vector<ferrox3::Fact>& ids) const;
  void openWhole();
  void open(std::optional<Open>& target, const SampleId& id, const std::string& path, const MdfAbout& about);
  void close(std::optional<Open>& open);
  void finish(Open& open, MdfClosing closing);
  void tellFailed(const std::string& why) const;

  MdfSinkSetup setup_;
  std::function<void(const std::string& path)> finished_;
  std::function<void(const std::string& why)> failed_;
  std::function<std::string(const std::string& folder)> folderRule_;
  MdfLayout layout_;
  std::vector<SampleRequest> requests_;
  SampleId acquisition_;
  std::int64_t at_ = 0;  ///< when the acquisition began, and then
  std::int64_t utcNanoseconds_ = 0;
  ZoneOffset zone_;
  std::vector<ferrox3::Fact> facts_;
  std::string configuration_;
  const oTarnParameters* parameters_ = nullptr;  ///< while answers come
  std::string wholeName_;                        ///< of a file that is still to be made
  MdfRecord record_;
  SampleHistory history_;
  bool ofRecordings_ = false;
  bool ofAll_ = false;
  std::vector<MdfEvent> pastEvents_;  ///< those that the history has
  std::int64_t lastMark_ = 0;
  std::optional<Open> recording_;
  std::optional<Open> whole_;
  std::int64_t newest_ = 0;
  std::int64_t cycleBegan_ = 0;
  std::uint64_t lostInClosed_ = 0;
};

}  // namespace tarnlog
