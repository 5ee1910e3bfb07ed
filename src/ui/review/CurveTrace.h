#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "ui/review/SeenRows.h"

/// What of a curve is drawn: as many points as its pixels can show, lowest and highest values kept.
namespace tarnlog {

struct CurveTrace {
  struct Point {
    double x = 0;  ///< pixel columns from the left edge; values of the X datum in an X-Y graph
    double y = 0;  ///< NaN: the line is broken here
  };
  std::vector<Point> points;
  std::vector<double> times;  ///< of the points of an X-Y graph
  /// Of what is seen; lowest > highest where nothing is.
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -std::numeric_limits<double>::infinity();

  void clear();
  void add(const Point& point);
  void lift();
  void see(double low, double high);
  /// Lines that reach out of these columns end at them.
  void cutEnds(double from, double till);
  /// Before the first point, and at a break.
  bool isLifted() const;
};

/// Over time. Lines reach to the rows beside what is seen.
void traceOverTime(const ReviewScene& scene, const ReviewCurve& curve, SeenRecords& seen, CurveTrace& trace);
/// Of what is seen, over the values of another datum at the same times.
void traceOverValues(const ReviewScene& scene, const ReviewCurve& curve, const CurvePlace& x,
                     SeenRecords& seen, CurveTrace& trace);

/// A stretch in which a datum keeps its state.
struct StateBand {
  enum class Kind : std::uint8_t {
    Off,
    On,
    Labelled,
    Changing,  ///< more often than the pixels can show
  };
  int from = 0;  ///< pixel columns
  int till = 0;
  Kind kind = Kind::Off;
  std::string label;  ///< of an enumeration; its number where it has none
};
std::vector<StateBand> statesOverTime(const ReviewScene& scene, const CurvePlace& place, SeenRecords& seen);

}  // namespace tarnlog
