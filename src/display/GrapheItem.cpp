#include "display/GrapheItem.h"

#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

bool isBinary(const ferrox3::DataItem& data) {
  return data.typeCode() == ferrox3::kInteger && data.minimum() == 0.0 && data.maximum() == 1.0;
}

void GrapheItem::addcourbe(ferrox3::DataItem& data, Colour color, std::string caption) {
  if (GrapheMode != kScope)
    throw TarnError(1, "GrapheItem.addcourbe", "Enable to add a item when mode is not Scope");
  if (!courbes) courbes = std::make_unique<CourbeItems>();
  courbes->Add(data, color, std::move(caption), "");
}

std::int32_t GrapheItem::grapheType() const {
  if (!courbes) return 0;
  for (const CourbeItem& courbe : *courbes)
    if (!isBinary(*courbe.Data)) return 1;
  return 0;
}

}  // namespace tarnlog
