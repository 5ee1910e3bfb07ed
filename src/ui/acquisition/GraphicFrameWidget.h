#pragma once

#include <QWidget>

#include "ui/acquisition/FrameControls.h"

namespace tarnlog {

/// `FrGraphic`: the surface of the live display. Whoever acquires draws on it through `controls`.
class GraphicFrameWidget : public QWidget {
  Q_OBJECT
 public:
  explicit GraphicFrameWidget(QWidget* parent = nullptr);

  GraphicFrame& controls() { return controls_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  FrameControls controls_{*this};
};

}  // namespace tarnlog
