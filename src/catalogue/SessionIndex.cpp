#include "catalogue/SessionIndex.h"

#include <algorithm>
#include <functional>

namespace tarnlog {
namespace {

std::uint32_t hashOf(std::string_view name) {
  return static_cast<std::uint32_t>(std::hash<std::string_view>{}(name));
}

}  // namespace

void SessionIndex::ChildList::add(XmlElement element, std::string_view name, Children children) {
  entries_.push_back({element, hashOf(name), children});
}

SessionIndex::Children SessionIndex::store(const ChildList& list) {
  if (list.entries_.empty()) return 0;
  const std::size_t count = list.entries_.size();
  const Table table{slots_.size(), static_cast<std::uint32_t>(count + count / 2 + 1)};
  slots_.resize(table.start + table.size);
  for (const Slot& entry : list.entries_) {
    Slot& slot = slots_[slotFor(table, entry.hash, entry.element.attributeOrEmpty("name"))];
    if (!slot.element) slot = entry;
  }
  tables_.push_back(table);
  return static_cast<Children>(tables_.size() - 1);
}

void SessionIndex::addEcu(XmlElement ecu, std::optional<std::int32_t> address, Children requests) {
  const std::size_t position = requestsOfEcu_.size();
  requestsOfEcu_.push_back(requests);
  ecuByName_.emplace(ecu.attributeOrEmpty("name"), position);
  if (address) ecuByAddress_.emplace(*address, position);
}

XmlElement SessionIndex::findRequest(std::string_view ecuName, std::int32_t address,
                                     std::string_view requestName) const {
  const Slot* const request = find(requestsOf(ecuName, address), requestName);
  return request == nullptr ? XmlElement() : request->element;
}

XmlElement SessionIndex::findData(std::string_view ecuName, std::int32_t address,
                                  std::string_view requestName, std::string_view dataName) const {
  const Slot* const request = find(requestsOf(ecuName, address), requestName);
  const Slot* const data = request == nullptr ? nullptr : find(request->children, dataName);
  return data == nullptr ? XmlElement() : data->element;
}

SessionIndex::Children SessionIndex::requestsOf(std::string_view ecuName, std::int32_t address) const {
  std::size_t position = requestsOfEcu_.size();
  if (const auto found = ecuByName_.find(ecuName); found != ecuByName_.end()) position = found->second;
  if (const auto found = ecuByAddress_.find(address); found != ecuByAddress_.end())
    position = std::min(position, found->second);
  return position == requestsOfEcu_.size() ? 0 : requestsOfEcu_[position];
}

const SessionIndex::Slot* SessionIndex::find(Children children, std::string_view name) const {
  const Table& table = tables_[children];
  if (table.size == 0) return nullptr;
  const Slot& slot = slots_[slotFor(table, hashOf(name), name)];
  return slot.element ? &slot : nullptr;
}

/// The slot that holds the child of this name, or the free one where it belongs; a third of a table is free.
std::size_t SessionIndex::slotFor(const Table& table, std::uint32_t hash, std::string_view name) const {
  std::size_t at = std::uint64_t{hash} * table.size >> 32;
  while (true) {
    const Slot& slot = slots_[table.start + at];
    if (!slot.element || (slot.hash == hash && slot.element.attributeOrEmpty("name") == name))
      return table.start + at;
    if (++at == table.size) at = 0;
  }
}

}  // namespace tarnlog
