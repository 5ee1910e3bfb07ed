#include "platform/controls/GraphOverlay.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/controls/Readable.h"

namespace tarnlog {
namespace {

constexpr int kGap = 6;    ///< between texts, in points of the layout
constexpr int kStill = 2;  ///< pixels that a line may be off its place before it moves
constexpr int kPauseDots = 4;
constexpr std::size_t kMostPauses = 200;  ///< more cannot be told apart

}  // namespace

void GraphOverlay::setLook(const Look& look) {
  if (look == look_) return;
  look_ = look;
  times_.clear();
  pauses_.clear();
  marks_.clear();
}

/// A text on its ground, two points of the layout wider than itself.
void GraphOverlay::draw(Text& text, const QString& what, const QColor& ground) const {
  text.text = what;
  text.ground = ground.rgb();
  const QFontMetrics metrics(look_.font);
  const int wide = metrics.horizontalAdvance(what) + 4;
  text.width = std::max(static_cast<int>(std::ceil(wide * look_.ratio)), 1);
  text.height = std::max(static_cast<int>(std::ceil(metrics.height() * look_.ratio)), 1);
  QImage image(text.width, text.height, QImage::Format_RGB32);
  image.setDevicePixelRatio(look_.ratio);
  image.fill(ground);
  QPainter painter(&image);
  painter.setFont(look_.font);
  const QColor ink = look_.palette.color(QPalette::Text);
  const QColor paper = look_.palette.color(QPalette::Base);
  painter.setPen(contrastOf(ink, ground) > contrastOf(paper, ground) ? ink : paper);
  painter.drawText(QRectF(0, 0, wide, metrics.height()), Qt::AlignCenter, what);
  painter.end();
  text.pixels.clear();
  for (int y = 0; y < text.height; ++y) {
    const auto* const line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
    text.pixels.insert(text.pixels.end(), line, line + text.width);
  }
}

QString GraphOverlay::duration(double milliseconds) const {
  return QString::fromStdString(durationText(milliseconds, look_.decimalSeparator));
}

std::uint32_t GraphOverlay::ink(float part) const {
  return blend(look_.palette.color(QPalette::Base), look_.palette.color(QPalette::Text), part).rgb();
}

std::span<const ChartPicture::Flag> GraphOverlay::flags(const TimeLine& times,
                                                        const std::vector<GraphMark>& marks,
                                                        const Seen& seen) {
  flags_.clear();
  const double early = seen.first - (seen.last - seen.first);  // flags may reach into what is seen
  std::size_t used = 0;
  for (const TimeLine::Pause& pause : times.pauses()) {
    const auto point = static_cast<double>(pause.before) - 0.5;
    if (point < early || point > seen.last || used == kMostPauses) continue;
    if (used == pauses_.size()) pauses_.emplace_back();
    Text& text = pauses_[used++];
    if (text.value != pause.length)
      draw(text, duration(std::round(pause.length / 100) * 100), look_.palette.color(QPalette::Base));
    text.value = pause.length;
    flags_.push_back({point, ink(0.5F), kPauseDots, text.height, text.stamp()});
  }
  marks_.resize(marks.size());
  const auto first = std::partition_point(marks.begin(), marks.end(), [early](const GraphMark& each) {
    return static_cast<double>(each.point) < early;
  });
  for (auto i = static_cast<std::size_t>(first - marks.begin()); i < marks.size(); ++i) {
    const auto point = static_cast<double>(marks[i].point);
    if (point > seen.last) break;
    Text& text = marks_[i];
    if (text.text != marks[i].text || text.colour != marks[i].colour) {
      text.colour = marks[i].colour;
      draw(text, marks[i].text,
           readable(text.colour, look_.palette.color(QPalette::Base), kCurveContrastOnDark));
    }
    flags_.push_back({point, text.ground, 1, 0, text.stamp()});
  }
  return flags_;
}

std::span<const ChartPicture::Rule> GraphOverlay::rules(const TimeLine& times, const Seen& seen) {
  rules_.clear();
  const int line = std::max(static_cast<int>(QFontMetrics(look_.font).height() * look_.ratio), 1);
  const auto lines = grid_.lines(times, seen.first, seen.last, std::max(seen.width / (6 * line), 1));
  if (times_.size() < lines.size()) times_.resize(lines.size());  // one that goes mostly comes again
  const std::uint32_t colour = ink(0.35F);
  int right = seen.width;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    TimedLine& timed = times_[i];
    const int now = static_cast<int>(seen.xOfFirst + (lines[i].point - seen.first) * seen.xPerPoint);
    const bool another = std::exchange(timed.ago, lines[i].ago) != lines[i].ago;
    if (another || std::abs(now - timed.column) >= kStill) timed.column = now;
    ChartPicture::Rule& rule = rules_.emplace_back(ChartPicture::Rule{timed.column, colour, 0, {}});
    if (labels_) writeTime(timed, rule, right);
  }
  return rules_;
}

/// Where there is room left of `right`, which is what the next one has.
void GraphOverlay::writeTime(TimedLine& line, ChartPicture::Rule& rule, int& right) const {
  Text& text = line.text;
  if (std::exchange(text.value, line.ago) != line.ago)
    draw(text, QLatin1Char('-') + duration(line.ago), look_.palette.color(QPalette::Base));
  rule.stampLeft = line.column - text.width / 2;
  if (rule.stampLeft < 0 || rule.stampLeft + text.width > right) return;
  rule.stamp = text.stamp();
  right = rule.stampLeft - static_cast<int>(kGap * look_.ratio);
}

void GraphOverlay::paintCursor(QPainter& painter, const QPalette& palette, const QRect& area,
                               const GraphCursorLine& line) {
  constexpr double kRadius = 3;
  const QColor base = palette.color(QPalette::Base);
  const QColor ink = blend(base, palette.color(QPalette::Text), line.letter.isEmpty() ? 0.6F : 0.85F);
  const int x = area.left() + static_cast<int>(line.x);
  painter.fillRect(x, area.top(), 1, area.height(), ink);
  if (!line.letter.isEmpty()) {
    const QFontMetrics metrics = painter.fontMetrics();
    const int wide = metrics.horizontalAdvance(line.letter) + 4;
    const QRect flag(std::min(x, area.right() - wide), area.top(), wide, metrics.height());
    painter.fillRect(flag, ink);
    painter.setPen(base);
    painter.drawText(flag, Qt::AlignCenter, line.letter);
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(base, 1));
  for (const auto& [place, colour] : line.dots) {
    painter.setBrush(colour);
    painter.drawEllipse(place + area.topLeft(), kRadius, kRadius);
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace tarnlog
