#pragma once

#include <string>

#include "catalogue/CatalogueTree.h"

namespace tarnlog::test {

/// The nodes as they stand: "Engine[Status[Load Speed]]"; an ECU that has not been built is "Engine[...]",
/// red nodes have a "!".
inline std::string treeText(const CatalogueTree& tree, CatalogueNode parent = CatalogueTree::kRoot) {
  if (tree.awaitsFilling(parent)) return "...";
  std::string text;
  for (const CatalogueNode node : tree.children(parent)) {
    if (!text.empty()) text += ' ';
    text += tree.content(node).text;
    if (tree.content(node).colour == CatalogueTree::kRed) text += '!';
    if (const std::string below = treeText(tree, node); !below.empty()) text += "[" + below + "]";
  }
  return text;
}

/// The first node of that text, in the order in which the tree stands; kNone when there is none.
inline CatalogueNode nodeNamed(const CatalogueTree& tree, const std::string& text,
                               CatalogueNode parent = CatalogueTree::kRoot) {
  for (const CatalogueNode node : tree.children(parent)) {
    if (tree.content(node).text == text) return node;
    if (const CatalogueNode below = nodeNamed(tree, text, node); below != CatalogueTree::kNone) return below;
  }
  return CatalogueTree::kNone;
}

}  // namespace tarnlog::test
