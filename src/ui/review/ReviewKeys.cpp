#include "ui/review/ReviewKeys.h"

#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace tarnlog {
namespace {

constexpr double kNearer = 0.8;      ///< for one step, as in the live look back
constexpr double kPannedPart = 0.1;  ///< of what is seen, for one step
constexpr double kWheelStep = 120;   ///< eighths of a degree
constexpr qint64 kOneGesture = 700;  ///< milliseconds between turns of the wheel that belong together

double anchor(const ReviewScene& scene) {
  const TimeSpan& span = scene.span();
  const auto at = scene.cursor(ReviewCursor::Readout);
  return at && *at >= span.from && *at <= span.till ? *at : (span.from + span.till) / 2;
}

/// Where it is already, it goes.
void toggle(ReviewScene& scene, ReviewCursor cursor) {
  const double at = anchor(scene);
  scene.setCursor(cursor, scene.cursor(cursor) == at ? std::nullopt : std::optional(at));
}

bool escape(ReviewScene& scene) {
  if (scene.cursor(ReviewCursor::Readout)) return scene.setCursor(ReviewCursor::Readout, {}), true;
  if (!scene.cursor(ReviewCursor::A) && !scene.cursor(ReviewCursor::B)) return false;
  scene.setCursor(ReviewCursor::A, {});
  scene.setCursor(ReviewCursor::B, {});
  return true;
}

void goToEnd(ReviewScene& scene, bool last) {
  const TimeSpan whole = scene.whole();
  const double length = scene.span().length();
  scene.show(last ? TimeSpan{whole.till - length, whole.till} : TimeSpan{whole.from, whole.from + length});
}

std::optional<CurvePlace> followed(const ReviewScene& scene) {
  const auto& chosen = scene.chosen();
  if (chosen) return scene.graphs()[chosen->graph].curves[chosen->curve].place;
  for (const ReviewGraph& graph : scene.graphs())
    if (!graph.curves.empty()) return graph.curves.front().place;
  return std::nullopt;
}

/// So that a time is seen, in the middle where it was not.
void reveal(ReviewScene& scene, double time) {
  const TimeSpan& span = scene.span();
  if (time >= span.from && time <= span.till) return;
  const double half = span.length() / 2;
  scene.show({time - half, time + half}, true);
}

bool handleWithControl(const QKeyEvent& event, ReviewScene& scene) {
  if (event.key() != Qt::Key_Left && event.key() != Qt::Key_Right) return false;
  moveReadout(scene, event.key() == Qt::Key_Left ? -1 : 1);
  return true;
}

}  // namespace

void moveReadout(ReviewScene& scene, int by) {
  const auto place = followed(scene);
  if (!place) return;
  const TableGroup& group = scene.group(*place);
  if (group.rows() == 0) return;
  const double at = scene.cursor(ReviewCursor::Readout).value_or(anchor(scene));
  const std::int64_t row =
      by < 0 ? scene.rowFrom(*place, at) - 1 : scene.rowUpTo(*place, at).value_or(-1) + 1;
  const double time = group.times[std::clamp<std::int64_t>(row, 0, group.rows() - 1)] + scene.offset(*place);
  reveal(scene, time);
  scene.setCursor(ReviewCursor::Readout, time);
}

bool handleReviewKey(const QKeyEvent& event, ReviewScene& scene) {
  if (scene.records().empty()) return false;
  const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  if (modifiers == Qt::ControlModifier) return handleWithControl(event, scene);
  if (modifiers != Qt::NoModifier) return false;
  switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return scene.zoom(kNearer, anchor(scene), event.isAutoRepeat()), true;
    case Qt::Key_Minus:
      return scene.zoom(1 / kNearer, anchor(scene), event.isAutoRepeat()), true;
    case Qt::Key_Left:
      return scene.pan(-kPannedPart, event.isAutoRepeat()), true;
    case Qt::Key_Right:
      return scene.pan(kPannedPart, event.isAutoRepeat()), true;
    case Qt::Key_Home:
      return goToEnd(scene, false), true;
    case Qt::Key_End:
      return goToEnd(scene, true), true;
    case Qt::Key_F:
      return scene.fit(), true;
    case Qt::Key_Backspace:
      return scene.back(), true;
    case Qt::Key_A:
      return toggle(scene, ReviewCursor::A), true;
    case Qt::Key_B:
      return toggle(scene, ReviewCursor::B), true;
    case Qt::Key_Escape:
      return escape(scene);
    default:
      return false;
  }
}

void ReviewWheel::turn(const QWheelEvent& event, ReviewScene& scene, double anchor) {
  const bool goesOn = since_.isValid() && since_.elapsed() < kOneGesture;
  since_.start();
  const QPoint turned = event.angleDelta();
  const bool sideways = std::abs(turned.x()) > std::abs(turned.y());  // fingers never go quite straight
  const double steps = (sideways ? turned.x() : turned.y()) / kWheelStep;
  if (sideways || (event.modifiers() & Qt::ShiftModifier) != 0)
    scene.pan(-steps * kPannedPart, goesOn);
  else
    scene.zoom(std::pow(kNearer, steps), anchor, goesOn);
}

}  // namespace tarnlog
