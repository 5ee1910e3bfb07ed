#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// Answers "the first of that name" for the elements of a session document as a walk in document order
/// would: elements are added in document order, and the first of a name stays. Holds handles, no texts; the
/// names are those in the document, which must live as long and not change.
class SessionIndex {
 public:
  /// Makes an ECU known by the `name` and `address` that it has.
  void addEcu(XmlElement ecu);
  /// Makes a child known under its parent; without a `name` it is not found.
  void addChild(XmlElement parent, XmlElement child);

  /// The first ECU whose name or address matches; none otherwise.
  XmlElement findEcu(std::string_view name, std::int32_t address) const;
  /// The parent's first child of that name; none otherwise.
  XmlElement findChild(XmlElement parent, std::string_view name) const;

 private:
  /// Open addressing with linear probing: hundreds of thousands of children cost one block of memory.
  struct Slot {
    XmlElement child;  ///< none in a free slot
    std::size_t hash = 0;
  };

  std::size_t slotFor(std::size_t hash, XmlElement parent, std::string_view name) const;
  void grow();

  std::vector<Slot> slots_;  ///< none, or a power of two
  std::size_t count_ = 0;
  std::vector<XmlElement> ecus_;
  std::unordered_map<std::string_view, std::size_t> ecuByName_;
  std::unordered_map<std::int32_t, std::size_t> ecuByAddress_;
};

}  // namespace tarnlog
