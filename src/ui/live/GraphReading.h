#pragma once

#include <QColor>
#include <QString>
#include <cstdint>
#include <vector>

#include "ui/live/GraphBlock.h"

namespace tarnlog {

/// What a graph says about one of its points.
struct GraphReading {
  struct Row {
    QColor colour;  ///< of the curve; invalid for the X datum of an X-Y graph
    QString name;
    QString value;
  };
  QString when;
  std::vector<Row> rows;

  /// As lines "name: value", for who listens.
  QString text() const;
};

GraphReading readPoint(const GraphBlock& block, std::int64_t point);
/// All points shown as a table for a spreadsheet: a line with the names of the curves, then one line a point;
/// tabs between cells. The first column is the time in seconds, the point's number where times are not
/// known, or the X datum.
QString pointsTable(const GraphBlock& block);

}  // namespace tarnlog
