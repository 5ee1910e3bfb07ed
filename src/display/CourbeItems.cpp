#include "display/CourbeItems.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tarnlog {

CourbeItem& CourbeItems::Add(ferrox3::DataItem& data, Colour color, std::string caption, std::string key) {
  auto courbe = std::make_unique<CourbeItem>();
  courbe->Color = color;
  courbe->Caption = std::move(caption);
  courbe->Data = &data;
  return KeyedCollection::Add(std::move(courbe), std::move(key));
}

double CourbeItems::maxi() const {
  double result = -1e37;
  for (const CourbeItem& courbe : *this) result = std::max(result, courbe.Data->maximum());
  return result;
}

double CourbeItems::mini() const {
  double result = 1e37;
  for (const CourbeItem& courbe : *this) result = std::min(result, courbe.Data->minimum());
  return result;
}

}  // namespace tarnlog
