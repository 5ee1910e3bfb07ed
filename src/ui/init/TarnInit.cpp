#include "ui/init/TarnInit.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cstddef>
#include <utility>

#include "ui/common/Convert.h"
#include "ui/common/Icons.h"
#include "ui/init/StartSessionText.h"

namespace tarnlog {

namespace {

/// With few requests the whole tree is open from the start.
constexpr std::size_t kOpenTree = 40;

QPushButton* createButton(const char* name, const char* icon, const QString& caption = {}) {
  auto* const button = new QPushButton(tarnIcon(icon), caption);
  button->setObjectName(name);
  button->setAutoDefault(true);  // Enter presses it, too
  return button;
}

/// Red that reads well on the palette's background.
QColor faultColour(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Base).lightness() < 128;
  return dark ? QColor(0xFF, 0x7B, 0x72) : QColor(0xC0, 0x1C, 0x28);
}

std::size_t positionOf(const QTreeWidgetItem& item) {
  const QTreeWidgetItem* const parent = item.parent();
  return static_cast<std::size_t>(
      parent != nullptr ? parent->indexOfChild(const_cast<QTreeWidgetItem*>(&item))
                        : item.treeWidget()->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(&item)));
}

}  // namespace

TarnInit::TarnInit(QWidget* parent) : QWidget(parent) {
  setObjectName("TarnInit");
  auto* const frame = new QGroupBox(tr("Init Scenario"));
  frame->setObjectName("FrInit");
  auto* const frames = new QVBoxLayout(frame);
  frames->addWidget(createGlobal());
  frames->addWidget(createScenario(), 1);
  auto* const whole = new QVBoxLayout(this);
  whole->addWidget(frame);
  connectControls();
  addShortcuts();
  enableButtons();
}

QGroupBox* TarnInit::createGlobal() {
  auto* const frame = new QGroupBox(tr("1) Global initialisation (this request is sent to all Ecu)"));
  frame->setObjectName("FrGlobal");
  auto* const label = new QLabel(tr("Enter the request bytes to send to the ECU after init Ex: 10A0"));
  label->setObjectName("Label8");
  startSession_ = new QLineEdit;
  startSession_->setObjectName("TxStartSession");
  startSessionMark_ = startSession_->addAction(tarnIcon("warning"), QLineEdit::TrailingPosition);
  startSessionMark_->setVisible(false);
  label->setBuddy(startSession_);
  auto* const rows = new QVBoxLayout(frame);
  rows->addWidget(label);
  rows->addWidget(startSession_);
  return frame;
}

QGroupBox* TarnInit::createScenario() {
  auto* const frame = new QGroupBox(tr("2) Specific ECU Initialisation"));
  frame->setObjectName("FrInitEcu");
  auto* const label = new QLabel(tr("Select requests to send (after init and global initialisation)"));
  label->setObjectName("lab");
  createTree();
  createList();
  label->setBuddy(requests_);
  notice_ = new Notice;
  auto* const columns = new QHBoxLayout;
  columns->addWidget(requests_, 1);
  columns->addLayout(createTransferButtons());
  columns->addWidget(scenario_, 1);
  columns->addLayout(createMoveButtons());
  auto* const rows = new QVBoxLayout(frame);
  rows->addWidget(label);
  rows->addLayout(columns, 1);
  rows->addWidget(notice_);
  return frame;
}

void TarnInit::createTree() {
  requests_ = new QTreeWidget;
  requests_->setObjectName("tvRequests");
  requests_->setAccessibleName(tr("Requests that can be sent"));
  requests_->setHeaderHidden(true);
  requests_->setUniformRowHeights(true);
  requests_->installEventFilter(this);
}

void TarnInit::createList() {
  scenario_ = new QTreeWidget;
  scenario_->setObjectName("lvInitScenario");
  scenario_->setAccessibleName(tr("Init Scenario"));
  scenario_->setHeaderLabels({tr("Ecu"), tr("Request")});
  scenario_->setRootIsDecorated(false);
  scenario_->setUniformRowHeights(true);
  scenario_->setAllColumnsShowFocus(true);
  scenario_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  scenario_->header()->setSectionResizeMode(QHeaderView::Stretch);
}

QLayout* TarnInit::createTransferButtons() {
  add_ = createButton("addData", "add", tr("Add data"));
  remove_ = createButton("removeData", "remove", tr("Remove data"));
  auto* const column = new QVBoxLayout;
  column->addStretch(1);
  column->addWidget(add_);
  column->addWidget(remove_);
  column->addStretch(1);
  return column;
}

QLayout* TarnInit::createMoveButtons() {
  up_ = createButton("dataUp", "up");
  up_->setToolTip(tr("Move up (Ctrl+Up)"));
  down_ = createButton("dataDown", "down");
  down_->setToolTip(tr("Move down (Ctrl+Down)"));
  for (QPushButton* const button : {up_, down_}) button->setAccessibleName(button->toolTip());
  auto* const column = new QVBoxLayout;
  column->addStretch(1);
  column->addWidget(up_);
  column->addWidget(down_);
  column->addStretch(1);
  return column;
}

void TarnInit::connectControls() {
  connect(startSession_, &QLineEdit::textChanged, this, [this](const QString& text) {
    const bool changed = rules_.setStartSession(fromQString(text));
    markStartSession();
    if (changed) emit edited();
  });
  connect(startSession_, &QLineEdit::editingFinished, this, [this] {
    if (!Parameters()) return;
    const bool changed = rules_.leaveStartSession();
    showStartSession();
    if (changed) emit edited();
  });
  connect(requests_, &QTreeWidget::itemDoubleClicked, this, &TarnInit::addSelected);
  connect(requests_, &QTreeWidget::itemSelectionChanged, this, &TarnInit::enableButtons);
  connect(scenario_, &QTreeWidget::itemSelectionChanged, this, &TarnInit::enableButtons);
  connect(add_, &QPushButton::clicked, this, &TarnInit::addSelected);
  connect(remove_, &QPushButton::clicked, this, [this] { act(rules_.remove(selectedRows())); });
  connect(up_, &QPushButton::clicked, this, [this] { act(rules_.moveUp(selectedRows())); });
  connect(down_, &QPushButton::clicked, this, [this] { act(rules_.moveDown(selectedRows())); });
}

/// Keys do what the buttons do, when these can be pressed.
void TarnInit::addShortcuts() {
  const auto press = [](const QKeySequence& keys, QPushButton* button, QWidget* within) {
    auto* const shortcut = new QShortcut(keys, within);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, button, [button] { button->click(); });
  };
  press(Qt::CTRL | Qt::Key_Up, up_, this);
  press(Qt::CTRL | Qt::Key_Down, down_, this);
  press(QKeySequence::Delete, remove_, scenario_);
}

std::vector<HelpRow> TarnInit::helpRows() {
  return {
      {tr("Enter"), tr("On a request: add it to the scenario")},
      {tr("Delete"), tr("In the scenario: take the selected requests out")},
      {tr("Ctrl+Up, Ctrl+Down"), tr("Move the selected requests up, down")},
  };
}

/// Enter on a request adds it, like a double click.
bool TarnInit::eventFilter(QObject* watched, QEvent* event) {
  if (watched == requests_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      addSelected();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void TarnInit::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && startSession_ != nullptr) markStartSession();
}

void TarnInit::setParameters(std::shared_ptr<oTarnParameters> parameters) {
  const bool anew = rules_.setParameters(std::move(parameters));
  enableButtons();
  if (!anew) return;
  notice_->setText({});
  fillRequestTree();
  if (!Parameters()) return;
  displayScenario();
  showStartSession();
}

/// The same requests as before keep what is open and selected.
void TarnInit::fillRequestTree() {
  if (shown_ == rules_.offered()) return;
  shown_ = rules_.offered();
  requests_->clear();
  QList<QTreeWidgetItem*> ecus;
  std::size_t count = 0;
  for (const OfferedEcu& offered : shown_) {
    auto* const ecu = new QTreeWidgetItem({toQString(offered.name)});
    ecu->setIcon(0, tarnIcon("ecu"));
    for (const std::string& name : offered.requests) {
      auto* const request = new QTreeWidgetItem(ecu, {toQString(name)});
      request->setIcon(0, tarnIcon("request"));
    }
    ecus.append(ecu);
    count += 1 + offered.requests.size();
  }
  requests_->addTopLevelItems(ecus);
  if (count <= kOpenTree) requests_->expandAll();
  enableButtons();
}

void TarnInit::displayScenario() {
  const QSignalBlocker quiet(scenario_);
  scenario_->setUpdatesEnabled(false);
  scenario_->clear();
  QList<QTreeWidgetItem*> rows;
  for (const oScenarioRequest& request : *Parameters()->initScenario)
    rows.append(new QTreeWidgetItem({toQString(request.EcuName), toQString(request.RequestName)}));
  scenario_->addTopLevelItems(rows);
  QTreeWidgetItem* first = nullptr;
  for (const std::size_t row : rules_.selection()) {
    if (row > static_cast<std::size_t>(rows.size())) break;
    QTreeWidgetItem* const item = rows.at(static_cast<qsizetype>(row) - 1);
    if (first == nullptr) scenario_->setCurrentItem(first = item);
    item->setSelected(true);
  }
  scenario_->setUpdatesEnabled(true);
  enableButtons();
}

void TarnInit::showStartSession() {
  const QString text = toQString(Parameters()->startSession);
  if (startSession_->text() != text) startSession_->setText(text);
  markStartSession();
}

void TarnInit::markStartSession() {
  const bool sendable = isSendableStartSession(fromQString(startSession_->text()));
  QPalette colours;
  if (!sendable) colours.setColor(QPalette::Text, faultColour(palette()));
  startSession_->setPalette(colours);
  startSessionMark_->setVisible(!sendable);
  const QString fault =
      sendable ? QString() : tr("These are no bytes in hexadecimal, as in 10A0: they cannot be sent.");
  startSession_->setToolTip(fault);
  startSessionMark_->setToolTip(fault);
  startSession_->setAccessibleDescription(fault);
}

InitRules::Rows TarnInit::selectedRows() const {
  InitRules::Rows rows;
  for (const QTreeWidgetItem* item : scenario_->selectedItems()) rows.insert(positionOf(*item) + 1);
  return rows;
}

void TarnInit::enableButtons() {
  const QList<QTreeWidgetItem*> request = requests_->selectedItems();
  add_->setEnabled(rules_.shown() && !request.isEmpty() && request.first()->parent() != nullptr);
  const InitRules::Rows rows = rules_.shown() ? selectedRows() : InitRules::Rows();
  remove_->setEnabled(!rows.empty());
  // At the edge they stay, and do nothing: a button that is disabled while it is pressed gives the focus to
  // the next one.
  up_->setEnabled(!rows.empty());
  down_->setEnabled(!rows.empty());
}

void TarnInit::addSelected() {
  const QList<QTreeWidgetItem*> selected = requests_->selectedItems();
  if (selected.isEmpty() || selected.first()->parent() == nullptr) return;
  const std::size_t ecu = positionOf(*selected.first()->parent());
  const auto added = rules_.add(ecu, positionOf(*selected.first()));
  act(added == InitRules::Added::yes);
  if (added == InitRules::Added::full) notice_->setText(tr("The scenario is full: nothing was added."));
  if (added == InitRules::Added::addressTooLarge)
    notice_->setText(tr("%1 has the address %2, which does not fit into 16 bits: nothing was added.")
                         .arg(toQString(shown_[ecu].name))
                         .arg(shown_[ecu].address));
}

void TarnInit::act(bool changed) {
  notice_->setText({});
  if (!changed) return;
  displayScenario();
  emit edited();
}

}  // namespace tarnlog
