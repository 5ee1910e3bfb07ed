#include "display/GrapheItems.h"

#include <memory>
#include <utility>

#include "platform/text/Numbers.h"

namespace tarnlog {

GrapheItem& GrapheItems::Add(GrapheKind mode, std::string key) {
  auto graphe = std::make_unique<GrapheItem>();
  graphe->GrapheMode = mode;
  return KeyedCollection::Add(std::move(graphe), std::move(key));
}

std::int32_t GrapheItems::CountScopePhysical() const {
  std::int32_t count = 0;
  for (const GrapheItem& graphe : *this)
    if (graphe.GrapheMode == GrapheItem::kScope && graphe.grapheType() == 1) ++count;
  return count;
}

std::int32_t GrapheItems::CountSlide() const {
  std::int32_t count = 0;
  for (const GrapheItem& graphe : *this)
    if (graphe.GrapheMode == GrapheItem::kSlide) ++count;
  return count;
}

std::int32_t GrapheItems::HeightNoScopeGraphe() const {
  std::int32_t height = 0;
  for (const GrapheItem& graphe : *this) height = roundHalfEven(height + graphe.hauteur);
  return height;
}

GrapheItem* GrapheItems::FindGraphe(std::int32_t index) const {
  for (GrapheItem& graphe : *this)
    if (graphe.index == index) return &graphe;
  return nullptr;
}

}  // namespace tarnlog
