#pragma once

#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/screen/Controls.h"

namespace tarnlog::test {

/// What the controls of a frame were asked for, in order: "GT1.top 270".
struct ControlCalls {
  std::vector<std::string> lines;

  template <class... Values>
  void note(const std::string& call, const Values&... values) {
    std::ostringstream line;
    line << call;
    ((line << ' ' << values), ...);
    lines.push_back(line.str());
  }
};

template <class Base>
class RecordedControl : public Base {
 public:
  RecordedControl(ControlCalls& calls, std::string name, Twips height = 0)
      : calls_(calls), name_(std::move(name)), height_(height) {}

  Twips left() const override { return left_; }
  Twips top() const override { return top_; }
  Twips width() const override { return width_; }
  Twips height() const override { return height_; }
  void setLeft(Twips left) override { note("left", left_ = left); }
  void setTop(Twips top) override { note("top", top_ = top); }
  void setWidth(Twips width) override { note("width", width_ = width); }
  void setHeight(Twips height) override { note("height", height_ = height); }
  void setVisible(bool visible) override { note("visible", visible); }

 protected:
  template <class... Values>
  void note(const std::string& call, const Values&... values) {
    calls_.note(name_ + "." + call, values...);
  }
  static const char* axisName(Axis axis) { return axis == Axis::X ? "X" : "Y"; }

 private:
  ControlCalls& calls_;
  std::string name_;
  Twips left_ = 0, top_ = 0, width_ = 0, height_;
};

class RecordingLabel : public RecordedControl<LabelControl> {
 public:
  using RecordedControl::RecordedControl;
  void setCaption(std::string_view caption) override { note("caption", caption); }
  void setToolTip(std::string_view text) override { note("tip", text); }
  void setTextColour(Colour colour) override { note("text", colour); }
  void setBackColour(Colour colour) override { note("back", colour); }
  void setBorder(bool border) override { note("border", border); }
  void setThreeD(bool threeD) override { note("3D", threeD); }
  void setLeftAligned() override { note("leftAligned"); }
  void setFont(std::string_view family, int points, bool bold, bool italic) override {
    note("font", family, points, bold, italic);
  }
  void bringToFront() override { note("front"); }
};

class RecordingGraph : public RecordedControl<GraphControl> {
 public:
  using RecordedControl::RecordedControl;
  void setEnabled(bool enabled) override { note("enabled", enabled); }
  void setTitle(std::string_view title) override { note("title", title); }
  void bringToFront() override { note("front"); }
  void setHistory(std::int32_t points) override { note("history", points); }
  void setXY(bool xy) override { note("xy", xy); }
  void setAxisRange(Axis axis, double low, double high) override { note("range", axisName(axis), low, high); }
  void setAxisAutoscale(Axis axis, bool on) override { note("auto", axisName(axis), on); }
  void setAxisCaption(Axis axis, std::string_view text) override { note("caption", axisName(axis), text); }
  void setAxisLabels(Axis axis, bool labels) override { note("labels", axisName(axis), labels); }
  void setAxisBinary(Axis axis) override { note("binary", axisName(axis)); }
  void addPlot() override { note("addPlot"); }
  void setPlotColour(int plot, Colour colour) override { note("plotColour", plot, colour); }
  void chartY(int plot, double y) override { note("chart", plot, y); }
  void plotXY(int plot, double x, double y) override { note("plot", plot, x, y); }
  void clearData() override { note("clear"); }
};

class RecordingSlide : public RecordedControl<SlideControl> {
 public:
  using RecordedControl::RecordedControl;
  void setTitle(std::string_view title) override { note("title", title); }
  void setAxisRange(double low, double high) override { note("range", low_ = low, high_ = high); }
  double axisMinimum() const override { return low_; }
  double axisMaximum() const override { return high_; }
  void setValue(double value) override { note("value", value); }
  double pointerValue(int pointer) const override { return pointers_.at(pointer); }
  void setPointerValue(int pointer, double value) override {
    note("pointer", pointer, pointers_[pointer] = value);
  }
  void setPointerFillColour(int pointer, Colour colour) override { note("fill", pointer, colour); }
  void setPointerColour(int pointer, Colour colour) override { note("colour", pointer, colour); }

 private:
  double low_ = 0, high_ = 0;
  std::map<int, double> pointers_;
};

/// A frame whose controls are named after their array and number: GT1 a graph, SL1 a bar, CL1 a caption
/// label, VT1 a value label. Labels are 240 twips high until told otherwise.
class RecordingFrame : public RecordedControl<GraphicFrame> {
 public:
  RecordingFrame(Twips width, Twips height) : RecordedControl(calls, "frame", height) {
    setWidth(width);
    calls.lines.clear();
  }

  GraphControl* LoadGraph(std::int16_t index) override { return load<RecordingGraph>("GT", index, 0); }
  SlideControl* LoadSlide(std::int16_t index) override { return load<RecordingSlide>("SL", index, 0); }
  LabelControl* LoadCaption(std::int16_t index) override { return load<RecordingLabel>("CL", index, 240); }
  LabelControl* LoadValueText(std::int16_t index) override { return load<RecordingLabel>("VT", index, 240); }
  void UnloadGraph(GraphControl* control) override { unload(control); }
  void UnloadSlide(SlideControl* control) override { unload(control); }
  void UnloadCaption(LabelControl* control) override { unload(control); }
  void UnloadValueText(LabelControl* control) override { unload(control); }

  std::size_t controlCount() const { return controls_.size(); }

  /// What this control was asked for, as one line: "top 0; left 1800".
  std::string callsTo(const std::string& name) const {
    std::string result;
    for (const std::string& line : calls.lines)
      if (line.compare(0, name.size() + 1, name + ".") == 0)
        result += (result.empty() ? "" : "; ") + line.substr(name.size() + 1);
    return result;
  }

  ControlCalls calls;

 private:
  template <class Made>
  Made* load(const std::string& array, std::int16_t index, Twips height) {
    const std::string name = array + std::to_string(index);
    auto made = std::make_unique<Made>(calls, name, height);
    Made* const raw = made.get();
    controls_.emplace(raw, std::move(made));
    return raw;
  }
  void unload(const Control* control) { controls_.erase(control); }

  std::map<const Control*, std::unique_ptr<Control>> controls_;
};

}  // namespace tarnlog::test
