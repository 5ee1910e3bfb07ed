#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/xml/XmlDocument.h"

namespace tarnlog {

/// Answers "the first of that name" for the elements of a session document as a walk in document order
/// would. Holds handles, no texts; the names are the `name` attributes in the document, which must live as
/// long and not change.
///
/// The children of one element lie together in one small hash table, all tables behind one another in one
/// block: building goes through memory in order, however many hundred thousand data there are.
class SessionIndex {
 public:
  /// Names a stored list of children; 0 is the empty one.
  using Children = std::uint32_t;

  /// The children of one element in document order, while they are collected.
  class ChildList {
   public:
    void clear() { entries_.clear(); }
    /// `name` is the element's own.
    void add(XmlElement element, std::string_view name, Children children = 0);

   private:
    friend class SessionIndex;
    struct Entry {
      XmlElement element;
      std::uint32_t hash = 0;
      Children children = 0;
    };
    std::vector<Entry> entries_;
  };

  /// Keeps the children that were collected; the first of a name wins.
  Children store(const ChildList& list);
  /// ECUs are added in document order; one without an address is found by name only.
  void addEcu(XmlElement ecu, std::optional<std::int32_t> address, Children requests);

  /// The first ECU whose name or address matches, then its first request of that name; none otherwise.
  XmlElement findRequest(std::string_view ecuName, std::int32_t address, std::string_view requestName) const;
  /// The same, then the request's first data of that name.
  XmlElement findData(std::string_view ecuName, std::int32_t address, std::string_view requestName,
                      std::string_view dataName) const;

 private:
  using Slot = ChildList::Entry;  ///< without an element when free
  struct Table {
    std::size_t start = 0;
    std::uint32_t size = 0;
  };

  Children requestsOf(std::string_view ecuName, std::int32_t address) const;
  const Slot* find(Children children, std::string_view name) const;
  std::size_t slotFor(const Table& table, std::uint32_t hash, std::string_view name) const;

  std::vector<Slot> slots_;
  std::vector<Table> tables_{Table{}};
  std::vector<Children> requestsOfEcu_;
  std::unordered_map<std::string_view, std::size_t> ecuByName_;
  std::unordered_map<std::int32_t, std::size_t> ecuByAddress_;
};

}  // namespace tarnlog
