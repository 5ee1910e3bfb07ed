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
constexpr std::size_t kMostFlags = 200;  ///< of a kind; more cannot be told apart
constexpr std::size_t kKeptTexts = 50;   ///< whether seen or not: who looks back goes to and fro

double pointOf(const TimeLine::Pause& pause) { return static_cast<double>(pause.before) - 0.5; }
double pointOf(const GraphMark& mark) { return static_cast<double>(mark.point); }

template <class Each>
std::span<const Each> newestBetween(std::span<const Each> all, double first, double last) {
  const auto begin =
      std::partition_point(all.begin(), all.end(), [=](auto& each) { return pointOf(each) < first; });
  const auto end = std::partition_point(begin, all.end(), [=](auto& each) { return pointOf(each) <= last; });
  const auto count = std::min(static_cast<std::size_t>(end - begin), kMostFlags);
  return {end - static_cast<std::ptrdiff_t>(count), end};
}

}  // namespace

void GraphOverlay::setLook(const Look& look) {
  if (look == look_) return;
  look_ = look;
  times_.clear();
  flagTexts_.clear();
}

/// A text on its ground, two points of the layout wider than itself.
void GraphOverlay::draw(Text& text, const Saying& saying) const {
  const QColor paper = look_.palette.color(QPalette::Base);
  const QColor ground =
      saying.colour.isValid() ? readable(saying.colour, paper, kCurveContrastOnDark) : paper;
  const QString what = wordsOf(saying);
  text.saying = saying;
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
  painter.setPen(contrastOf(ink, ground) > contrastOf(paper, ground) ? ink : paper);
  painter.drawText(QRectF(0, 0, wide, metrics.height()), Qt::AlignCenter, what);
  painter.end();
  text.pixels.clear();
  for (int y = 0; y < text.height; ++y) {
    const auto* const line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
    text.pixels.insert(text.pixels.end(), line, line + text.width);
  }
}

QString GraphOverlay::wordsOf(const Saying& saying) const {
  if (saying.duration == kNoDuration) return saying.words;
  return saying.words + QString::fromStdString(durationText(saying.duration, look_.decimalSeparator));
}

std::uint32_t GraphOverlay::ink(float part) const {
  return blend(look_.palette.color(QPalette::Base), look_.palette.color(QPalette::Text), part).rgb();
}

std::span<const ChartPicture::Flag> GraphOverlay::flags(const TimeLine& times,
                                                        const std::vector<GraphMark>& marks,
                                                        const Seen& seen) {
  const double early = seen.first - (seen.last - seen.first);  // flags may reach into what is seen
  flags_.clear();
  used_ = 0;
  for (const TimeLine::Pause& pause : newestBetween(times.pauses(), early, seen.last)) {
    const Text& text = flagText({std::round(pause.length / 100) * 100, {}, {}});
    flags_.push_back({pointOf(pause), ink(0.5F), kPauseDots, text.height, text.stamp()});
  }
  for (const GraphMark& mark : newestBetween(std::span(marks), early, seen.last)) {
    const Text& text = flagText({kNoDuration, mark.text, mark.colour});
    flags_.push_back({pointOf(mark), text.ground, 1, 0, text.stamp()});
  }
  flagTexts_.resize(std::max(used_, std::min(flagTexts_.size(), kKeptTexts)));
  return flags_;
}

/// Flags are asked for in the order of the picture before, so the first text that has no flag yet is mostly
/// the right one. Pixels stay where they are while texts change places.
const GraphOverlay::Text& GraphOverlay::flagText(const Saying& saying) {
  auto found = flagTexts_.begin() + static_cast<std::ptrdiff_t>(used_);
  while (found != flagTexts_.end() && found->saying != saying) ++found;
  if (found == flagTexts_.end()) {
    found = flagTexts_.emplace(found);
    draw(*found, saying);
  }
  std::swap(*found, flagTexts_[used_]);
  return flagTexts_[used_++];
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

/// If it has room left of `right`; the next one has the room left of it.
void GraphOverlay::writeTime(TimedLine& line, ChartPicture::Rule& rule, int& right) const {
  Text& text = line.text;
  if (text.saying.duration != line.ago) draw(text, {line.ago, QStringLiteral("-"), {}});
  rule.stampLeft = line.column - text.width / 2;
  if (rule.stampLeft < 0 || rule.stampLeft + text.width > right) return;
  rule.stamp = text.stamp();
  right = rule.stampLeft - static_cast<int>(kGap * look_.ratio);
}

void GraphOverlay::paintCursor(QPainter& painter, const QPalette& palette, const QRect& area,
                               const GraphCursorLine& line) {
  constexpr double kRadius = 3;
  const int fromLeft = static_cast<int>(line.x);
  if (fromLeft < 0 || fromLeft >= area.width()) return;
  const QColor base = palette.color(QPalette::Base);
  const QColor ink = blend(base, palette.color(QPalette::Text), line.letter.isEmpty() ? 0.6F : 0.85F);
  const int x = area.left() + fromLeft;
  painter.fillRect(x, area.top(), 1, area.height(), ink);
  if (!line.letter.isEmpty()) {
    const QFontMetrics metrics = painter.fontMetrics();
    const int wide = metrics.horizontalAdvance(line.letter) + 4;
    const int top = line.letterBelow ? area.bottom() + 1 - metrics.height() : area.top();
    const QRect flag(std::min(x, area.right() - wide), top, wide, metrics.height());
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
