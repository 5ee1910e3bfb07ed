#include "ui/main/Tarn2001.h"

#include <QAction>
#include <QFileInfo>
#include <QHideEvent>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <iterator>

#include "catalogue/SessionDocument.h"
#include "platform/base/TarnError.h"
#include "ui/common/BusyPointer.h"
#include "ui/common/Convert.h"
#include "ui/common/FinishTyping.h"
#include "ui/common/Icons.h"
#include "ui/common/NoticeBar.h"
#include "ui/common/WheelGuard.h"
#include "ui/init/TarnInit.h"
#include "ui/main/LackText.h"
#include "ui/main/LoadAdvice.h"
#include "ui/main/WhenIdle.h"
#include "ui/param/TarnParam.h"
#include "ui/scope/TarnPaSc.h"
#include "ui/select/TarnSelect.h"

namespace tarnlog {

namespace {

constexpr std::int16_t kLoad = 0;
constexpr std::int16_t kSave = 1;

FileQuestion configurationQuestion(const QString& title, const QString& proposed) {
  const QString filter = "Tarnlog (*.xml)|*.xml|" + Tarn2001::tr("All files") + "|*.*";
  return {title, proposed, filter, ".xml", "ChooseFileName"};
}

QString shownName(const std::string& fileName) { return QFileInfo(toQString(fileName)).fileName(); }

}  // namespace

Tarn2001::Tarn2001(const MainEnvironment& environment, NoticeBar& notices, QWidget* parent)
    : QWidget(parent),
      desk_(environment.files, environment.stylesheetUrl),
      dialogs_(environment.dialogs),
      notices_(notices),
      whenIdle_(new WhenIdle([this] { return session_ != nullptr && session_->communicating(); }, this)),
      open_(new QAction(tr("&Open configuration..."), this)),
      save_(new QAction(tr("&Save configuration"), this)),
      saveAs_(new QAction(tr("Save configuration &as..."), this)) {
  createActions();
  QToolBar* const toolBar = createToolBar();  // made first: so it comes first in the tab order
  tabStrip_ = new QTabBar(this);
  tabStrip_->setObjectName("TabStripMain");
  tabStrip_->setAccessibleName(tr("Configuration screens"));
  tabStrip_->setExpanding(false);
  changeNeverByWheel(*tabStrip_);
  screens_ = new QStackedWidget(this);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(toolBar);
  column->addWidget(tabStrip_);
  column->addWidget(screens_, 1);
  createScreens(environment);
  setAutoFillBackground(true);  // the acquisition may still be shown behind it
  connect(tabStrip_, &QTabBar::currentChanged, this, &Tarn2001::showScreen);
  desk_.setLoadCheck(environment.checkConfiguration);
  desk_.setStateHandler([this] { showState(); });
  showState();
}

void Tarn2001::createActions() {
  open_->setShortcut(QKeySequence::Open);
  save_->setShortcut(QKeySequence::Save);
  saveAs_->setShortcut(QKeySequence::SaveAs);
  atClick(open_, [this] { OuvrirSelecteurFichier(kLoad); });
  atClick(save_, [this] { save(); });
  atClick(saveAs_, [this] { OuvrirSelecteurFichier(kSave); });
  for (QAction* const action : fileActions()) action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
}

void Tarn2001::atClick(QAction* button, const std::function<void()>& action) {
  connect(button, &QAction::triggered, this, [this, action] { whenIdle_->run(action); });
}

QToolBar* Tarn2001::createToolBar() {
  auto* const bar = new QToolBar(tr("Configuration file"), this);
  bar->setObjectName("TbConfig");
  bar->setIconSize({20, 20});
  const auto add = [&](const char* key, const QString& toolTip, std::int16_t mode) {
    QAction* const button = bar->addAction(tarnIcon(key), toolTip);
    button->setObjectName(key);
    bar->widgetForAction(button)->setFocusPolicy(Qt::TabFocus);
    atClick(button, [this, mode] { OuvrirSelecteurFichier(mode); });
  };
  add("load", tr("Load configuration"), kLoad);
  add("save", tr("Save configuration"), kSave);
  return bar;
}

void Tarn2001::createScreens(const MainEnvironment& environment) {
  select_ = new TarnSelect;
  param_ = new TarnParam(environment.settings, environment.files);
  paramScope_ = new TarnPaSc;
  paramInit_ = new TarnInit;
  select_->setObjectName("ctlTarnSelect");
  param_->setObjectName("ctlTarnParam");
  paramScope_->setObjectName("ctlTarnParamScope");
  paramInit_->setObjectName("ctlTarnParamInit");
  addScreen(select_, tr("Data selection"), "data");
  addScreen(param_, tr("Recording parameters"), "param");
  addScreen(paramScope_, tr("Display parameters"), "scope");
  addScreen(paramInit_, tr("Init Scenario"), "initsce");
  const auto noteEdit = [this] { desk_.noteEdit(); };
  connect(select_, &TarnSelect::edited, this, noteEdit);
  connect(param_, &TarnParam::edited, this, noteEdit);
  connect(paramScope_, &TarnPaSc::edited, this, noteEdit);
  connect(paramInit_, &TarnInit::edited, this, noteEdit);
}

void Tarn2001::addScreen(QWidget* screen, const QString& caption, const char* key) {
  screens_->addWidget(screen);
  tabStrip_->setTabData(tabStrip_->addTab(caption), key);
}

void Tarn2001::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  desk_.setParameters(std::move(parameters));
  giveParameters();
  if (desk_.fileName().empty() && !desk_.fromRecord()) showLoad({});
  showState();
}

/// The scenario screen takes the configuration when its tab is chosen.
void Tarn2001::giveParameters() {
  param_->setParameters(desk_.Parameters());
  select_->setParameters(desk_.Parameters());
  paramScope_->setParameters(desk_.Parameters());
  if (screens_->currentWidget() == paramInit_) paramInit_->setParameters(desk_.Parameters());
}

/// While the catalogue is read, and when that fails, all hold none.
void Tarn2001::setSession(ferrox3::Session* session) {
  const BusyPointer busy;
  takeSession(nullptr, std::make_shared<const SessionDocument>());
  if (session != nullptr)
    takeSession(session, std::make_shared<const SessionDocument>(BuildSessionDocument(*session)));
}

void Tarn2001::takeSession(ferrox3::Session* session,
                           const std::shared_ptr<const SessionDocument>& xmlSession) {
  session_ = session;
  desk_.setSession(xmlSession);
  select_->setXmlSession(xmlSession);
  paramScope_->setXmlSession(xmlSession);
  paramInit_->setSession(session);
  if (screens_->currentWidget() == paramInit_) paramInit_->setParameters(desk_.Parameters());
  showState();
}

void Tarn2001::showScreen(int tab) {
  if (tab < 0) return;
  screens_->setCurrentIndex(tab);
  const QString key = tabStrip_->tabData(tab).toString();
  if (key == "data") select_->setParameters(desk_.Parameters());
  if (key == "param") param_->setParameters(desk_.Parameters());
  if (key == "scope") paramScope_->setParameters(desk_.Parameters());
  if (key == "initsce") paramInit_->setParameters(desk_.Parameters());
}

void Tarn2001::showPolled(const QString& text) { param_->setPolled(text); }

void Tarn2001::chooseScreen(const QString& key) {
  for (int tab = 0; tab < tabStrip_->count(); ++tab)
    if (tabStrip_->tabData(tab) == key) tabStrip_->setCurrentIndex(tab);
}

void Tarn2001::focusScreen() {
  if (screens_->currentWidget() == select_) return select_->focusTree();
  tabStrip_->setFocus();
}

bool Tarn2001::focusFilter() {
  if (screens_->currentWidget() != select_) return false;
  select_->focusFilter();
  return true;
}

HelpPage Tarn2001::helpPage() const {
  const QWidget* const screen = screens_->currentWidget();
  HelpPage page{tr("Keys of the recording parameters"), TarnParam::helpRows()};
  if (screen == select_) page = {tr("Keys of the data selection"), TarnSelect::helpRows()};
  if (screen == paramScope_) page = {tr("Keys of the display parameters"), TarnPaSc::helpRows()};
  if (screen == paramInit_) page = {tr("Keys of the init scenario"), TarnInit::helpRows()};
  const HelpRow everywhere[] = {
      {tr("Ctrl+O"), tr("Open configuration")},
      {tr("Ctrl+S, Ctrl+Shift+S"), tr("Save configuration, under another name")},
      {tr("Tab"), tr("Move from control to control")},
      {tr("Alt+A, Alt+L"), tr("Acquire, Log")},
  };
  page.rows.insert(page.rows.end(), std::begin(everywhere), std::end(everywhere));
  return page;
}

// --- files

void Tarn2001::OpenConfigFile(const std::string& fileName) {
  const BusyPointer busy;
  desk_.load(fileName);
  showLoaded(fileName, false);
}

bool Tarn2001::load(const std::string& fileName) {
  bool loaded = false;
  try {
    const BusyPointer busy;
    desk_.load(fileName);
    notices_.removeNotice("load");
    loaded = true;
  } catch (const TarnError& error) {
    const QString failure = toQString(error.description());
    dialogs_.error(this, tr("Load error"), tr("Error when loading configuration file") + "\r\n" + failure);
    notices_.showNotice(
        "load", shownName(fileName) + ": " + LoadAdvice::on(failure), {},
        {tr("Open configuration..."), [this] { whenIdle_->run([this] { chooseAndLoad(); }); }});
  }
  showLoaded(fileName, loaded && session_ == nullptr);
  return loaded;
}

/// Also after a load that failed half-way: the screens show what is left. A file that waits for a session is
/// loaded again then.
void Tarn2001::showLoaded(const std::string& fileName, bool waits) {
  earlyFile_ = waits ? fileName : "";
  showLoad(fileName);
  giveParameters();
  showState();
}

void Tarn2001::loadAgain() {
  if (session_ != nullptr && !earlyFile_.empty()) load(std::string(earlyFile_));
}

bool Tarn2001::save() {
  if (desk_.fileName().empty()) return chooseAndSave();
  if (!desk_.incomplete()) return saveTo(desk_.fileName());
  switch (dialogs_.incompleteWork(this, shownName(desk_.fileName()))) {
    case Dialogs::Incomplete::SaveAs:
      return chooseAndSave();
    case Dialogs::Incomplete::Save:
      return saveTo(desk_.fileName());
    case Dialogs::Incomplete::Cancel:
      break;
  }
  return false;
}

bool Tarn2001::mayBeLost() {
  if (!desk_.changed()) return true;
  const QString name = desk_.fileName().empty() ? tr("The configuration") : shownName(desk_.fileName());
  switch (dialogs_.changedWork(this, name)) {
    case Dialogs::Changed::Save:
      return save();
    case Dialogs::Changed::Discard:
      return true;
    case Dialogs::Changed::Cancel:
      break;
  }
  return false;
}

void Tarn2001::OuvrirSelecteurFichier(std::int16_t mode) {
  if (mode == kSave)
    chooseAndSave();
  else
    chooseAndLoad();
}

void Tarn2001::chooseAndLoad() {
  if (!mayBeLost()) return;
  const auto chosen =
      dialogs_.fileToOpen(this, configurationQuestion(tr("Load configuration"), toQString(desk_.fileName())));
  if (chosen) load(fromQString(*chosen));
}

bool Tarn2001::chooseAndSave() {
  // The file that would lose parts is not the one that is proposed.
  QString proposed = toQString(desk_.fileName());
  if (desk_.incomplete() && !proposed.isEmpty()) proposed = QFileInfo(proposed).path();
  const auto chosen = dialogs_.fileToSave(this, configurationQuestion(tr("Save configuration"), proposed));
  return chosen && saveTo(fromQString(*chosen));
}

/// A failure opens no box: the mark of the changed work stays, and the bar tells why.
bool Tarn2001::saveTo(const std::string& fileName) {
  const BusyPointer busy;
  finishTyping(*this);
  try {
    desk_.save(fileName);
  } catch (const TarnError& error) {
    notices_.showNotice(
        "save", tr("Not saved: %1").arg(toQString(error.description())), {},
        {tr("Save configuration as..."), [this] { whenIdle_->run([this] { chooseAndSave(); }); }});
    return false;
  }
  notices_.removeNotice("save");
  notices_.removeNotice("record");
  return true;
}

// --- states

void Tarn2001::setVisible(bool visible) {
  QWidget::setVisible(visible);
  if (!visible) putAway();
}

/// Minimising the window hides nothing.
void Tarn2001::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) putAway();
}

/// Actions that wait for the end of a request belong to the view that is left: they are dropped.
void Tarn2001::putAway() {
  whenIdle_->drop();
  desk_.setParameters(nullptr);
  showState();
}

void Tarn2001::showState() {
  const bool held = desk_.Parameters() != nullptr;
  open_->setEnabled(held);
  for (QAction* const action : {save_, saveAs_}) action->setEnabled(held && session_ != nullptr);
  emit stateChanged();
}

/// Once after a load: who closes the message has read it.
void Tarn2001::showLoad(const std::string& fileName) {
  showLacks(fileName);
  if (desk_.fromRecord())
    notices_.showNews("record", tr("%1 is a record: its configuration was opened without a name, the "
                                   "record stays as it is.")
                                    .arg(shownName(fileName)));
  else
    notices_.removeNotice("record");
}

void Tarn2001::showLacks(const std::string& fileName) {
  if (desk_.lacks().empty())
    notices_.removeNotice("lacks");
  else if (!earlyFile_.empty())
    notices_.showNews("lacks",
                      tr("%1: its data are loaded as soon as there is a vehicle.").arg(shownName(fileName)));
  else
    notices_.showNotice("lacks", LackText::summary(desk_.lacks(), shownName(fileName)),
                        LackText::lines(desk_.lacks()));
}

}  // namespace tarnlog
