#include "display/DisplayLayout.h"

#include <algorithm>

#include "platform/text/Numbers.h"

namespace tarnlog {

DisplayLayout::DisplayLayout(const GrapheItems& graphes, Twips frameHeight, std::int32_t minHeight)
    : frameHeight_(frameHeight) {
  const std::int32_t sharing = graphes.CountScopePhysical();
  if (sharing == 0) return;
  const std::int32_t free = std::max(roundHalfEven(frameHeight) - graphes.HeightNoScopeGraphe(), 0);
  sharedHeight_ = std::max(static_cast<std::int32_t>(divideHalfEven(free, sharing)), minHeight);
}

std::int32_t DisplayLayout::blockHeight(const GrapheItem& graphe) const {
  const std::int32_t fixed = roundHalfEven(graphe.hauteur);
  if (graphe.GrapheMode != GrapheItem::kScope) return fixed;
  const std::int32_t height = graphe.hauteur == 0 ? sharedHeight_ : fixed;
  return height / kTwipsPerPixel * kTwipsPerPixel;
}

std::int32_t DisplayLayout::slotHeight(std::int32_t graphHeight, std::size_t curves) {
  return curves == 0 ? 0 : graphHeight / static_cast<std::int32_t>(curves);
}

Twips DisplayLayout::valueLabelTop(std::int32_t zoneTop, std::int32_t zoneHeight, Twips labelHeight) {
  return static_cast<Twips>(zoneTop + zoneHeight) - labelHeight;
}

Twips DisplayLayout::captionHeight(std::int32_t zoneHeight, Twips ownHeight, Twips valueLabelHeight) {
  const auto height = static_cast<Twips>(zoneHeight + kTwipsPerPixel);
  return height > ownHeight ? height - valueLabelHeight : height;
}

Twips DisplayLayout::extraHeight() const {
  return std::max(static_cast<Twips>(top_) - frameHeight_, Twips{0});
}

}  // namespace tarnlog
