#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The controls that the live display draws with, as it sees them. Geometry is in twips relative to the
/// frame, colours are 0x00BBGGRR. Whoever draws (or does not) implements them; any call may raise.
namespace tarnlog {

using Twips = float;
using Colour = std::uint32_t;

inline constexpr Colour kButtonFace = 0x8000000F;  ///< the system's button-face colour
inline constexpr int kTwipsPerPixel = 15;

class Control {
 public:
  virtual ~Control() = default;
  virtual Twips left() const = 0;
  virtual Twips top() const = 0;
  virtual Twips width() const = 0;
  virtual Twips height() const = 0;
  virtual void setLeft(Twips left) = 0;
  virtual void setTop(Twips top) = 0;
  virtual void setWidth(Twips width) = 0;
  virtual void setHeight(Twips height) = 0;
  virtual void setVisible(bool visible) = 0;
};

/// A text: caption labels and value labels.
class LabelControl : public Control {
 public:
  /// Setting the caption may change the label's own height.
  virtual void setCaption(std::string_view caption) = 0;
  virtual void setToolTip(std::string_view text) = 0;
  virtual void setTextColour(Colour colour) = 0;
  virtual void setBackColour(Colour colour) = 0;
  virtual void setBorder(bool border) = 0;
  virtual void setThreeD(bool threeD) = 0;
  virtual void setLeftAligned() = 0;
  virtual void setFont(std::string_view family, int points, bool bold, bool italic) = 0;
  /// Above its siblings, where controls overlap.
  virtual void bringToFront() = 0;
};

/// What a reader calls the values of a plot, for read-outs and copies.
struct ValueDescription {
  std::string name;  ///< as the caption label shows it
  std::string unit;
  std::vector<std::pair<std::int32_t, std::string>> labels = {};  ///< texts of values that have one
  std::optional<int> decimals = std::nullopt;                     ///< of other values; none: up to 15 digits
};

enum class Axis { X = 1, Y = 2 };

/// A graph with several plots over one pair of axes: a time chart (x = rank of the point), or X-Y. A new
/// graph is a time chart without plots whose axes have a fixed range.
class GraphControl : public Control {
 public:
  virtual void setEnabled(bool enabled) = 0;
  /// The name shown by the graph's container, for tool tips and assistive technology.
  virtual void setTitle(std::string_view title) = 0;
  /// Above its siblings: a graph is one pixel higher than its band and overlaps the next block.
  virtual void bringToFront() = 0;
  /// Number of points that each plot keeps (below 1 counts as 1); a full plot drops its oldest for each new
  /// one.
  virtual void setHistory(std::int32_t points) = 0;
  /// A plot of points (x, y) instead of a time chart.
  virtual void setXY(bool xy) = 0;
  virtual void setAxisRange(Axis axis, double minimum, double maximum) = 0;
  /// The axis follows the points that are kept.
  virtual void setAxisAutoscale(Axis axis, bool on) = 0;
  virtual void setAxisCaption(Axis axis, std::string_view caption) = 0;
  /// Values at the axis: a time chart shows none along X, since a rank says nothing to a reader.
  virtual void setAxisLabels(Axis axis, bool labels) = 0;
  /// An axis for logical levels: a label at every whole value, no minor ticks.
  virtual void setAxisBinary(Axis axis) = 0;
  /// Adds a plot; plots are numbered from 1 in the order of adding.
  virtual void addPlot() = 0;
  virtual void setPlotColour(int plot, Colour colour) = 0;
  /// What the plot's values are called, and the X axis' of an X-Y graph. Who reads nothing out ignores it.
  virtual void describePlot(int /*plot*/, const ValueDescription& /*description*/) {}
  virtual void describeX(const ValueDescription& /*description*/) {}
  /// Appends the next point of a time chart. NaN makes a gap.
  virtual void chartY(int plot, double y) = 0;
  /// Appends a point. NaN in either coordinate makes a gap.
  virtual void plotXY(int plot, double x, double y) = 0;
  /// Forgets all points.
  virtual void clearData() = 0;
};

/// A bar with three pointers: the value, and markers of the lowest and the highest value seen.
class SlideControl : public Control {
 public:
  static constexpr int kValue = 1;
  static constexpr int kLowest = 2;
  static constexpr int kHighest = 3;

  virtual void setTitle(std::string_view title) = 0;
  virtual void setAxisRange(double minimum, double maximum) = 0;
  virtual double axisMinimum() const = 0;
  virtual double axisMaximum() const = 0;
  /// The value shown by pointer 1. It may lie outside the axis, and be NaN (nothing to show).
  virtual void setValue(double value) = 0;
  virtual double pointerValue(int pointer) const = 0;
  virtual void setPointerValue(int pointer, double value) = 0;
  virtual void setPointerFillColour(int pointer, Colour colour) = 0;
  virtual void setPointerColour(int pointer, Colour colour) = 0;
};

/// The drawing surface and the maker of what is placed on it. A made control belongs to the frame until it is
/// unloaded; `Load...` gives the element of that number (from 1; 0 is a hidden template) or null when it
/// cannot, `Unload...` frees exactly the control that it is given, and null does nothing. Neither raises.
class GraphicFrame : public Control {
 public:
  virtual GraphControl* LoadGraph(std::int16_t index) = 0;
  virtual void UnloadGraph(GraphControl* control) = 0;
  virtual SlideControl* LoadSlide(std::int16_t index) = 0;
  virtual void UnloadSlide(SlideControl* control) = 0;
  virtual LabelControl* LoadCaption(std::int16_t index) = 0;
  virtual void UnloadCaption(LabelControl* control) = 0;
  virtual LabelControl* LoadValueText(std::int16_t index) = 0;
  virtual void UnloadValueText(LabelControl* control) = 0;
};

}  // namespace tarnlog
