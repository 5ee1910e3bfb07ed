#include "ui/live/GraphReading.h"

#include <QCoreApplication>
#include <QTime>

#include "platform/text/Cell.h"
#include "ui/live/ValueText.h"

namespace tarnlog {
namespace {

QString words(const char* text) { return QCoreApplication::translate("GraphReading", text); }

std::int32_t age(const GraphBlock& block, std::int64_t point, Milliseconds now) {
  return millisecondsBetween(static_cast<Milliseconds>(block.shown().momentOf(point)), now);
}

/// The clock tells whole seconds: with half a second more, the time is right on the average.
QString timeOfDay(const GraphBlock& block, std::int64_t point) {
  constexpr int kHalf = 500;
  const LocalDateTime now = block.clock()->now();
  const std::int32_t past = age(block, point, block.clock()->milliseconds());
  return QTime(now.hour, now.minute, now.second).addMSecs(kHalf - past).toString(QStringLiteral("HH:mm:ss"));
}

QString whenOf(const GraphBlock& block, std::int64_t point) {
  const CWGraph& graph = block.shown();
  const std::int64_t newest = graph.endPoint() - 1;
  const std::int64_t back = newest - point;
  if (!block.knowsMoments()) return back == 1 ? words("1 point ago") : words("%1 points ago").arg(back);
  const auto last = static_cast<Milliseconds>(graph.momentOf(newest));
  const QString seconds = graph.locale().toString(age(block, point, last) / 1000.0, 'f', 2);
  return words("%1 s ago (%2)").arg(seconds, timeOfDay(block, point));
}

QString cell(const std::string& text) { return toQString(cleanCell(text)); }

QString firstHeader(const GraphBlock& block) {
  if (block.shown().isXY()) return cell(block.xDescription().name);
  return block.knowsMoments() ? words("Time (s)") : words("Point");
}

QString firstCell(const GraphBlock& block, std::int64_t point) {
  const CWGraph& graph = block.shown();
  if (graph.isXY()) return cellText(graph.xValueOf(1, point), graph.locale());
  if (!block.knowsMoments()) return QString::number(point - graph.firstPoint());
  const auto start = static_cast<Milliseconds>(graph.momentOf(graph.firstPoint()));
  return cellText(-age(block, point, start) / 1000.0, graph.locale());
}

}  // namespace

QString GraphReading::text() const {
  QString text = when;
  for (const Row& row : rows) text += QLatin1Char('\n') + row.name + QStringLiteral(": ") + row.value;
  return text;
}

GraphReading readPoint(const GraphBlock& block, std::int64_t point) {
  const CWGraph& graph = block.shown();
  GraphReading reading{whenOf(block, point), {}};
  if (graph.isXY())
    reading.rows.push_back({QColor(), toQString(block.xDescription().name),
                            valueText(graph.xValueOf(1, point), block.xDescription(), graph.locale())});
  for (int plot = 1; plot <= graph.plotCount(); ++plot) {
    const ValueDescription& about = block.description(plot);
    reading.rows.push_back({graph.plotColour(plot), toQString(about.name),
                            valueText(graph.valueOf(plot, point), about, graph.locale())});
  }
  return reading;
}

QString pointsTable(const GraphBlock& block) {
  const CWGraph& graph = block.shown();
  QString table = firstHeader(block);
  for (int plot = 1; plot <= graph.plotCount(); ++plot)
    table += QLatin1Char('\t') + cell(block.description(plot).name);
  table += QLatin1Char('\n');
  for (std::int64_t point = graph.firstPoint(); point < graph.endPoint(); ++point) {
    table += firstCell(block, point);
    for (int plot = 1; plot <= graph.plotCount(); ++plot)
      table += QLatin1Char('\t') + cellText(graph.valueOf(plot, point), graph.locale());
    table += QLatin1Char('\n');
  }
  return table;
}

}  // namespace tarnlog
