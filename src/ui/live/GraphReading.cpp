#include "ui/live/GraphReading.h"

#include <QCoreApplication>
#include <QTime>
#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

#include "platform/text/Cell.h"
#include "ui/live/ValueText.h"

namespace tarnlog {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

struct Words {
  Q_DECLARE_TR_FUNCTIONS(GraphReading)
};

/// How much later `later` came, in milliseconds; none where that is not known.
std::optional<double> passed(const GraphBlock& block, std::int64_t point, std::int64_t later) {
  const TimeLine& times = block.shown().times();
  if (!block.knowsMoments() || !times.knows(point) || !times.knows(later)) return std::nullopt;
  return times.momentOf(later) - times.momentOf(point);
}

/// The clock tells whole seconds: with half a second more, the time is right on the average.
QString timeOfDay(const GraphBlock& block, double past) {
  constexpr int kHalf = 500;
  const LocalDateTime now = block.clock()->now();
  const int since = static_cast<int>(std::min(past + block.sinceNewest(), 1e9));
  return QTime(now.hour, now.minute, now.second).addMSecs(kHalf - since).toString(QStringLiteral("HH:mm:ss"));
}

/// In a picture that stands still, and in an outage, "ago" would be untrue a moment later.
QString whenOf(const GraphBlock& block, std::int64_t point) {
  const CWGraph& graph = block.shown();
  const std::int64_t newest = graph.endPoint() - 1;
  const std::int64_t back = newest - point;
  const auto past = passed(block, point, newest);
  if (!past)
    return back == 1 ? Words::tr("1 point before the newest")
                     : Words::tr("%1 points before the newest").arg(back);
  const QString when =
      Words::tr("%1 s before the newest").arg(graph.locale().toString(*past / 1000.0, 'f', 2));
  return block.knowsTimeOfDay() ? when + QStringLiteral(" (%1)").arg(timeOfDay(block, *past)) : when;
}

/// The flags that stand here, as near as pixels can tell them apart.
QString flagsAt(const CWGraph& graph, std::int64_t point) {
  const double pixel = graph.view().count / std::max(graph.plotArea().width(), 1);
  QString flags;
  for (const GraphMark& mark : graph.marks())
    if (static_cast<double>(std::abs(mark.point - point)) <= pixel) flags += QStringLiteral(", ") + mark.text;
  return flags;
}

QString cell(const std::string& text) { return toQString(cleanCell(text)); }

QString firstHeader(const GraphBlock& block) {
  if (block.shown().isXY()) return cell(block.xDescription().name);
  return block.knowsMoments() ? Words::tr("Time (s)") : Words::tr("Point");
}

QString firstCell(const GraphBlock& block, std::int64_t point) {
  const CWGraph& graph = block.shown();
  if (graph.isXY()) return cellText(graph.xValueOf(1, point), graph.locale());
  if (!block.knowsMoments()) return QString::number(point - graph.firstPoint());
  const auto past = passed(block, graph.firstPoint(), point);
  return past ? cellText(*past / 1000.0, graph.locale()) : QString();
}

void addRows(GraphReading& reading, const GraphBlock& block, std::int64_t point) {
  const CWGraph& graph = block.shown();
  for (int plot = 1; plot <= graph.plotCount(); ++plot) {
    const ValueDescription& about = block.description(plot);
    reading.rows.push_back({graph.plotColour(plot),
                            toQString(about.name),
                            {valueText(graph.valueOf(plot, point), about, graph.locale())}});
  }
}

/// A number of a curve without its unit; a dash where labels stand for numbers, or there is none.
QString bareNumber(double value, const ValueDescription& about, const QLocale& locale) {
  ValueDescription bare{about.name, {}, {}, about.decimals};
  return about.labels.empty() ? valueText(value, bare, locale) : valueText(kNoNumber, bare, locale);
}

/// A mean has no digits of its own: those of the datum, or a few.
QString meanText(const Summary& within, const ValueDescription& about, const QLocale& locale) {
  constexpr int kDigits = 6;
  if (about.decimals || !within.any() || !about.labels.empty())
    return bareNumber(within.any() ? within.mean() : kNoNumber, about, locale);
  return locale.toString(within.mean(), 'g', kDigits);
}

GraphReading::Row between(const GraphBlock& block, int plot, std::int64_t a, std::int64_t b) {
  const CWGraph& graph = block.shown();
  const ValueDescription& about = block.description(plot);
  const ValueDescription bare{about.name, {}, about.labels, about.decimals};
  const double atA = graph.valueOf(plot, a);
  const double atB = graph.valueOf(plot, b);
  const Summary within = graph.summaryOf(plot, std::min(a, b), std::max(a, b) + 1);
  const auto number = [&](double value) { return bareNumber(value, about, graph.locale()); };
  return {graph.plotColour(plot),
          toQString(about.name),
          {valueText(atA, bare, graph.locale()), valueText(atB, bare, graph.locale()), number(atB - atA),
           number(within.any() ? within.lowest : kNoNumber),
           number(within.any() ? within.highest : kNoNumber), meanText(within, about, graph.locale())}};
}

}  // namespace

QString GraphReading::text() const {
  QString text = when;
  for (const Row& row : rows)
    text += QLatin1Char('\n') + row.name + QStringLiteral(": ") + row.values.join(QStringLiteral(", "));
  return text;
}

GraphReading readPoint(const GraphBlock& block, std::int64_t point, const std::vector<GraphBlock*>& others) {
  const CWGraph& graph = block.shown();
  GraphReading reading{whenOf(block, point) + flagsAt(graph, point), {}, {}};
  if (graph.isXY())
    reading.rows.push_back({QColor(),
                            toQString(block.xDescription().name),
                            {valueText(graph.xValueOf(1, point), block.xDescription(), graph.locale())}});
  addRows(reading, block, point);
  for (const GraphBlock* const other : others)
    if (other != &block) addRows(reading, *other, point);
  return reading;
}

GraphReading readCursors(const std::vector<GraphBlock*>& blocks, std::int64_t a, std::int64_t b) {
  GraphReading reading;
  if (a < 0 || b < 0) {
    for (const GraphBlock* const block : blocks) {
      if (block->shown().isXY()) continue;
      if (reading.when.isEmpty())
        reading.when =
            (a >= 0 ? QStringLiteral("A: ") : QStringLiteral("B: ")) + whenOf(*block, std::max(a, b));
      addRows(reading, *block, std::max(a, b));
    }
    return reading;
  }
  reading.columns = {QStringLiteral("A"),  QStringLiteral("B"),  QStringLiteral("B - A"),
                     Words::tr("Minimum"), Words::tr("Maximum"), Words::tr("Mean")};
  for (const GraphBlock* const block : blocks) {
    const CWGraph& graph = block->shown();
    if (graph.isXY()) continue;
    if (reading.when.isEmpty()) {
      const auto time = passed(*block, std::min(a, b), std::max(a, b));
      reading.when = time ? Words::tr("A to B: %1 s").arg(graph.locale().toString(*time / 1000.0, 'f', 2))
                          : Words::tr("A to B: %1 points").arg(std::abs(b - a));
    }
    for (int plot = 1; plot <= graph.plotCount(); ++plot) reading.rows.push_back(between(*block, plot, a, b));
  }
  return reading;
}

QString pointsTable(const GraphBlock& block) {
  const CWGraph& graph = block.shown();
  QString table = firstHeader(block);
  for (int plot = 1; plot <= graph.plotCount(); ++plot)
    table += QLatin1Char('\t') + cell(block.description(plot).name);
  table += QLatin1Char('\n');
  for (std::int64_t point = graph.firstPoint(); point < graph.endShown(); ++point) {
    table += firstCell(block, point);
    for (int plot = 1; plot <= graph.plotCount(); ++plot)
      table += QLatin1Char('\t') + cellText(graph.valueOf(plot, point), graph.locale());
    table += QLatin1Char('\n');
  }
  return table;
}

}  // namespace tarnlog
