#include "ui/review/ReviewGraphMenu.h"

#include <QActionGroup>
#include <algorithm>
#include <vector>

#include "ui/common/MenuItems.h"
#include "ui/review/GraphKinds.h"
#include "ui/review/ReviewLook.h"

namespace tarnlog {
namespace {

constexpr std::size_t kMostData = 40;  ///< of a menu

/// That have numbers: those of all graphs.
std::vector<CurvePlace> graphedData(const ReviewScene& scene) {
  std::vector<CurvePlace> places;
  for (const ReviewGraph& graph : scene.graphs())
    for (const ReviewCurve& curve : graph.curves)
      if (!curve.minus && graph.kind != GraphKind::States && places.size() < kMostData &&
          std::ranges::find(places, curve.place) == places.end())
        places.push_back(curve.place);
  return places;
}

}  // namespace

ReviewGraphMenu::ReviewGraphMenu(ReviewScene& scene, std::size_t graph, std::optional<std::size_t> curve,
                                 std::optional<double> time, QWidget* parent)
    : QMenu(parent), scene_(scene), graph_(graph) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAccessibleName(parent->accessibleName());
  addKinds();
  if (shown().kind != GraphKind::States) {
    if (shown().curves.size() > 1) addScales();
    addX();
  }
  if (time) addCursors(*time);
  addRemoval(curve);
}

/// Where both are possible.
void ReviewGraphMenu::addKinds() {
  if (!otherKind(scene_, shown())) return;
  auto* const kinds = new QActionGroup(this);
  const auto add = [&](const QString& text, const char* name, GraphKind kind) {
    kinds->addAction(addChoice(*this, text, name, shown().kind == kind,
                               [this, kind](bool) { scene_.setKind(graph_, kind); }));
  };
  add(tr("As &curves"), "asCurves", GraphKind::Time);
  add(tr("As bar&s"), "asBars", GraphKind::States);
}

void ReviewGraphMenu::addScales() {
  const bool own = shown().ownScales;
  addChoice(*this, tr("&Each curve its own scale"), "ownScales", own,
            [this](bool on) { scene_.setOwnScales(graph_, on); });
  if (!own) return;
  QMenu* const axis = addMenu(tr("&Axis of"));
  auto* const curves = new QActionGroup(this);
  for (std::size_t i = 0; i < shown().curves.size(); ++i)
    curves->addAction(addChoice(*axis, itemText(curveName(scene_, shown().curves[i])), "axis",
                                shown().axis == i, [this, i](bool) { scene_.setAxis(graph_, i); }));
}

void ReviewGraphMenu::addX() {
  QMenu* const over = addMenu(tr("&Over"));
  auto* const choices = new QActionGroup(this);
  choices->addAction(addChoice(*over, tr("&Time"), "overTime", !shown().x,
                               [this](bool) { scene_.setX(graph_, std::nullopt); }));
  over->addSeparator();
  for (const CurvePlace& place : graphedData(scene_))
    choices->addAction(addChoice(*over, itemText(dataName(scene_, place)), "over", shown().x == place,
                                 [this, place](bool) { scene_.setX(graph_, place); }));
}

void ReviewGraphMenu::addCursors(double time) {
  addSeparator();
  addDeed(*this, tr("Cursor A &here"), "cursorA", [this, time] { scene_.setCursor(ReviewCursor::A, time); });
  addDeed(*this, tr("Cursor B he&re"), "cursorB", [this, time] { scene_.setCursor(ReviewCursor::B, time); });
  addDeed(*this, tr("Show a&ll\tF"), "fitAll", [this] { scene_.fit(); });
  if (scene_.canGoBack()) addDeed(*this, tr("&Back\tBackspace"), "back", [this] { scene_.back(); });
}

void ReviewGraphMenu::addRemoval(std::optional<std::size_t> curve) {
  addSeparator();
  if (curve && *curve < shown().curves.size()) {
    const QString name = itemText(curveName(scene_, shown().curves[*curve]));
    addDeed(*this, tr("&Take away %1").arg(name), "removeCurve",
            [this, curve = *curve] { scene_.removeCurve(graph_, curve); });
  }
  addDeed(*this, tr("Take away the &graph"), "removeGraph", [this] { scene_.removeGraph(graph_); });
  if (scene_.graphs().size() > 1)
    addDeed(*this, tr("O&nly this graph"), "onlyGraph", [this] { scene_.removeOtherGraphs(graph_); });
  if (scene_.canResetGraphs())
    addDeed(*this, tr("Graphs as at f&irst"), "resetGraphs", [this] { scene_.resetGraphs(); });
}

}  // namespace tarnlog
