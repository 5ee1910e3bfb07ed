#pragma once

#include <cstdint>
#include <string>

#include "display/GrapheItem.h"
#include "platform/base/KeyedCollection.h"

namespace tarnlog {

/// The blocks of the live display, from top to bottom.
class GrapheItems : private KeyedCollection<GrapheItem> {
 public:
  /// A block of this `GrapheMode`, kept under `key`; without one when it is empty.
  GrapheItem& Add(GrapheKind mode, std::string key);
  using KeyedCollection::begin;
  using KeyedCollection::Count;
  using KeyedCollection::end;
  using KeyedCollection::Item;
  using KeyedCollection::Remove;
  using KeyedCollection::RemoveAll;

  /// Graphs with at least one curve that is not binary.
  std::int32_t CountScopePhysical() const;
  std::int32_t CountSlide() const;
  /// Sum of the fixed heights in twips, rounded after each addition (halves to even).
  std::int32_t HeightNoScopeGraphe() const;
  /// The first block with this `index`, or null.
  GrapheItem* FindGraphe(std::int32_t index) const;
};

}  // namespace tarnlog
