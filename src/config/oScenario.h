#pragma once

#include <cstdint>
#include <string>

#include "platform/base/KeyedCollection.h"

namespace tarnlog {

/// A request sent to an ECU once before polling starts.
class oScenarioRequest {
 public:
  std::string EcuName;
  std::string RequestName;
  std::int16_t Order = 0;    ///< 1-based position in the scenario
  std::int16_t Address = 0;  ///< the ECU's diagnostic address
};

/// The ordered list of initialisation requests. `Order` equals the position after every operation.
class oScenario {
 public:
  /// Raises an error when `Order` cannot count one more.
  oScenarioRequest& Add(std::string RequestName, std::string EcuName, std::int16_t Address);
  /// Raises the collection's error when there is no such position (1-based).
  oScenarioRequest& Item(std::size_t position) const { return requests_.Item(position); }
  std::int32_t Count() const { return static_cast<std::int32_t>(requests_.Count()); }
  void Remove(std::size_t position);
  /// The new position. At the edge, or not in the list: nothing moves, and its `Order` is returned.
  std::int16_t MoveUp(oScenarioRequest& request);
  std::int16_t MoveDown(oScenarioRequest& request);
  void RefreshOrder();

  auto begin() const { return requests_.begin(); }
  auto end() const { return requests_.end(); }

 private:
  KeyedCollection<oScenarioRequest> requests_;
};

}  // namespace tarnlog
