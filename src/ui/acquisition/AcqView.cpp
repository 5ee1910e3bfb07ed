#include "ui/acquisition/AcqView.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStatusBar>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <utility>

#include "acquisition/AcqWords.h"
#include "platform/base/TarnError.h"
#include "platform/plotting/TimeGrid.h"
#include "ui/acquisition/AcqCorner.h"
#include "ui/acquisition/AcqHeader.h"
#include "ui/acquisition/ConnectionWatch.h"
#include "ui/acquisition/GreyableButton.h"
#include "ui/acquisition/HotKeys.h"
#include "ui/acquisition/KeyboardHelp.h"
#include "ui/acquisition/ListFilter.h"
#include "ui/acquisition/LogList.h"
#include "ui/acquisition/RecordLabel.h"
#include "ui/acquisition/TabStrip.h"
#include "ui/acquisition/UserWords.h"
#include "ui/acquisition/ValueListModel.h"
#include "ui/acquisition/ValueListView.h"
#include "ui/common/Convert.h"
#include "ui/live/ScrolledGraphs.h"

namespace tarnlog {

namespace {

constexpr int kSpacing = AcqHeader::kSpacing;
constexpr int kLeastFilterWidth = 60;
constexpr int kWindowInterval = 1000;  ///< milliseconds between looks at how long a time the graphs show

const QString kList = QStringLiteral("LIST");
const QString kGraph = QStringLiteral("GRAPH");

}  // namespace

// --- making the controls

AcqView::AcqView(AcqEnvironment environment, SettingsStore* settings, QWidget* parent)
    : QWidget(parent), decimalSeparator_(environment.locale.decimalSeparator) {
  setObjectName("ctlTarnAcq");
  const Clock& clock = environment.clock;
  acq_ = std::make_unique<TarnAcq>(*this, std::move(environment));
  watch_ = new ConnectionWatch(*acq_, this);
  header_ = std::make_unique<AcqHeader>(*this);
  makeStatusBar();
  makeValues(settings);
  graphs_->surface().setClock(&clock);
  corner_ = std::make_unique<AcqCorner>(*this);
  orderTabs();
  connectControls();
  connectList();
  addShortcuts();
  showTab(kList);
}

AcqView::~AcqView() {
  skipOnFailure([&] { acq_->setSession(nullptr); });
  acq_.reset();
}

void AcqView::makeStatusBar() {
  statusBar_ = new QStatusBar(this);
  statusBar_->setObjectName("StatusBar1");
  statusBar_->setSizeGripEnabled(false);
  recordPanel_ = new RecordLabel(statusBar_);
  recordPanel_->setObjectName("Record");
  acqTimePanel_ = new QLabel(statusBar_);
  acqTimePanel_->setObjectName("AcqTime");
  statusBar_->addWidget(recordPanel_, 1);
  statusBar_->addPermanentWidget(new QLabel(tr("Recording time (s):"), statusBar_));
  statusBar_->addPermanentWidget(acqTimePanel_);
  setRecordPath({});
  setElapsed(0);
}

void AcqView::makeValues(SettingsStore* settings) {
  tabs_ = new TabStrip(this);
  // Its bar answers to the name as well, as those of the other strips do.
  for (QWidget* const part : std::initializer_list<QWidget*>{tabs_, &tabs_->bar()})
    part->setObjectName("TabStripVisu");
  tabs_->bar().setAccessibleName(tr("How values are shown"));
  tabs_->addTab(kList, tr("Digital"));
  tabs_->addTab(kGraph, tr("Graphic"));
  values_ = new ValueListModel(this);
  valueList_ = new ValueListView(*values_, settings, this);
  filter_ = new ListFilter(this);
  graphs_ = new ScrolledGraphs(*this);
  graphs_->surface().setSettings(settings);
  windowTimer_.setInterval(kWindowInterval);
}

void AcqView::orderTabs() {
  setTabOrder(&header_->startStop(), &header_->event());
  setTabOrder(&header_->event(), &header_->log());
  setTabOrder(&header_->log(), &tabs_->bar());
  setTabOrder(&tabs_->bar(), &filter_->box());
  setTabOrder(&filter_->box(), &corner_->pauseButton());
  setTabOrder(&corner_->pauseButton(), &corner_->helpButton());
  setTabOrder(&corner_->helpButton(), valueList_);
  setFocusProxy(&header_->startStop());
}

void AcqView::connectControls() {
  keys_ = new HotKeys(*acq_, this);
  keys_->swallow(header_->startStop());
  for (QWidget* const control :
       std::initializer_list<QWidget*>{&header_->event(), &header_->log(), valueList_})
    keys_->watch(*control);
  keys_->setTaken([this] { answerPress(); });
  connect(&header_->startStop(), &QPushButton::clicked, this, [this] {
    acq_->ToggleRecording();
    answerPress();
  });
  connect(&header_->event(), &QPushButton::clicked, this, [this] {
    acq_->RecordUserEvent();
    answerPress();
  });
  connect(&windowTimer_, &QTimer::timeout, this, &AcqView::showWindow);
  connect(watch_, &ConnectionWatch::aged, this, &AcqView::showAge);
  connect(tabs_, &TabStrip::selected, this, &AcqView::showTab);
  connect(graphs_, &ScrolledGraphs::scrolled, this, [this] { acq_->scrolled(); });
  connect(&corner_->pauseButton(), &QToolButton::toggled, this, &AcqView::setPaused);
  connect(&corner_->helpButton(), &QToolButton::clicked, this, &AcqView::toggleHelp);
}

void AcqView::connectList() {
  addActions(valueList_->actionsOfUser().zoom());
  connect(valueList_, &ValueListView::filtered, filter_, &ListFilter::setCounts);
  connect(filter_, &ListFilter::changed, valueList_, &ValueListView::setFilter);
  connect(filter_, &ListFilter::left, valueList_, [this] { valueList_->setFocus(); });
  connect(valueList_, &ValueListView::resetAsked, this, [this] {
    acq_->resetExtremes();
    values_->clearExtremes();
  });
}

void AcqView::addShortcuts() {
  connect(addShortcut((Qt::CTRL | Qt::Key_F).toCombined()), &QShortcut::activated, this,
          &AcqView::enterFilter);
  for (const int key : {static_cast<int>(Qt::Key_P), static_cast<int>(Qt::Key_Pause)})
    connect(addShortcut(key), &QShortcut::activated, this, [this] { setPaused(!paused_); });
  connect(addShortcut(Qt::Key_D), &QShortcut::activated, this, [this] { tabs_->select(kList); });
  connect(addShortcut(Qt::Key_G), &QShortcut::activated, this, [this] { tabs_->select(kGraph); });
  connect(addShortcut(Qt::Key_F1), &QShortcut::activated, this, &AcqView::toggleHelp);
  connect(addShortcut(Qt::Key_F11), &QShortcut::activated, this, &AcqView::toggleFullScreen);
  connect(addShortcut((Qt::SHIFT | Qt::Key_F10).toCombined()), &QShortcut::activated, this,
          &AcqView::askForMenu);
  pageKeys_ = {addShortcut(Qt::Key_PageUp), addShortcut(Qt::Key_PageDown)};
  connect(pageKeys_[0], &QShortcut::activated, graphs_, [this] { graphs_->turnPages(-1); });
  connect(pageKeys_[1], &QShortcut::activated, graphs_, [this] { graphs_->turnPages(1); });
  addLookBackKeys();
  leaveFullScreen_ = addShortcut(Qt::Key_Escape);
  leaveFullScreen_->setEnabled(false);
  connect(leaveFullScreen_, &QShortcut::activated, this, &AcqView::toggleFullScreen);
  connect(leaveFullScreen_, &QShortcut::activatedAmbiguously, this, [this] {
    if (help_ != nullptr) help_->hide();  // open, it takes the key as well, and goes first
  });
}

/// They act on a paused picture of graphs.
void AcqView::addLookBackKeys() {
  LookBack& lookBack = graphs_->surface().lookBack();
  const auto add = [this](int key, auto action) {
    QShortcut* const shortcut = lookBackKeys_.emplace_back(addShortcut(key));
    connect(shortcut, &QShortcut::activated, graphs_, action);
    return shortcut;
  };
  add(Qt::Key_F, [&lookBack] { lookBack.fitAll(); });
  add(Qt::Key_A, [&lookBack] { lookBack.setCursor(CWGraph::CursorA); });
  add(Qt::Key_B, [&lookBack] { lookBack.setCursor(CWGraph::CursorB); });
  add(Qt::Key_Plus, [&lookBack] { lookBack.zoom(1); })->setAutoRepeat(true);
  add(Qt::Key_Minus, [&lookBack] { lookBack.zoom(-1); })->setAutoRepeat(true);
  add((Qt::SHIFT | Qt::Key_Right).toCombined(), [&lookBack] { lookBack.pan(1); })->setAutoRepeat(true);
  add((Qt::SHIFT | Qt::Key_Left).toCombined(), [&lookBack] { lookBack.pan(-1); })->setAutoRepeat(true);
  connect(&lookBack, &LookBack::moved, this, &AcqView::showWindow);
}

void AcqView::enableKeys() {
  const bool graphs = graphs_->isVisible();
  for (QShortcut* const key : pageKeys_) key->setEnabled(graphs);
  for (QShortcut* const key : lookBackKeys_) key->setEnabled(graphs && paused_);
}

QShortcut* AcqView::addShortcut(int key) {
  auto* const shortcut = new QShortcut(QKeySequence(key), this);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  shortcut->setAutoRepeat(false);
  return shortcut;
}

// --- placing them

QSize AcqView::sizeHint() const { return {900, 640}; }

QSize AcqView::minimumSizeHint() const { return header_->leastViewSize(); }

void AcqView::layOut() {
  const QRect inner = rect().adjusted(kSpacing, kSpacing, -kSpacing, -kSpacing);
  int top = header_->place(inner) + kSpacing;
  const int statusHeight = statusBar_->sizeHint().height();
  statusBar_->setGeometry(inner.left(), top, inner.width(), statusHeight);
  top += statusHeight + kSpacing;
  tabs_->setGeometry(inner.left(), top, inner.width(), std::max(inner.bottom() + 1 - top, 0));
  const QRect client = tabs_->clientArea().translated(tabs_->pos());
  valueList_->setGeometry(client);
  graphs_->place(client);
  placeCorner();
}

/// The filter stands above the list, in the line of tabs. It stays in reach however much else stands there.
void AcqView::placeCorner() {
  const QRect corner = tabs_->corner().translated(tabs_->pos());
  const QRect area = corner_->place(corner).adjusted(kSpacing, 0, -kSpacing, 0);
  const QSize wanted = filter_->sizeHint();
  const int height = std::min(wanted.height(), area.height() - 2);
  filter_->setGeometry(area.left(), area.top() + (area.height() - height) / 2,
                       std::clamp(area.width(), kLeastFilterWidth, wanted.width()), height);
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
  valueList_->applyZoom();
  layOut();
  acq_->resized();
}

void AcqView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) acq_->shown();
}

/// A minimised window is hidden by the system; the view then goes on.
void AcqView::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (event->spontaneous()) return;
  acq_->hidden();
}

// --- what the user does

/// What no child has used. Before the polling starts, the keys belong to whoever holds the view.
void AcqView::keyPressEvent(QKeyEvent* event) {
  if (acq_->AcqState() != TarnAcq::kCommunicate || !keys_->take(*event)) QWidget::keyPressEvent(event);
}

void AcqView::showTab(const QString& key) {
  if (key != kList && key != kGraph) return;
  for (QWidget* const shown : std::initializer_list<QWidget*>{valueList_, filter_})
    shown->setVisible(key == kList);
  for (QAction* const zoom : valueList_->actionsOfUser().zoom()) zoom->setEnabled(key == kList);
  graphs_->setVisible(key == kGraph);
  key == kGraph ? windowTimer_.start() : windowTimer_.stop();
  enableKeys();
  showWindow();
}

/// While graphs are seen, as often as anybody reads it.
void AcqView::showWindow() {
  constexpr double kTenSeconds = 10'000;
  const auto time = graphs_->isVisible() ? graphs_->surface().shownTime() : std::nullopt;
  const double grain = time && *time < kTenSeconds ? 100 : 1000;
  corner_->setWindow(time ? toQString(durationText(std::round(*time / grain) * grain, decimalSeparator_))
                          : QString());
  placeCorner();
}

void AcqView::setPaused(bool paused) {
  paused_ = paused;
  values_->setFrozen(paused);
  graphs_->surface().setFrozen(paused);
  corner_->setPaused(paused);
  enableKeys();
  placeCorner();
  tabs_->setHighlight(paused ? toQColor(words::colourOf(RecordingFact::Requested), palette()) : QColor());
}

void AcqView::enterFilter() {
  QWidget* const from = QApplication::focusWidget();  // a graph that has the focus loses it with its tab
  tabs_->select(kList);
  filter_->enter(from);
}

/// For keyboards without a menu key.
void AcqView::askForMenu() {
  QWidget* const focus = QApplication::focusWidget();
  if (focus == nullptr) return;
  const QPoint place = focus->rect().center();
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
  QApplication::sendEvent(focus, &asked);
}

void AcqView::toggleFullScreen() {
  QWidget& top = *window();
  top.setWindowState(top.windowState() ^ Qt::WindowFullScreen);
  leaveFullScreen_->setEnabled(top.isFullScreen());
}

void AcqView::toggleHelp() {
  if (help_ == nullptr) {
    help_ = new HelpPanel(guide_, this);
    help_->setAttribute(Qt::WA_ShowWithoutActivating);
    help_->setFocusPolicy(Qt::StrongFocus);
    keys_->watch(*help_);
  }
  help_->setFocus();  // not a button of it: where it becomes active, too, Enter and space stay the recorder's
  help_->toggle(KeyboardHelp::page());
}

/// Start, stop and event act while values are polled only; what is pressed before is not forgotten silently.
void AcqView::answerPress() {
  const TarnAcq::State state = acq_->AcqState();
  if (state != TarnAcq::kIdle && state != TarnAcq::kCommunicate) emit pressedInVain();
}

// --- what the recorder shows

/// Once a second in an outage, and when it is over.
void AcqView::showAge(qint64 seconds) {
  values_->setOld(seconds > 0);
  graphs_->surface().setOld(seconds > 0);
  corner_->setSilence(seconds);
  placeCorner();
}

void AcqView::setState(AcquisitionState state) {
  header_->setState(state);
  header_->setButtonsAct(state == AcquisitionState::kCommunicate);
  watch_->look();
  emit stateEntered();
}

void AcqView::setRecording(RecordingFact fact) {
  header_->setRecording(fact);
  addMark(marks_.hear(fact));
}

void AcqView::addMark(const std::optional<RecordingMarks::Mark>& mark) {
  if (mark) graphs_->surface().addMark(mark->text, toQColor(mark->colour, palette()));
}

void AcqView::setRecordPath(std::string_view path) {
  path.empty() ? recordPanel_->setNotice(inUsersWords(words::kNoRecordFile))
               : recordPanel_->setPath(toQString(path));
}

void AcqView::setLookAtRecord(std::function<void(const std::string& path)> lookAt) {
  if (!lookAt) return;
  recordPanel_->setLookAt([lookAt = std::move(lookAt)](const QString& path) { lookAt(fromQString(path)); });
}

void AcqView::setElapsed(std::int64_t milliseconds) {
  acqTimePanel_->setText(toQString(words::elapsedText(milliseconds, decimalSeparator_)));
}

void AcqView::setEventNumber(std::int32_t number) {
  header_->setEventNumber(number);
  if (number == 0) marks_.begin();
  marks_.setEventNumber(number);
}

void AcqView::setEventProgress(EventProgress progress) {
  header_->setEventProgress(progress);
  addMark(marks_.hear(progress));
}

void AcqView::setOpenFailure(OpenFailure failure, std::string_view reason) {
  recordPanel_->setNotice(openFailureInUsersWords(failure, reason));
}

void AcqView::setWriteFailing(bool failing) { header_->setWriteFailing(failing); }

void AcqView::clearLog() { header_->log().clear(); }

void AcqView::removeLogLine(int position) { header_->log().removeLine(position); }

void AcqView::appendLogLine(std::string_view line) { header_->log().appendLine(toQString(line)); }

void AcqView::rebuildValueColumns() { valueList_->rebuildColumns(); }

void AcqView::clearValueRows() {
  values_->clear();
  setPaused(false);
}

void AcqView::addValueRow(std::string_view text, std::string_view unit) { values_->addRow(text, unit); }

void AcqView::setValueText(int row, std::string_view text) { values_->setValue(row - 1, text); }

void AcqView::setValueExtremes(int row, std::string_view least, std::string_view greatest) {
  values_->setExtremes(row - 1, least, greatest);
}

GraphArea* AcqView::graphArea() { return graphs_; }

void AcqView::focusStartStop() { header_->startStop().setFocus(); }

void AcqView::beep() { QApplication::beep(); }

}  // namespace tarnlog
