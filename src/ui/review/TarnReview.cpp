#include "ui/review/TarnReview.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/settings/FileSettingsStore.h"
#include "ui/common/Convert.h"
#include "ui/common/DesktopLocale.h"
#include "ui/common/HelpPanel.h"
#include "ui/common/HintedTreeView.h"
#include "ui/common/Icons.h"
#include "ui/common/MenuItems.h"
#include "ui/common/NoticeBar.h"
#include "ui/common/PopUpMenu.h"
#include "ui/review/CurveDifference.h"
#include "ui/review/DataList.h"
#include "ui/review/FiguresTable.h"
#include "ui/review/FindBar.h"
#include "ui/review/ForeignTableDialog.h"
#include "ui/review/HandOn.h"
#include "ui/review/MarkList.h"
#include "ui/review/OverviewStrip.h"
#include "ui/review/RecordsBar.h"
#include "ui/review/ReviewEnvironment.h"
#include "ui/review/ReviewGraphWidget.h"
#include "ui/review/ReviewGraphs.h"
#include "ui/review/ReviewHelp.h"
#include "ui/review/ReviewKeys.h"
#include "ui/review/ReviewPanes.h"
#include "ui/review/ReviewPicture.h"
#include "ui/review/ReviewSources.h"

namespace tarnlog {

namespace {

constexpr QSize kLeastPicture(800, 500);

QString fileNameOf(const QString& path) { return QFileInfo(path).fileName(); }

std::vector<std::string> filesIn(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) paths.push_back(fromQString(url.toLocalFile()));
  return paths;
}

}  // namespace

/// What this system gives.
class TarnReview::OwnEnvironment {
 public:
  ReviewEnvironment environment{dialogs_, &settings_, desktopLocale()};

 private:
  SystemFileSystem files_;
  FileSettingsStore settings_{files_, FileSettingsStore::defaultPath()};
  QtDialogs dialogs_;
};

TarnReview::TarnReview(QWidget* parent) : TarnReview(std::make_unique<OwnEnvironment>(), parent) {}

TarnReview::TarnReview(std::unique_ptr<OwnEnvironment> own, QWidget* parent)
    : QWidget(parent), own_(std::move(own)), environment_(own_->environment) {
  create();
}

TarnReview::TarnReview(const ReviewEnvironment& environment, QWidget* parent)
    : QWidget(parent), environment_(environment) {
  create();
}

/// The views go before what they stand on.
TarnReview::~TarnReview() {
  sources_->disconnect(this);
  delete handOn_;
  delete sources_;
  for (QWidget* const child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) delete child;
}

void TarnReview::create() {
  setAcceptDrops(true);
  scene_.addListener([this](unsigned changes) { follow(changes); });
  sources_ = new ReviewSources(scene_, environment_.isBeingRecorded, this);
  notices_ = new NoticeBar(this);
  QWidget* const tools = makeTools();
  records_ = new RecordsBar(scene_, environment_.locale, this);
  makePanes();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(notices_);
  column->addWidget(tools);
  column->addWidget(records_);
  column->addWidget(panes_, 1);
  help_ = new HelpPanel(environment_.guide, this);
  makeHandOn();
  connectSources();
  addKeys();
  follow(~0U);
}

QToolButton* TarnReview::addTool(QHBoxLayout& line, const char* name, const QString& text,
                                 const QString& toolTip) {
  auto* const button = new QToolButton(this);
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(toolTip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::StrongFocus);
  line.addWidget(button);
  return button;
}

QWidget* TarnReview::makeTools() {
  auto* const tools = new QWidget(this);
  auto* const line = new QHBoxLayout(tools);
  line->setContentsMargins(2, 2, 2, 0);
  line->setSpacing(0);  // 480 pixels have to do
  QToolButton* const open = addTool(*line, "reviewOpen", tr("Open..."), tr("Open a record (Ctrl+O)"));
  open->setIcon(tarnIcon("folder"));
  open->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  connect(open, &QToolButton::clicked, this, &TarnReview::askOpen);
  back_ = addTool(*line, "reviewBack", tr("Back"), tr("What was seen before (Backspace)"));
  connect(back_, &QToolButton::clicked, this, [this] { scene_.back(); });
  fit_ = addTool(*line, "reviewFit", tr("Show all"), tr("The whole record (F)"));
  connect(fit_, &QToolButton::clicked, this, [this] { scene_.fit(); });
  addCompare(*line);
  line->addStretch(1);
  showData_ = addTool(*line, "reviewShowData", {}, {});
  showPanes_ = addTool(*line, "reviewShowPanes", {}, {});
  QToolButton* const handOn = addTool(*line, "reviewHandOn", tr("Hand on"), tr("Save or copy what is seen"));
  connect(handOn, &QToolButton::clicked, this, [this, handOn] { popUp(*handOn, handOn_->actions()); });
  QToolButton* const keys = addTool(*line, "reviewKeys", tr("Keys"), tr("Keys and help (F1)"));
  keys->setIcon(tarnIcon("help"));
  connect(keys, &QToolButton::clicked, this, &TarnReview::toggleHelp);
  return tools;
}

void TarnReview::addCompare(QHBoxLayout& line) {
  layOver_ = new QAction(tr("Lay another record &over..."), this);
  connect(layOver_, &QAction::triggered, this, &TarnReview::askLayOver);
  layOver_->setObjectName("reviewLayOver");
  layOver_->setShortcut(Qt::CTRL | Qt::Key_L);
  difference_ = new QAction(tr("&Difference of the chosen curve"), this);
  connect(difference_, &QAction::triggered, this, [this] { showDifference(scene_); });
  difference_->setObjectName("reviewDifference");
  difference_->setShortcut(Qt::CTRL | Qt::Key_D);
  for (QAction* const action : {layOver_, difference_}) {
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
  }
  QToolButton* const compare = addTool(line, "reviewCompare", tr("Compare"),
                                       tr("Lay another drive over this one, and show how they differ"));
  connect(compare, &QToolButton::clicked, this, [this, compare] {
    popUp(*compare, {layOver_, difference_});
  });
}

void TarnReview::popUp(QToolButton& button, const QList<QAction*>& actions) {
  popUpMenu(button, actions, button.mapToGlobal(button.rect().bottomLeft()));
}

QWidget* TarnReview::makePicture() {
  auto* const place = new QWidget(this);
  auto* const column = new QVBoxLayout(place);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  overview_ = new OverviewStrip(scene_, place);
  graphs_ = new ReviewGraphs(scene_, place);
  hint_ = new QLabel(tr("Open a record, or drop its file here.\n"
                        "Text, XML and MDF 4 records, whole or still being written."),
                     place);
  hint_->setAlignment(Qt::AlignCenter);
  hint_->setWordWrap(true);
  hint_->setForegroundRole(QPalette::PlaceholderText);
  column->addWidget(overview_);
  column->addWidget(graphs_, 1);
  column->addWidget(hint_, 1);
  place->setFocusProxy(graphs_);
  return place;
}

void TarnReview::makePanes() {
  data_ = new DataList(scene_, this);
  data_->list().setDragRule(
      [this](std::function<void()> drag) { environment_.runWhenIdle(data_, std::move(drag)); });
  figures_ = new FiguresTable(scene_, columns_, environment_.locale, this);
  marks_ = new MarkList(scene_, environment_.locale, this);
  find_ = new FindBar(scene_, columns_, environment_.locale, this);
  panes_ = new ReviewPanes(*data_, *makePicture(), environment_.settings, this);
  panes_->addPane(*figures_, tr("Figures"));
  panes_->addPane(*marks_, tr("Marks"));
  panes_->addPane(*find_, tr("Find"));
  showData_->setDefaultAction(&panes_->dataAction());
  showPanes_->setDefaultAction(&panes_->panesAction());
  connect(panes_, &ReviewPanes::narrowed, showData_, &QWidget::setHidden);
  connect(marks_, &MarkList::eventFileWanted, this, &TarnReview::layEventOver);
}

void TarnReview::makeHandOn() {
  handOn_ = new HandOn({.scene = scene_,
                        .notices = *notices_,
                        .window = *this,
                        .wholeOf = [this](std::size_t record) { return sources_->wholeOf(record); },
                        .copyFigures = [this] { figures_->copy(); },
                        .savePicture =
                            [this](const QString& path) {
                              writePicture(scene_, path, graphs_->size().expandedTo(kLeastPicture));
                            }},
                       environment_, this);
  addActions(handOn_->actions());
}

void TarnReview::connectSources() {
  connect(sources_, &ReviewSources::progressed, this, &TarnReview::showProgress);
  connect(sources_, &ReviewSources::opened, this, &TarnReview::opened);
  connect(sources_, &ReviewSources::finished, this, &TarnReview::finishedLoading);
  connect(sources_, &ReviewSources::failed, this, &TarnReview::tellFailed);
  connect(sources_, &ReviewSources::lacking, this, [this](const QString& path, const QStringList& missing) {
    if (missing.isEmpty()) return notices_->removeNotice("missing " + path);
    const QString text = missing.size() == 1 ? tr("%1: %2").arg(fileNameOf(path), missing.front())
                                             : tr("%1 is not whole").arg(fileNameOf(path));
    notices_->showNotice("missing " + path, text, missing);
  });
  connect(records_, &RecordsBar::removeWanted, sources_, &ReviewSources::remove);
  connect(records_, &RecordsBar::recordingWanted, sources_, &ReviewSources::showRecording);
  connect(records_, &RecordsBar::cancelWanted, sources_, &ReviewSources::cancelReading);
}

void TarnReview::addKeys() {
  const auto key = [this](const QKeySequence& keys, auto act) {
    auto* const shortcut = new QShortcut(keys, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, act);
  };
  key(QKeySequence::Find, [this] {
    panes_->bring(*data_);
    data_->focusFilter();
  });
  key(Qt::CTRL | Qt::Key_G, [this] {
    panes_->bring(*find_);
    find_->enter();
  });
  const auto find = [this](bool back) {
    if (!find_->find(back)) panes_->bring(*find_);
  };
  key(Qt::Key_F3, [find] { find(false); });
  key(Qt::SHIFT | Qt::Key_F3, [find] { find(true); });
  key(QKeySequence::Open, [this] { askOpen(); });
  key(Qt::Key_F6, [this] { panes_->moveFocus(1); });
  key(Qt::SHIFT | Qt::Key_F6, [this] { panes_->moveFocus(-1); });
}

// --- files

void TarnReview::open(const std::vector<std::string>& paths) {
  closeRecords();
  for (const std::string& path : paths) layOver(path);
}

void TarnReview::layOver(const std::string& path) {
  if (hasRoomFor(toQString(path))) sources_->add(path);
}

void TarnReview::layEventOver(const QString& path, std::size_t record) {
  if (hasRoomFor(path)) sources_->addOver(fromQString(path), record);
}

/// Tells when it has none.
bool TarnReview::hasRoomFor(const QString& path) {
  if (sources_->count() < ReviewScene::kMostRecords) return true;
  notices_->showNotice("most", tr("At most %1 records are looked at: %2 was left out")
                                   .arg(ReviewScene::kMostRecords)
                                   .arg(fileNameOf(path)));
  return false;
}

void TarnReview::closeRecords() {
  sources_->clear();
  // What they told of the records that are gone.
  for (const QString& subject : notices_->subjects()) notices_->removeNotice(subject);
}

/// Other drives are mostly beside the one that is looked at.
FileQuestion TarnReview::recordQuestion(const QString& title) const {
  const auto& records = scene_.records();
  return {title,
          records.empty() ? QString() : QFileInfo(toQString(records.front().table->path)).absolutePath(),
          tr("Records (*.txt, *.xml, *.mf4)") + "|*.txt *.xml *.mf4|" + tr("All files") + "|*.*",
          {},
          "openRecordDialog"};
}

void TarnReview::askOpen() {
  environment_.runWhenIdle(this, [this] {
    if (const auto path = environment_.dialogs.fileToOpen(this, recordQuestion(tr("Open record"))))
      open(fromQString(*path));
  });
}

void TarnReview::askLayOver() {
  if (scene_.records().empty()) return askOpen();
  environment_.runWhenIdle(this, [this] {
    const FileQuestion question = recordQuestion(tr("Lay another record over"));
    if (const auto path = environment_.dialogs.fileToOpen(this, question)) layOver(fromQString(*path));
  });
}

bool TarnReview::reading() const { return sources_->reading().has_value(); }

void TarnReview::showProgress() {
  if (const auto progress = sources_->reading())
    records_->showProgress(progress->name, progress->part);
  else
    records_->hideProgress();
}

void TarnReview::tellFailed(const QString& path, const QString& why, bool foreignTable) {
  NoticeBar::Action offer;
  if (foreignTable) offer = {tr("Read it as a table of another program"), [this, path] { askForeign(path); }};
  notices_->showNotice("failed " + path, why, {}, offer);
}

void TarnReview::askForeign(const QString& path) {
  try {
    auto* const dialog = new ForeignTableDialog(fromQString(path), environment_.settings, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog, path] {
      notices_->removeNotice("failed " + path);
      if (hasRoomFor(path)) sources_->add(fromQString(path), dialog->choice());
    });
    dialog->open();
  } catch (const TarnError& error) {
    notices_->showNotice("failed " + path, toQString(error.description()));
  }
}

// --- the views

void TarnReview::follow(unsigned changes) {
  if ((changes & kRecordsChanged) != 0) columns_.forget();
  if (handOn_ == nullptr) return;  // not all of it is there yet
  data_->follow(changes);
  figures_->follow(changes);
  if ((changes & kRecordsChanged) != 0) marks_->follow(changes, sources_->paths());
  find_->follow(changes);
  records_->follow(changes);
  handOn_->showActions();
  back_->setEnabled(scene_.canGoBack());
  const bool some = !scene_.records().empty();
  fit_->setEnabled(some);
  layOver_->setEnabled(some && scene_.records().size() < ReviewScene::kMostRecords);
  difference_->setEnabled(canShowDifference(scene_));
  panes_->setEmpty(!some);
  overview_->setVisible(some);
  graphs_->setVisible(some);
  hint_->setVisible(!some);
  if ((changes & kRecordsChanged) != 0) showTitle();
}

void TarnReview::showTitle() {
  QStringList names;
  for (const LookedAtRecord& record : scene_.records()) names << toQString(record.name);
  emit titleChanged(names.join(", "));
}

void TarnReview::toggleHelp() { help_->toggle(ReviewHelp::page()); }

void TarnReview::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1)
    toggleHelp();
  else if (!hasFocus() || !handleReviewKey(*event, scene_))
    QWidget::keyPressEvent(event);
}

// --- drop

void TarnReview::dragEnterEvent(QDragEnterEvent* event) {
  if (!filesIn(*event->mimeData()).empty()) event->acceptProposedAction();
}

void TarnReview::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = filesIn(*event->mimeData());
  if (paths.empty()) return;
  event->acceptProposedAction();
  if (sources_->count() == 0)
    open(paths);
  else
    offerDropped(paths, mapToGlobal(event->position().toPoint()));
}

void TarnReview::offerDropped(const std::vector<std::string>& paths, const QPoint& place) {
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  addDeed(*menu, tr("Look at this instead"), "lookInstead", [this, paths] { open(paths); });
  addDeed(*menu, tr("Lay it over"), "layDroppedOver", [this, paths] {
    for (const std::string& path : paths) layOver(path);
  });
  menu->popup(place);
}

}  // namespace tarnlog
