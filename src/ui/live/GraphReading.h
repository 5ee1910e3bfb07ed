#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

#include "ui/live/GraphBlock.h"

namespace tarnlog {

/// What graphs say about one of their points, or about what lies between two.
struct GraphReading {
  struct Row {
    QColor colour;  ///< of the curve; invalid for the X datum of an X-Y graph
    QString name;
    QStringList values;  ///< one a column
  };
  QString when;         ///< and the flags that stand there
  QStringList columns;  ///< titles; none where there is one column
  std::vector<Row> rows;

  /// As lines "name: value", for who listens.
  QString text() const;
};

/// A point of a graph, and of the others those that came with it.
GraphReading readPoint(const GraphBlock& block, std::int64_t point,
                       const std::vector<GraphBlock*>& others = {});
/// At the cursors A and B, and what lies between them; -1: not set. For all time charts.
GraphReading readCursors(const std::vector<GraphBlock*>& blocks, std::int64_t a, std::int64_t b);
/// All points shown as a table for a spreadsheet: a line with the names of the curves, then one line a point;
/// tabs between cells. The first column is the time in seconds, the point's number where times are not
/// known, or the X datum.
QString pointsTable(const GraphBlock& block);

}  // namespace tarnlog
