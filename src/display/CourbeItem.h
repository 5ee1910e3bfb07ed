#pragma once

#include <string>

#include "platform/ferrox3/Session.h"
#include "platform/screen/Controls.h"

namespace tarnlog {

/// One curve of a graph. Refers to the host's datum and, while the display is built, to the frame's controls;
/// owns neither.
class CourbeItem {
 public:
  std::string Caption;
  ferrox3::DataItem* Data = nullptr;
  Colour Color = 0;  ///< of the trace and of the curve's two labels
  LabelControl* LibelleControl = nullptr;
  LabelControl* ValeurControl = nullptr;
};

}  // namespace tarnlog
