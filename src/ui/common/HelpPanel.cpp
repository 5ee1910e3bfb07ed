#include "ui/common/HelpPanel.h"

#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/common/MessageTable.h"

namespace tarnlog {

HelpPanel::HelpPanel(Guide guide, QWidget* page)
    : QWidget(page, Qt::Tool),
      guide_(std::move(guide)),
      rows_(new QFormLayout),
      closeOnPage_(new QShortcut(Qt::Key_Escape, page)) {
  setObjectName("KeyboardHelp");
  rows_->setLabelAlignment(Qt::AlignRight);
  rows_->setHorizontalSpacing(16);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(rows_);
  column->addWidget(makeButtons());
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_F1})
    connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::hide);
  closeOnPage_->setContext(Qt::WidgetWithChildrenShortcut);
  closeOnPage_->setEnabled(false);
  // The page may use the key as well; while the panel is there it closes the panel.
  for (const auto pressed : {&QShortcut::activated, &QShortcut::activatedAmbiguously})
    connect(closeOnPage_, pressed, this, &QWidget::hide);
  page->installEventFilter(this);
}

QWidget* HelpPanel::makeButtons() {
  auto* const line = new QWidget;
  auto* const buttons = new QHBoxLayout(line);
  buttons->setContentsMargins({});
  const auto add = [&](const char* name, const QString& text) {
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    buttons->addWidget(button);
    return button;
  };
  if (guide_.open) connect(add("openGuide", tr("User &guide")), &QPushButton::clicked, this, guide_.open);
  if (guide_.messages)
    connect(add("showMessages", tr("What the &messages mean")), &QPushButton::clicked, this,
            [this] { showMessageTable(guide_, *parentWidget()); });
  buttons->addStretch();
  connect(add("closeHelp", tr("Close")), &QPushButton::clicked, this, &QWidget::hide);
  return line;
}

void HelpPanel::toggle(const HelpPage& page) {
  if (isVisible() && windowTitle() == page.title) return hide();
  fill(page);
  place();
  show();
  if (!testAttribute(Qt::WA_ShowWithoutActivating)) activateWindow();
}

void HelpPanel::fill(const HelpPage& page) {
  setWindowTitle(page.title);
  while (rows_->rowCount() > 0) rows_->removeRow(0);
  for (const HelpRow& row : page.rows) add(row);
  add({"F1", tr("This panel; Escape closes it")});
}

void HelpPanel::add(const HelpRow& row) {
  auto* const keys = new QLabel("<b>" + row.keys.toHtmlEscaped() + "</b>");
  auto* const what = new QLabel(row.what);
  what->setTextFormat(Qt::PlainText);
  what->setAccessibleName(row.keys + ": " + row.what);
  rows_->addRow(keys, what);
}

/// In the middle of the page, and on the screen.
void HelpPanel::place() {
  const QWidget& page = *parentWidget();
  layout()->activate();
  QRect wanted({}, sizeHint());
  wanted.moveCenter(page.mapToGlobal(page.rect().center()));
  resize(wanted.size());
  if (!isVisible()) move(std::max(wanted.left(), 0), std::max(wanted.top(), 0));
}

bool HelpPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Hide && !event->spontaneous()) hide();
  return QWidget::eventFilter(watched, event);
}

void HelpPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  closeOnPage_->setEnabled(true);
}

void HelpPanel::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  closeOnPage_->setEnabled(false);
}

}  // namespace tarnlog
