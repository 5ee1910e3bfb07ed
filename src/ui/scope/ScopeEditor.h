#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"
#include "ui/scope/ScopePalette.h"
#include "ui/scope/ScopeSelection.h"

namespace tarnlog {

/// Which editors a kind of display has.
struct EditorParts {
  bool settings = false;   ///< anything at all
  bool axis = false;       ///< minimum and maximum
  bool axisIsX = false;    ///< they are those of the X axis
  bool automatic = false;  ///< the axis can follow the values
  bool points = false;
  bool colour = false;
  bool graphs = false;  ///< the list of graphs to belong to
};
EditorParts editorParts(DisplayKind kind);

/// What the editors hold. Settings that the item's type lacks keep the values they had for the same item, so
/// that trying another type and coming back loses nothing.
struct EditorValues {
  std::string caption;
  bool automatic = true;
  double mini = 0;
  double maxi = 100;
  std::int32_t points = oTarnGraph::kDefaultPoints;
  std::int32_t colour = kScopePalette[0];  ///< 0x00BBGGRR
  std::int32_t graph = 0;                  ///< `index` of the graph that is referred to; 0 = none yet
};

/// The rules of the display parameters screen: one item is current, its settings stand in the editors, and
/// every edit goes into the configuration at once. Edits tell whether they changed anything.
class ScopeEditor {
 public:
  /// Null when there is none. Keeps the current item when the configuration has it, else the first is shown.
  void setParameters(std::shared_ptr<oTarnParameters> parameters);
  const std::shared_ptr<oTarnParameters>& Parameters() const { return parameters_; }

  /// Makes the item at this 1-based position current; another position is ignored.
  void show(std::size_t position);
  /// Null when the configuration has no items, or lost the current one behind the screen's back.
  oTarnScope* current() const;
  /// 1-based; 0 without a current item.
  std::size_t currentPosition() const;
  const EditorValues& values() const { return values_; }
  /// Of the current item's type.
  EditorParts parts() const;
  /// Whether minimum and maximum can be edited.
  bool rangeEnabled() const { return !parts().automatic || !values_.automatic; }
  /// The graphs that the current item can belong to, with its type.
  std::vector<const oTarnScope*> graphs() const;
  /// 0-based among `graphs()`, of the one it does belong to.
  std::optional<std::size_t> chosenGraph() const;

  /// A type that is not offered, or that the item has already, changes nothing.
  bool chooseType(DisplayKind type);
  bool changeCaption(const std::string& caption);
  bool changeAutomatic(bool automatic);
  bool changeMini(double mini);
  bool changeMaxi(double maxi);
  bool changePoints(std::int32_t points);
  bool changeColour(std::int32_t colour);
  /// 0-based among `graphs()`.
  bool chooseGraph(std::size_t position);

  bool moveUp();
  bool moveDown();
  /// To the items at these 1-based positions, ascending.
  bool apply(ScopeAction action, const std::vector<std::size_t>& positions);
  bool applyPoints(std::int32_t points, const std::vector<std::size_t>& positions);
  /// Whether there is one among them that the action is for.
  bool actsOn(ScopeAction action, const std::vector<std::size_t>& positions) const;
  /// Of the first graph among them; none without one.
  std::optional<std::int32_t> pointsOf(const std::vector<std::size_t>& positions) const;

  /// The catalogue, for the ranges of the data. May be null.
  void setXmlSession(std::shared_ptr<const SessionDocument> document) { document_ = std::move(document); }
  struct Range {
    double mini;
    double maxi;
  };
  /// Of the values that the current item can have; none when the vehicle does not tell.
  std::optional<Range> dataRange() const;
  /// Gives it to the axis.
  bool takeDataRange();

 private:
  void load();
  void loadAxis(bool automatic, double mini, double maxi);
  bool changeAxis();
  std::vector<oTarnScope*> itemsAt(const std::vector<std::size_t>& positions) const;
  void become(oTarnScope& scope, DisplayKind type);
  void becomeCurve(oTarnScope& scope);
  void becomeXAxis(oTarnScope& scope);
  std::int32_t reference(const std::vector<const oTarnScope*>& graphs) const;
  bool moveTo(std::size_t position);

  std::shared_ptr<oTarnParameters> parameters_;
  std::shared_ptr<const SessionDocument> document_;
  std::string key_;  ///< of the current item: other screens may remove items meanwhile
  EditorValues values_;
};

}  // namespace tarnlog
