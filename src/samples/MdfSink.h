#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "acquisition/SampleSink.h"
#include "platform/files/FileSystem.h"
#include "platform/text/UserLocale.h"
#include "platform/time/Clock.h"
#include "samples/MdfFile.h"
#include "samples/MdfLayout.h"
#include "samples/MdfRecord.h"
#include "samples/SampleHistory.h"

namespace tarnlog {

/// What an MdfSink works with. The references outlive it.
struct MdfSinkSetup {
  FileSystem& files;
  const Clock& clock;
  UserLocale locale;
  std::string programVersion;
  bool recordings = true;  ///< a file for each recording, beside the record file
  bool whole = false;      ///< one for the whole acquisition
  /// How good the recording or acquisition of this id was; asked when its file is closed.
  std::function<QualityReport(const SampleId&)> quality{};
  /// Gives the folder of the whole acquisition's file; its argument is the configured one, which is the
  /// default.
  std::function<std::string(const std::string& folder)> folderRule{};
  std::function<void(const std::string& path)> finished{};  ///< a file was closed
  std::function<void(const std::string& why)> failed{};     ///< a file could not be made
  /// Runs what waits for the disk. Without it, that runs at once; on another thread, `finished` and the file
  /// system's trouble handler are called there.
  std::function<void(std::function<void()>)> background{};
  std::size_t mostHistory = 64 << 20;  ///< bytes
};

/// Writes measurement files (MDF 4.10): what was answered and when, raw, with all that is needed to
/// understand it.
class MdfSink : public SampleSink {
 public:
  explicit MdfSink(MdfSinkSetup setup);
  ~MdfSink() override;

  void begin(const SampleBeginning& beginning) override;
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

 private:
  struct Open {
    MdfFile file;
    SampleId id;
  };

  void add(std::size_t group, std::int64_t at);
  void note(const MdfEvent& event);
  void flush();
  MdfAbout aboutFrom(std::int64_t start, const std::vector<ferrox3::Fact>& ids) const;
  void openWhole(const SampleBeginning& beginning);
  void open(std::optional<Open>& target, const SampleId& id, const std::string& folder,
            const std::string& name, const MdfAbout& about);
  void close(std::optional<Open>& open);
  void finish(Open& open, MdfClosing closing);

  MdfSinkSetup setup_;
  MdfLayout layout_;
  std::vector<SampleRequest> requests_;
  SampleId acquisition_;
  std::int64_t at_ = 0;  ///< when the acquisition began, and then
  std::int64_t utcNanoseconds_ = 0;
  ZoneOffset zone_;
  std::vector<ferrox3::Fact> facts_;
  std::string configuration_;
  MdfRecord record_;
  SampleHistory history_;
  std::vector<MdfEvent> pastEvents_;  ///< those that the history has
  std::optional<Open> recording_;
  std::optional<Open> whole_;
  std::int64_t newest_ = 0;
  std::int64_t cycleBegan_ = 0;
  std::uint64_t lostInClosed_ = 0;
};

}  // namespace tarnlog
