#pragma once

#include <QPointF>
#include <QWidget>
#include <vector>

namespace tarnlog {

/// A line across a graph at one of its points, with a dot on every curve. Lies over the plot area; the
/// pointer passes through it.
class Hairline : public QWidget {
 public:
  struct Dot {
    QPointF place;
    QColor colour;
  };

  explicit Hairline(QWidget* parent);

  /// `area` in coordinates of the parent, `x` and the dots in those of the area.
  void showAt(const QRect& area, int x, std::vector<Dot> dots);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int x_ = 0;
  std::vector<Dot> dots_;
};

}  // namespace tarnlog
