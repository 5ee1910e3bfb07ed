#pragma once

#include <cstddef>
#include <cstdint>

#include "display/GrapheItems.h"
#include "platform/screen/Controls.h"

namespace tarnlog {

/// Where the blocks of the live display go: one column, in whole twips, computed with integers so that no
/// block is a twip off for want of precision.
class DisplayLayout {
 public:
  static constexpr Twips kCurveLabels = 1800;  ///< width of the labels left of a graph
  static constexpr Twips kWideLabels = 2400;   ///< width of the value cell, and of the labels left of a bar

  /// The graphs without a height of their own share what the other blocks leave of the frame; each gets at
  /// least `minHeight`.
  DisplayLayout(const GrapheItems& graphes, Twips frameHeight, std::int32_t minHeight);

  /// Height of a block: whole pixels for a graph.
  std::int32_t blockHeight(const GrapheItem& graphe) const;
  /// Height of the band that the labels of each curve have, in a graph of this height.
  static std::int32_t slotHeight(std::int32_t graphHeight, std::size_t curves);

  /// A value label stands on the bottom of its zone, the caption fills what is above it.
  static Twips valueLabelTop(std::int32_t zoneTop, std::int32_t zoneHeight, Twips labelHeight);
  static Twips captionHeight(std::int32_t zoneHeight, Twips ownHeight, Twips valueLabelHeight);

  /// Top of the next block. `advance` moves it below a block of this height.
  std::int32_t top() const { return top_; }
  void advance(std::int32_t height) { top_ += height; }
  /// By how much the blocks up to now exceed the frame.
  Twips extraHeight() const;

 private:
  Twips frameHeight_;
  std::int32_t sharedHeight_ = 0;
  std::int32_t top_ = 0;
};

}  // namespace tarnlog
