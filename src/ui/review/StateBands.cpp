#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/text/Numbers.h"
#include "ui/review/CurveTrace.h"

namespace tarnlog {
namespace {

constexpr std::int64_t kLooks = 8;  ///< at texts of a column that has many

bool sameState(const StateBand& a, const StateBand& b) { return a.kind == b.kind && a.label == b.label; }

class States {
 public:
  States(const TableColumn& column, const SeenRows& rows) : column_(column), rows_(rows) {}

  /// None where it has no value.
  std::optional<StateBand> of(std::int64_t row) const {
    const double number = column_.numbers[row];
    StateBand state;
    state.label = column_.labelOf(row);
    if (std::isnan(number) && state.label.empty()) return std::nullopt;
    state.kind = StateBand::Kind::Labelled;
    if (!state.label.empty()) return state;
    if (column_.onOff || !column_.isEnumeration())
      state.kind = number == 0 ? StateBand::Kind::Off : StateBand::Kind::On;
    else
      appendNumber(state.label, number, '.');
    return state;
  }

  std::optional<StateBand> ofColumn(int column) const {
    const std::int64_t first = rows_.edge(column);
    const std::int64_t last = rows_.edge(column + 1);
    if (first == last) return rows_.brokenAt(column) ? std::nullopt : of(first - 1);
    const auto state = of(last - 1);
    return isSteady(first, last) ? state : StateBand{0, 0, StateBand::Kind::Changing, {}};
  }

 private:
  /// A change from a row to the next one is seen at its place.
  bool isSteady(std::int64_t first, std::int64_t last) const {
    if (last - first <= 2) return true;
    const NumberSummary numbers = column_.numbers.extremes(first, last);
    if (numbers.any() && numbers.lowest != numbers.highest) return false;
    if (numbers.any()) return true;
    const std::int64_t step = (last - first) / kLooks + 1;
    for (std::int64_t row = first; row < last; row += step)
      if (column_.textIds[row] != column_.textIds[last - 1]) return false;
    return true;
  }

  const TableColumn& column_;
  const SeenRows& rows_;
};

}  // namespace

std::vector<StateBand> statesOverTime(const ReviewScene& scene, const CurvePlace& place, SeenRecords& seen) {
  const SeenRows& rows = seen.rows(scene, place);
  const States states(scene.column(place), rows);
  std::vector<StateBand> bands;
  std::int64_t lastRow = -1;
  for (int column = 0; column < rows.columns(); ++column) {
    const bool goesOn = rows.edge(column + 1) == lastRow && !rows.brokenAt(column);
    lastRow = rows.edge(column + 1);
    if (goesOn && !bands.empty() && bands.back().till == column &&
        bands.back().kind != StateBand::Kind::Changing) {
      ++bands.back().till;  // the row before holds
      continue;
    }
    auto state = states.ofColumn(column);
    if (!state) continue;
    if (!bands.empty() && bands.back().till == column && sameState(bands.back(), *state)) {
      ++bands.back().till;
      continue;
    }
    state->from = column;
    state->till = column + 1;
    bands.push_back(std::move(*state));
  }
  return bands;
}

}  // namespace tarnlog
