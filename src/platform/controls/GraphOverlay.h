#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QPointF>
#include <QRect>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "platform/plotting/ChartPicture.h"
#include "platform/plotting/TimeGrid.h"
#include "platform/plotting/TimeLine.h"

class QPainter;

namespace tarnlog {

/// A flag on a time chart.
struct GraphMark {
  std::int64_t point = 0;
  QString text;
  QColor colour;
};

/// A line at a point, with a letter where it has one, and a dot on every curve where it has dots.
struct GraphCursorLine {
  double x = 0;  ///< from the left edge of the plot area
  QString letter;
  bool letterBelow = false;                      ///< at the bottom, else at the top
  std::vector<std::pair<QPointF, QColor>> dots;  ///< from its top left corner
};

/// What a time chart shows besides its curves: lines at whole times with the times, the lengths of pauses,
/// flags. Texts become pixels once, so that a picture that scrolls copies them only.
class GraphOverlay {
 public:
  /// What texts look like. Another one has them made anew.
  struct Look {
    QFont font;
    QPalette palette;
    double ratio = 1;  ///< pixels to a point of the layout
    char decimalSeparator = '.';
    bool operator==(const Look&) const = default;
  };
  /// The stretch of a chart that is seen.
  struct Seen {
    double first = 0;  ///< points
    double last = 0;
    double xOfFirst = 0;  ///< pixels from the left edge
    double xPerPoint = 1;
    int width = 0;  ///< pixels
  };

  void setLook(const Look& look);
  void setLabels(bool on) { labels_ = on; }
  bool labels() const { return labels_; }

  /// Of pauses and marks. Valid until the next call.
  std::span<const ChartPicture::Flag> flags(const TimeLine& times, const std::vector<GraphMark>& marks,
                                            const Seen& seen);
  /// At whole times. Valid until the next call.
  std::span<const ChartPicture::Rule> rules(const TimeLine& times, const Seen& seen);

  /// Nothing where the line lies outside of the area.
  static void paintCursor(QPainter& painter, const QPalette& palette, const QRect& area,
                          const GraphCursorLine& line);

 private:
  static constexpr double kNoDuration = -1;

  struct Saying {
    double duration = kNoDuration;  ///< milliseconds, behind the words
    QString words;
    QColor colour;  ///< of its ground; none: that of the graph
    bool operator==(const Saying&) const = default;
  };
  struct Text {
    Saying saying;
    std::uint32_t ground = 0;
    std::vector<std::uint32_t> pixels;
    int width = 0;
    int height = 0;
    Stamp stamp() const { return {width, height, pixels}; }
  };
  /// A line at a whole time.
  struct TimedLine {
    double ago = -1;  ///< milliseconds
    int column = -1;
    Text text;  ///< made when it is seen
  };

  void draw(Text& text, const Saying& saying) const;
  void writeTime(TimedLine& line, ChartPicture::Rule& rule, int& right) const;
  QString wordsOf(const Saying& saying) const;
  const Text& flagText(const Saying& saying);
  std::uint32_t ink(float part) const;

  Look look_;
  bool labels_ = false;
  TimeGrid grid_;
  std::vector<TimedLine> times_;
  std::vector<Text> flagTexts_;  ///< of what was seen last, and some from before
  std::size_t used_ = 0;         ///< of these: by the flags that are being made
  std::vector<ChartPicture::Flag> flags_;
  std::vector<ChartPicture::Rule> rules_;
};

}  // namespace tarnlog
