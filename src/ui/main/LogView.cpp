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
