#include "config/oScenario.h"

#include <limits>
#include <memory>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

oScenarioRequest& oScenario::Add(std::string RequestName, std::string EcuName, std::int16_t Address) {
  if (Count() == std::numeric_limits<std::int16_t>::max()) throw TarnError(6, "oScenario.Add", "Overflow");
  auto request = std::make_unique<oScenarioRequest>();
  request->RequestName = std::move(RequestName);
  request->EcuName = std::move(EcuName);
  request->Address = Address;
  request->Order = static_cast<std::int16_t>(Count() + 1);
  return requests_.Add(std::move(request));
}

void oScenario::Remove(std::size_t position) {
  requests_.Remove(position);
  RefreshOrder();
}

std::int16_t oScenario::MoveUp(oScenarioRequest& request) {
  if (const std::size_t position = requests_.positionOf(request); position > 1)
    requests_.move(position, position - 1);
  RefreshOrder();
  return request.Order;
}

std::int16_t oScenario::MoveDown(oScenarioRequest& request) {
  const std::size_t position = requests_.positionOf(request);
  if (position != 0 && position < requests_.Count()) requests_.move(position, position + 1);
  RefreshOrder();
  return request.Order;
}

void oScenario::RefreshOrder() {
  std::int16_t order = 0;
  for (oScenarioRequest& request : requests_) request.Order = ++order;
}

}  // namespace tarnlog
