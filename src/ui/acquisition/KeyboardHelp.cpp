#include "ui/acquisition/KeyboardHelp.h"

#include <QFormLayout>
#include <QLabel>
#include <QShortcut>

namespace tarnlog {

KeyboardHelp::KeyboardHelp(QWidget* parent) : QWidget(parent, Qt::Tool) {
  setObjectName("KeyboardHelp");
  setWindowTitle(tr("Keyboard"));
  auto* const rows = new QFormLayout(this);
  rows->setLabelAlignment(Qt::AlignRight);
  rows->setHorizontalSpacing(16);
  addKeys(tr("Enter"), tr("Start or stop recording"));
  addKeys(tr("Space"), tr("Event: write the rows around this moment into a file"));
  addKeys(tr("P or Pause"), tr("Freeze the picture; recording goes on"));
  addKeys(tr("D, G"), tr("Show values as digits, as graphs"));
  addKeys(tr("Page Up, Page Down"), tr("Scroll the graphs"));
  addKeys(tr("Arrows, Home, End"), tr("On a graph: read out its points; with Ctrl in wide steps"));
  addKeys(tr("Tab"), tr("Move from control to control"));
  addKeys(tr("Ctrl+C"), tr("In the log: copy the selected lines"));
  addKeys(tr("F11"), tr("Full screen; Escape leaves it"));
  addKeys(tr("F1"), tr("This panel"));
  for (const int key : {static_cast<int>(Qt::Key_Escape), static_cast<int>(Qt::Key_F1)})
    connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this, &QWidget::hide);
}

void KeyboardHelp::addKeys(const QString& keys, const QString& what) {
  auto* const label = new QLabel("<b>" + keys.toHtmlEscaped() + "</b>");
  auto* const text = new QLabel(what);
  text->setAccessibleName(keys + ": " + what);
  static_cast<QFormLayout*>(layout())->addRow(label, text);
}

}  // namespace tarnlog
