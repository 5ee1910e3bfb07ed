#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/base/TarnError.h"

namespace tarnlog {

/// An ordered collection that owns its items; an item may have a key. Positions are 1-based. Look-ups by key
/// and by position take constant time; inserting and removing moves the positions behind. Errors: 457 for a
/// key that is taken, 9 for a position and 5 for a key that is not there.
template <class T>
class KeyedCollection {
 public:
  T& Add(std::unique_ptr<T> item, std::string key = {}) {
    return insertAt(entries_.size() + 1, std::move(item), std::move(key));
  }

  /// Inserts so that the new item has this position (1 to Count + 1).
  T& insertAt(std::size_t position, std::unique_ptr<T> item, std::string key = {}) {
    if (position < 1 || position > entries_.size() + 1) throw notFound();
    T* const raw = item.get();
    if (!key.empty() && !byKey_.emplace(key, raw).second)
      throw TarnError(457, "Collection", "This key is already associated with an element of this collection");
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(position - 1),
                    Entry{std::move(item), std::move(key)});
    return *raw;
  }

  T& Item(std::size_t position) const {
    if (T* const found = find(position)) return *found;
    throw notFound();
  }
  T& Item(std::string_view key) const {
    if (T* const found = find(key)) return *found;
    throw keyNotFound();
  }

  /// The item, or null.
  T* find(std::size_t position) const {
    return position >= 1 && position <= entries_.size() ? entries_[position - 1].item.get() : nullptr;
  }
  T* find(std::string_view key) const {
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? nullptr : found->second;
  }

  /// 1-based position of this very object, 0 when it is not in the collection.
  std::size_t positionOf(const T& item) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.item.get() == &item; });
    return found == entries_.end() ? 0 : static_cast<std::size_t>(found - entries_.begin()) + 1;
  }

  void Remove(std::size_t position) { take(position); }
  void Remove(std::string_view key) {
    T* const found = find(key);
    if (found == nullptr) throw keyNotFound();
    take(positionOf(*found));
  }

  /// Removes the item and hands it over.
  std::unique_ptr<T> take(std::size_t position) {
    if (find(position) == nullptr) throw notFound();
    Entry& entry = entries_[position - 1];
    if (!entry.key.empty()) byKey_.erase(byKey_.find(entry.key));
    std::unique_ptr<T> item = std::move(entry.item);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position - 1));
    return item;
  }

  /// Takes the item at one position to another one; it keeps its key.
  void move(std::size_t from, std::size_t to) {
    if (find(from) == nullptr || find(to) == nullptr) throw notFound();
    const auto at = [this](std::size_t position) {
      return entries_.begin() + static_cast<std::ptrdiff_t>(position - 1);
    };
    if (from < to)
      std::rotate(at(from), at(from) + 1, at(to) + 1);
    else
      std::rotate(at(to), at(from), at(from) + 1);
  }

  /// Puts the items into another order: the positions of now, each once, as they are to follow.
  void arrange(const std::vector<std::size_t>& positions) {
    std::vector<Entry> arranged;
    arranged.reserve(entries_.size());
    for (const std::size_t position : positions) arranged.push_back(std::move(entries_[position - 1]));
    entries_ = std::move(arranged);
  }

  void RemoveAll() {
    byKey_.clear();
    entries_.clear();
  }

  std::size_t Count() const { return entries_.size(); }

 private:
  struct Entry {
    std::unique_ptr<T> item;
    std::string key;
  };

 public:
  /// Visits the items in collection order: `for (oTarnScope& scope : collection)`.
  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = T;
    using pointer = T*;
    using reference = T&;
    using iterator_category = std::forward_iterator_tag;
    explicit Iterator(const Entry* at = nullptr) : at_(at) {}
    T& operator*() const { return *at_->item; }
    T* operator->() const { return at_->item.get(); }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    Iterator operator++(int) { return Iterator(at_++); }
    bool operator==(const Iterator&) const = default;

   private:
    const Entry* at_;
  };
  Iterator begin() const { return Iterator(entries_.data()); }
  Iterator end() const { return Iterator(entries_.data() + entries_.size()); }

 private:
  struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };

  static TarnError notFound() { return {9, "Collection", "Subscript out of range"}; }
  static TarnError keyNotFound() { return {5, "Collection", "Invalid procedure call or argument"}; }

  std::vector<Entry> entries_;
  std::unordered_map<std::string, T*, KeyHash, std::equal_to<>> byKey_;
};

}  // namespace tarnlog
