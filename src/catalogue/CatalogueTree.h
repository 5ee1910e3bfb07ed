#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "catalogue/CatalogueKeys.h"
#include "platform/base/TextArena.h"
#include "platform/screen/Controls.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog {

class CatalogueTree;

/// The pictures of nodes and of list columns.
enum class CatalogueImage : std::uint8_t {
  none = 0,
  ecu = 1,
  request = 2,
  device = 3,
  data = 4,
  reference = 5
};

/// Of a data element: `reference` when its request holds the ECU's reference definition of the data.
CatalogueImage dataImage(XmlElement data);

/// Names a node; valid until the node is removed.
using CatalogueNode = std::uint32_t;

/// Is told what becomes of the nodes, so that a view of them stays right. Rows count from 0.
class CatalogueTreeObserver {
 public:
  virtual ~CatalogueTreeObserver() = default;
  virtual void aboutToAdd(CatalogueNode parent, std::size_t row) = 0;
  virtual void added() = 0;
  virtual void aboutToRemove(CatalogueNode parent, std::size_t first, std::size_t count) = 0;
  virtual void removed() = 0;
  /// Between these two the children of the node (of the root: all nodes) change without being reported.
  virtual void fillingBegins(CatalogueNode node) = 0;
  virtual void fillingEnds(CatalogueNode node) = 0;
};

/// The tree of available data, without a view: nodes lie in one block, texts and keys stay where they are in
/// the session document, which must outlive the nodes. A node whose children are sorted keeps them in
/// alphabetical order; otherwise they stay as they were added.
class CatalogueTree {
 public:
  using Node = CatalogueNode;
  static constexpr Node kRoot = 0;  ///< not shown; the ECUs are its children
  static constexpr Node kNone = 0xFFFFFFFF;
  static constexpr Colour kDefaultColour = 0x80000008;  ///< the system's text colour
  static constexpr Colour kRed = 0x0000FF;

  struct Content {
    std::string_view key;  ///< may be empty
    std::string_view text;
    XmlElement tag = {};
    CatalogueImage image = CatalogueImage::none;  ///< `data` stands for what dataImage tells
    Colour colour = kDefaultColour;
  };

  CatalogueTree();

  /// "R" (request/data), "D" (data) or "O" (devices/data): how ECU nodes are filled.
  char mode = 'R';
  /// The elements that the tree may show; null is all. Whoever changes them fills the tree again.
  const CatalogueKeys* shown = nullptr;
  bool shows(KeyNumber key) const { return shown == nullptr || shown->has(key); }

  /// Raises error 35602 when another node has the key.
  Node add(Node parent, const Content& content);
  /// A text that is not in the document, from its parts; kept as long as the nodes.
  std::string_view keep(std::initializer_list<std::string_view> parts) { return texts_.join(parts); }
  /// Removes the node and those below it.
  void remove(Node node) { remove(std::vector<Node>{node}); }
  /// None of them may be below another one.
  void remove(std::vector<Node> nodes);
  void clear();
  /// Puts the children in order, now and later; the sorting of the root is the tree's.
  void setSorted(Node parent, bool sorted);
  bool sorted(Node parent = kRoot) const { return records_[parent].sorted; }

  /// The node of that key, or kNone.
  Node find(std::string_view key) const;
  Node parent(Node node) const { return records_[node].parent; }
  const std::vector<Node>& children(Node node) const;
  /// The node's place among its parent's children, from 0.
  std::size_t row(Node node) const;
  const Content& content(Node node) const { return records_[node].content; }
  /// The picture to show, looked up when it is.
  CatalogueImage image(Node node) const {
    const Content& of = content(node);
    return of.image == CatalogueImage::data ? dataImage(of.tag) : of.image;
  }
  /// An ECU whose children have not been built: its only child is there to show that there are some.
  bool awaitsFilling(Node node) const;

  void setObserver(CatalogueTreeObserver* observer) { observer_ = observer; }

  /// While this lives, the children of a node (of the root: all nodes) change without a report for each.
  class Filling {
   public:
    Filling(CatalogueTree& tree, Node node);
    ~Filling();
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;

   private:
    CatalogueTree& tree_;
    Node node_;
  };

 private:
  struct Record {
    Content content;
    Node parent = kNone;
    std::uint32_t children = 0;     ///< place in lists_; 0 is the list that is always empty
    mutable std::uint32_t row = 0;  ///< right unless the parent's list says otherwise
    bool sorted = false;
  };
  struct List {
    std::vector<Node> nodes;
    mutable bool rowsKnown = true;
  };

  std::vector<Node>& ownList(Node parent);
  std::size_t rowFor(Node parent, const Content& content) const;
  std::size_t commonBeginning(const std::vector<Node>& nodes) const;
  Node find(std::string_view key, KeyNumber number) const;
  void registerKey(std::string_view key, KeyNumber number, Node node);
  void forgetKey(std::string_view key);
  void release(Node node);
  bool silent(Node parent) const;

  std::vector<Record> records_;
  std::vector<List> lists_;
  std::vector<Node> freeNodes_;
  std::vector<Node> byNumber_;                    ///< nodes whose key is an element's, by its number
  std::unordered_map<std::string, Node> byText_;  ///< the other keys
  TextArena texts_;
  CatalogueTreeObserver* observer_ = nullptr;
  Node filling_ = kNone;
};

}  // namespace tarnlog
