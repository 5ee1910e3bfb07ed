#include "ui/review/ReviewFlags.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/controls/Readable.h"
#include "ui/common/Convert.h"

namespace tarnlog {
namespace {

const QColor kStart(0x00, 0xA0, 0x00);  // as in the live graphs
const QColor kStop(0xD0, 0x00, 0x00);
const QColor kEvent(0x00, 0x60, 0xC0);
const QColor kTrouble(0xB0, 0x60, 0x00);

struct Words {
  Q_DECLARE_TR_FUNCTIONS(ReviewFlags)
};

class FlagPainter {
 public:
  FlagPainter(QPainter& painter, const TimeSpan& span, const QRect& area, const ReviewLook& look)
      : painter_(painter), span_(span), area_(area), look_(look), metrics_(look.font) {}

  void shade(const TimeSpan& gap) {
    const double from = std::max(xOf(gap.from), static_cast<double>(area_.left()));
    const double till = std::min(xOf(gap.till), static_cast<double>(area_.right() + 1));
    if (from < till)
      painter_.fillRect(QRectF(from, area_.top(), std::max(till - from, 1.0), area_.height()), shadeColour());
  }
  void line(double time, const QColor& colour, std::size_t record) {
    const double at = columnOf(time);
    if (isInside(at)) painter_.fillRect(QRectF(at, area_.top(), 1, area_.height()), ground(colour, record));
  }
  /// Those of later records stand one line lower, so that they can be told apart.
  void text(double time, const ReviewFlag& flag, std::size_t record) {
    const double at = columnOf(time);
    const int wide = metrics_.horizontalAdvance(flag.text) + 4;
    const double left = std::min(at, static_cast<double>(area_.right() + 1 - wide));
    const QRectF place(left, area_.top() + static_cast<int>(record) * metrics_.height(), wide,
                       metrics_.height());
    if (!isInside(at) || left < free_[record] || place.bottom() > area_.bottom()) return;
    free_[record] = left + wide + 2;
    const QColor paper = ground(flag.colour, record);
    painter_.fillRect(place, paper);
    const QColor ink = look_.palette.color(QPalette::Text);
    painter_.setPen(contrastOf(ink, paper) > contrastOf(look_.base(), paper) ? ink : look_.base());
    painter_.drawText(place, Qt::AlignCenter, flag.text);
  }

 private:
  double xOf(double time) const {
    return area_.left() + (time - span_.from) / span_.length() * area_.width();
  }
  /// What is seen ends in the last one.
  double columnOf(double time) const {
    const double x = std::floor(xOf(time));
    return time <= span_.till ? std::min(x, static_cast<double>(area_.right())) : x;
  }
  bool isInside(double x) const { return x >= area_.left() && x <= area_.right(); }
  QColor ground(const QColor& colour, std::size_t record) const {
    return blend(look_.base(), readable(colour, look_.base(), kCurveContrastOnDark),
                 record == 0 ? 1.0F : 0.6F);
  }
  QColor shadeColour() const {
    QColor shade = look_.ink(0.5F);
    shade.setAlphaF(0.2F);
    return shade;
  }

  QPainter& painter_;
  TimeSpan span_;
  QRect area_;
  const ReviewLook& look_;
  QFontMetrics metrics_;
  double free_[ReviewScene::kMostRecords] = {-1e9, -1e9, -1e9};  ///< behind the last text
};

struct SeenMark {
  const TableMark* mark;
  double time;
  double till;
  std::size_t record;
};

/// Of those of a kind that follow one another in a pixel column, the first one: more cannot be told apart.
std::vector<SeenMark> seenMarks(const ReviewScene& scene, const TimeSpan& span, int columns) {
  std::vector<SeenMark> seen;
  const auto columnOf = [&](double time) { return std::floor((time - span.from) / span.length() * columns); };
  for (std::size_t record = 0; record < scene.records().size(); ++record) {
    const LookedAtRecord& each = scene.records()[record];
    for (const TableMark& mark : each.recordingTable().marks) {
      const double time = mark.time + each.offset;
      const double till = mark.kind == RecordNote::Kind::Gap ? mark.till + each.offset : time;
      if (time > span.till || till < span.from) continue;
      const bool hidden = !seen.empty() && seen.back().record == record &&
                          seen.back().mark->kind == mark.kind && columnOf(seen.back().time) == columnOf(till);
      if (!hidden) seen.push_back({&mark, time, till, record});
    }
  }
  return seen;
}

}  // namespace

ReviewFlag flagOf(const TableMark& mark) {
  switch (mark.kind) {
    case RecordNote::Kind::Start:
      return {Words::tr("Start"), kStart};
    case RecordNote::Kind::Stop:
      return {Words::tr("Stop"), kStop};
    case RecordNote::Kind::Event:
      return {mark.number > 0 ? Words::tr("Event %1").arg(mark.number) : Words::tr("Event"), kEvent};
    case RecordNote::Kind::Gap:
      return {Words::tr("Gap"), kTrouble};
    case RecordNote::Kind::Failure:
      return {Words::tr("Failure"), kTrouble};
    case RecordNote::Kind::ClockStep:
      return {Words::tr("Clock step"), kTrouble};
  }
  return {};
}

void paintFlags(QPainter& painter, const ReviewScene& scene, const TimeSpan& span, const QRect& area,
                const ReviewLook& look, int texts) {
  FlagPainter flags(painter, span, area, look);
  painter.setFont(look.font);
  const std::vector<SeenMark> marks = seenMarks(scene, span, area.width());
  for (const auto& [mark, time, till, record] : marks) {
    if (mark->kind == RecordNote::Kind::Gap)
      flags.shade({time, till});
    else
      flags.line(time, flagOf(*mark).colour, record);
  }
  for (const auto& [mark, time, till, record] : marks)
    if (mark->kind != RecordNote::Kind::Gap && static_cast<int>(record) < texts)
      flags.text(time, flagOf(*mark), record);
}

QString flagsNear(const ReviewScene& scene, double time, double reach, const QLocale& locale) {
  QStringList found;
  if (scene.records().empty()) return {};
  const LookedAtRecord& record = scene.records().front();
  for (const TableMark& mark : record.recordingTable().marks) {
    const double from = mark.time + record.offset;
    const bool gap = mark.kind == RecordNote::Kind::Gap;
    if (time < from - reach || time > (gap ? mark.till + record.offset : from) + reach) continue;
    QString line = QStringLiteral("%1: %2").arg(flagOf(mark).text, momentText(scene, from, locale));
    if (!mark.text.empty()) line += QLatin1Char('\n') + toQString(mark.text);
    found.append(line);
    if (found.size() == 5) break;
  }
  return found.join(QLatin1Char('\n'));
}

}  // namespace tarnlog
