#pragma once

#include <QListWidget>
#include <QString>

namespace tarnlog {

/// `log`: the newest lines of the acquisition's log. A line that does not fit is elided, its tool tip is
/// whole. Lines can be selected and copied.
class LogList : public QListWidget {
  Q_OBJECT
 public:
  explicit LogList(QWidget* parent = nullptr);

  /// Appends and scrolls to the line.
  void appendLine(const QString& line);
  void removeLine(int position) { delete takeItem(position); }

  void copySelected() const;

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
};

}  // namespace tarnlog
