#pragma once

#include <QTreeView>

#include "platform/controls/PaintPacer.h"

namespace tarnlog {

/// `LVvisuText`: the live values, one row each. Only cells that changed are painted, at most as often as the
/// screen shows pictures.
class ValueListView : public QTreeView {
  Q_OBJECT
 public:
  explicit ValueListView(QWidget* parent = nullptr);

  /// Gives the columns their widths: 4, 2 and 1 sevenths of the list. They follow its width until the user
  /// drags one.
  void rebuildColumns();

  void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void applyWidths();
  void leaveToUser();

  PaintPacer pacer_{viewport()};
  bool applying_ = false;
  bool dragged_ = false;
};

}  // namespace tarnlog
