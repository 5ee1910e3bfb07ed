#pragma once

#include <QMenu>
#include <QPixmap>
#include <cstdint>
#include <functional>

#include "ui/live/GraphBlock.h"

namespace tarnlog {

class GraphChoices;
class LookBack;

/// What can be done with a graph: save or copy it as a picture, copy its points, say how graphs look, look
/// back. Does not wait for the user: the acquisition goes on meanwhile, and the graph may go.
class GraphMenu : public QMenu {
  Q_OBJECT
 public:
  using Picture = std::function<QPixmap()>;

  GraphMenu(GraphBlock& block, const Picture& picture);
  /// `changed` is called after each choice. Both outlive the menu.
  void addChoices(GraphChoices& choices, const std::function<void()>& changed);
  /// Of a frozen picture; cursors go to this point.
  void addLookBack(LookBack& lookBack, std::int64_t point);

 private:
  void savePicture(const QPixmap& picture);
  void addScales(GraphChoices& choices, const std::function<void()>& changed);
  void addMemory(GraphChoices& choices, const std::function<void()>& changed);

  GraphBlock& block_;
};

}  // namespace tarnlog
