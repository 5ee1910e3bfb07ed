#include "catalogue/CatalogueTree.h"

#include <algorithm>
#include <utility>

#include "catalogue/FoldedText.h"
#include "platform/base/TarnError.h"

namespace tarnlog {

CatalogueImage dataImage(XmlElement data) {
  return data.attribute("ref") ? CatalogueImage::reference : CatalogueImage::data;
}

CatalogueTree::CatalogueTree() { clear(); }

void CatalogueTree::clear() {
  const Filling filling(*this, kRoot);
  const bool treeSorted = !records_.empty() && records_[kRoot].sorted;
  records_.assign(1, Record{});
  records_[kRoot].sorted = treeSorted;
  lists_.assign(1, List{});
  freeNodes_.clear();
  byNumber_.clear();
  byText_.clear();
  texts_.clear();
}

CatalogueTree::Node CatalogueTree::add(Node parent, const Content& content) {
  const KeyNumber number = keyNumber(content.key);
  if (!content.key.empty() && find(content.key, number) != kNone)
    throw TarnError(35602, "CatalogueTree.add", "Key is not unique in collection");
  const std::size_t row = rowFor(parent, content);
  const bool report = observer_ != nullptr && !silent(parent);
  if (report) observer_->aboutToAdd(parent, row);
  const Record record{content, parent, 0, static_cast<std::uint32_t>(row), false};
  Node node = static_cast<Node>(records_.size());
  if (freeNodes_.empty()) {
    records_.push_back(record);
  } else {
    node = freeNodes_.back();
    freeNodes_.pop_back();
    records_[node] = record;
  }
  auto& siblings = ownList(parent);
  if (row != siblings.size()) lists_[records_[parent].children].rowsKnown = false;
  siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(row), node);
  if (!content.key.empty()) registerKey(content.key, number, node);
  if (report) observer_->added();
  return node;
}

/// Behind the children that are there, or in alphabetical order, behind equal ones.
std::size_t CatalogueTree::rowFor(Node parent, const Content& content) const {
  const auto& siblings = children(parent);
  if (!sorted(parent)) return siblings.size();
  const auto place = std::upper_bound(siblings.begin(), siblings.end(), content.text,
                                      [this](std::string_view text, Node sibling) {
                                        return compareFolded(text, records_[sibling].content.text) < 0;
                                      });
  return static_cast<std::size_t>(place - siblings.begin());
}

void CatalogueTree::remove(std::vector<Node> nodes) {
  std::sort(nodes.begin(), nodes.end(),
            [this](Node a, Node b) { return std::pair(parent(a), row(a)) > std::pair(parent(b), row(b)); });
  for (std::size_t at = 0; at < nodes.size();) {
    // Neighbours go together, the last ones first.
    const Node above = parent(nodes[at]);
    std::size_t first = row(nodes[at]);
    std::size_t count = 1;
    while (at + count < nodes.size() && parent(nodes[at + count]) == above &&
           row(nodes[at + count]) + 1 == first) {
      --first;
      ++count;
    }
    const bool report = observer_ != nullptr && !silent(above);
    if (report) observer_->aboutToRemove(above, first, count);
    auto& siblings = ownList(above);
    for (std::size_t i = first; i < first + count; ++i) release(siblings[i]);
    const auto begin = siblings.begin() + static_cast<std::ptrdiff_t>(first);
    if (first + count != siblings.size()) lists_[records_[above].children].rowsKnown = false;
    siblings.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
    if (report) observer_->removed();
    at += count;
  }
}

void CatalogueTree::release(Node node) {
  const std::vector<Node> below = std::exchange(lists_[records_[node].children].nodes, {});
  for (const Node child : below) release(child);
  forgetKey(records_[node].content.key);
  records_[node].content = {};
  freeNodes_.push_back(node);
}

void CatalogueTree::setSorted(Node parent, bool sorted) {
  // Children that are sorted already stay so when some are added.
  const bool wasSorted = std::exchange(records_[parent].sorted, sorted);
  if (!sorted || wasSorted || children(parent).size() < 2) return;
  const auto& nodes = children(parent);
  const std::size_t common = commonBeginning(nodes);
  const auto rest = [&](Node child) { return records_[child].content.text.substr(common); };
  struct Place {
    std::uint64_t prefix;
    Node node;
  };
  std::vector<Place> places;
  places.reserve(nodes.size());
  for (const Node child : nodes) places.push_back({foldedPrefix(rest(child)), child});
  const auto before = [&rest](const Place& a, const Place& b) {
    return a.prefix != b.prefix ? a.prefix < b.prefix : compareFolded(rest(a.node), rest(b.node)) < 0;
  };
  if (std::is_sorted(places.begin(), places.end(), before)) return;
  std::stable_sort(places.begin(), places.end(), before);
  const Filling filling(*this, kRoot);
  auto& ordered = ownList(parent);
  for (std::size_t at = 0; at < places.size(); ++at) {
    ordered[at] = places[at].node;
    records_[ordered[at]].row = static_cast<std::uint32_t>(at);
  }
  lists_[records_[parent].children].rowsKnown = true;
}

/// How many bytes all texts begin with alike, as whole characters: names in one place often do.
std::size_t CatalogueTree::commonBeginning(const std::vector<Node>& nodes) const {
  const std::string_view first = records_[nodes.front()].content.text;
  std::size_t common = first.size();
  for (const Node node : nodes) {
    const std::string_view text = records_[node].content.text;
    const auto differ = std::mismatch(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(common),
                                      text.begin(), text.end());
    common = static_cast<std::size_t>(differ.first - first.begin());
  }
  const auto insideCharacter = [&] { return (static_cast<unsigned char>(first[common]) & 0xC0) == 0x80; };
  while (common > 0 && common < first.size() && insideCharacter()) --common;
  return common;
}

CatalogueTree::Node CatalogueTree::find(std::string_view key) const { return find(key, keyNumber(key)); }

CatalogueTree::Node CatalogueTree::find(std::string_view key, KeyNumber number) const {
  if (number != kNoKey) return number < byNumber_.size() ? byNumber_[number] : kNone;
  const auto found = byText_.find(std::string(key));
  return found == byText_.end() ? kNone : found->second;
}

void CatalogueTree::registerKey(std::string_view key, KeyNumber number, Node node) {
  if (number == kNoKey) {
    byText_.emplace(key, node);
    return;
  }
  if (number >= byNumber_.size()) byNumber_.resize(static_cast<std::size_t>(number) + 1, kNone);
  byNumber_[number] = node;
}

void CatalogueTree::forgetKey(std::string_view key) {
  const KeyNumber number = keyNumber(key);
  if (number == kNoKey)
    byText_.erase(std::string(key));
  else
    byNumber_[number] = kNone;
}

const std::vector<CatalogueTree::Node>& CatalogueTree::children(Node node) const {
  return lists_[records_[node].children].nodes;
}

std::vector<CatalogueTree::Node>& CatalogueTree::ownList(Node parent) {
  if (records_[parent].children == 0) {
    records_[parent].children = static_cast<std::uint32_t>(lists_.size());
    lists_.emplace_back();
  }
  return lists_[records_[parent].children].nodes;
}

std::size_t CatalogueTree::row(Node node) const {
  const List& list = lists_[records_[parent(node)].children];
  if (!list.rowsKnown) {
    for (std::size_t at = 0; at < list.nodes.size(); ++at)
      records_[list.nodes[at]].row = static_cast<std::uint32_t>(at);
    list.rowsKnown = true;
  }
  return records_[node].row;
}

bool CatalogueTree::awaitsFilling(Node node) const {
  const auto& below = children(node);
  return !below.empty() && content(below.front()).image == CatalogueImage::none;
}

bool CatalogueTree::silent(Node parent) const {
  if (filling_ == kRoot) return true;
  for (Node node = parent; node != kNone; node = records_[node].parent)
    if (node == filling_) return true;
  return false;
}

CatalogueTree::Filling::Filling(CatalogueTree& tree, Node node)
    : tree_(tree), node_(tree.filling_ == kNone ? node : kNone) {
  if (node_ == kNone) return;
  if (tree_.observer_ != nullptr) tree_.observer_->fillingBegins(node_);
  tree_.filling_ = node_;
}

CatalogueTree::Filling::~Filling() {
  if (node_ == kNone) return;
  tree_.filling_ = kNone;
  if (tree_.observer_ != nullptr) tree_.observer_->fillingEnds(node_);
}

}  // namespace tarnlog
