#pragma once

#include <QBasicTimer>
#include <QWidget>

#include "platform/text/UserLocale.h"
#include "ui/review/FigureRows.h"
#include "ui/review/FiguresModel.h"

class QLabel;
class QLineEdit;
class QTreeView;

namespace tarnlog {

/// Cursors and figures of every curve. Medians of long records come a little later, without the window
/// standing still.
class FiguresTable : public QWidget {
  Q_OBJECT
 public:
  /// All outlive it.
  FiguresTable(ReviewScene& scene, CurveColumns& columns, const UserLocale& locale,
               QWidget* parent = nullptr);

  /// Measures anew, at the latest a moment later: a drag tells of many changes.
  void follow(unsigned changes);
  /// The whole table, with tabs, into the clipboard.
  void copy();

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  QWidget* makeHead();
  void createTable();
  void measure();
  void showColumns();
  void showCursors();
  void takeLevel();
  void chooseRow(int row);

  ReviewScene& scene_;
  UserLocale locale_;
  FigureRows rows_;
  FiguresModel model_;
  QLabel* cursors_;
  QLineEdit* level_;
  QTreeView* table_;
  QBasicTimer pending_;
  QBasicTimer medians_;
};

}  // namespace tarnlog
