#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "config/DisplaySettings.h"
#include "display/CourbeItems.h"
#include "platform/ferrox3/Session.h"
#include "platform/screen/Controls.h"

namespace tarnlog {

/// A datum with the two values 0 and 1.
bool isBinary(const ferrox3::DataItem& data);

enum class GrapheKind : std::int32_t { kScope, kDigital, kSlide };

/// One block of the live display: a graph with curves, a digital value or a bar. Refers to the host's data
/// and, while the display is built, to the frame's controls; owns neither.
class GrapheItem {
 public:
  using enum GrapheKind;

  GrapheKind GrapheMode = kScope;
  ferrox3::DataItem* Data = nullptr;     ///< of a digital or bar block
  std::unique_ptr<CourbeItems> courbes;  ///< of a graph; made by the first `addcourbe`
  LabelControl* LibelleControl = nullptr;
  LabelControl* ValueNum = nullptr;
  SlideControl* slideControl = nullptr;
  GraphControl* grapheControl = nullptr;
  double hauteur = 0;  ///< height in twips; 0 = a share of the free height
  double ymini = 0;
  double ymaxi = 1.0;
  bool yautoscale = false;
  double xmini = 0;
  double xmaxi = 0;
  bool xautoscale = false;
  std::string xcaption;
  ferrox3::DataItem* xData = nullptr;  ///< X coordinate of an X-Y graph; null in a time graph
  std::string Caption;
  std::int32_t AxeXPoints = oTarnGraph::kDefaultPoints;  ///< points kept by each plot
  std::int32_t index = -1;  ///< `index` of the configured item that made the block
  Colour Color = 0;         ///< of a bar and its labels

  /// Raises error 1 when the block is not a graph.
  void addcourbe(ferrox3::DataItem& data, Colour color, std::string caption);
  /// 1 = a graph with at least one curve that is not binary, else 0.
  std::int32_t grapheType() const;
};

}  // namespace tarnlog
