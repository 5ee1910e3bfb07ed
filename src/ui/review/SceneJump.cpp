#include "ui/review/SceneJump.h"

#include "ui/review/ReviewScene.h"

namespace tarnlog {

namespace {

constexpr double kEdge = 0.05;  ///< of what is seen

}  // namespace

void jumpTo(ReviewScene& scene, double time) {
  const TimeSpan seen = scene.span();
  const double edge = seen.length() * kEdge;
  if (time < seen.from + edge || time > seen.till - edge)
    scene.show({time - seen.length() / 2, time + seen.length() / 2});
  scene.setCursor(ReviewCursor::Readout, time);
}

}  // namespace tarnlog
