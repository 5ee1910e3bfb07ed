#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "records/RecordTable.h"

namespace tarnlog {

/// A data item in a graph.
struct GraphedColumn {
  ColumnPlace place;
  std::uint32_t colour = 0;  ///< 0x00RRGGBB
};

/// How the configuration that a record was made with shows its data: a graph with its curves, or a bar, or
/// digits, of one data item.
struct RecordGraph {
  enum class Kind : std::uint8_t { Time, XY, Bar, Digits };
  Kind kind = Kind::Time;
  std::string title;                   ///< never empty
  std::vector<GraphedColumn> columns;  ///< one at least
  std::optional<ColumnPlace> x;        ///< of an X-Y graph
};

/// In the order of the configuration. Empty where the recording carries none, as in a text record.
std::vector<RecordGraph> configuredGraphs(const RecordTable& table, std::size_t recording);

}  // namespace tarnlog
