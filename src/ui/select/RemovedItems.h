#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "config/oTarnParameters.h"

namespace tarnlog {

/// What one removal takes out of a configuration and what goes with it (curves that lose their graph,
/// triggers that lose their channel), so that it can be put back. Items may be added and moved in between;
/// displays and triggers must not be edited.
class RemovedItems {
 public:
  /// Notes, before the removal, which items refer to which.
  explicit RemovedItems(const oTarnParameters& parameters);

  bool empty() const { return removed_.empty(); }
  /// Removes the items at these positions; to be called once.
  void remove(oTarnParameters& parameters, const std::vector<std::int32_t>& positions);
  /// Puts everything back, except items that are in the configuration again; returns those put back, in the
  /// order of their positions.
  std::vector<oTarnScope*> putBack(oTarnParameters& parameters);

 private:
  /// An item that is drawn on, or drives the X axis of, another one's graph.
  struct Reference {
    std::string from;
    std::string to;  ///< empty: to nothing
    DisplayKind type;
    oTarnGraphIndex curve;  ///< as it was, when it is one
  };

  void restore(const Reference& reference, oTarnParameters& parameters) const;
  bool wasRemoved(const std::string& key) const;

  std::vector<oTarnParameters::PlacedScope> removed_;  ///< in the order of their positions
  std::vector<std::string> keys_;                      ///< of all that was removed, sorted
  std::vector<Reference> references_;
  std::string startChannel_;  ///< keys of what the triggers watched; empty: none
  std::string stopChannel_;
};

}  // namespace tarnlog
