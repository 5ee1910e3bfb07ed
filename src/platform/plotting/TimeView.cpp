#include "platform/plotting/TimeView.h"

#include <algorithm>

namespace tarnlog {
namespace {

constexpr double kFewest = 4;

double lengthOf(const PointSpan& kept) {
  return static_cast<double>(std::max(kept.end - kept.begin, std::int64_t{1}));
}

TimeView within(const TimeView& view, const PointSpan& kept) {
  const double all = lengthOf(kept);
  const double count = std::clamp(view.count, std::min(kFewest, all), all);
  const auto begin = static_cast<double>(kept.begin);
  return {std::clamp(view.first, begin, begin + all - count), count};
}

}  // namespace

TimeView wholeView(const PointSpan& kept) { return {static_cast<double>(kept.begin), lengthOf(kept)}; }

TimeView zoomed(const TimeView& view, double factor, double anchor, const PointSpan& kept) {
  const double all = lengthOf(kept);
  const double count = std::clamp(view.count * factor, std::min(kFewest, all), all);
  return within({anchor - (anchor - view.first) * count / view.count, count}, kept);
}

TimeView panned(const TimeView& view, double points, const PointSpan& kept) {
  return within({view.first + points, view.count}, kept);
}

}  // namespace tarnlog
