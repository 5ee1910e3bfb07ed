#include "catalogue/FonctionsSelection.h"

#include <string>
#include <vector>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

using Node = CatalogueTree::Node;
using Content = CatalogueTree::Content;

Content ecuContent(XmlElement uce) {
  return {uce.attributeOrEmpty("c"), uce.attributeOrEmpty("name"), uce, CatalogueImage::ecu};
}

Content requestContent(XmlElement request) {
  return {request.attributeOrEmpty("c"), request.attributeOrEmpty("name"), request, CatalogueImage::request};
}

/// A data node that stands under its request.
Content dataContent(XmlElement data, std::string_view key) {
  return {key, data.attributeOrEmpty("name"), data, CatalogueImage::data};
}

/// A data node that stands elsewhere and so names its request.
Content namedContent(CatalogueTree& tree, XmlElement data, std::string_view key, std::string_view request) {
  Content content = dataContent(data, key);
  content.text = tree.keep({content.text, " (", request, ")"});
  return content;
}

/// The same under its device.
Content deviceDataContent(CatalogueTree& tree, XmlElement data, std::string_view key,
                          std::string_view request) {
  Content content = namedContent(tree, data, key, request);
  content.image = CatalogueImage::reference;
  if (data.attributeOrEmpty("failure") == "1") content.colour = CatalogueTree::kRed;
  return content;
}

/// The node of that key, added when it is missing; `added` tells.
Node findOrAdd(CatalogueTree& tree, Node parent, const Content& content, bool& added) {
  const Node found = tree.find(content.key);
  added = found == CatalogueTree::kNone;
  return added ? tree.add(parent, content) : found;
}

Node findOrAddDevice(CatalogueTree& tree, Node uceNode, std::string_view device, bool& added) {
  const std::string key = "K" + std::string(device);
  const Node found = tree.find(key);
  added = found == CatalogueTree::kNone;
  if (!added) return found;
  return tree.add(uceNode, {tree.keep({key}), device, {}, CatalogueImage::device});
}

/// Visits the data of a request, or of all requests of an ECU, that are to be shown: use(data, key).
template <class Use>
void forShownData(XmlElement request, const CatalogueTree& tree, const CatalogueKeys& selectedList,
                  Use&& use) {
  for (XmlElement data = request.firstChild("data"); data; data = data.nextSibling("data")) {
    const std::string_view key = data.attributeOrEmpty("c");
    const KeyNumber number = keyNumber(key);
    if (!selectedList.has(number) && tree.shows(number)) skipOnFailure([&] { use(data, key); });
  }
}

/// Visits the requests of an ECU that have data: use(request).
template <class Use>
void forRequests(XmlElement uce, const CatalogueTree& tree, Use&& use) {
  for (XmlElement request = uce.firstChild("request"); request; request = request.nextSibling("request"))
    if (request.firstChild("data") && tree.shows(keyNumber(request))) skipOnFailure([&] { use(request); });
}

void addChildren(CatalogueTree& tree, Node uceNode, const CatalogueKeys& selectedList, std::int16_t depth) {
  const XmlElement uce = tree.content(uceNode).tag;
  if (tree.mode == 'R') AddRequestDataNodes(uce, tree, uceNode, selectedList, depth);
  if (tree.mode == 'D') AddDataNodes(uce, tree, uceNode, selectedList, depth);
  if (tree.mode == 'O') AddDeviceDataNodes(uce, tree, uceNode, selectedList, depth);
}

}  // namespace

void FillCatalogueTree(const SessionDocument& document, CatalogueTree& tree,
                       const CatalogueKeys& selectedList, std::int16_t depth) {
  const CatalogueTree::Filling filling(tree, CatalogueTree::kRoot);
  tree.setSorted(CatalogueTree::kRoot, false);
  tree.clear();
  tree.setSorted(CatalogueTree::kRoot, true);
  const XmlElement root = document.document().documentNode().firstChild("Tarnlog2000");
  for (XmlElement uce = root.firstChild("uce"); uce; uce = uce.nextSibling("uce")) {
    if (!tree.shows(keyNumber(uce))) continue;
    skipOnFailure([&] {
      const Node node = tree.add(CatalogueTree::kRoot, ecuContent(uce));
      tree.setSorted(node, tree.sorted());
      if (depth == kLazyDepth)
        tree.add(node, {});
      else
        addChildren(tree, node, selectedList, depth);
    });
  }
}

void ExpandCatalogueNode(CatalogueTree& tree, CatalogueNode node, const CatalogueKeys& selectedList,
                         std::int16_t depth) {
  if (!tree.awaitsFilling(node)) return;
  const CatalogueTree::Filling filling(tree, node);
  tree.remove(tree.children(node).front());
  addChildren(tree, node, selectedList, depth);
}

void AddRequestDataNodes(XmlElement uceElement, CatalogueTree& tree, CatalogueNode uceNode,
                         const CatalogueKeys& selectedList, std::int16_t /*depth*/) {
  tree.setSorted(uceNode, false);
  forRequests(uceElement, tree, [&](XmlElement request) {
    const Node node = tree.add(uceNode, requestContent(request));
    forShownData(request, tree, selectedList,
                 [&](XmlElement data, std::string_view key) { tree.add(node, dataContent(data, key)); });
    tree.setSorted(node, tree.sorted());
  });
  tree.setSorted(uceNode, tree.sorted());
}

void AddDataNodes(XmlElement uceElement, CatalogueTree& tree, CatalogueNode uceNode,
                  const CatalogueKeys& selectedList, std::int16_t /*depth*/) {
  tree.setSorted(uceNode, false);
  forRequests(uceElement, tree, [&](XmlElement request) {
    const std::string_view name = request.attributeOrEmpty("name");
    forShownData(request, tree, selectedList, [&](XmlElement data, std::string_view key) {
      tree.add(uceNode, namedContent(tree, data, key, name));
    });
  });
  tree.setSorted(uceNode, tree.sorted());
}

void AddDeviceDataNodes(XmlElement uceElement, CatalogueTree& tree, CatalogueNode uceNode,
                        const CatalogueKeys& selectedList, std::int16_t /*depth*/) {
  tree.setSorted(uceNode, false);
  std::vector<Node> newDevices;
  const auto deviceNode = [&](std::string_view device) {
    bool added = false;
    const Node node = findOrAddDevice(tree, uceNode, device, added);
    if (added) newDevices.push_back(node);
    return node;
  };
  forRequests(uceElement, tree, [&](XmlElement request) {
    const std::string_view name = request.attributeOrEmpty("name");
    for (XmlElement data = request.firstChild("data"); data; data = data.nextSibling("data")) {
      const auto device = data.attribute("device");
      const std::string_view key = data.attributeOrEmpty("c");
      const KeyNumber number = keyNumber(key);
      if (!device || !tree.shows(number)) continue;
      skipOnFailure([&] {
        const Node node = deviceNode(*device);
        if (!selectedList.has(number)) tree.add(node, deviceDataContent(tree, data, key, name));
      });
    }
  });
  for (const Node device : newDevices) tree.setSorted(device, tree.sorted());
  tree.setSorted(uceNode, tree.sorted());
}

void GiveDataNodeBack(CatalogueTree& tree, XmlElement data) {
  const XmlElement request = data.parent();
  const std::string_view key = data.attributeOrEmpty("c");
  if (!tree.shows(keyNumber(key))) return;
  bool added = false;
  const Node uceNode = findOrAdd(tree, CatalogueTree::kRoot, ecuContent(request.parent()), added);
  if (added) tree.setSorted(CatalogueTree::kRoot, true);
  if (tree.awaitsFilling(uceNode)) return;
  Node parent = uceNode;
  Content content;
  if (tree.mode == 'R') {
    parent = findOrAdd(tree, uceNode, requestContent(request), added);
    content = dataContent(data, key);
  } else if (tree.mode == 'D') {
    content = namedContent(tree, data, key, request.attributeOrEmpty("name"));
  } else {
    const auto device = data.attribute("device");
    if (!device) return;
    parent = findOrAddDevice(tree, uceNode, *device, added);
    content = deviceDataContent(tree, data, key, request.attributeOrEmpty("name"));
  }
  tree.setSorted(parent, true);
  skipOnFailure([&] { tree.add(parent, content); });
}

}  // namespace tarnlog
