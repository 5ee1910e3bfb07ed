#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <cstddef>
#include <optional>
#include <vector>

#include "ui/review/ReviewLook.h"

class QPainter;

namespace tarnlog {

/// What the curves of a graph are called, with their colours and their values at the readout, in lines above
/// the curves.
class GraphLegend {
 public:
  struct Chip {
    QRect place;
    QRect close;  ///< takes the curve away; empty in a picture that nobody can click
    QString name;
    int nameWidth = 0;
    QString value;  ///< the unit while nothing is read out
    QColor colour;
    bool chosen = false;
  };

  /// Curves for which there is no room are left out. Bars of states have their names beside them.
  void layOut(const ReviewScene& scene, std::size_t graph, const QSize& room, const ReviewLook& look,
              bool clickable);
  int height() const { return height_; }
  void paint(QPainter& painter, const ReviewLook& look, std::optional<std::size_t> under) const;
  /// The curve whose chip is here.
  std::optional<std::size_t> at(const QPoint& position) const;
  bool closes(std::size_t curve, const QPoint& position) const;
  const std::vector<Chip>& chips() const { return chips_; }

 private:
  QPoint layOutTitle(const QString& title, const QSize& room, const ReviewLook& look);
  static Chip chipOf(const ReviewScene& scene, const ReviewCurve& curve, int room, const ReviewLook& look,
                     bool clickable);
  static void paintChip(QPainter& painter, const Chip& chip, const ReviewLook& look, bool under);

  std::vector<Chip> chips_;
  QRect titlePlace_;
  QString title_;
  int height_ = 0;
};

}  // namespace tarnlog
