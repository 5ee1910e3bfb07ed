#include "ui/acquisition/AcqView.h"

#include <QApplication>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <utility>

#include "acquisition/Indicators.h"
#include "platform/base/TarnError.h"
#include "ui/acquisition/HotKeys.h"
#include "ui/acquisition/Indicator.h"
#include "ui/acquisition/IndicatorMeaning.h"
#include "ui/acquisition/KeyboardHelp.h"
#include "ui/acquisition/LogList.h"
#include "ui/acquisition/ScrolledGraphs.h"
#include "ui/acquisition/TabStrip.h"
#include "ui/acquisition/ValueListModel.h"
#include "ui/acquisition/ValueListView.h"
#include "ui/common/Convert.h"
#include "ui/common/ElidedLabel.h"
#include "ui/common/Icons.h"

namespace tarnlog {

namespace {

constexpr int kSpacing = 6;
constexpr int kLogLines = 5;  ///< that the log shows at least
constexpr int kLeastLogWidth = 120;

const QString kList = QStringLiteral("LIST");
const QString kGraph = QStringLiteral("GRAPH");

/// The recorder's fixed words, for translators.
[[maybe_unused]] constexpr std::array kWords = {
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "rec"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "init"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "Wait"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "Start"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "com"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "Start recording"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "Stop recording"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "Event"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "no record file"),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "Open error : "),
    QT_TRANSLATE_NOOP("tarnlog::AcqView", "Error : Unable to create file"),
};

QString inUsersWords(std::string_view text) {
  return text.empty() ? QString() : AcqView::tr(std::string(text).c_str());
}

/// A text that may begin with this word, and go on with a number or a message.
QString headInUsersWords(std::string_view text, std::string_view head) {
  if (text.substr(0, head.size()) != head) return inUsersWords(text);
  return inUsersWords(head) + toQString(text.substr(head.size()));
}

QPushButton* makeButton(const char* name, const QString& tip, QWidget* parent) {
  auto* const button = new QPushButton(parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

/// A button for the mouse: its key does the same, so the focus passes it by.
QToolButton* makeCornerButton(const QString& icon, const QString& name, const QString& tip, QWidget* parent) {
  auto* const button = new QToolButton(parent);
  button->setIcon(tarnIcon(icon));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  button->setAccessibleName(name);
  button->setToolTip(tip);
  return button;
}

}  // namespace

// --- making the controls

AcqView::AcqView(Environment environment, QWidget* parent) : QWidget(parent) {
  setObjectName("ctlTarnAcq");
  acq_ = std::make_unique<TarnAcq>(AcqEnvironment{*this, environment.clock, environment.timer,
                                                  environment.files, std::move(environment.locale),
                                                  std::move(environment.stylesheetUrl)});
  makeHeader();
  makeStatusBar();
  makeValues();
  graphs_->surface().setClock(&environment.clock);
  makePauseControls();
  orderTabs();
  connectControls();
  addShortcuts();
  showTab(kList);
}

AcqView::~AcqView() {
  skipOnFailure([&] { acq_->setSession(nullptr); });
  acq_.reset();
}

void AcqView::makeHeader() {
  lblRec_ = new Indicator(tr("Recording"), this);
  lblRec_->setObjectName("LblRec");
  setRecordingCaption("rec");
  setRecordingColour(indicator::kIdle);
  lblDiag_ = new Indicator(tr("State of the acquisition"), this);
  lblDiag_->setObjectName("LblDiag");
  setStateIndicator("", indicator::kIdle);
  commandStartStop_ = makeButton("CommandStartStop", tr("Start or stop recording (Enter)"), this);
  setStartStopCaption("Start recording");
  eventBouton_ =
      makeButton("EventBouton", tr("Write the rows around this moment into an event file (Space)"), this);
  setEventCaption("Event");
  log_ = new LogList(this);
}

void AcqView::makeStatusBar() {
  statusBar_ = new QStatusBar(this);
  statusBar_->setObjectName("StatusBar1");
  statusBar_->setSizeGripEnabled(false);
  recordPanel_ = new ElidedLabel(statusBar_);
  recordPanel_->setObjectName("Record");
  acqTimePanel_ = new QLabel(statusBar_);
  acqTimePanel_->setObjectName("AcqTime");
  statusBar_->addWidget(recordPanel_, 1);
  statusBar_->addPermanentWidget(new QLabel(tr("Recording time (s):"), statusBar_));
  statusBar_->addPermanentWidget(acqTimePanel_);
  setPanelText(StatusPanel::Record, "no record file");
  setPanelText(StatusPanel::AcqTime, "0");
}

void AcqView::makeValues() {
  tabs_ = new TabStrip(this);
  // Its bar answers to the name as well, as those of the other strips do.
  for (QWidget* const part : std::initializer_list<QWidget*>{tabs_, &tabs_->bar()})
    part->setObjectName("TabStripVisu");
  tabs_->bar().setAccessibleName(tr("How values are shown"));
  tabs_->addTab(kList, tr("Digital"));
  tabs_->addTab(kGraph, tr("Graphic"));
  values_ = new ValueListModel(this);
  valueList_ = new ValueListView(this);
  valueList_->setModel(values_);
  graphs_ = new ScrolledGraphs(*this);
}

void AcqView::makePauseControls() {
  pausedMark_ = new QLabel(tr("Paused"), this);
  pausedMark_->setObjectName("LblPaused");
  pausedMark_->setMargin(2);
  QPalette colours = pausedMark_->palette();
  colours.setColor(QPalette::Window, toQColor(indicator::kRequested, colours));
  colours.setColor(QPalette::WindowText, Qt::black);
  pausedMark_->setPalette(colours);
  pausedMark_->setAutoFillBackground(true);
  pausedMark_->setToolTip(tr("The picture stands still, recording goes on. P lets it run again."));
  pausedMark_->hide();
  pauseButton_ = makeCornerButton("pause", tr("Pause"),
                                  tr("Freeze the picture while recording goes on (P or Pause)"), this);
  pauseButton_->setCheckable(true);
  helpButton_ = makeCornerButton("help", tr("Keyboard help"), tr("Keyboard (F1)"), this);
}

void AcqView::orderTabs() {
  setTabOrder(commandStartStop_, eventBouton_);
  setTabOrder(eventBouton_, log_);
  setTabOrder(log_, &tabs_->bar());
  setTabOrder(&tabs_->bar(), valueList_);
  setFocusProxy(commandStartStop_);
}

void AcqView::connectControls() {
  keys_ = new HotKeys(*acq_, this);
  keys_->swallow(*commandStartStop_);
  for (QWidget* const control : std::initializer_list<QWidget*>{eventBouton_, log_, valueList_})
    keys_->watch(*control);
  connect(commandStartStop_, &QPushButton::clicked, this, [this] { acq_->ToggleRecording(); });
  connect(eventBouton_, &QPushButton::clicked, this, [this] { acq_->RecordUserEvent(); });
  connect(tabs_, &TabStrip::selected, this, &AcqView::showTab);
  connect(graphs_, &ScrolledGraphs::scrolled, this, [this] { acq_->scrolled(); });
  connect(pauseButton_, &QToolButton::toggled, this, &AcqView::setPaused);
  connect(helpButton_, &QToolButton::clicked, this, &AcqView::toggleHelp);
}

void AcqView::addShortcuts() {
  for (const int key : {static_cast<int>(Qt::Key_P), static_cast<int>(Qt::Key_Pause)})
    connect(addShortcut(key), &QShortcut::activated, this, [this] { setPaused(!paused_); });
  connect(addShortcut(Qt::Key_D), &QShortcut::activated, this, [this] { tabs_->select(kList); });
  connect(addShortcut(Qt::Key_G), &QShortcut::activated, this, [this] { tabs_->select(kGraph); });
  connect(addShortcut(Qt::Key_F1), &QShortcut::activated, this, &AcqView::toggleHelp);
  connect(addShortcut(Qt::Key_F11), &QShortcut::activated, this, &AcqView::toggleFullScreen);
  pageKeys_ = {addShortcut(Qt::Key_PageUp), addShortcut(Qt::Key_PageDown)};
  connect(pageKeys_[0], &QShortcut::activated, graphs_, [this] { graphs_->turnPages(-1); });
  connect(pageKeys_[1], &QShortcut::activated, graphs_, [this] { graphs_->turnPages(1); });
  leaveFullScreen_ = addShortcut(Qt::Key_Escape);
  leaveFullScreen_->setEnabled(false);
  connect(leaveFullScreen_, &QShortcut::activated, this, &AcqView::toggleFullScreen);
}

QShortcut* AcqView::addShortcut(int key) {
  auto* const shortcut = new QShortcut(QKeySequence(key), this);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  shortcut->setAutoRepeat(false);
  return shortcut;
}

// --- placing them

QSize AcqView::sizeHint() const { return {900, 640}; }

QSize AcqView::minimumSizeHint() const {
  const QSize lamp = lblRec_->sizeHint();
  return {2 * lamp.width() + kLeastLogWidth + 4 * kSpacing, 16 * lamp.height()};
}

void AcqView::layOut() {
  const QRect inner = rect().adjusted(kSpacing, kSpacing, -kSpacing, -kSpacing);
  int top = placeHeader(inner) + kSpacing;
  const int statusHeight = statusBar_->sizeHint().height();
  statusBar_->setGeometry(inner.left(), top, inner.width(), statusHeight);
  top += statusHeight + kSpacing;
  tabs_->setGeometry(inner.left(), top, inner.width(), std::max(inner.bottom() + 1 - top, 0));
  const QRect client = tabs_->clientArea().translated(tabs_->pos());
  valueList_->setGeometry(client);
  graphs_->place(client);
  placeCorner();
}

/// Indicators and buttons at the left, the log beside them. Returns where they end.
int AcqView::placeHeader(const QRect& inner) {
  const int lamp = std::max(lblRec_->sizeHint().width(), commandStartStop_->sizeHint().width() / 2);
  const int left = 2 * lamp + kSpacing;
  const int lampHeight = lblRec_->sizeHint().height();
  const int buttonHeight = commandStartStop_->sizeHint().height();
  int y = inner.top();
  lblRec_->setGeometry(inner.left(), y, lamp, lampHeight);
  lblDiag_->setGeometry(inner.left() + lamp + kSpacing, y, lamp, lampHeight);
  y += lampHeight + kSpacing;
  commandStartStop_->setGeometry(inner.left(), y, left, buttonHeight);
  y += buttonHeight + kSpacing;
  eventBouton_->setGeometry(inner.left(), y, left, buttonHeight);
  y += buttonHeight;
  const int logHeight = kLogLines * (log_->fontMetrics().height() + 2) + 2 * log_->frameWidth();
  const int bottom = std::max(y, inner.top() + logHeight);
  const int logLeft = inner.left() + left + kSpacing;
  log_->setGeometry(logLeft, inner.top(), std::max(inner.right() + 1 - logLeft, 0), bottom - inner.top());
  return bottom;
}

/// At the right end of the line of tabs.
void AcqView::placeCorner() {
  const QRect corner = tabs_->corner().translated(tabs_->pos());
  int right = corner.right() + 1;
  for (QWidget* const control : std::initializer_list<QWidget*>{helpButton_, pauseButton_, pausedMark_}) {
    const QSize size = control->sizeHint();
    const int height = std::min(size.height(), corner.height() - 2);
    right -= size.width();
    control->setGeometry(std::max(right, corner.left()), corner.top() + (corner.height() - height) / 2,
                         size.width(), height);
    right -= kSpacing;
  }
}

void AcqView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
  acq_->resized();
}

void AcqView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const bool sizesChange = event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
  if (!sizesChange || keys_ == nullptr) return;
  layOut();
  acq_->resized();
}

/// A minimised window is hidden by the system; the view then goes on.
void AcqView::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (event->spontaneous()) return;
  if (help_ != nullptr) help_->hide();
  acq_->hidden();
}

// --- what the user does

/// What no child has used. Before the polling starts, the keys belong to whoever holds the view.
void AcqView::keyPressEvent(QKeyEvent* event) {
  if (acq_->AcqState() != TarnAcq::kCommunicate || !keys_->take(*event)) QWidget::keyPressEvent(event);
}

void AcqView::showTab(const QString& key) {
  if (key != kList && key != kGraph) return;
  valueList_->setVisible(key == kList);
  graphs_->setVisible(key == kGraph);
  for (QShortcut* const pageKey : pageKeys_) pageKey->setEnabled(key == kGraph);
}

void AcqView::setPaused(bool paused) {
  paused_ = paused;
  values_->setFrozen(paused);
  graphs_->surface().setFrozen(paused);
  pauseButton_->setChecked(paused);
  pausedMark_->setVisible(paused);
  tabs_->setHighlight(paused ? toQColor(indicator::kRequested, palette()) : QColor());
}

void AcqView::toggleFullScreen() {
  QWidget& top = *window();
  top.setWindowState(top.windowState() ^ Qt::WindowFullScreen);
  leaveFullScreen_->setEnabled(top.isFullScreen());
}

void AcqView::toggleHelp() {
  if (help_ == nullptr) help_ = new KeyboardHelp(this);
  QRect place({}, help_->sizeHint());
  place.moveCenter(mapToGlobal(rect().center()));
  if (!help_->isVisible()) help_->move(std::max(place.left(), 0), std::max(place.top(), 0));
  help_->setVisible(!help_->isVisible());
}

// --- what the recorder shows

void AcqView::setRecordingCaption(std::string_view caption) { lblRec_->setText(inUsersWords(caption)); }

void AcqView::setRecordingColour(Colour colour) {
  lblRec_->setColour(colour);
  const IndicatorMeaning meaning = recordingMeaning(colour);
  lblRec_->setMeaning(meaning.sign, meaning.words);
}

void AcqView::setStateIndicator(std::string_view caption, Colour colour) {
  lblDiag_->setText(inUsersWords(caption));
  lblDiag_->setColour(colour);
  lblDiag_->setMeaning(Indicator::Sign::None, stateMeaning(caption));
}

void AcqView::setStartStopCaption(std::string_view caption) {
  commandStartStop_->setText(inUsersWords(caption));
}

void AcqView::setEventCaption(std::string_view caption) {
  eventBouton_->setText(headInUsersWords(caption, "Event"));
}

void AcqView::setPanelText(StatusPanel panel, std::string_view text) {
  if (panel == StatusPanel::Record)
    recordPanel_->setText(headInUsersWords(text, "Open error : "));
  else
    acqTimePanel_->setText(toQString(text));
}

void AcqView::clearLog() { log_->clear(); }

void AcqView::removeLogLine(int position) { log_->removeLine(position); }

void AcqView::appendLogLine(std::string_view line) { log_->appendLine(toQString(line)); }

void AcqView::rebuildValueColumns() { valueList_->rebuildColumns(); }

void AcqView::clearValueRows() {
  values_->clear();
  setPaused(false);
}

void AcqView::addValueRow(std::string_view text, std::string_view unit) { values_->addRow(text, unit); }

void AcqView::setValueText(int row, std::string_view text) { values_->setValue(row - 1, text); }

GraphArea* AcqView::graphArea() { return graphs_; }

void AcqView::focusStartStop() { commandStartStop_->setFocus(); }

void AcqView::beep() { QApplication::beep(); }

}  // namespace tarnlog
