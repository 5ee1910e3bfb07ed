#include "catalogue/SessionIndex.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/text/Numbers.h"

namespace tarnlog {
namespace {

std::size_t hashOf(XmlElement parent, std::string_view name) {
  const auto parentBits = reinterpret_cast<std::uintptr_t>(parent.node());
  return std::hash<std::string_view>{}(name) ^ parentBits * 0x9E3779B97F4A7C15u;
}

}  // namespace

void SessionIndex::addEcu(XmlElement ecu) {
  const std::size_t position = ecus_.size();
  ecus_.push_back(ecu);
  if (const auto name = ecu.attribute("name")) ecuByName_.emplace(*name, position);
  if (const auto address = wholeInteger(ecu.attributeOrEmpty("address")))
    ecuByAddress_.emplace(*address, position);
}

void SessionIndex::addChild(XmlElement parent, XmlElement child) {
  const auto name = child.attribute("name");
  if (!name) return;
  if (4 * (count_ + 1) > 3 * slots_.size()) grow();
  const std::size_t hash = hashOf(parent, *name);
  Slot& slot = slots_[slotFor(hash, parent, *name)];
  if (slot.child) return;
  slot = {child, hash};
  ++count_;
}

XmlElement SessionIndex::findEcu(std::string_view name, std::int32_t address) const {
  std::size_t position = ecus_.size();
  if (const auto found = ecuByName_.find(name); found != ecuByName_.end()) position = found->second;
  if (const auto found = ecuByAddress_.find(address); found != ecuByAddress_.end())
    position = std::min(position, found->second);
  return position == ecus_.size() ? XmlElement() : ecus_[position];
}

XmlElement SessionIndex::findChild(XmlElement parent, std::string_view name) const {
  if (!parent || slots_.empty()) return {};
  return slots_[slotFor(hashOf(parent, name), parent, name)].child;
}

/// The slot that holds this child, or the free one where it belongs.
std::size_t SessionIndex::slotFor(std::size_t hash, XmlElement parent, std::string_view name) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash & mask;
  while (const XmlElement child = slots_[at].child) {
    if (slots_[at].hash == hash && child.parent() == parent && child.attributeOrEmpty("name") == name) break;
    at = (at + 1) & mask;
  }
  return at;
}

void SessionIndex::grow() {
  std::vector<Slot> old =
      std::exchange(slots_, std::vector<Slot>(std::max<std::size_t>(64, 2 * slots_.size())));
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (!slot.child) continue;
    std::size_t at = slot.hash & mask;
    while (slots_[at].child) at = (at + 1) & mask;
    slots_[at] = slot;
  }
}

}  // namespace tarnlog
