#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// Identifies an element of a session document: the number in its key `c` ("c17"). Numbers grow in document
/// order.
using KeyNumber = std::uint32_t;
inline constexpr KeyNumber kNoKey = 0xFFFFFFFF;

/// kNoKey for a text that is not the key of an element.
KeyNumber keyNumber(std::string_view key);
inline KeyNumber keyNumber(XmlElement element) { return keyNumber(element.attributeOrEmpty("c")); }

/// A set of elements of a session document.
class CatalogueKeys {
 public:
  bool has(KeyNumber key) const { return key < flags_.size() && flags_[key] != 0; }
  bool has(XmlElement element) const { return has(keyNumber(element)); }
  void add(KeyNumber key) {
    if (key == kNoKey) return;
    if (key >= flags_.size()) flags_.resize(static_cast<std::size_t>(key) + 1);
    flags_[key] = 1;
  }
  void remove(KeyNumber key) {
    if (key < flags_.size()) flags_[key] = 0;
  }
  void clear() { flags_.assign(flags_.size(), 0); }

 private:
  std::vector<std::uint8_t> flags_;
};

}  // namespace tarnlog
