#pragma once

#include <QMenu>
#include <QPixmap>
#include <functional>

#include "ui/live/GraphBlock.h"

namespace tarnlog {

/// What can be done with a graph: save or copy it as a picture, copy its points. Does not wait for the user:
/// the acquisition goes on meanwhile, and the graph may go.
class GraphMenu : public QMenu {
  Q_OBJECT
 public:
  using Picture = std::function<QPixmap()>;

  GraphMenu(GraphBlock& block, const Picture& picture);

 private:
  void savePicture(const QPixmap& picture);
};

}  // namespace tarnlog
