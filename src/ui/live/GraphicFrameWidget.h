#pragma once

#include <QPixmap>
#include <QWidget>

#include "ui/live/FrameControls.h"
#include "ui/live/GraphReadout.h"

namespace tarnlog {

/// `FrGraphic`: the surface of the live display. Whoever acquires draws on it through `controls`; who looks
/// at it can freeze the picture, read the values under the mouse, and take pictures and points away.
class GraphicFrameWidget : public QWidget {
  Q_OBJECT
 public:
  explicit GraphicFrameWidget(QWidget* parent = nullptr);

  GraphicFrame& controls() { return controls_; }
  /// Says when a point came. Set before graphs are made; without one, read-outs count points.
  void setClock(const Clock* clock) { controls_.setClock(clock); }

  /// A frozen frame goes on showing what it shows; points and values that come meanwhile are kept, and shown
  /// when it is released. It releases itself when its last control goes; one without controls cannot be
  /// frozen.
  void setFrozen(bool frozen);
  bool isFrozen() const { return frozen_; }
  /// Values, bars and curves are grey: they are not of now.
  void setOld(bool old) { controls_.setOld(old); }

  /// A graph with its labels, as it is seen.
  QPixmap pictureOf(const GraphBlock& block);
  const GraphReadout& readout() const { return *readout_; }

 signals:
  void frozenChanged(bool frozen);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void prepare(GraphBlock& block);

  bool frozen_ = false;
  FrameControls controls_{*this};
  GraphReadout* readout_;
};

}  // namespace tarnlog
