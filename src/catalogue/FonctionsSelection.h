#pragma once

#include <cstdint>

#include "catalogue/CatalogueKeys.h"
#include "catalogue/CatalogueTree.h"
#include "catalogue/SessionDocument.h"
#include "platform/xml/XmlDocument.h"

/// Fills the tree of available data from the session document, in the shape that the tree's mode names. Data
/// in the list of data to record, `selectedList`, are left out, and so is what the tree does not show. A step
/// that fails (a key that is taken) is skipped.
namespace tarnlog {

inline constexpr std::int16_t kLazyDepth = 1;
inline constexpr std::int16_t kFullDepth = -1;

/// Builds the whole tree anew. With kLazyDepth each ECU gets one child without a text, so that it shows as
/// expandable; otherwise all children are built at once.
void FillCatalogueTree(const SessionDocument& document, CatalogueTree& tree,
                       const CatalogueKeys& selectedList, std::int16_t depth);

/// Builds the children of an ECU node unless they have been built.
void ExpandCatalogueNode(CatalogueTree& tree, CatalogueNode node, const CatalogueKeys& selectedList,
                         std::int16_t depth);

/// The children of one ECU node in the shapes R, D and O. The depth plays no part.
void AddRequestDataNodes(XmlElement uceElement, CatalogueTree& tree, CatalogueNode uceNode,
                         const CatalogueKeys& selectedList, std::int16_t depth);
void AddDataNodes(XmlElement uceElement, CatalogueTree& tree, CatalogueNode uceNode,
                  const CatalogueKeys& selectedList, std::int16_t depth);
/// A device of the same name in two ECUs is one node, under the ECU that was built first.
void AddDeviceDataNodes(XmlElement uceElement, CatalogueTree& tree, CatalogueNode uceNode,
                        const CatalogueKeys& selectedList, std::int16_t depth);

/// Puts one data item back where it stood in the tree's shape, with the nodes above it. In an ECU that has
/// not been built nothing is to be done; without a device there is no place for it in shape O.
void GiveDataNodeBack(CatalogueTree& tree, XmlElement data);

}  // namespace tarnlog
