#include "ui/main/TarnMain.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>
#include <utility>
#include <vector>

#include "acquisition/MeasurementChoice.h"
#include "config/oTarnParameters.h"
#include "platform/base/TarnError.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/settings/FileSettingsStore.h"
#include "platform/time/SystemClock.h"
#include "samples/Measurement.h"
#include "samples/PollCosts.h"
#include "ui/acquisition/AcqView.h"
#include "ui/common/Convert.h"
#include "ui/common/DesktopLocale.h"
#include "ui/common/HelpPanel.h"
#include "ui/common/NoticeBar.h"
#include "ui/common/QtTimer.h"
#include "ui/common/WheelGuard.h"
#include "ui/main/LogView.h"
#include "ui/main/MainEnvironment.h"
#include "ui/main/RecordingGuard.h"
#include "ui/main/Tarn2001.h"

namespace tarnlog {

/// What this system gives.
class TarnMain::OwnEnvironment {
 public:
  MainEnvironment environment{clock_, timer_, files_, settings_, dialogs_, desktopLocale()};

 private:
  SystemClock clock_;
  QtTimer timer_;
  SystemFileSystem files_;
  FileSettingsStore settings_{files_, FileSettingsStore::defaultPath()};
  QtDialogs dialogs_;
};

TarnMain::TarnMain(QWidget* parent) : TarnMain(std::make_unique<OwnEnvironment>(), parent) {}

TarnMain::TarnMain(std::unique_ptr<OwnEnvironment> own, QWidget* parent)
    : QWidget(parent), own_(std::move(own)) {
  create(own_->environment);
}

TarnMain::TarnMain(const MainEnvironment& environment, QWidget* parent) : QWidget(parent) {
  create(environment);
}

/// The views go before what they stand on.
TarnMain::~TarnMain() {
  delete guard_;
  configure_->disconnect(this);
  acq_->disconnect(this);
  acq_->acq().setAcqStoppedHandler({});
  acq_->acq().setLogAddedHandler({});
  delete acq_;
  delete configure_;
}

void TarnMain::create(const MainEnvironment& environment) {
  settings_ = &environment.settings;
  createTabs();  // first: so they come first in the tab order
  notices_ = new NoticeBar(this);
  configure_ = new Tarn2001(environment, *notices_, this);
  createAcquisition(environment);
  log_ = new LogView(this);
  configure_->setObjectName("ctlTarnConfigure");
  acq_->setObjectName("ctlTarnAcq");
  log_->setObjectName("logText");
  guard_ = new RecordingGuard(
      environment.endQuestion, [this] { return runningRecording(); }, this);
  acq_->setGuide(environment.guide);
  help_ = new HelpPanel(environment.guide, this);
  addActions(configure_->fileActions());

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(notices_);
  column->addWidget(tabs_);
  // The views share one place: an acquisition that is ending stays behind the view that was chosen.
  auto* const place = new QGridLayout;
  for (QWidget* const view :
       {static_cast<QWidget*>(acq_), static_cast<QWidget*>(log_), static_cast<QWidget*>(configure_)})
    place->addWidget(view, 0, 0);
  column->addLayout(place, 1);

  acq_->hide();
  log_->hide();
  acq_->acq().setAcqStoppedHandler([this] {
    configure_->showPolled(toQString(pollSummary(costs_->report())));
    acq_->hide();
    if (current("ACQ")) showConfiguration();  // nobody chose another view: there would be none
    emit acquisitionStopped();
  });
  acq_->acq().setLogAddedHandler([this](std::string_view line) { log_->add(line); });
  connect(acq_, &AcqView::pressedInVain, this, &TarnMain::offerToEnd);
  connect(acq_, &AcqView::stateEntered, this, &TarnMain::withdrawOffer);
  connect(configure_, &Tarn2001::stateChanged, this, &TarnMain::configurationStateChanged);
  parameters_ = std::make_shared<oTarnParameters>(*settings_);
  configure_->setParameters(parameters_);
}

void TarnMain::createAcquisition(const MainEnvironment& environment) {
  measurement_ = std::make_unique<Measurement>(MdfSinkSetup{
      .files = environment.files,
      .clock = environment.clock,
      .locale = environment.locale,
      .programVersion = environment.programVersion,
      .recordings = [settings = &environment.settings] { return MeasurementChoice(settings).on(); },
      .whole = [wanted = environment.measureWhole] { return wanted && wanted(); }});
  costs_ = std::make_unique<PollCosts>();
  std::vector<SampleSink*> sinks = measurement_->sinks();
  sinks.push_back(costs_.get());
  sinks.insert(sinks.end(), environment.sinks.begin(), environment.sinks.end());
  acq_ = new AcqView({environment.clock, environment.timer, environment.files, environment.locale,
                      environment.stylesheetUrl, std::move(sinks)},
                     &environment.settings, this);
  acq_->setLookAtRecord(environment.lookAtRecord);
  measurement_->quality().setRowsSynced([this] { return acq_->acq().recordRows().synced; });
}

void TarnMain::createTabs() {
  tabs_ = new QTabBar(this);
  tabs_->setObjectName("TabSmain");
  tabs_->setAccessibleName(tr("Views"));
  tabs_->setExpanding(false);
  changeNeverByWheel(*tabs_);
  const auto add = [this](const QString& caption, const char* key) {
    tabs_->setTabData(tabs_->addTab(caption), key);
  };
  add(tr("&Configure"), "CONF");
  add(tr("&Acquire"), "ACQ");
  add(tr("&Log"), "log");
  connect(tabs_, &QTabBar::currentChanged, this, &TarnMain::onTab);
}

// --- the host

void TarnMain::setSession(ferrox3::Session* session) {
  selectTab("CONF");
  configure_->show();
  acq_->hide();
  log_->hide();
  parameters_ = std::make_shared<oTarnParameters>(*settings_);
  configure_->setParameters(parameters_);
  acq_->acq().setSession(nullptr);  // when the catalogue cannot be read, nobody keeps the old one
  configure_->setSession(session);
  acq_->acq().setSession(session);
  configure_->loadAgain();
}

void TarnMain::OpenConfigFile(const std::string& filename) {
  try {
    configure_->OpenConfigFile(filename);
  } catch (const TarnError& error) {
    acq_->acq().AskStopAcqNow();
    showConfiguration();
    throw TarnError(error.number(), "Tarnlog2001", "Open file error : " + error.description());
  }
  log_->clearLines();
  configure_->hide();
  log_->hide();
  try {
    acq_->acq().StartReadingData(parameters_);
  } catch (const TarnError&) {
    showConfiguration();
    throw;
  }
  acq_->show();
  acq_->setFocus();
  selectTab("ACQ");
}

std::string TarnMain::configurationFile() const { return configure_->desk().fileName(); }
bool TarnMain::configurationChanged() const { return configure_->desk().changed(); }
bool TarnMain::configurationMayBeLost() { return configure_->mayBeLost(); }
void TarnMain::stopAcquisition() { acq_->acq().AskStopAcqNow(); }

bool TarnMain::recordingRuns() const {
  const TarnAcq& acq = acq_->acq();
  return acq.AcqState() != TarnAcq::kIdle && !acq.endAsked() && (acq.Recording() || acq.startPending());
}

std::optional<std::int32_t> TarnMain::runningRecording() const {
  if (!recordingRuns()) return std::nullopt;
  return acq_->acq().finishedRecordings();
}

void TarnMain::whenRecordingMayEnd(std::function<void()> then) { guard_->whenMayEnd(std::move(then)); }

TarnAcq& TarnMain::ctlTarnAcq() { return acq_->acq(); }

// --- the views

/// Until a recording may end, its tab stays the current one.
void TarnMain::onTab(int tab) {
  const QString key = tabs_->tabData(tab).toString();
  if (!recordingRuns()) return enter(key);
  selectTab("ACQ");
  whenRecordingMayEnd([this, key] { enter(key); });
}

void TarnMain::enter(const QString& key) {
  help_->hide();
  selectTab(key);
  if (key == "CONF") enterConfiguration();
  if (key == "ACQ") enterAcquisition();
  if (key == "log") enterLog();
}

/// The acquisition view is hidden when the acquisition has ended: hiding it now would end it without closing
/// its files.
void TarnMain::enterConfiguration() {
  acq_->acq().AskStopAcqNow();
  showConfiguration();
}

void TarnMain::enterAcquisition() {
  log_->clearLines();
  log_->hide();
  configure_->hide();
  acq_->show();
  acq_->setFocus();
  notices_->removeNotice("start");
  try {
    acq_->acq().StartReadingData(parameters_);
  } catch (const TarnError& error) {
    acq_->acq().addLog(error.description());
    offerToMend(toQString(error.description()));
  }
}

void TarnMain::enterLog() {
  acq_->acq().AskStopAcqNow();
  configure_->hide();
  log_->show();
  log_->raise();
}

void TarnMain::showConfiguration() {
  selectTab("CONF");
  log_->hide();
  configure_->show();
  configure_->raise();
  configure_->setParameters(parameters_);
}

/// With a vehicle, what keeps an acquisition from starting is a number among the recording parameters.
void TarnMain::offerToMend(const QString& failure) {
  if (!configure_->hasSession())
    return notices_->showNotice("start", tr("There is no vehicle yet: open or connect one first"));
  notices_->showNotice("start", failure, {}, {tr("Recording parameters"), [this] { openScreen("param"); }});
}

void TarnMain::openScreen(const QString& key) {
  whenRecordingMayEnd([this, key] {
    notices_->removeNotice("start");
    enter("CONF");
    configure_->chooseScreen(key);
  });
}

/// The answer to a press that has no effect before values are polled again.
void TarnMain::offerToEnd() {
  const bool recording = acq_->acq().Recording() || acq_->acq().startPending();
  notices_->showNotice("connection",
                       recording ? tr("No connection to the car: the recording goes on when it is back")
                                 : tr("No connection to the car: recording can begin when it is there"),
                       {}, {tr("End now"), [this] { acq_->acq().AskStopAcqNow(); }});
}

void TarnMain::withdrawOffer() {
  const TarnAcq::State state = acq_->acq().AcqState();
  if (state == TarnAcq::kIdle || state == TarnAcq::kCommunicate) notices_->removeNotice("connection");
}

/// Without the click that would start or stop something.
void TarnMain::selectTab(const QString& key) {
  const QSignalBlocker silent(tabs_);
  for (int tab = 0; tab < tabs_->count(); ++tab)
    if (tabs_->tabData(tab) == key) tabs_->setCurrentIndex(tab);
}

bool TarnMain::current(const char* key) const {
  return tabs_->tabData(tabs_->currentIndex()) == QString(key);
}

void TarnMain::toggleHelp() {
  if (current("ACQ")) return acq_->toggleHelp();
  help_->toggle(current("log") ? LogView::helpPage() : configure_->helpPage());
}

void TarnMain::focusView() {
  if (current("CONF")) return configure_->focusScreen();
  QWidget& view = current("ACQ") ? static_cast<QWidget&>(*acq_) : *log_;
  view.setFocus();
}

/// What no child has used: the focus may be on a tab.
void TarnMain::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1)
    toggleHelp();
  else if (!event->matches(QKeySequence::Find) || !current("CONF") || !configure_->focusFilter())
    QWidget::keyPressEvent(event);
}

/// A host that hid the control and shows it again: the configuration view has put its configuration away.
void TarnMain::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous() && current("CONF")) configure_->setParameters(parameters_);
}

}  // namespace tarnlog
