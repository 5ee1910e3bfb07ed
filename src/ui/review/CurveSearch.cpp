#include "ui/review/CurveSearch.h"

#include "ui/review/GraphKinds.h"

namespace tarnlog {

const ReviewCurve* CurveSearch::curve() const {
  const auto& chosen = scene_.chosen();
  if (!chosen || chosen->graph >= scene_.graphs().size()) return nullptr;
  const std::vector<ReviewCurve>& curves = scene_.graphs()[chosen->graph].curves;
  return chosen->curve < curves.size() ? &curves[chosen->curve] : nullptr;
}

bool CurveSearch::possible(What what) const {
  const ReviewCurve* const chosen = curve();
  return chosen != nullptr && (what == What::Change || !isLabelled(columns_.of(*chosen)));
}

/// The readout; where it is not set, the edge of what is seen.
double CurveSearch::start(bool back) const {
  if (const auto readout = scene_.cursor(ReviewCursor::Readout)) return *readout;
  return back ? scene_.span().till : scene_.span().from;
}

CurveSearch::Answer CurveSearch::find(What what, double level, bool back) const {
  const ReviewCurve* const chosen = curve();
  if (chosen == nullptr) return {};
  const TableGroup& group = columns_.groupOf(*chosen);
  const TableColumn& column = columns_.of(*chosen);
  Answer answer;
  const auto timeOf = [&](std::int64_t at) { return group.times[at] + scene_.offset(chosen->place); };
  const Aim aim{what, level, start(back)};
  if (const auto found = row(*chosen, aim, back, false)) {
    answer.time = timeOf(*found);
    answer.number = column.numbers[*found];
  } else if (group.rows() != 0) {
    if (const auto passed = row(*chosen, aim, !back, true)) answer.other = timeOf(*passed);
    answer.figures = figuresOf(group, column, {group.times[0], group.times[group.rows() - 1]});
  }
  return answer;
}

/// A row that is as old as the readout is the one that was found before.
std::optional<std::int64_t> CurveSearch::row(const ReviewCurve& chosen, const Aim& aim, bool back,
                                             bool at) const {
  const TableGroup& group = columns_.groupOf(chosen);
  const TableColumn& column = columns_.of(chosen);
  const double offset = scene_.offset(chosen.place);
  const std::int64_t first = scene_.rowFrom(chosen.place, aim.from);
  const std::int64_t last = scene_.rowUpTo(chosen.place, aim.from).value_or(-1);
  const std::int64_t before = at ? last + 1 : first;
  const std::int64_t after = at ? first - 1 : last;
  const LevelCrossing crossing{aim.what == What::Rising ? 1 : -1, aim.level};
  switch (aim.what) {
    case What::Rising:
    case What::Falling:
      return back ? previousCrossing(column, crossing, before) : nextCrossing(column, crossing, after);
    case What::Change:
      return back ? previousChange(column, before) : nextChange(column, after);
    case What::LargestStep:
      break;
  }
  const TimeSpan span = scene_.measured();
  return largestStep(group, column, {span.from - offset, span.till - offset});
}

}  // namespace tarnlog
