#pragma once

#include <QTreeView>

#include "catalogue/RowFilter.h"
#include "platform/controls/PaintPacer.h"
#include "ui/acquisition/ListActions.h"
#include "ui/acquisition/ListChoices.h"

namespace tarnlog {

class ValueListModel;

/// `LVvisuText`: the live values, one row each. Only cells that changed are painted, at most as often as the
/// screen shows pictures. Its user's choices are kept in the settings, if there are any.
class ValueListView : public QTreeView {
  Q_OBJECT
 public:
  ValueListView(ValueListModel& values, SettingsStore* settings, QWidget* parent = nullptr);

  /// Gives the columns their widths: 4, 2 and 1 sevenths of the list unless the user has chosen otherwise.
  /// They follow its width until the user drags one.
  void rebuildColumns();

  const ListChoices& choices() const { return choices_; }
  void choose(ListChoices::Switch choice, bool on);
  const ListActions& actionsOfUser() const { return actions_; }

  void zoomIn();
  void zoomOut();
  void resetZoom();
  /// The font is that of the parent, zoomed.
  void applyZoom();

  /// Only rows with these words in their names are seen.
  void setFilter(const QString& text);
  /// Name, value and unit of each selected row that is seen, with tabs between them.
  void copySelected() const;

  void reset() override;
  void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;

 signals:
  /// The extremes are to count anew.
  void resetAsked();
  /// How many rows are seen, of how many.
  void filtered(int shown, int all);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void rowsInserted(const QModelIndex& parent, int first, int last) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void showColumns();
  void applyWidths();
  void leaveToUser();
  void filterRow(int row);
  void measureName(int row);
  bool isRowSelected(int row) const;
  QString copied(int row) const;

  ValueListModel& values_;
  ListChoices choices_;
  RowFilter filter_;
  PaintPacer pacer_{viewport()};
  int shown_ = 0;        ///< rows
  int longestName_ = 0;  ///< pixels
  bool applying_ = false;
  bool dragged_ = false;
  ListActions actions_;
};

}  // namespace tarnlog
