#include "display/DisplayFilling.h"

#include "platform/base/Overloaded.h"

namespace tarnlog {
namespace {

constexpr int kDigitalHeight = 18 * kTwipsPerPixel;
constexpr int kSlideHeight = 28 * kTwipsPerPixel;
constexpr int kBinaryGraphHeight = 40 * kTwipsPerPixel;

Colour colour(std::int32_t configured) { return static_cast<Colour>(configured); }

void addDigital(GrapheItems& graphes, const oTarnNumeric& settings, ferrox3::DataItem& data) {
  GrapheItem& graphe = graphes.Add(GrapheItem::kDigital, "");
  graphe.Data = &data;
  graphe.hauteur = kDigitalHeight;
  graphe.Caption = settings.Caption;
}

void addSlide(GrapheItems& graphes, const oTarnSlide& settings, ferrox3::DataItem& data) {
  GrapheItem& graphe = graphes.Add(GrapheItem::kSlide, "");
  graphe.Data = &data;
  graphe.hauteur = kSlideHeight;
  graphe.Caption = settings.Caption;
  graphe.ymini = settings.mini;
  graphe.ymaxi = settings.maxi;
  graphe.Color = colour(settings.Color);
}

void addGraph(GrapheItems& graphes, const oTarnGraph& settings, std::int32_t index, ferrox3::DataItem& data) {
  GrapheItem& graphe = graphes.Add(GrapheItem::kScope, "");
  graphe.yautoscale = settings.AxeYAuto;
  graphe.ymini = settings.AxeYmini;
  graphe.ymaxi = settings.AxeYmaxi;
  graphe.AxeXPoints = settings.points;
  graphe.index = index;
  graphe.addcourbe(data, colour(settings.Color), settings.Caption);
  graphe.hauteur = isBinary(data) ? kBinaryGraphHeight : 0;
}

/// Blocks without an index hold -1, which a damaged reference must not find.
GrapheItem* findTarget(const GrapheItems& graphes, std::int32_t reference) {
  return reference < 1 ? nullptr : graphes.FindGraphe(reference);
}

void addCurve(const GrapheItems& graphes, const oTarnGraphIndex& settings, ferrox3::DataItem& data) {
  if (GrapheItem* const graphe = findTarget(graphes, settings.index))
    graphe->addcourbe(data, colour(settings.Color), settings.Caption);
}

void setXAxis(const GrapheItems& graphes, const oTarnGraphAxeX& settings, ferrox3::DataItem& data) {
  GrapheItem* const graphe = findTarget(graphes, settings.index);
  if (graphe == nullptr) return;
  graphe->xautoscale = settings.axeXAuto;
  graphe->xmaxi = settings.axeXmaxi;
  graphe->xmini = settings.axeXmini;
  graphe->xcaption = settings.Caption;
  graphe->xData = &data;
}

}  // namespace

void addScopeToDisplay(GrapheItems& graphes, const oTarnScope& scope, ferrox3::DataItem& data) {
  std::visit(Overloaded{
                 [](const NoDisplay&) {},
                 [&](const oTarnNumeric& digital) { addDigital(graphes, digital, data); },
                 [&](const oTarnSlide& bar) { addSlide(graphes, bar, data); },
                 [&](const oTarnGraph& graph) { addGraph(graphes, graph, scope.index, data); },
                 [&](const oTarnGraphIndex& curve) { addCurve(graphes, curve, data); },
                 [&](const oTarnGraphAxeX& axis) { setXAxis(graphes, axis, data); },
             },
             scope.display());
}

}  // namespace tarnlog
