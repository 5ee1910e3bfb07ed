#pragma once

namespace tarnlog {

class ReviewScene;

/// Sets the readout to this time, and brings it into the middle unless it is seen well: not near an edge.
void jumpTo(ReviewScene& scene, double time);

}  // namespace tarnlog
