#pragma once

namespace tarnlog {

class ReviewScene;

/// Whether another record has what the chosen curve shows.
bool canShowDifference(const ReviewScene& scene);
/// A graph of the chosen curve less the same data of the other record, at the end; it is chosen then.
void showDifference(ReviewScene& scene);

}  // namespace tarnlog
