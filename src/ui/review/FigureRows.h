#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "ui/review/CurveColumns.h"
#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// What is measured on each curve between the cursors, or on what is seen where they are not set. What may
/// have to look at every row, medians and times above the level, is found in pieces.
class FigureRows {
 public:
  static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

  /// A value at a cursor: a number, or a label.
  struct Value {
    double number = kNone;
    std::string label;
  };

  struct Row {
    ReviewCurve curve;
    Value atA;
    Value atB;
    double slope = kNone;   ///< from A to B, in units a second
    RecordFigures figures;  ///< its times are the scene's
    double median = kNone;
    bool medianFound = false;
    double above = kNone;  ///< seconds above the level
    bool aboveFound = false;
    double range = 0;  ///< of its numbers, which tells how many digits matter
  };

  FigureRows(const ReviewScene& scene, CurveColumns& columns) : scene_(scene), columns_(columns) {}

  /// Counts from the next `refresh` on.
  void setLevel(std::optional<double> level) { level_ = level; }
  const std::optional<double>& level() const { return level_; }
  /// After anything in the scene changed. What is found in pieces begins anew.
  void refresh();
  /// Whether all data of its rows are still there.
  bool fits() const;
  /// Goes on with a piece; false once all is found.
  bool step(std::int64_t rows);

  const std::vector<Row>& rows() const { return rows_; }
  std::optional<double> timeA() const { return scene_.cursor(ReviewCursor::A); }
  std::optional<double> timeB() const { return scene_.cursor(ReviewCursor::B); }
  /// From A to B; none where one is missing.
  std::optional<double> difference() const;

 private:
  void addCurves();
  std::ptrdiff_t placeFor(const ReviewCurve& curve) const;
  void measure(Row& row);
  void measureAbove(Row& row);
  Value valueAt(const ReviewCurve& curve, std::optional<double> time);
  TimeSpan spanOf(const ReviewCurve& curve) const;

  const ReviewScene& scene_;
  CurveColumns& columns_;
  std::optional<double> level_;
  std::vector<Row> rows_;
  std::optional<MedianSearch> search_;
  std::size_t searched_ = 0;  ///< row whose median is looked for
};

}  // namespace tarnlog
