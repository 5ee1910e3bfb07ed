#pragma once

#include <QElapsedTimer>

#include "ui/review/ReviewScene.h"

class QKeyEvent;
class QWheelEvent;

namespace tarnlog {

/// + and - zoom around the readout or the middle, Left and Right pan, Home and End go to the ends, F shows
/// all, Backspace goes back, A and B set the cursors at the readout or take them away, Ctrl with Left and
/// Right moves the readout row by row, Escape takes away the readout, then the cursors. False for other keys.
bool handleReviewKey(const QKeyEvent& event, ReviewScene& scene);
/// The next row of the chosen curve, or of the first one; the one before with `by` below 0.
void moveReadout(ReviewScene& scene, int by);

/// The wheel zooms, sideways or with Shift it pans. Turns that follow one another are one step on the way
/// back.
class ReviewWheel {
 public:
  /// Zooms around `anchor`.
  void turn(const QWheelEvent& event, ReviewScene& scene, double anchor);

 private:
  QElapsedTimer since_;
};

}  // namespace tarnlog
