#include "apps/tarn-record/RunCommand.h"

#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

#include "acquisition/TarnAcq.h"
#include "apps/common/BadInput.h"
#include "apps/common/BootNumber.h"
#include "apps/common/LoadedConfiguration.h"
#include "apps/common/RecordFolder.h"
#include "apps/common/Signals.h"
#include "apps/common/Stylesheet.h"
#include "apps/common/WriteTroubleText.h"
#include "apps/tarn-record/ConsoleScreen.h"
#include "apps/tarn-record/DetailSink.h"
#include "apps/tarn-record/LiveLines.h"
#include "apps/tarn-record/LiveTable.h"
#include "apps/tarn-record/NamesNear.h"
#include "apps/tarn-record/OpenVehicle.h"
#include "apps/tarn-record/RunConsole.h"
#include "apps/tarn-record/RunDirector.h"
#include "apps/tarn-record/SamplesOutput.h"
#include "host/link/SystemLinkClock.h"
#include "host/vehicle/Vehicle.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/text/Told.h"
#include "platform/time/RunLoop.h"
#include "platform/time/SystemClock.h"
#include "publish/PublishSink.h"
#include "samples/JsonLinesSink.h"
#include "samples/Measurement.h"

namespace tarnlog::record {

namespace {

constexpr std::chrono::seconds kLogPatience{1};
constexpr std::chrono::seconds kPublishPatience{5};
constexpr int kLookAround = 20;  // milliseconds

void applyOptions(oTarnParameters& parameters, const FileOptions& options) {
  if (options.folder) makeFolder(*options.folder);
  options.apply(parameters);
}

RunLimits limitsOf(const RunOptions& options, const oTarnParameters& parameters) {
  RunLimits limits;
  limits.startManually = parameters.startTrigger->typeTrigger != oTarnTrigger::kChannel;
  limits.duration = options.duration;
  limits.recordings = options.recordings;
  if (limits.startManually && !limits.recordings) limits.recordings = 1;
  return limits;
}

/// One run: the recorder, what it stands on, and who presses its buttons.
class Run {
 public:
  explicit Run(const RunOptions& options)
      : options_(options),
        console_(clock_, options.loudness, systemLocale().decimalSeparator),
        screen_([this](std::string_view line) { console_.note(line); },
                [this](std::string_view line) { console_.failure(line); }),
        timer_(loop_.createTimer()) {
    if (options.samples) openSamples(*options.samples);
    if (options.live) showLive();
    files_.setSyncInterval(std::chrono::seconds(options.sync));
    host::LinkOptions link = options.link;
    link.stopAsked = Signals::stopRequested;
    // Not earlier: `idle` looks at the members.
    vehicle_ = openVehicle(
        options.vehicle, files_, linkClock_, [this] { idle(); }, link, options.loudness);
    if (!options.publish.to.empty()) openPublisher();
    acq_ = std::make_unique<TarnAcq>(screen_, environment());
    quality_.setRecordingEnded(
        [this](const std::string& path, const Quality& quality) { printQuality(path, quality); });
    quality_.setRowsSynced([this] { return acq_->recordRows().synced; });
    mdf_.setFinished([this](const std::string& path) { console_.path(path); });
    mdf_.setFailed([this](const std::string& why) { noteFailure(why); });
    files_.setWriteTroubleHandler([this](const WriteTrouble& trouble) { noteTrouble(trouble); });
    if (options.folderPerVehicle) useFolderOfVehicle();
    acq_->setAcqStoppedHandler([this] { loop_.quit(); });
    acq_->setFileFinishedHandler([this](const std::string& path) { console_.path(path); });
    loop_.setWakeDescriptor(Signals::wakeDescriptor());
  }

  int run() {
    const LoadedConfiguration configuration = load();
    acq_->setSession(&vehicle_->session());
    vehicle_->session().setNoticeHandler(
        [this](const host::Notice& notice) { console_.note("tarn-record: " + notice.text); });
    acq_->StartReadingData(configuration.parameters);
    // Idle now, nothing would ever end the run.
    if (acq_->AcqState() == TarnAcq::kIdle)
      throw BadInput(Told::tr("{}: no data to acquire", options_.config));
    RunDirector director(*acq_, clock_, limitsOf(options_, *configuration.parameters));
    loop_.setWakeHandler([&] {
      Signals::clearWake();
      director.step(Signals::stopRequested(), Signals::takeEvent());
      goOnPrinting();
    });
    loop_.run();
    loop_.setWakeHandler(nullptr);
    const int code = conclude(director);
    finishPrinting();
    return code;
  }

 private:
  /// While an answer is awaited. A car that is asked what it offers is asked before there is a recorder.
  void idle() {
    if (acq_)
      goOnPrinting();
    else if (Signals::stopRequested())
      throw BadInput(Told::tr("stopped while the car was asked what it offers"));
  }

  void useFolderOfVehicle() {
    const auto rule = [this](const std::string& folder) {
      return folderOfVehicle(folder, vehicle_->description(), [this](const std::string& why) {
        console_.failure("tarn-record: " + Told::tr("folder of the vehicle: {}", why));
      });
    };
    acq_->setFolderRule(rule);
    mdf_.setFolderRule(rule);
  }

  AcqEnvironment environment() {
    std::vector<SampleSink*> sinks{&quality_};
    if (!options_.mf4.empty() || publisher_) sinks = measurement_.sinks();
    if (published_) sinks.push_back(&*published_);
    if (json_) sinks.push_back(&*json_);
    if (lines_) sinks.push_back(&*lines_);
    if (table_) sinks.push_back(&*table_);
    if (options_.loudness == Loudness::Verbose) sinks.push_back(&details_);
    return {clock_, *timer_, files_, systemLocale(), kStylesheetUrl, sinks};
  }

  void openSamples(const std::string& path) {
    samples_.emplace(path, files_);
    if (samples_->onStandardOutput()) console_.movePaths();
    json_.emplace(*samples_);
    json_->setLossHandler([this, path](bool losing, std::uint64_t lines) {
      console_.failure(
          losing ? "tarn-record: " + Told::tr("samples: {}: lines are left out, they are not taken", path)
                 : "tarn-record: " + Told::tr("samples: {}: {} lines were left out", path, lines));
    });
  }

  void showLive() {
    console_.movePaths();
    if (::isatty(STDOUT_FILENO) != 0) {
      console_.showTable(table_.emplace(clock_));
    } else {
      liveOutput_.emplace("-", files_);
      lines_.emplace(*liveOutput_);
    }
  }

  void openPublisher() {
    const host::VehicleDescription& description = vehicle_->description();
    const PublishSetup setup =
        livePublishSetup(options_.publish, description.vin.empty() ? description.name : description.vin,
                         [this](const std::string& what) { printPublishing(what); });
    publishedSelection_ = setup.terms.selection;
    publisher_.emplace(setup);
    published_.emplace(mdf_, *publisher_);
  }

  void printPublishing(const std::string& text, bool trouble = false) {
    const std::string line = "tarn-record: " + Told::tr("publish: {}", text);
    if (trouble)
      console_.failure(line);
    else
      console_.note(line);
  }

  void tellPublishing() {
    if (!publisher_) return;
    for (const Publisher::Notice& notice : publisher_->takeNotices())
      printPublishing(notice.text, notice.trouble);
  }

  /// What is left then is published by the next run, or by hand. Who is in a hurry asks once more.
  void finishPublishing() {
    if (!publisher_) return;
    const bool hurried = Signals::stopRequested();
    publisher_->end(kPublishPatience);
    const auto latest = std::chrono::steady_clock::now() + kPublishPatience + kLogPatience;
    while (!publisher_->isOver() && std::chrono::steady_clock::now() < latest) {
      if (!hurried && Signals::stopRequested()) publisher_->end(std::chrono::seconds(0));
      ::poll(nullptr, 0, kLookAround);
    }
    tellPublishing();
  }

  void printQuality(const std::string& what, const Quality& quality) {
    console_.note(fmt::format("tarn-record: {}: {}", what, toldQuality(quality)));
  }

  /// Records without a number are better than none.
  void numberBoot(std::string& prefix) {
    try {
      prefix = bootPrefix(countBoot(files_, *options_.bootNumber)) + prefix;
    } catch (const TarnError& error) {
      noteFailure(Told::tr("boots are not counted: {}", error.description()));
    }
  }

  LoadedConfiguration load() {
    LoadedConfiguration configuration = loadToRecord(files_, options_.config, vehicle_->session());
    tellLacks(configuration);
    applyOptions(*configuration.parameters, options_.files);
    if (options_.bootNumber) numberBoot(configuration.parameters->filePrefix);
    if (publisher_) checkPublished(publishedSelection_, *configuration.parameters);
    return configuration;
  }

  /// What a name may have meant helps to find a fault.
  void tellLacks(const LoadedConfiguration& configuration) {
    for (const std::string& line : lackingLines(configuration))
      console_.note(fmt::format("tarn-record: {}", line));
    if (options_.loudness != Loudness::Verbose) return;
    for (const Lack& lack : configuration.lacks)
      for (const std::string& near : namesNear(lack, vehicle_->session()))
        console_.detail("tarn-record: " + Told::tr("{}: near is {}", lack.path, near));
  }

  void goOnPrinting() {
    files_.tellSyncTroubles();
    tellPublishing();
    if (samples_) samples_->flush();
    if (liveOutput_) liveOutput_->flush();
    console_.show(*acq_, screen_);
  }

  void finishPrinting() {
    if (liveOutput_) liveOutput_->finish();
    const std::string lost = samples_ ? samples_->finish() : std::string();
    if (!lost.empty()) console_.failure("tarn-record: " + Told::tr("samples: {}", lost));
    console_.finish();
  }

  void noteFailure(const std::string& text) {
    troubled_ = true;
    console_.failure(fmt::format("tarn-record: {}", text));
  }

  /// The recorder goes on polling meanwhile.
  void noteTrouble(const WriteTrouble& trouble) {
    troubled_ = true;
    // Samples are written by the cycle: how many lines are lost, their sink tells.
    if (trouble.path == options_.samples && trouble.kind == WriteTrouble::Kind::Ended) return;
    console_.failure(fmt::format("tarn-record: {}", textOf(trouble)));
  }

  int conclude(const RunDirector& director) {
    if (acq_->finishedRecordings() > 1) printQuality(Told::tr("all recordings"), quality_.acquisition());
    files_.finishSyncing();
    finishPublishing();
    if (director.nothingArrived())
      console_.failure("tarn-record: " + Told::tr("no data arrived in the given time"));
    if (acq_->finishedRecordings() == 0 && !screen_.openFailed() && !director.nothingArrived())
      console_.note("tarn-record: " + Told::tr("nothing was recorded, the start trigger did not fire"));
    return troubled_ || screen_.openFailed() || director.nothingArrived() ? kFailed : kDone;
  }

  const RunOptions& options_;
  SystemClock clock_;
  host::SystemLinkClock linkClock_;
  SystemFileSystem files_;
  RunConsole console_;
  ConsoleScreen screen_;
  RunLoop loop_;
  std::unique_ptr<Timer> timer_;
  Measurement measurement_{
      {.files = files_,
       .clock = clock_,
       .locale = systemLocale(),
       .programVersion = TARNLOG_VERSION,
       .recordings = [this] { return options_.mf4 == "record"; },
       .whole = [this] { return options_.mf4 == "all" || !options_.publish.to.empty(); }}};
  QualityCounter& quality_ = measurement_.quality();
  MdfSink& mdf_ = measurement_.files();
  std::optional<Publisher> publisher_;
  std::optional<PublishSink> published_;
  PublishSelection publishedSelection_;
  std::optional<SamplesOutput> samples_;
  std::optional<JsonLinesSink> json_;
  std::optional<SamplesOutput> liveOutput_;
  std::optional<LiveLines> lines_;
  std::optional<LiveTable> table_;
  DetailSink details_{
      [this](const std::string& line) { console_.detail(fmt::format("tarn-record: {}", line)); }};
  std::unique_ptr<host::OpenedVehicle> vehicle_;
  std::unique_ptr<TarnAcq> acq_;
  bool troubled_ = false;  ///< something that was to be written is not in its file
};

}  // namespace

int run(const RunOptions& options) {
  Signals::install();
  return Run(options).run();
}

}  // namespace tarnlog::record
