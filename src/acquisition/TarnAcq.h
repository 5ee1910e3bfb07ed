#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "acquisition/AcqLog.h"
#include "acquisition/AcqScreen.h"
#include "acquisition/AcquisitionItems.h"
#include "acquisition/EcuStartup.h"
#include "acquisition/RecordFiles.h"
#include "acquisition/Recorder.h"
#include "acquisition/SampleFeed.h"
#include "acquisition/UserEvents.h"
#include "acquisition/ValueList.h"
#include "acquisition/ValueReading.h"
#include "config/oTarnParameters.h"
#include "display/ScopeItem.h"
#include "platform/ferrox3/Session.h"
#include "platform/files/FileSystem.h"
#include "platform/text/UserLocale.h"
#include "platform/time/Clock.h"
#include "platform/time/Timer.h"

namespace tarnlog {

/// The services that an acquisition uses. They outlive it.
struct AcqEnvironment {
  Clock& clock;
  Timer& timer;
  FileSystem& files;
  UserLocale locale;
  std::string stylesheetUrl;         ///< of an XSL stylesheet, written into XML files
  std::vector<SampleSink*> sinks{};  ///< hear what the vehicle answers
  SampleFeed::NewId newSampleId = SampleId::random;
};

/// Runs an acquisition: starts and stops it, and orders the work of each timer tick (initialise the ECUs,
/// start sessions, poll). The work itself is done by its parts. One thread; ticks never overlap. During a
/// tick, a start or an end, host calls may dispatch clicks: a stop, a start, a new session and hiding are
/// then stored, and carried out afterwards.
class TarnAcq {
 public:
  using State = AcquisitionState;
  using enum AcquisitionState;

  /// The screen outlives the TarnAcq.
  TarnAcq(AcqScreen& screen, AcqEnvironment environment);
  ~TarnAcq();
  TarnAcq(const TarnAcq&) = delete;
  TarnAcq& operator=(const TarnAcq&) = delete;

  /// A running acquisition is ended first, its files closed. AcqStopped comes only if `AskStopAcqNow` was
  /// called before.
  void setSession(ferrox3::Session* session);
  /// Keeps the configuration and, with a session present, starts acquiring; raises as StartReadingData does.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return parameters_; }

  /// Starts an acquisition, with the kept configuration when none is given. Raises error 1, source
  /// "TarnAcq.StartReadingData", without a session or configuration, or with times that overflow.
  void StartReadingData(std::shared_ptr<oTarnParameters> parameters = nullptr);
  /// Asks the acquisition to end. AcqStopped comes exactly once: at once when idle or between ticks with no
  /// file open, else when what runs is over. A start that follows before that cancels it.
  void AskStopAcqNow();
  /// Whether the current tick is to end the acquisition: what waits within it may return early.
  bool endAsked() const { return stopAcqRequested_; }
  void addLog(const std::string& text) { log_.add(text); }

  /// The start/stop button and the event button. Both do nothing unless values are polled, and before the
  /// first polling cycle.
  void ToggleRecording();
  void RecordUserEvent();
  /// Enter (13) is the start/stop button, space (32) the event button; true when the key was one of them.
  bool HandleHotKey(int key);

  /// The extremes of the values count anew, from the next cycle on.
  void resetExtremes() { values_.resetExtremes(); }

  /// The control that shows this was shown, hidden, its graph area scrolled or resized.
  void shown();
  void hidden();
  void scrolled();
  void resized();

  void setAcqStoppedHandler(std::function<void()> handler) { acqStopped_ = std::move(handler); }
  void setLogAddedHandler(AcqLog::LogAdded handler) { log_.setLogAdded(std::move(handler)); }
  /// Called with the path of each record or event file that was closed.
  void setFileFinishedHandler(RecordFiles::Finished handler) { files_.setFinished(std::move(handler)); }
  /// Called when a record or event file cannot be opened.
  void setOpenFailedHandler(Recorder::OpenFailed handler) { recorder_.setOpenFailed(std::move(handler)); }
  /// Gives the folder of each new file; its argument is the configured folder, which is the default.
  void setFolderRule(RecordFiles::FolderRule rule) { files_.setFolderRule(std::move(rule)); }

  State AcqState() const { return state_; }
  bool Recording() const { return recorder_.recording(); }
  /// A record file has been opened; recording begins with the next cycle.
  bool startPending() const { return recorder_.startPending(); }
  /// Recordings that have ended since the acquisition started.
  std::int32_t finishedRecordings() const { return recorder_.finishedRecordings(); }
  /// A row has been read since the acquisition started, so that a start or an event would be honoured.
  bool hasRow() const { return !currentBuffer_.empty(); }
  std::uint64_t cycles() const { return cycles_; }
  /// Since the last complete polling cycle of this acquisition, and since a request was last sent without a
  /// failure; none before the first. Both wrap after 49.7 days.
  std::optional<std::int64_t> millisecondsSinceCycle() const { return since(cycleTime_); }
  std::optional<std::int64_t> millisecondsSinceAnswer() const { return since(answerTime_); }
  std::uint64_t rowsWritten() const { return recorder_.rowsWritten(); }
  /// Of the record file that is open, else of the one that was closed last; final before sinks hear that the
  /// recording has ended.
  RowCount recordRows() const { return files_.recordRows(); }
  const std::string& RecordPath() const { return files_.recordPath(); }
  /// Record and event files that are being written.
  std::vector<std::string> openPaths() const { return files_.openPaths(); }

 private:
  /// What to do when the current acquisition has ended.
  struct Deferred {
    bool hide = false;
    std::optional<ferrox3::Session*> session;
    bool start = false;
  };
  class Busy;

  void refuseMissing() const;
  void startNow();
  void createBuffers(const RecordingPlan& plan);
  void logPlan(const oTarnParameters& parameters, const RecordingPlan& plan);
  void beginRecording(const std::shared_ptr<oTarnParameters>& parameters, const RecordingPlan& plan);
  void beginTicking();
  void buildDisplay();
  void clearDisplay();

  void onTick();
  void runState();
  void initialiseEcus();
  void startSessions();
  void waitFor(State next);
  void enterWait(State wait);
  void communicate();
  bool sendRequests();
  void endTick();
  void showWriting();

  void SetAcqState(State state);
  void EndAcquisition();
  void announceStop();
  void settle();
  void settleAndTell();
  void takeSession(ferrox3::Session* session);
  void hideNow();
  void applyScroll();
  std::optional<std::int64_t> since(const std::optional<Milliseconds>& moment) const;
  bool acquiring() const { return state_ != kIdle || items_.held(); }

  AcqScreen& screen_;
  AcqEnvironment env_;
  ferrox3::Session* session_ = nullptr;
  std::shared_ptr<oTarnParameters> parameters_;

  State state_ = kIdle;
  bool stopAcqRequested_ = false;
  bool stopAsked_ = false;  ///< AcqStopped must still be sent; a later start cancels it
  bool busy_ = false;       ///< a tick, or the start or the end of an acquisition, is running
  bool scrollPending_ = false;
  bool writeFailing_ = false;  ///< as the screen was told last
  Deferred deferred_;
  Milliseconds stateSince_ = 0;
  std::uint64_t cycles_ = 0;
  std::optional<Milliseconds> cycleTime_;
  std::optional<Milliseconds> answerTime_;

  AcqLog log_;
  AcquisitionItems items_;
  ValueReader reader_;
  RollingBuffer currentBuffer_;
  RollingBuffer preTriggerBuffer_;
  ValueList values_;
  SampleFeed samples_;
  RecordFiles files_;
  UserEvents events_;
  Recorder recorder_;
  EcuStartup startup_;
  std::unique_ptr<ScopeItem> display_;
  std::function<void()> acqStopped_;
};

}  // namespace tarnlog
