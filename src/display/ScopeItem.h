#pragma once

#include <cstdint>
#include <memory>

#include "display/GrapheItems.h"
#include "platform/screen/Controls.h"

namespace tarnlog {

/// The live display of one acquisition: its model, and the controls that show it in a frame. Use: fill
/// `graphes` (see addScopeToDisplay), BuildDisplay, then RefreshDisplay once per refresh and ArrangeDisplay
/// at each resize, at the end ClearDisplay. Without a frame only the model is filled.
class ScopeItem {
 public:
  GrapheItems& graphes() { return *graphes_; }
  void setGraphes(std::unique_ptr<GrapheItems> graphes);

  /// Creates and places the controls of all blocks, one below the other. A graph without a height of its own
  /// gets a share of what is free, at least `minHeight` twips. `extraHeight` becomes the twips by which the
  /// column exceeds the frame; it is not written when there are no blocks. Raises what a control raises, but
  /// for labels that refuse their place; ClearDisplay frees what was made until then.
  void BuildDisplay(GraphicFrame& frame, std::int32_t minHeight, Twips& extraHeight);
  /// Places the controls that exist again, after a resize.
  void ArrangeDisplay(GraphicFrame& frame, std::int32_t minHeight, Twips& extraHeight);
  /// Frees the controls that there are; the model stays.
  void ClearDisplay(GraphicFrame& frame);
  /// Shows the current values: one point for every plot, and the texts. The first failure passes to the
  /// caller, later blocks are then not refreshed. Allocates nothing itself.
  void RefreshDisplay();

 private:
  std::unique_ptr<GrapheItems> graphes_ = std::make_unique<GrapheItems>();
};

}  // namespace tarnlog
