#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "records/RecordFigures.h"
#include "records/RecordTable.h"

/// What is looked at, without pixels: records laid over each other, graphs and their curves, the stretch of
/// time that is seen, readout and cursors. Times are seconds of the first record; those of another one are
/// its own times and the offset that lays it over.
namespace tarnlog {

/// A recording that is looked at.
struct LookedAtRecord {
  std::string name;  ///< the file's, with the recording's number where the file has several
  std::shared_ptr<const RecordTable> table;
  std::size_t recording = 0;
  double offset = 0;  ///< seconds that are added to its times

  const TableRecording& recordingTable() const { return table->recordings[recording]; }
  TimeSpan span() const;
};

/// A data item of one of the records.
struct CurvePlace {
  std::size_t record = 0;  ///< position among those looked at
  std::size_t group = 0;
  std::size_t column = 0;
  bool operator==(const CurvePlace&) const = default;
};

struct ReviewCurve {
  CurvePlace place;
  std::optional<CurvePlace>
      minus;                 ///< the curve is the difference: `place` less this one's value at its times
  std::uint32_t colour = 0;  ///< 0x00RRGGBB
};

/// How a graph shows its curves.
enum class GraphKind : std::uint8_t {
  Time,    ///< lines over time
  XY,      ///< over another data item's values
  States,  ///< a bar for each data item: filled while it is on; with a label in each band for enumerations
};

struct ReviewGraph {
  std::string title;
  GraphKind kind = GraphKind::Time;
  std::vector<ReviewCurve> curves;
  std::optional<CurvePlace> x;  ///< of an X-Y graph
  bool ownScales = false;       ///< each curve uses the whole height
  std::size_t axis = 0;         ///< with own scales: the curve whose numbers the axis shows
};

enum class ReviewCursor : std::uint8_t { Readout, A, B };

/// What changed; several at once are told in one call.
enum ReviewChange : unsigned {
  kRecordsChanged = 1,  ///< another record, more rows, another offset
  kGraphsChanged = 2,   ///< graphs, curves, scales
  kSpanChanged = 4,
  kCursorsChanged = 8,
  kChosenChanged = 16,
  kChosenWanted = 32  ///< in sight: nothing is another one
};

class ReviewScene {
 public:
  static constexpr std::size_t kMostRecords = 3;

  using Listener = std::function<void(unsigned changes)>;
  /// Listeners outlive the scene or are taken away before.
  void addListener(Listener listener) { listeners_.push_back(std::move(listener)); }

  // Records. The first one gives the times.
  const std::vector<LookedAtRecord>& records() const { return records_; }
  /// With the graphs that suit it (`graphsFor`) and all of it seen, when it is the first.
  void addRecord(LookedAtRecord record);
  /// More of a record is there. The span grows with it while all of it was seen.
  void updateRecord(std::size_t position, std::shared_ptr<const RecordTable> table);
  /// Its curves go with it. The times become those of the record that is the first then.
  void removeRecord(std::size_t position);
  void setOffset(std::size_t position, double offset);

  // Graphs.
  const std::vector<ReviewGraph>& graphs() const { return graphs_; }
  void setGraphs(std::vector<ReviewGraph> graphs);
  /// At the end, or before `before`.
  void addGraph(ReviewGraph graph, std::optional<std::size_t> before = std::nullopt);
  void removeGraph(std::size_t graph);
  void removeOtherGraphs(std::size_t graph);
  /// The user or a host has made other graphs than those that suit the record.
  bool canResetGraphs() const { return ownGraphs_ && !records_.empty(); }
  void resetGraphs();
  /// Not twice; a free colour is chosen.
  void addCurve(std::size_t graph, const CurvePlace& place);
  void removeCurve(std::size_t graph, std::size_t curve);
  /// Time or States.
  void setKind(std::size_t graph, GraphKind kind);
  void setOwnScales(std::size_t graph, bool own);
  void setAxis(std::size_t graph, std::size_t curve);
  /// Over the values of this data item; none makes it a graph over time again.
  void setX(std::size_t graph, std::optional<CurvePlace> x);
  /// Shows in every graph, besides the curves of the first record, those of the others that are called the
  /// same.
  void layOver(bool on);
  bool laysOver() const { return laysOver_; }
  /// What this record calls the same; of the same ECU and request before all others.
  std::optional<CurvePlace> namesake(const CurvePlace& place, std::size_t record) const;

  // The stretch of time that is seen.
  const TimeSpan& span() const { return span_; }
  /// Of all records.
  TimeSpan whole() const;
  /// Limited to what there is, and to some rows at least. Remembered for `back` unless it goes on moving
  /// (`goesOn`: a drag, a wheel).
  void show(TimeSpan span, bool goesOn = false);
  void zoom(double factor, double anchor, bool goesOn = false);  ///< below 1: nearer
  void pan(double part, bool goesOn = false);                    ///< of what is seen
  void fit() { show(whole()); }
  bool canGoBack() const { return !past_.empty(); }
  void back();

  // Readout and cursors.
  std::optional<double> cursor(ReviewCursor cursor) const {
    return cursors_[static_cast<std::size_t>(cursor)];
  }
  void setCursor(ReviewCursor cursor, std::optional<double> time);
  /// From A to B in their order; the span that is seen where one is missing.
  TimeSpan measured() const;

  /// The curve that is searched, exported, shown in the axis; of graph and position.
  struct Chosen {
    std::size_t graph = 0;
    std::size_t curve = 0;
    bool operator==(const Chosen&) const = default;
  };
  const std::optional<Chosen>& chosen() const { return chosen_; }
  void choose(std::optional<Chosen> curve);
  /// Its graph comes into sight, where graphs scroll.
  void bringChosen() { tell(kChosenWanted); }

  bool has(const CurvePlace& place) const;
  /// Of data that there are, as the next.
  const TableColumn& column(const CurvePlace& place) const;
  const TableGroup& group(const CurvePlace& place) const;
  double offset(const CurvePlace& place) const { return records_[place.record].offset; }
  /// The newest row up to this time; none before the first one.
  std::optional<std::int64_t> rowUpTo(const CurvePlace& place, double time) const;
  /// The same, and none behind the last row, either: nobody knows what came then.
  std::optional<std::int64_t> rowAt(const CurvePlace& place, double time) const;
  /// The first row from this time on; the number of rows when there is none.
  std::int64_t rowFrom(const CurvePlace& place, double time) const;

 private:
  void tell(unsigned changes);
  bool seesAll() const;
  TimeSpan limited(const TimeSpan& span) const;
  /// The graphs that suit the first record, unless the user has changed them; whether they are others.
  bool followColumns();
  void layOverNow();
  void countFromFirst();
  void keepChosen();
  void graphsChanged();
  std::uint32_t freeColour(const ReviewGraph& graph, const CurvePlace& place) const;

  std::vector<Listener> listeners_;
  std::vector<LookedAtRecord> records_;
  std::vector<ReviewGraph> graphs_;
  TimeSpan span_;
  std::vector<TimeSpan> past_;
  std::optional<double> cursors_[3];
  std::optional<Chosen> chosen_;
  bool ownGraphs_ = false;  ///< the user has changed them
  bool laysOver_ = false;
  double least_ = 0;  ///< seconds that are seen at least
};

/// What a row's time may be wrong by that became a time of the scene: less by the offset, it is not quite the
/// row's own.
inline double roundingOf(double time, double offset) {
  return 4 * std::numeric_limits<double>::epsilon() * (std::abs(time) + std::abs(offset));
}

/// Colours that differ, are readable on white and on dark grounds, and come in this order.
std::uint32_t reviewColour(std::size_t position);

/// The graphs of the configuration that the record carries; without one, a graph for each unit, on/off data
/// and enumerations in a graph of their own, at most so many graphs and curves that they can be read.
std::vector<ReviewGraph> graphsFor(const LookedAtRecord& record, std::size_t position);

}  // namespace tarnlog
