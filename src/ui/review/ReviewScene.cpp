#include "ui/review/ReviewScene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "ui/review/RowSteps.h"

namespace tarnlog {
namespace {

constexpr std::size_t kMostPast = 100;
constexpr double kLeastRows = 4;
constexpr double kLeastSpan = 1e-6;  ///< seconds

bool refersTo(const ReviewCurve& curve, std::size_t record) {
  return curve.place.record == record || (curve.minus && curve.minus->record == record);
}

bool sameSpan(const TimeSpan& a, const TimeSpan& b) { return a.from == b.from && a.till == b.till; }

template <class Each>
void eraseAt(std::vector<Each>& all, std::size_t position) {
  all.erase(all.begin() + static_cast<std::ptrdiff_t>(position));
}

/// What was seen moves up to the place of one that is gone.
void renumber(CurvePlace& place, std::size_t removed) {
  if (place.record > removed) --place.record;
}

void forgetRecord(ReviewGraph& graph, std::size_t record) {
  std::erase_if(graph.curves, [record](const ReviewCurve& each) { return refersTo(each, record); });
  for (ReviewCurve& curve : graph.curves) {
    renumber(curve.place, record);
    if (curve.minus) renumber(*curve.minus, record);
  }
  if (graph.x && graph.x->record == record) {
    graph.x.reset();
    graph.kind = GraphKind::Time;
  }
  if (graph.x) renumber(*graph.x, record);
  graph.axis = std::min(graph.axis, graph.curves.empty() ? 0 : graph.curves.size() - 1);
}

bool shows(const ReviewGraph& graph, const ReviewCurve& wanted) {
  return std::ranges::any_of(graph.curves, [&](const ReviewCurve& each) {
    return each.place == wanted.place && each.minus == wanted.minus;
  });
}

bool sameGraphs(const std::vector<ReviewGraph>& a, const std::vector<ReviewGraph>& b) {
  return std::ranges::equal(a, b, [](const ReviewGraph& one, const ReviewGraph& other) {
    return one.kind == other.kind &&
           std::ranges::equal(one.curves, other.curves, {}, &ReviewCurve::place, &ReviewCurve::place);
  });
}

/// Of the slowest zoom: some rows of the fastest group.
double leastSpan(const std::vector<LookedAtRecord>& records) {
  double least = 0;
  for (const LookedAtRecord& record : records)
    for (const TableGroup& group : record.recordingTable().groups)
      if (const double step = usualStep(group); step > 0 && (least == 0 || step < least)) least = step;
  return std::max(least * kLeastRows, kLeastSpan);
}

}  // namespace

TimeSpan LookedAtRecord::span() const {
  return {recordingTable().begin() + offset, recordingTable().end() + offset};
}

std::uint32_t reviewColour(std::size_t position) {
  static constexpr std::array<std::uint32_t, 10> kColours{0x2E7BD6, 0xD64541, 0x2E9950, 0xCC7000, 0x9B59D0,
                                                          0x1095A6, 0xA0694B, 0xD8459B, 0x868B1B, 0x6F7F8F};
  return kColours[position % kColours.size()];
}

void ReviewScene::tell(unsigned changes) {
  for (std::size_t i = 0; changes != 0 && i < listeners_.size(); ++i) listeners_[i](changes);
}

void ReviewScene::addRecord(LookedAtRecord record) {
  if (records_.size() == kMostRecords) return;
  const bool all = records_.empty() || seesAll();
  records_.push_back(std::move(record));
  least_ = leastSpan(records_);
  unsigned changes = kRecordsChanged;
  if (records_.size() == 1 && followColumns()) changes |= kGraphsChanged | kChosenChanged;
  if (laysOver_) {
    layOverNow();
    changes |= kGraphsChanged;
  }
  if (all) {
    span_ = whole();
    changes |= kSpanChanged;
  }
  tell(changes);
}

bool ReviewScene::followColumns() {
  if (ownGraphs_) return false;
  std::vector<ReviewGraph> before = std::exchange(graphs_, graphsFor(records_.front(), 0));
  if (laysOver_) layOverNow();
  if (sameGraphs(before, graphs_)) {
    graphs_ = std::move(before);
    return false;
  }
  keepChosen();
  return true;
}

/// What the first rows have may mislead: a speed is 0 until the car moves, in a record that is being written
/// for as long as it takes.
void ReviewScene::updateRecord(std::size_t position, std::shared_ptr<const RecordTable> table) {
  LookedAtRecord& record = records_[position];
  const bool all = seesAll();
  record.table = std::move(table);
  least_ = leastSpan(records_);
  unsigned changes = kRecordsChanged;
  if (position == 0 && followColumns()) changes |= kGraphsChanged | kChosenChanged;
  const TimeSpan before = std::exchange(span_, all ? whole() : span_);
  if (!sameSpan(before, span_)) changes |= kSpanChanged;
  tell(changes);
}

void ReviewScene::removeRecord(std::size_t position) {
  eraseAt(records_, position);
  for (ReviewGraph& graph : graphs_) forgetRecord(graph, position);
  std::erase_if(graphs_, [](const ReviewGraph& graph) { return graph.curves.empty(); });
  least_ = leastSpan(records_);
  keepChosen();
  if (records_.empty()) {
    span_ = {};
    past_.clear();
    std::ranges::fill(cursors_, std::nullopt);
    ownGraphs_ = false;
  } else {
    countFromFirst();
    span_ = limited(span_);
  }
  tell(kRecordsChanged | kGraphsChanged | kSpanChanged | kChosenChanged | kCursorsChanged);
}

void ReviewScene::countFromFirst() {
  const double shift = records_.front().offset;
  if (shift == 0) return;
  for (LookedAtRecord& record : records_) record.offset -= shift;
  const auto move = [shift](TimeSpan& span) { span = {span.from - shift, span.till - shift}; };
  move(span_);
  std::ranges::for_each(past_, move);
  for (std::optional<double>& cursor : cursors_)
    if (cursor) *cursor -= shift;
}

void ReviewScene::setOffset(std::size_t position, double offset) {
  if (!std::isfinite(offset) || std::exchange(records_[position].offset, offset) == offset) return;
  span_ = limited(span_);
  tell(kRecordsChanged | kSpanChanged);
}

void ReviewScene::graphsChanged() {
  ownGraphs_ = true;
  const auto before = chosen_;
  keepChosen();
  tell(kGraphsChanged | (before == chosen_ ? 0U : kChosenChanged));
}

/// The nearest curve that there is.
void ReviewScene::keepChosen() {
  Chosen wanted = chosen_.value_or(Chosen{});
  chosen_.reset();
  if (graphs_.empty()) return;
  wanted.graph = std::min(wanted.graph, graphs_.size() - 1);
  const std::size_t curves = graphs_[wanted.graph].curves.size();
  if (curves != 0) chosen_ = {wanted.graph, std::min(wanted.curve, curves - 1)};
}

void ReviewScene::setGraphs(std::vector<ReviewGraph> graphs) {
  graphs_ = std::move(graphs);
  graphsChanged();
}

void ReviewScene::addGraph(ReviewGraph graph, std::optional<std::size_t> before) {
  const std::size_t at = std::min(before.value_or(graphs_.size()), graphs_.size());
  for (ReviewCurve& curve : graph.curves)
    if (curve.colour == 0) curve.colour = freeColour(graph, curve.place);
  graphs_.insert(graphs_.begin() + static_cast<std::ptrdiff_t>(at), std::move(graph));
  if (chosen_ && chosen_->graph >= at) ++chosen_->graph;
  graphsChanged();
}

void ReviewScene::removeGraph(std::size_t graph) {
  eraseAt(graphs_, graph);
  if (chosen_ && chosen_->graph > graph) --chosen_->graph;
  graphsChanged();
}

void ReviewScene::removeOtherGraphs(std::size_t graph) {
  chosen_ = Chosen{0, chosen_ && chosen_->graph == graph ? chosen_->curve : 0};
  setGraphs({graphs_[graph]});
}

void ReviewScene::resetGraphs() {
  graphs_ = graphsFor(records_.front(), 0);
  if (laysOver_) layOverNow();
  graphsChanged();
  ownGraphs_ = false;
}

/// That of the namesake, so that curves laid over each other belong together; else one that the graph lacks.
std::uint32_t ReviewScene::freeColour(const ReviewGraph& graph, const CurvePlace& place) const {
  for (const ReviewCurve& each : graph.curves)
    if (each.place.record != place.record && each.colour != 0 && !each.minus &&
        column(each.place).about.name == column(place).about.name)
      return each.colour;
  for (std::size_t i = 0;; ++i) {
    const std::uint32_t colour = reviewColour(i);
    if (i >= graph.curves.size() ||
        std::ranges::find(graph.curves, colour, &ReviewCurve::colour) == graph.curves.end())
      return colour;
  }
}

void ReviewScene::addCurve(std::size_t graph, const CurvePlace& place) {
  ReviewGraph& to = graphs_[graph];
  const ReviewCurve curve{place, {}, freeColour(to, place)};
  if (shows(to, curve)) return;
  to.curves.push_back(curve);
  graphsChanged();
}

void ReviewScene::removeCurve(std::size_t graph, std::size_t curve) {
  ReviewGraph& from = graphs_[graph];
  eraseAt(from.curves, curve);
  if (from.curves.empty()) return removeGraph(graph);
  if (from.axis > curve || from.axis == from.curves.size()) --from.axis;
  if (chosen_ && chosen_->graph == graph && chosen_->curve > curve) --chosen_->curve;
  graphsChanged();
}

void ReviewScene::setKind(std::size_t graph, GraphKind kind) {
  if (std::exchange(graphs_[graph].kind, kind) != kind) graphsChanged();
}

void ReviewScene::setOwnScales(std::size_t graph, bool own) {
  if (std::exchange(graphs_[graph].ownScales, own) != own) graphsChanged();
}

void ReviewScene::setAxis(std::size_t graph, std::size_t curve) {
  if (std::exchange(graphs_[graph].axis, curve) != curve) graphsChanged();
}

void ReviewScene::setX(std::size_t graph, std::optional<CurvePlace> x) {
  graphs_[graph].kind = x ? GraphKind::XY : GraphKind::Time;
  graphs_[graph].x = x;
  graphsChanged();
}

std::optional<CurvePlace> ReviewScene::namesake(const CurvePlace& place, std::size_t record) const {
  const RecordColumn& wanted = column(place).about;
  const auto& groups = records_[record].recordingTable().groups;
  std::optional<CurvePlace> found;
  for (std::size_t i = 0; i < groups.size(); ++i)
    for (std::size_t k = 0; k < groups[i].columns.size(); ++k) {
      const RecordColumn& about = groups[i].columns[k].about;
      if (about.name != wanted.name) continue;
      if (about.ecu == wanted.ecu && about.request == wanted.request) return CurvePlace{record, i, k};
      if (!found) found = CurvePlace{record, i, k};
    }
  return found;
}

void ReviewScene::layOver(bool on) {
  laysOver_ = on;
  if (on)
    layOverNow();
  else
    for (ReviewGraph& graph : graphs_) {
      const auto laid = [](const ReviewCurve& each) { return each.place.record != 0 && !each.minus; };
      if (!std::ranges::all_of(graph.curves, laid)) std::erase_if(graph.curves, laid);
      graph.axis = std::min(graph.axis, graph.curves.empty() ? 0 : graph.curves.size() - 1);
    }
  keepChosen();
  tell(kGraphsChanged | kChosenChanged);
}

void ReviewScene::layOverNow() {
  for (ReviewGraph& graph : graphs_) {
    const std::vector<ReviewCurve> before = graph.curves;
    for (std::size_t record = 1; record < records_.size(); ++record)
      for (const ReviewCurve& curve : before) {
        if (curve.place.record != 0 || curve.minus) continue;
        const auto place = namesake(curve.place, record);
        if (place && !shows(graph, {*place, {}, 0})) graph.curves.push_back({*place, {}, curve.colour});
      }
  }
}

TimeSpan ReviewScene::whole() const {
  std::optional<TimeSpan> all;
  for (const LookedAtRecord& record : records_) {
    if (record.recordingTable().rows() == 0) continue;
    const TimeSpan span = record.span();
    all = all ? TimeSpan{std::min(all->from, span.from), std::max(all->till, span.till)} : span;
  }
  if (!all) return {0, 1};
  if (all->length() > 0) return *all;
  return {all->from,
          all->from + std::max(1.0, std::abs(all->from) * 1e-9)};  // longer than what is rounded away
}

bool ReviewScene::seesAll() const { return sameSpan(span_, whole()); }

TimeSpan ReviewScene::limited(const TimeSpan& span) const {
  const TimeSpan all = whole();
  const double length = std::min(std::max(span.length(), least_), all.length());
  if (length == all.length()) return all;
  const double middle = (span.from + span.till - length) / 2;  // the same as `from`, unless it was too near
  const double from = std::clamp(middle, all.from, all.till - length);
  return {from, from + length};
}

void ReviewScene::show(TimeSpan span, bool goesOn) {
  if (!std::isfinite(span.from) || !std::isfinite(span.till) || records_.empty()) return;
  if (span.from > span.till) std::swap(span.from, span.till);
  span = limited(span);
  if (sameSpan(span, span_)) return;
  if (!goesOn) past_.push_back(span_);
  if (past_.size() > kMostPast) past_.erase(past_.begin());
  span_ = span;
  tell(kSpanChanged);
}

/// What stands at the anchor stays there, also where the zoom ends.
void ReviewScene::zoom(double factor, double anchor, bool goesOn) {
  const double length = std::clamp(span_.length() * factor, least_, std::max(whole().length(), least_));
  const double part = (anchor - span_.from) / span_.length();
  show({anchor - part * length, anchor + (1 - part) * length}, goesOn);
}

void ReviewScene::pan(double part, bool goesOn) {
  const double way = part * span_.length();
  show({span_.from + way, span_.till + way}, goesOn);
}

void ReviewScene::back() {
  if (past_.empty()) return;
  span_ = limited(past_.back());
  past_.pop_back();
  tell(kSpanChanged);
}

void ReviewScene::setCursor(ReviewCursor cursor, std::optional<double> time) {
  if (time && !std::isfinite(*time)) return;
  auto& kept = cursors_[static_cast<std::size_t>(cursor)];
  if (std::exchange(kept, time) != time) tell(kCursorsChanged);
}

TimeSpan ReviewScene::measured() const {
  const auto a = cursor(ReviewCursor::A);
  const auto b = cursor(ReviewCursor::B);
  if (!a || !b) return span_;
  return {std::min(*a, *b), std::max(*a, *b)};
}

void ReviewScene::choose(std::optional<Chosen> curve) {
  if (curve && (curve->graph >= graphs_.size() || curve->curve >= graphs_[curve->graph].curves.size()))
    return;
  if (std::exchange(chosen_, curve) != curve) tell(kChosenChanged);
}

const TableGroup& ReviewScene::group(const CurvePlace& place) const {
  return records_[place.record].recordingTable().groups[place.group];
}

bool ReviewScene::has(const CurvePlace& place) const {
  if (place.record >= records_.size()) return false;
  const std::vector<TableGroup>& groups = records_[place.record].recordingTable().groups;
  return place.group < groups.size() && place.column < groups[place.group].columns.size();
}

const TableColumn& ReviewScene::column(const CurvePlace& place) const {
  return group(place).columns[place.column];
}

std::optional<std::int64_t> ReviewScene::rowUpTo(const CurvePlace& place, double time) const {
  return group(place).rowAt(time - offset(place) + roundingOf(time, offset(place)));
}

std::optional<std::int64_t> ReviewScene::rowAt(const CurvePlace& place, double time) const {
  return rowFrom(place, time) == group(place).rows() ? std::nullopt : rowUpTo(place, time);
}

std::int64_t ReviewScene::rowFrom(const CurvePlace& place, double time) const {
  return group(place).firstFrom(time - offset(place) - roundingOf(time, offset(place)));
}

}  // namespace tarnlog
