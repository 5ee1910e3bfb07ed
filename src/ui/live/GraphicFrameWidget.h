#pragma once

#include <QPixmap>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <vector>

#include "ui/live/FrameControls.h"
#include "ui/live/GraphChoices.h"
#include "ui/live/GraphReadout.h"
#include "ui/live/LookBack.h"

namespace tarnlog {

/// `FrGraphic`: the surface of the live display. Whoever acquires draws on it through `controls`; who looks
/// at it can freeze the picture and look back, read the values under the mouse, and take pictures and points
/// away.
class GraphicFrameWidget : public QWidget {
  Q_OBJECT
 public:
  explicit GraphicFrameWidget(QWidget* parent = nullptr);

  GraphicFrame& controls() { return controls_; }
  /// Says when a point came. Set before graphs are made; without one, read-outs count points.
  void setClock(const Clock* clock) { controls_.setClock(clock); }
  /// Where its user's choices are kept; it outlives the frame.
  void setSettings(SettingsStore* settings);

  /// A frozen frame goes on showing what it shows; points and values that come meanwhile are kept, and shown
  /// when it is released. It releases itself when its last control goes; one without controls cannot be
  /// frozen.
  void setFrozen(bool frozen);
  bool isFrozen() const { return frozen_; }
  /// Values, bars and curves are grey: they are not of now.
  void setOld(bool old) { controls_.setOld(old); }
  /// A flag on all time charts, at their newest points.
  void addMark(const QString& text, const QColor& colour);

  /// More or less of the frame is seen: the times go to the lowest chart that is.
  void arrangeSoon();
  /// A graph with its labels and times, as it is seen, without what lies upon it.
  QPixmap pictureOf(GraphBlock& block);
  const GraphReadout& readout() const { return *readout_; }
  LookBack& lookBack() { return *lookBack_; }
  /// How long a time the lowest chart that is seen shows, in milliseconds; none while that is not known.
  std::optional<double> shownTime() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void prepare(GraphBlock& block);
  void showMenu(GraphBlock& block, const QPoint& at);
  std::int64_t pointFor(GraphBlock& block, const QPoint& at) const;
  void arrange();
  void applyChoices();
  void shareMemory(const std::vector<GraphBlock*>& graphs);
  void placeTimes(const std::vector<GraphBlock*>& graphs);

  bool frozen_ = false;
  bool arrangeDue_ = false;
  FrameControls controls_{*this};
  GraphChoices choices_;
  GraphReadout* readout_;
  LookBack* lookBack_;
};

}  // namespace tarnlog
