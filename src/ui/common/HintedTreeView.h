#pragma once

#include <QString>
#include <QTreeView>

namespace tarnlog {

/// A tree view that says what to do, or why, when it has nothing to show.
class HintedTreeView : public QTreeView {
  Q_OBJECT
 public:
  using QTreeView::QTreeView;
  void setHint(const QString& hint);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString hint_;
};

}  // namespace tarnlog
