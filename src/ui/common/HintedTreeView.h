#pragma once

#include <QString>
#include <QTreeView>
#include <functional>

namespace tarnlog {

/// A tree view that says what to do, or why, when it has nothing to show.
class HintedTreeView : public QTreeView {
  Q_OBJECT
 public:
  using QTreeView::QTreeView;
  void setHint(const QString& hint);
  /// Begins drags at a moment that this rule chooses: a drag runs a loop of its own.
  void setDragRule(std::function<void(std::function<void()> drag)> rule) { dragRule_ = std::move(rule); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void startDrag(Qt::DropActions actions) override;

 private:
  QString hint_;
  std::function<void(std::function<void()> drag)> dragRule_;
};

}  // namespace tarnlog
