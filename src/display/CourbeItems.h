#pragma once

#include <cstdint>
#include <string>

#include "display/CourbeItem.h"
#include "platform/base/KeyedCollection.h"

namespace tarnlog {

/// The curves of a graph, in plot order.
class CourbeItems : private KeyedCollection<CourbeItem> {
 public:
  /// Kept under `key`; without one when it is empty.
  CourbeItem& Add(ferrox3::DataItem& data, Colour color, std::string caption, std::string key);
  using KeyedCollection::begin;
  using KeyedCollection::Count;
  using KeyedCollection::end;
  using KeyedCollection::Item;
  using KeyedCollection::Remove;
  using KeyedCollection::RemoveAll;

  /// Largest maximum and smallest minimum of the curves' data; -1e37 and 1e37 without curves.
  double maxi() const;
  double mini() const;
};

}  // namespace tarnlog
