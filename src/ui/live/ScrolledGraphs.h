#pragma once

#include <QObject>
#include <QRect>
#include <cstdint>

#include "acquisition/AcqScreen.h"
#include "ui/live/GraphicFrameWidget.h"

class QScrollBar;

namespace tarnlog {

/// The graph area: `FrGraphic` on `FrScroll`, beside it `VScroll`. Pages and the wheel move the bar; whoever
/// listens to `scrolled` moves the surface.
class ScrolledGraphs : public QObject, public GraphArea {
  Q_OBJECT
 public:
  /// The widgets are children of `parent`.
  explicit ScrolledGraphs(QWidget& parent);

  /// Scroll bar at the right edge of the area, the rest for the graphs. The surface stays where it is.
  void place(const QRect& area);
  void setVisible(bool visible);
  bool isVisible() const;
  /// Up (below 0) or down by what is seen at once.
  void turnPages(int pages);
  GraphicFrameWidget& surface() { return *surface_; }

  GraphicFrame& frame() override { return surface_->controls(); }
  Twips visibleWidth() const override;
  Twips visibleHeight() const override;
  void setScrollRange(std::int16_t maximum, std::int16_t value) override;
  std::int16_t scrollValue() const override;

 signals:
  void scrolled();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* visible_;
  GraphicFrameWidget* surface_;
  QScrollBar* bar_;
};

}  // namespace tarnlog
