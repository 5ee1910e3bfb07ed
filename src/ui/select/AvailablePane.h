#pragma once

#include <QGroupBox>
#include <QModelIndex>
#include <vector>

#include "ui/select/SelectionRules.h"

class QToolBar;

namespace tarnlog {

class CatalogueModel;
class FilterBox;
class HintedTreeView;
class TreeExpansion;

/// `FrChooseData`: the tree of available data, its shapes and its filter.
class AvailablePane : public QGroupBox {
  Q_OBJECT
 public:
  /// Both outlive the pane's use of them.
  AvailablePane(SelectionRules& rules, CatalogueModel& catalogue, QWidget* parent = nullptr);

  /// To be called after what may have filled the tree; keeps what is expanded.
  void refresh();
  /// The same when it was filled for another session.
  void beginAnew();
  void showHint();

  std::vector<CatalogueNode> selectedNodes() const;
  /// Selects this node when nothing is selected: the user goes on from there.
  void goOnAt(const QModelIndex& index);
  void focusFilter();

  QToolBar& shapes() { return *tbSelect_; }
  /// Those that take the keyboard, in order.
  std::vector<QWidget*> stops() const;

 signals:
  /// The user chose these for recording, by mouse or key.
  void addWanted(const std::vector<CatalogueNode>& nodes);
  void selectionChanged();

 private:
  void createShapes();
  void createTree();
  void addEnterKeys();
  void showShape();
  void chooseShape(char key);
  void filter(const QString& text);
  void activate(const QModelIndex& index);
  bool hasSelection() const;

  SelectionRules& rules_;
  CatalogueModel& catalogue_;
  HintedTreeView* tree_;
  FilterBox* filter_;
  QToolBar* tbSelect_;
  TreeExpansion* expansion_ = nullptr;
};

}  // namespace tarnlog
