#include "platform/controls/GraphFrame.h"

#include <QPainter>
#include <algorithm>

#include "platform/controls/AxisTexts.h"
#include "platform/plotting/PixelScale.h"

namespace tarnlog {
namespace {

constexpr int kGap = 4;  ///< pixels between numbers and border
constexpr int kMostMarks = 11;

/// All numbers along Y have the same room in every graph: the area must not move while an axis grows, and
/// graphs above one another stay aligned.
int numberRoom(const QFontMetrics& metrics) {
  return numberWidth(QStringLiteral("-00000.0"), metrics) + kGap;
}

/// As many marks as have their numbers one above the other. One number alone gives no scale: where two have
/// room, the marks stand closer until the first and the last are far enough apart for theirs.
AxisTicks ticksUp(const GraphAxis& axis, int length, int line) {
  int atMost = std::clamp((length - line) * 5 / (line * 6) + 1, 1, kMostMarks);
  AxisTicks ticks = axis.ticks(atMost);
  const auto apart = [&] { return (ticks.count - 1) * ticks.step / axis.range().span() * length; };
  while (length >= 2 * line && apart() < 1.5 * line && atMost < kMostMarks) ticks = axis.ticks(++atMost);
  return ticks;
}

}  // namespace

void GraphFrame::layOut(const QSize& size, const QFontMetrics& metrics, const QLocale& locale,
                        const GraphAxis& x, const GraphAxis& y) {
  size_ = size;
  const int line = metrics.height();
  const int numbers = numberRoom(metrics);
  const bool yNumbers = y.hasNumbers() && size.width() > 3 * numbers && size.height() >= line;
  const bool xNumbers = x.hasNumbers() && size.height() > 3 * line - kGap;
  const bool yCaption = !y.caption.isEmpty() && size.height() > 3 * line;
  const bool xCaption = !x.caption.isEmpty() && size.height() > 4 * line;
  const int left = (yNumbers ? numbers : 0) + 1;
  const int bottom = (xNumbers ? line + 3 : 0) + (xCaption ? line + 1 : 0) + 1;
  const int top = yCaption ? line + 2 : 1;
  area_ = QRect(left, top, std::max(size.width() - left - 1, 1), std::max(size.height() - top - bottom, 1));
  renumber(metrics, locale, x, y);
}

void GraphFrame::renumber(const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& x,
                          const GraphAxis& y) {
  const int line = std::max(metrics.height(), 1);
  xTicks_ = x.hasNumbers() ? ticksAlong(x.range(), locale, metrics, area_.width())
                           : x.ticks(std::clamp(area_.width() / (line * 5), 1, 11));
  markY(y, line);
  written_ = 0;
  if (x.hasNumbers()) numberX(metrics, locale, x);
  if (y.hasNumbers() && area_.left() > 1) numberY(metrics, locale, y);
  caption(metrics, x, y);
  texts_.resize(written_);
}

/// At values that have names, as many as have room one above the other; else at the ticks.
void GraphFrame::markY(const GraphAxis& y, int line) {
  const AxisRange range = y.range();
  const double apart = range.span() * line / std::max(area_.height(), 1);
  yMarks_.clear();
  for (const auto& [value, name] : y.names)
    if (value >= range.minimum && value <= range.maximum &&
        (yMarks_.empty() || value - yMarks_.back() >= apart))
      yMarks_.push_back(value);
  named_ = !yMarks_.empty();
  if (named_) return;
  yTicks_ = ticksUp(y, area_.height(), line);
  for (int i = 0; i < yTicks_.count; ++i) yMarks_.push_back(yTicks_.at(i));
}

/// A text that stood in its place before stays laid out.
void GraphFrame::write(const QPointF& corner, const QString& text) {
  if (written_ == texts_.size()) texts_.emplace_back().text.setTextFormat(Qt::PlainText);
  Text& written = texts_[written_++];
  written.corner = corner;
  if (written.text.text() != text) written.text.setText(text);
}

void GraphFrame::numberX(const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& x) {
  const int line = metrics.height();
  if (size_.height() - area_.bottom() < line) return;
  const PixelScale columns(x.range(), area_.width());
  const QStringList numbers = axisTexts(xTicks_, locale, metrics, area_.width());
  int free = 0;
  for (int i = 0; i < xTicks_.count; ++i) {
    const int wide = numberWidth(numbers[i], metrics);
    const int centre = area_.left() + static_cast<int>(columns(xTicks_.at(i)));
    const int start = std::clamp(centre - wide / 2, 0, std::max(size_.width() - wide, 0));
    if (start < free) continue;
    write(QPointF(start, area_.bottom() + 3), numbers[i]);
    free = start + wide + line / 2;
  }
}

QStringList GraphFrame::textsY(const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& y,
                               int room) const {
  if (!named_) return axisTexts(yTicks_, locale, metrics, room);
  QStringList names;
  for (const double value : yMarks_) names.append(metrics.elidedText(*y.nameOf(value), Qt::ElideRight, room));
  return names;
}

void GraphFrame::numberY(const QFontMetrics& metrics, const QLocale& locale, const GraphAxis& y) {
  const int line = metrics.height();
  const int room = area_.left() - 1 - kGap;
  const PixelScale rows = PixelScale::downwards(y.range(), area_.height());
  const QStringList numbers = textsY(metrics, locale, y, room);
  // Clear of the caption above and of the numbers below.
  const int highest = y.caption.isEmpty() ? 0 : std::max(area_.top() - 2, 0);
  const int below = size_.height() - area_.bottom();
  const int lowest = std::max((below > line ? area_.bottom() + 3 : size_.height()) - line, highest);
  int free = size_.height();
  for (qsizetype i = 0; i < numbers.size(); ++i) {
    const int centre = area_.top() + static_cast<int>(rows(yMarks_[static_cast<std::size_t>(i)]));
    const int top = std::clamp(centre - line / 2, highest, lowest);
    if (top + line > free + 2) continue;  // lines of numbers have room to spare
    write(QPointF(room - numberWidth(numbers[i], metrics), top), numbers[i]);
    free = top;
  }
}

void GraphFrame::caption(const QFontMetrics& metrics, const GraphAxis& x, const GraphAxis& y) {
  const int line = metrics.height();
  if (!y.caption.isEmpty() && area_.top() > line)
    write(QPointF(0, 0), metrics.elidedText(y.caption, Qt::ElideRight, size_.width()));
  const int bottom = size_.height() - line;
  const int numbers = x.hasNumbers() ? line + 2 : 0;
  if (x.caption.isEmpty() || area_.bottom() + numbers > bottom) return;
  const QString shown = metrics.elidedText(x.caption, Qt::ElideRight, area_.width());
  const int start = area_.left() + (area_.width() - metrics.horizontalAdvance(shown)) / 2;
  write(QPointF(start, bottom), shown);
}

void GraphFrame::paint(QPainter& painter, const QColor& border) const {
  for (const Text& text : texts_) painter.drawStaticText(text.corner, text.text);
  const QRect around = area_.adjusted(-1, -1, 1, 1);
  painter.fillRect(around.left(), around.top(), around.width(), 1, border);
  painter.fillRect(around.left(), around.bottom(), around.width(), 1, border);
  painter.fillRect(around.left(), around.top(), 1, around.height(), border);
  painter.fillRect(around.right(), around.top(), 1, around.height(), border);
}

}  // namespace tarnlog
