#pragma once

#include <QMenu>
#include <optional>

#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// What can be done with a graph of what is looked at. It belongs to the widget that it is shown over, and
/// goes when it is closed.
class ReviewGraphMenu : public QMenu {
  Q_OBJECT
 public:
  /// `curve`: the one whose name is here; `time`: what stands here.
  ReviewGraphMenu(ReviewScene& scene, std::size_t graph, std::optional<std::size_t> curve,
                  std::optional<double> time, QWidget* parent);

 private:
  void addKinds();
  void addScales();
  void addX();
  void addCursors(double time);
  void addRemoval(std::optional<std::size_t> curve);
  const ReviewGraph& shown() const { return scene_.graphs()[graph_]; }

  ReviewScene& scene_;
  std::size_t graph_;
};

}  // namespace tarnlog
