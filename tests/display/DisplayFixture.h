#pragma once

#include "display/DisplayFilling.h"
#include "display/ScopeItem.h"
#include "tests/support/RecordingControls.h"
#include "tests/support/ScriptedSession.h"

namespace tarnlog::test {

/// A live display filled as an acquisition fills it, and the frame that it draws into.
struct Display {
  ScriptedSession session;
  ScriptedRequest& request = session.addEcu("Engine", "Injection", 0x10).addRequest("21 80");
  ScriptedData& speed = request.addData("Speed", ferrox3::kDouble, "km/h", 0, 250);
  ScriptedData& load = request.addData("Load", ferrox3::kDouble, "%", -10, 100);
  ScriptedData& brake = request.addData("Brake", ferrox3::kInteger, "", 0, 1);
  ScriptedData& gear = request.addData("Gear", ferrox3::kString, "", 0, 0);
  ScopeItem scope;
  RecordingFrame frame{9000, 3000};

  /// Adds the item with this display type; `refine` changes its settings.
  template <class Refine>
  void add(ScriptedData& data, DisplayKind type, Refine refine) {
    oTarnScope item;
    item.varType = ferrox3::kDouble;
    item.index = ++count_;
    item.setScopeType(type);
    refine(item);
    addScopeToDisplay(scope.graphes(), item, data);
  }
  void add(ScriptedData& data, DisplayKind type) {
    add(data, type, [](oTarnScope&) {});
  }
  /// A further curve on the graph of the item with this index.
  void addCurve(ScriptedData& data, std::int32_t graph) {
    add(data, oTarnScope::kGraphIndex, [&](oTarnScope& item) { item.oTarnGraphIndex()->index = graph; });
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
