#pragma once

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "display/DisplayFilling.h"
#include "display/ScopeItem.h"
#include "tests/support/RecordingControls.h"

namespace tarnlog::test {

/// A datum of the vehicle that only the display looks at.
class ShownData : public ferrox3::DataItem {
 public:
  ShownData(std::string name, std::int32_t type, double low, double high, std::string unit = "")
      : name_(std::move(name)), type_(type), low_(low), high_(high), unit_(std::move(unit)) {}

  void set(ferrox3::Value value, std::string text) {
    value_ = std::move(value);
    text_ = std::move(text);
  }

  const std::string& name() const override { return name_; }
  bool readable() const override { return true; }
  std::int32_t typeCode() const override { return type_; }
  double minimum() const override { return low_; }
  double maximum() const override { return high_; }
  const std::string& unit() const override { return unit_; }
  const ferrox3::Device* device() const override { return nullptr; }
  const ferrox3::Enumeration* enumeration() const override { return nullptr; }
  bool failure() const override { return false; }
  ferrox3::Request& request() const override { throw TarnError(1, name_, "belongs to no request"); }
  const ferrox3::Value& value() const override { return value_; }
  const std::string& valueText() const override { return text_; }

 private:
  std::string name_;
  std::int32_t type_;
  double low_, high_;
  std::string unit_;
  ferrox3::Value value_ = std::numeric_limits<double>::quiet_NaN();
  std::string text_;
};

/// A live display filled as an acquisition fills it, and the frame that it draws into.
struct Display {
  ShownData speed{"Speed", ferrox3::kDouble, 0, 250, "km/h"};
  ShownData load{"Load", ferrox3::kDouble, -10, 100, "%"};
  ShownData brake{"Brake", ferrox3::kInteger, 0, 1};
  ShownData gear{"Gear", ferrox3::kString, 0, 0};
  ScopeItem scope;
  RecordingFrame frame{9000, 3000};

  /// Adds the item with this display type; `refine` changes its settings.
  template <class Refine>
  void add(ShownData& data, std::int32_t type, Refine refine) {
    oTarnScope item;
    item.varType = ferrox3::kDouble;
    item.index = ++count_;
    item.setScopeType(type);
    refine(item);
    addScopeToDisplay(scope.graphes(), item, data);
  }
  void add(ShownData& data, std::int32_t type) {
    add(data, type, [](oTarnScope&) {});
  }
  /// A further curve on the graph of the item with this index.
  void addCurve(ShownData& data, std::int32_t graph) {
    add(data, oTarnScope::kGraphIndex, [&](oTarnScope& item) { item.oTarnGraphIndex->index = graph; });
  }

  Twips build() {
    Twips extra = -1;
    scope.BuildDisplay(frame, 40 * kTwipsPerPixel, extra);
    return extra;
  }
  Twips arrange(Twips width, Twips height) {
    frame.setWidth(width);
    frame.setHeight(height);
    frame.calls.lines.clear();
    Twips extra = -1;
    scope.ArrangeDisplay(frame, 40 * kTwipsPerPixel, extra);
    return extra;
  }

 private:
  std::int32_t count_ = 0;
};

}  // namespace tarnlog::test
