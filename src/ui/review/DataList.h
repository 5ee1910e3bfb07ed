#pragma once

#include <QWidget>

#include "ui/review/DataListModel.h"
#include "ui/review/DataRows.h"

namespace tarnlog {

class FilterBox;
class HintedTreeView;

/// The data of the records that are looked at, with a filter: what has a check mark is shown in a graph.
/// Enter or a double click takes data into a graph of their unit, Ctrl+Enter into the chosen graph, Delete
/// out of them; they can be dragged onto a graph.
class DataList : public QWidget {
  Q_OBJECT
 public:
  explicit DataList(ReviewScene& scene, QWidget* parent = nullptr);

  /// After the scene told of these changes.
  void follow(unsigned changes);
  void focusFilter();
  HintedTreeView& list() { return *list_; }
  QSize sizeHint() const override;

 private:
  void createList();
  void addKeys();
  void filter(const QString& text);
  void showHint();
  void eachSelected(void (DataRows::*act)(const CurvePlace&));

  ReviewScene& scene_;
  DataRows rows_;
  DataListModel model_;
  HintedTreeView* list_;
  FilterBox* filter_;
};

}  // namespace tarnlog
