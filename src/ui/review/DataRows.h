#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/RowFilter.h"
#include "ui/review/ReviewScene.h"

namespace tarnlog {

/// The data of the records that are looked at, as a list with a filter, and what choosing one does.
class DataRows {
 public:
  enum class Kind : std::uint8_t { Number, OnOff, Labels };

  struct Row {
    CurvePlace place;
    std::string name;
    std::string where;  ///< "ECU / request", and the record's number where there are several
    std::string unit;
    Kind kind = Kind::Number;
  };

  explicit DataRows(ReviewScene& scene) : scene_(scene) {}

  /// After records changed; true when there are other rows now.
  bool refresh();
  void setFilter(std::string_view text);
  bool filtering() const { return !filter_.empty(); }

  /// Those that the filter lets through.
  const std::vector<Row>& rows() const { return visible_; }
  std::size_t all() const { return all_.size(); }

  /// A graph shows it.
  bool shown(const CurvePlace& place) const;
  /// Takes it into the chosen graph where that has its unit, else into a graph of its unit, else into a new
  /// one; where it is shown already, chooses it.
  void add(const CurvePlace& place);
  /// Into the chosen graph whatever its unit.
  void addToChosen(const CurvePlace& place);
  /// Out of all graphs. A graph that is empty then goes, too.
  void remove(const CurvePlace& place);

 private:
  std::optional<std::size_t> graphFor(const CurvePlace& place) const;
  bool suits(const ReviewGraph& graph, const TableColumn& column) const;
  void addTo(std::size_t graph, const CurvePlace& place);
  void choose(const ReviewScene::Chosen& curve);
  void addRecord(std::size_t position);
  void filter();

  ReviewScene& scene_;
  RowFilter filter_;
  std::vector<Row> all_;
  std::vector<Row> visible_;
};

}  // namespace tarnlog
