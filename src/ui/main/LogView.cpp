#include "ui/main/LogView.h"

#include <QScrollBar>
#include <QTextCursor>

#include "ui/common/Convert.h"

namespace tarnlog {

LogView::LogView(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setUndoRedoEnabled(false);
  setAccessibleName(tr("Log"));
}

HelpPage LogView::helpPage() {
  return {tr("Keys of the log"),
          {
              {tr("Arrows, Page Up, Page Down"), tr("Read on")},
              {tr("Ctrl+Home, Ctrl+End"), tr("Beginning and end")},
              {tr("Shift with these keys"), tr("Select; Ctrl+A selects all")},
              {tr("Ctrl+C"), tr("Copy what is selected")},
              {tr("Alt+C, Alt+A"), tr("Configure, Acquire")},
          }};
}

/// A reader who has scrolled back stays where he is.
void LogView::add(std::string_view line) {
  const bool atEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum();
  if (pane_.add(line)) {
    setPlainText(toQString(pane_.text()));
  } else {
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText("\n" + toQString(line));
  }
  if (atEnd) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void LogView::clearLines() {
  pane_.clear();
  clear();
}

}  // namespace tarnlog
