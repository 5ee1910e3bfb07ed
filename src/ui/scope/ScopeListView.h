#pragma once

#include <QTreeView>

namespace tarnlog {

/// `ListViewScope`: a list with several rows selected at a time. Plain Up and Down move the current item,
/// with Ctrl they go from row to row.
class ScopeListView : public QTreeView {
  Q_OBJECT

 public:
  explicit ScopeListView(QWidget* parent = nullptr);
  void selectRow(int row);
  /// 0-based, ascending.
  std::vector<std::size_t> selectedRows() const;

 signals:
  void moveUpRequested();
  void moveDownRequested();
  void menuRequested(const QPoint& globalPosition);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool handleArrow(const QKeyEvent& event);
  void goToRow(int row);
  QPoint menuPlace() const;
  void layOutColumns();
};

}  // namespace tarnlog
