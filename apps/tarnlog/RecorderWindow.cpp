#include "apps/tarnlog/RecorderWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "acquisition/TarnAcq.h"
#include "apps/tarnlog/ConnectDialog.h"
#include "apps/tarnlog/FileKinds.h"
#include "apps/tarnlog/LinkAdvice.h"
#include "apps/tarnlog/PublishDialog.h"
#include "apps/tarnlog/RecentMenu.h"
#include "apps/tarnlog/StartPage.h"
#include "config/oTarnParameters.h"
#include "platform/base/TarnError.h"
#include "samples/Measurement.h"
#include "ui/common/Convert.h"
#include "ui/common/HelpPanel.h"
#include "ui/common/Icons.h"
#include "ui/common/MessageTable.h"
#include "ui/common/NoticeBar.h"
#include "ui/main/LoadAdvice.h"
#include "ui/main/Tarn2001.h"
#include "ui/main/TarnMain.h"
#include "ui/main/WhenIdle.h"

namespace tarnlog {

namespace {

constexpr const char* kGeometry = "WindowGeometry";
constexpr const char* kFolderPerVehicle = "FolderPerVehicle";
constexpr const char* kProgram = "Tarnlog2001";
constexpr const char* kOpenFileError = "Open file error : ";  ///< how TarnMain begins

/// Nobody is left to answer them: menus, messages, and dialogs that wait in a loop of their own.
void cancelQuestions() {
  while (QWidget* const menu = QApplication::activePopupWidget())
    if (!menu->close()) break;
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (auto* const dialog = qobject_cast<QDialog*>(window); dialog != nullptr && dialog->isVisible())
      dialog->reject();
}

}  // namespace

RecorderWindow::RecorderWindow(WindowEnvironment environment)
    : environment_(std::move(environment)),
      recentVehicles_(environment_.recorder.settings, "RecentVehicles"),
      recentConfigurations_(environment_.recorder.settings, "RecentConfigurations"),
      recentConnections_(environment_.recorder.settings),
      whenIdle_(new WhenIdle([this] { return slot_->communicating(); }, this)),
      whenOpened_(new WhenIdle([this] { return slot_->opening(); }, this)) {
  setWindowIcon(tarnIcon("tarnlog"));
  createContent();
  createMenus();
  restorePlace();
  showStart();
  lookForUnfinished();
}

/// The recorder goes before the vehicle that it records from.
RecorderWindow::~RecorderWindow() {
  slot_->letGoOfRecorder();
  delete recorder_;
}

void RecorderWindow::createContent() {
  notices_ = new NoticeBar;
  start_ = new StartPage;
  startHelp_ = new HelpPanel(environment_.recorder.guide, start_);
  viewer_.emplace(
      environment_.recorder,
      RecordViewer::Recorder{[this] { bringUp(); },
                             [this](std::function<void()> action) { whenIdle_->run(std::move(action)); },
                             [this](const std::string& path) { return isBeingRecorded(path); }});
  environment_.recorder.lookAtRecord = [this](const std::string& path) { viewer_->open({path}); };
  recorder_ = new TarnMain(environment_.recorder);
  slot_ = std::make_unique<VehicleSlot>(environment_.openVehicle, environment_.usualLink, *recorder_, *this);
  recordings_.emplace(
      *notices_, [this] { recorder_->openScreen("param"); }, environment_.recorder.lookAtRecord);
  unfinished_.emplace(environment_.unfinished, *notices_,
                      [this] { return recorder_->ctlTarnAcq().AcqState() != TarnAcq::kIdle; });
  pages_ = new QStackedWidget;
  pages_->addWidget(start_);
  pages_->addWidget(recorder_);
  auto* const content = new QWidget;
  auto* const column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(notices_);
  column->addWidget(pages_, 1);
  setCentralWidget(content);
  connect(slot_.get(), &VehicleSlot::noticed, this, &RecorderWindow::sayOfVehicle);
  connect(start_, &StartPage::vehicleChosen, this, &RecorderWindow::openVehicle);
  connect(start_, &StartPage::connectionChosen, this, &RecorderWindow::openConnection);
  connect(start_, &StartPage::otherVehicleWanted, this, &RecorderWindow::chooseVehicle);
  connect(start_, &StartPage::carWanted, this, &RecorderWindow::connectToCar);
  connect(start_, &StartPage::recordWanted, this, [this] { viewer_->askOpen(); });
  // Once the drag is over: opening lets events run.
  connect(
      start_, &StartPage::filesDropped, this,
      [this](const QStringList& paths) {
        std::vector<std::string> files;
        for (const QString& path : paths) files.push_back(fromQString(path));
        openFiles(files);
      },
      Qt::QueuedConnection);
  connect(recorder_, &TarnMain::configurationStateChanged, this, &RecorderWindow::noteConfiguration);
  connect(recorder_, &TarnMain::acquisitionStopped, this, [this] {
    if (closing_) closeNow();
  });
}

// --- menus

void RecorderWindow::createMenus() {
  addFileActions(*menuBar()->addMenu(tr("&File")));
  place_ = new QLabel;
  place_->setObjectName("vehicleAndLink");
  place_->setTextFormat(Qt::PlainText);
  place_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  place_->setMinimumHeight(menuBar()->sizeHint().height());
  place_->setContentsMargins(8, 0, 8, 0);
  menuBar()->setCornerWidget(place_);
  addHelpActions(*menuBar()->addMenu(tr("&Help")));
}

/// F1 is no shortcut of the menu: the page that has the focus may take it first.
void RecorderWindow::addHelpActions(QMenu& menu) {
  const Guide& guide = environment_.recorder.guide;
  menu.addAction(tr("&Keys of this page") + "\tF1", this, &RecorderWindow::toggleHelp)->setObjectName("help");
  if (guide.open) menu.addAction(tr("User &guide"), this, guide.open);
  if (guide.messages)
    menu.addAction(tr("What the &messages mean"), this, [this, guide] { showMessageTable(guide, *this); });
  menu.addSeparator();
  menu.addAction(tr("&About Tarnlog2001"), this, [this] { whenIdle_->run([this] { about(); }); });
}

void RecorderWindow::toggleHelp() {
  if (pages_->currentWidget() == recorder_) return recorder_->toggleHelp();
  startHelp_->toggle(StartPage::helpPage());
}

/// What no page has used.
void RecorderWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) return toggleHelp();
  QMainWindow::keyPressEvent(event);
}

void RecorderWindow::addFileActions(QMenu& menu) {
  menu.addAction(tarnIcon("ecu"), tr("Open &vehicle..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
                 this, &RecorderWindow::chooseVehicle);
  menu.addAction(tarnIcon("plug"), tr("&Connect to a car..."), this, &RecorderWindow::connectToCar)
      ->setObjectName("connectToCar");
  addRecentMenu(menu, tr("Recent v&ehicles"), recentVehicles_,
                [this](const QString& path) { openVehicle(path); });
  menu.addSeparator();
  const QList<QAction*> actions = recorder_->ctlTarnConfigure().fileActions();
  for (QAction* const action : actions) action->setShortcutContext(Qt::WindowShortcut);
  menu.addAction(actions.first());
  QMenu* const recent = addRecentMenu(menu, tr("&Recent configurations"), recentConfigurations_,
                                      [this](const QString& path) { openConfiguration(path); });
  menu.addActions(actions.mid(1));
  menu.addSeparator();
  viewer_->addActions(menu);
  menu.addSeparator();
  addFolderPerVehicle(menu);
  addPublishing(menu, environment_.recorder.settings, environment_.recorder.dialogs, *this);
  menu.addSeparator();
  menu.addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
  connect(&menu, &QMenu::aboutToShow, this,
          [this, recent] { recent->setEnabled(recorder_->ctlTarnConfigure().Parameters() != nullptr); });
}

/// Asked at each new file, so that it may be changed at any time.
void RecorderWindow::addFolderPerVehicle(QMenu& menu) {
  folderPerVehicle_ = menu.addAction(tr("A &folder for each vehicle"));
  folderPerVehicle_->setObjectName("folderPerVehicle");
  folderPerVehicle_->setToolTip(tr("Files go into a folder named after the vehicle"));
  folderPerVehicle_->setCheckable(true);
  SettingsStore& settings = environment_.recorder.settings;
  bool on = environment_.folderPerVehicle;
  skipOnFailure([&] { on = on || settings.read(kFolderPerVehicle).value_or("") == "1"; });
  folderPerVehicle_->setChecked(on);
  connect(folderPerVehicle_, &QAction::toggled, this, [&settings](bool checked) {
    skipOnFailure([&] { settings.write(kFolderPerVehicle, checked ? "1" : "0"); });
  });
  const auto rule = [this](const std::string& folder) { return folderFor(folder); };
  recorder_->ctlTarnAcq().setFolderRule(rule);
  recorder_->measurement().files().setFolderRule(rule);
}

std::string RecorderWindow::folderFor(const std::string& folder) {
  notices_->removeNotice("folder");
  if (!folderPerVehicle_->isChecked() || slot_->vehicle() == nullptr) return folder;
  return environment_.folderOfVehicle(
      folder, slot_->vehicle()->description(), [this](const std::string& why) {
        say("folder", tr("The vehicle's folder cannot be made: %1").arg(toQString(why)));
      });
}

void RecorderWindow::about() {
  QMessageBox::about(this, tr("About Tarnlog2001"),
                     tr("Tarnlog2001 %1\nRecorder and live scope for the diagnostic data of a vehicle's "
                        "control units.")
                         .arg(TARNLOG_VERSION));
}

// --- vehicle and configuration

void RecorderWindow::chooseVehicle() {
  whenIdle_->run([this] {
    const auto recent = recentVehicles_.paths();
    const FileQuestion question{tr("Open vehicle"), recent.empty() ? QString() : toQString(recent.front()),
                                tr("Vehicles") + " (*.json)|*.json|" + tr("All files") + "|*.*", ".json"};
    const auto chosen = environment_.recorder.dialogs.fileToOpen(this, question);
    if (chosen) openVehicle(*chosen);
  });
}

/// A configuration that comes along is for the vehicle; records are looked at together.
void RecorderWindow::openFiles(const std::vector<std::string>& paths) {
  const FileKinds kinds = sortedByKind(paths, environment_.recorder.files);
  for (const std::string& path : kinds.others) openOther(toQString(path));
  for (const std::string& path : kinds.configurations) openConfiguration(toQString(path));
  if (!kinds.records.empty()) viewer_->open(kinds.records);
}

bool RecorderWindow::isBeingRecorded(const std::string& path) const {
  std::vector<std::string> open = recorder_->ctlTarnAcq().openPaths();
  for (std::string& each : recorder_->measurement().files().openPaths()) open.push_back(std::move(each));
  std::error_code none;
  return std::ranges::any_of(open, [&](const std::string& each) {
    return each == path || std::filesystem::equivalent(each, path, none);
  });
}

void RecorderWindow::openOther(const QString& path) {
  const QString kind = QFileInfo(path).suffix().toLower();
  if (kind == "json") return openVehicle(path);
  if (kind == "trace") return openConnection({std::string(host::kObdCar), "replay:" + fromQString(path)});
  const bool container = kind == "pdx" || kind == "odx";
  say("dropped", (container ? tr("%1: \"tarn-record import --odx\" makes a vehicle description of it")
                            : tr("%1 is no vehicle (.json), configuration (.xml), record or trace (.trace)"))
                     .arg(QFileInfo(path).fileName()));
}

void RecorderWindow::openVehicle(const QString& path) { openConnection({fromQString(path)}); }

void RecorderWindow::openConnection(const CarConnection& connection) {
  if (closing_) return;
  slot_->change(connection, [this, connection](const QString& failure) {
    if (!failure.isEmpty()) {
      const QString advice = LinkAdvice::on(failure, connection);
      environment_.recorder.dialogs.error(this, tr("Vehicle error"),
                                          advice.isEmpty() ? failure : failure + "\n\n" + advice);
      forgetVehicle(connection);
    }
    showChange(failure.isNull());
  });
}

void RecorderWindow::connectToCar() {
  if (findChild<ConnectDialog*>() != nullptr) return;
  const auto askFile = [this](const QString& title, const QString& proposed, const QString& filter,
                              const std::function<void(const QString&)>& chosen) {
    whenIdle_->run([this, question = FileQuestion{title, proposed, filter, {}}, chosen] {
      if (const auto file = environment_.recorder.dialogs.fileToOpen(this, question)) chosen(*file);
    });
  };
  const CarDevices devices = environment_.findDevices ? environment_.findDevices() : CarDevices();
  auto* const dialog = new ConnectDialog(recentConnections_.all(), linkChoices(devices), askFile,
                                         environment_.recorder.guide, this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  connect(dialog, &ConnectDialog::connectWanted, this, [this, dialog] { connectAsAsked(*dialog); });
  dialog->open();
}

void RecorderWindow::connectAsAsked(ConnectDialog& dialog) {
  slot_->change(dialog.connection(), [this, asked = QPointer(&dialog)](const QString& failure) {
    if (asked && failure.isNull()) asked->accept();
    if (asked) asked->setFailure(failure);
    showChange(failure.isNull());
  });
}

void RecorderWindow::showChange(bool opened) {
  if (opened) {
    rememberVehicle();
    showNotes();
    pages_->setCurrentWidget(recorder_);
    recorder_->focusView();
  }
  showTitle();
  acquireWaiting();
}

/// What the car lists but does not give.
void RecorderWindow::showNotes() {
  QStringList notes;
  for (const std::string& note : slot_->vehicle()->description().notes) notes += toQString(note);
  notices_->removeNotice("notes");
  if (!notes.isEmpty())
    notices_->showNotice(
        "notes", notes.size() == 1 ? tr("Not offered: %1").arg(notes.front()) : tr("Not all is offered"),
        notes);
}

/// The car behind the command line's link is asked for there again.
void RecorderWindow::rememberVehicle() {
  CarConnection found = slot_->connection();
  const bool asked = found.vehicle == host::kObdCar;
  if (!asked) found.vehicle = fromQString(QFileInfo(toQString(found.vehicle)).absoluteFilePath());
  found.name = slot_->vehicle()->description().name;
  if (!found.link.empty()) recentConnections_.add(found);
  if (found.link.empty() && !asked) recentVehicles_.add(found.vehicle);
}

/// An adapter that is not plugged in now may be tomorrow.
void RecorderWindow::forgetVehicle(const CarConnection& connection) {
  if (connection.link.empty()) recentVehicles_.remove(connection.vehicle);
}

void RecorderWindow::acquire(const QString& configuration, std::optional<std::string> folder) {
  waitingConfiguration_ = configuration;
  waitingFolder_ = std::move(folder);
  acquireWaiting();
}

void RecorderWindow::acquireWaiting() {
  if (slot_->vehicle() == nullptr || waitingConfiguration_.isEmpty()) return;
  const auto folder = std::exchange(waitingFolder_, std::nullopt);
  try {
    recorder_->OpenConfigFile(fromQString(std::exchange(waitingConfiguration_, {})));
    if (folder) recorder_->ctlTarnAcq().Parameters()->fileFolder = *folder;
  } catch (const TarnError& error) {
    const QString failure = toQString(error.description());
    if (!failure.startsWith(kOpenFileError))
      return environment_.recorder.dialogs.error(this, tr("Acquisition error"), failure);
    const QString text = tr("Open file error : %1").arg(failure.mid(int(qstrlen(kOpenFileError))));
    environment_.recorder.dialogs.error(this, tr("Load error"), text + "\n\n" + LoadAdvice::on(failure));
  }
}

void RecorderWindow::openConfiguration(const QString& path) {
  whenIdle_->run([this, path] {
    Tarn2001& configure = recorder_->ctlTarnConfigure();
    const bool left = configure.Parameters() == nullptr;  // for another view, while a request was under way
    if (left || !configure.mayBeLost()) return;
    if (!configure.load(fromQString(path))) recentConfigurations_.remove(fromQString(path));
  });
}

void RecorderWindow::noteConfiguration() {
  const QString file = toQString(recorder_->configurationFile());
  if (file != notedConfiguration_ && !file.isEmpty())
    recentConfigurations_.add(fromQString(QFileInfo(file).absoluteFilePath()));
  if (file != notedConfiguration_) lookForUnfinished();
  notedConfiguration_ = file;
  showEarlyConfiguration();
  showTitle();
}

/// The recorder, which tells the same, is not shown yet.
void RecorderWindow::showEarlyConfiguration() {
  const std::string& early = recorder_->ctlTarnConfigure().earlyFile();
  if (early.empty()) return notices_->removeNotice("early");
  const QString name = QFileInfo(toQString(early)).fileName();
  notices_->showNews("early", tr("%1 is opened as soon as there is a vehicle.").arg(name));
}

/// Where this configuration puts its files. A new one has the folder of the settings.
void RecorderWindow::lookForUnfinished() {
  const auto& configuration = recorder_->ctlTarnConfigure().Parameters();
  if (configuration == nullptr) return;
  const std::string& folder = configuration->fileFolder;
  unfinished_->lookInto(folder.empty() ? environment_.recorder.files.currentFolder() : folder,
                        folderPerVehicle_->isChecked());
}

// --- the window

void RecorderWindow::showStart() {
  start_->setVehicles(recentConnections_.all(), recentVehicles_.paths(), environment_.exampleVehicles);
  pages_->setCurrentWidget(start_);
  showTitle();
}

QString RecorderWindow::vehicleText() const {
  const QString name = toQString(slot_->vehicle()->description().name);
  const QString link = toQString(slot_->link());
  return link.isEmpty() ? name : tr("%1 over %2").arg(name, link);
}

void RecorderWindow::say(const QString& subject, const QString& text, const NoticeBar::Action& action) {
  notices_->showNotice(subject, text, {}, action);
  if (environment_.say) environment_.say(fromQString(text));
}

void RecorderWindow::sayOfVehicle(const QString& subject, const QString& text) {
  const Guide& guide = environment_.recorder.guide;
  NoticeBar::Action explain;
  if (guide.messages)
    explain = {tr("What the messages mean"), [this, guide] { showMessageTable(guide, *this); }};
  say(subject, text, explain);
}

void RecorderWindow::showTitle() {
  showPlace();
  if (slot_->vehicle() == nullptr) return setWindowTitle(kProgram);
  const QString file = QFileInfo(toQString(recorder_->configurationFile())).fileName();
  setWindowTitle((file.isEmpty() ? tr("New configuration") : file) + "[*] - " + vehicleText() + " - " +
                 kProgram);
  setWindowModified(recorder_->configurationChanged());
}

/// The menus need their place, too.
void RecorderWindow::showPlace() {
  const QString text = slot_->vehicle() == nullptr ? QString() : vehicleText();
  place_->setText(place_->fontMetrics().elidedText(text, Qt::ElideMiddle, width() * 2 / 3));
  place_->setToolTip(text);
  menuBar()->setCornerWidget(place_);  // the bar makes room for a longer text only then
}

void RecorderWindow::bringUp() {
  show();
  raise();
  activateWindow();
}

void RecorderWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  showPlace();
}

/// Settings that cannot be read are told once: at the end they are written anew.
void RecorderWindow::restorePlace() {
  resize(1100, 760);
  try {
    const auto stored = environment_.recorder.settings.read(kGeometry);
    if (stored) restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(*stored)));
  } catch (const TarnError& error) {
    notices_->showNotice(
        "settings",
        tr("The settings cannot be read, the defaults are used: %1").arg(toQString(error.description())));
  }
}

void RecorderWindow::storePlace() {
  skipOnFailure(
      [&] { environment_.recorder.settings.write(kGeometry, saveGeometry().toBase64().toStdString()); });
}

/// In the middle of a request, too: during an outage there is hardly a moment outside of one.
void RecorderWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(mayClose_);
  if (mayClose_ || closing_) return;
  slot_->cancel();
  whenOpened_->run([this] { recorder_->whenRecordingMayEnd([this] { askAndClose(); }); });
}

void RecorderWindow::askAndClose() {
  if (!recorder_->configurationChanged()) return endAndClose();
  slot_->whenIdle([this] {
    if (recorder_->configurationMayBeLost()) endAndClose();
  });
}

/// The acquisition may need one more tick for its end.
void RecorderWindow::endAndClose() {
  slot_->cancel();
  if (slot_->opening()) return whenOpened_->run([this] { endAndClose(); });
  closing_ = true;
  cancelQuestions();
  notices_->showNews("closing", tr("Closing: what runs is being ended."));
  setEnabled(false);
  recorder_->stopAcquisition();
}

void RecorderWindow::closeNow() {
  if (std::exchange(mayClose_, true)) return;
  storePlace();
  viewer_->close();
  QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

}  // namespace tarnlog
