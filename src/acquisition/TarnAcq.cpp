#include "acquisition/TarnAcq.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <limits>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr std::int32_t kCurrentRows = 20;
constexpr std::int32_t kStateWait = 100;  // ms
constexpr std::int32_t kLeastGraphHeight = 40 * kTwipsPerPixel;
constexpr int kEnter = 13;
constexpr int kSpace = 32;

std::int16_t scrollMaximum(Twips extraHeight) {
  constexpr float most = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::clamp(extraHeight / kTwipsPerPixel, 0.0F, most));
}

void placeFrame(GraphArea& area) {
  area.frame().setLeft(0);
  area.frame().setTop(0);
  area.frame().setWidth(area.visibleWidth());
}

/// Makes room for a display that is higher than what is seen of it.
void extendFrame(GraphArea& area, Twips extraHeight) {
  area.frame().setHeight(area.visibleHeight() + extraHeight);
  area.setScrollRange(scrollMaximum(extraHeight), 0);
}

}  // namespace

/// While it lives, the acquisition is busy, and what is asked for is stored.
class TarnAcq::Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() { flag_ = false; }

 private:
  bool& flag_;
};

TarnAcq::TarnAcq(AcqScreen& screen, AcqEnvironment environment)
    : screen_(screen),
      env_(std::move(environment)),
      log_(screen, env_.clock),
      reader_(env_.locale.decimalSeparator),
      currentBuffer_(env_.locale.decimalSeparator),
      preTriggerBuffer_(env_.locale.decimalSeparator),
      values_(screen),
      samples_(env_.clock, env_.sinks, env_.newSampleId),
      files_(env_.files, env_.clock, env_.locale, env_.stylesheetUrl),
      events_(files_),
      recorder_(screen, log_, files_, events_, values_, currentBuffer_, preTriggerBuffer_, samples_),
      startup_(log_, [this] { return stopAcqRequested_; }) {
  env_.timer.setTickHandler([this] { onTick(); });
}

TarnAcq::~TarnAcq() {
  env_.timer.setEnabled(false);
  env_.timer.setTickHandler(nullptr);
  skipOnFailure([&] { clearDisplay(); });
}

// --- what the host and the user ask for

void TarnAcq::setSession(ferrox3::Session* session) {
  deferred_.session = session;
  deferred_.start = false;
  if (busy_)
    stopAcqRequested_ = true;
  else
    settleAndTell();
}

void TarnAcq::takeSession(ferrox3::Session* session) {
  session_ = session;
  screen_.rebuildValueColumns();
  screen_.setRecording(RecordingFact::Cleared);
  SetAcqState(kIdle);
  recorder_.forgetRequests();
}

void TarnAcq::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  parameters_ = std::move(parameters);
  if (session_ != nullptr) StartReadingData();
}

void TarnAcq::refuseMissing() const {
  const auto refuse = [](const char* what) {
    throw TarnError(1, "TarnAcq.StartReadingData",
                    std::string(what) + " not defined, unable to acquire data");
  };
  if (session_ == nullptr) refuse("Session");
  if (parameters_ == nullptr) refuse("Parameters");
}

void TarnAcq::StartReadingData(std::shared_ptr<oTarnParameters> parameters) {
  if (parameters != nullptr) parameters_ = std::move(parameters);
  if (!deferred_.session) refuseMissing();
  deferred_.start = true;
  stopAsked_ = false;
  if (busy_) {
    deferred_.hide = false;
    stopAcqRequested_ = true;
  } else {
    settle();
  }
}

/// Host calls may replace the parameters meanwhile: those of this start are kept alive.
void TarnAcq::startNow() {
  refuseMissing();
  const Busy busy(busy_);
  const std::shared_ptr<oTarnParameters> parameters = parameters_;
  log_.clear();
  clearDisplay();
  display_ = std::make_unique<ScopeItem>();
  const std::int32_t count =
      items_.BuildAcquisitionList(*session_, *parameters, screen_, display_->graphes());
  values_.begin(items_.items());
  if (count == 0) {
    log_.add("No data to acquire");
    recorder_.SetRecordingDisplay(false);
    return;
  }
  const RecordingPlan plan = planRecording(*parameters, count);
  createBuffers(plan);
  logPlan(*parameters, plan);
  buildDisplay();
  beginRecording(parameters, plan);
  samples_.begin(items_, *session_, *parameters);
  beginTicking();
}

void TarnAcq::beginRecording(const std::shared_ptr<oTarnParameters>& parameters, const RecordingPlan& plan) {
  files_.begin(parameters, items_.items());
  events_.reset();
  recorder_.begin(plan, items_.startTrigger(), items_.stopTrigger(), parameters->stopTrigger);
  screen_.setEventNumber(0);
  screen_.setRecordPath({});
  screen_.setElapsed(0);
}

void TarnAcq::beginTicking() {
  cycleTime_ = answerTime_ = std::nullopt;  // the screen may ask with the new state
  SetAcqState(kInitialise);
  recorder_.SetRecordingDisplay(false);
  scrollPending_ = false;
  cycles_ = 0;
  env_.timer.setInterval(1);
  env_.timer.setEnabled(true);
  recorder_.setFirstRowDue(env_.clock.milliseconds());
}

void TarnAcq::createBuffers(const RecordingPlan& plan) {
  const auto columns = static_cast<std::int32_t>(items_.items().size());
  currentBuffer_.Create(columns, kCurrentRows);
  preTriggerBuffer_.Create(columns, plan.preTriggerPoints + 1);
}

void TarnAcq::logPlan(const oTarnParameters& parameters, const RecordingPlan& plan) {
  const oTarnTrigger& start = *parameters.startTrigger;
  const oTarnTrigger& stop = *parameters.stopTrigger;
  const auto times = [&](const char* what, std::int32_t seconds, std::int32_t points) {
    log_.add(what + std::to_string(seconds) + " s  = " + std::to_string(points) + " points");
  };
  if (start.typeTrigger == oTarnTrigger::kManual) log_.add("Start recording manually");
  if (start.typeTrigger == oTarnTrigger::kChannel)
    log_.add("Start recording automaticaly on channel trigger");
  if (start.prepost < 0) times("Start Pre-trigger = ", start.prepost, plan.preTriggerPoints);
  if (stop.typeTrigger == oTarnTrigger::kManual) log_.add("Stop recording manually");
  if (stop.typeTrigger == oTarnTrigger::kChannel) log_.add("Stop recording automaticaly on channel trigger");
  if (stop.typeTrigger == oTarnTrigger::kTime)
    log_.add("Stop recording after : " + std::to_string(stop.timeSeconde) + " s");
  times("Stop Post-trigger = ", stop.prepost, plan.postTriggerPoints);
}

void TarnAcq::AskStopAcqNow() {
  env_.timer.setEnabled(false);
  stopAsked_ = true;
  if (busy_) {
    deferred_.hide = deferred_.start = false;
    stopAcqRequested_ = true;
  } else if (files_.record() != nullptr || events_.active()) {
    stopAcqRequested_ = true;
    env_.timer.setInterval(1);
    env_.timer.setEnabled(true);
  } else {
    settleAndTell();
  }
}

void TarnAcq::ToggleRecording() {
  if (state_ == kCommunicate) recorder_.toggle();
}

void TarnAcq::RecordUserEvent() {
  if (state_ == kCommunicate) recorder_.userEvent();
}

bool TarnAcq::HandleHotKey(int key) {
  if (key == kEnter)
    ToggleRecording();
  else if (key == kSpace)
    RecordUserEvent();
  else
    return false;
  return true;
}

/// Hiding does not reset the recording lamp.
void TarnAcq::shown() {
  if (state_ == kIdle) recorder_.SetRecordingDisplay(false);
}

void TarnAcq::hidden() {
  if (busy_) {
    deferred_.hide = true;
    deferred_.start = false;
    stopAcqRequested_ = true;
  } else if (!stopAcqRequested_) {  // else the pending tick ends the acquisition
    hideNow();
  }
}

void TarnAcq::hideNow() {
  env_.timer.setEnabled(false);
  SetAcqState(kIdle);
  recorder_.suspend();
  skipOnFailure([&] { clearDisplay(); });
}

// --- the live display

void TarnAcq::buildDisplay() {
  GraphArea* const area = screen_.graphArea();
  if (area == nullptr) return;
  placeFrame(*area);
  area->frame().setHeight(area->visibleHeight());
  area->setScrollRange(0, 0);
  Twips extraHeight = 0;
  display_->BuildDisplay(area->frame(), kLeastGraphHeight, extraHeight);
  if (extraHeight > 0) extendFrame(*area, extraHeight);
}

void TarnAcq::clearDisplay() {
  const std::unique_ptr<ScopeItem> display = std::move(display_);
  if (GraphArea* const area = screen_.graphArea(); area != nullptr && display != nullptr)
    display->ClearDisplay(area->frame());
}

void TarnAcq::resized() {
  GraphArea* const area = screen_.graphArea();
  if (area == nullptr) return;
  placeFrame(*area);
  if (display_ == nullptr) return;
  // Height that an earlier resize added beyond the visible one would be shared out among the graphs.
  area->frame().setHeight(area->visibleHeight());
  Twips extraHeight = 0;
  display_->ArrangeDisplay(area->frame(), kLeastGraphHeight, extraHeight);
  extendFrame(*area, extraHeight);
}

void TarnAcq::scrolled() {
  if (session_ != nullptr && session_->communicating())
    scrollPending_ = true;
  else
    applyScroll();
}

void TarnAcq::applyScroll() {
  GraphArea* const area = screen_.graphArea();
  if (area == nullptr) return;
  area->frame().setTop(-static_cast<Twips>(area->scrollValue()) * kTwipsPerPixel);
  skipOnFailure([&] { screen_.focusStartStop(); });
}

// --- the tick

void TarnAcq::onTick() {
  env_.timer.setEnabled(false);
  if (busy_) return;
  if (stopAcqRequested_) return settleAndTell();
  if (state_ == kIdle) return;
  {
    const Busy busy(busy_);
    skipOnFailure([&] { runState(); });
    endTick();
  }
  if (stopAcqRequested_)
    settleAndTell();
  else
    env_.timer.setEnabled(true);
}

void TarnAcq::runState() {
  switch (state_) {
    case kIdle:
      return;
    case kInitialise:
      return initialiseEcus();
    case kWaitAfterInit:
      return waitFor(kStartSessions);
    case kStartSessions:
      return startSessions();
    case kWaitBeforePolling:
      return waitFor(kCommunicate);
    case kCommunicate:
      return communicate();
  }
}

void TarnAcq::initialiseEcus() {
  recorder_.endIfStopArmed();
  if (startup_.initialise(items_.pollSet()) && !stopAcqRequested_) enterWait(kWaitAfterInit);
}

void TarnAcq::startSessions() {
  if (startup_.startSessions(*session_, items_.pollSet(), *parameters_)) enterWait(kWaitBeforePolling);
}

void TarnAcq::enterWait(State wait) {
  stateSince_ = env_.clock.milliseconds();
  SetAcqState(wait);
}

void TarnAcq::waitFor(State next) {
  if (millisecondsBetween(stateSince_, env_.clock.milliseconds()) > kStateWait) SetAcqState(next);
}

void TarnAcq::communicate() {
  const Milliseconds pollTime = env_.clock.milliseconds();
  if (!sendRequests()) return;
  ++cycles_;
  cycleTime_ = env_.clock.milliseconds();
  reader_.read(items_.items(), pollTime, currentBuffer_);
  values_.noteCycle(currentBuffer_);
  const bool refresh = recorder_.cycle(pollTime) == Recorder::Refresh::Display;
  samples_.cycle(pollTime, recorder_.historyFrom());
  if (refresh && screen_.graphArea() != nullptr) skipOnFailure([&] { display_->RefreshDisplay(); });
}

/// False when the cycle is not complete: a stop was requested, or the ECUs must be initialised again.
bool TarnAcq::sendRequests() {
  const ferrox3::PollSet& pollSet = items_.pollSet();
  for (std::size_t i = 0; i < pollSet.requestCount(); ++i) {
    ferrox3::Request& request = pollSet.request(i);
    samples_.sending(i);
    try {
      request.send();
    } catch (const std::exception& error) {
      samples_.failed(error.what());
      skipOnFailure(
          [&] { log_.add(std::string("Send error : ") + error.what() + " UCE=" + request.ecu().name()); });
      SetAcqState(kInitialise);
      return false;
    }
    answerTime_ = env_.clock.milliseconds();
    samples_.answered();
    if (stopAcqRequested_) return false;
  }
  return true;
}

std::optional<std::int64_t> TarnAcq::since(const std::optional<Milliseconds>& moment) const {
  if (state_ == kIdle || !moment) return std::nullopt;
  return Milliseconds(env_.clock.milliseconds() - *moment);
}

void TarnAcq::endTick() {
  if (std::exchange(scrollPending_, false)) skipOnFailure([&] { applyScroll(); });
  showWriting();
}

void TarnAcq::showWriting() {
  const bool failing = files_.failing();
  if (std::exchange(writeFailing_, failing) != failing) screen_.setWriteFailing(failing);
}

// --- states and the end

void TarnAcq::SetAcqState(State state) {
  state_ = state;
  screen_.setState(state);
  samples_.state(state);
}

/// Ends the current acquisition, then carries out what was stored. Of a stop and a start the later one
/// counts. What is asked for while the next one starts is carried out in the same way.
void TarnAcq::settle() {
  if (acquiring()) EndAcquisition();
  stopAcqRequested_ = false;
  const Deferred next = std::exchange(deferred_, {});
  if (next.session) takeSession(*next.session);
  if (next.hide) hideNow();
  if (!next.start) return announceStop();
  try {
    startNow();
  } catch (const std::exception&) {
    if (!stopAcqRequested_) throw;  // else a newer wish takes its place
  }
  if (stopAcqRequested_) settle();
}

/// Where nobody waits for the result: a failure goes into the log, and AcqStopped tells the host that no
/// acquisition runs.
void TarnAcq::settleAndTell() {
  try {
    settle();
  } catch (const std::exception& error) {
    log_.add(error.what());
    stopAsked_ = true;
    announceStop();
  }
}

void TarnAcq::EndAcquisition() {
  const Busy busy(busy_);
  env_.timer.setEnabled(false);
  if (session_ != nullptr) skipOnFailure([&] { session_->endCommunication(); });
  SetAcqState(kIdle);
  recorder_.endWithAcquisition();
  values_.clear();
  items_.release();
  skipOnFailure([&] { clearDisplay(); });
  recorder_.closeAllFiles();
  samples_.end();
  showWriting();
}

/// Only whoever asked for the stop waits for AcqStopped: starting anew, changing the session and hiding do
/// not.
void TarnAcq::announceStop() {
  if (std::exchange(stopAsked_, false) && acqStopped_) acqStopped_();
}

}  // namespace tarnlog
