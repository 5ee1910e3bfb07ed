#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/odx/PdxArchive.h"
#include "platform/xml/XmlDocument.h"

namespace tarnlog::host {

/// The documents of a container, with what refers to what found.
class OdxLibrary {
 public:
  /// TarnError with document, line and reason when one is not XML.
  explicit OdxLibrary(const std::vector<PdxEntry>& entries);

  /// The element that a reference (ID-REF, perhaps with the DOCREF of a document or layer) means; none when
  /// it is not there. Identifiers are unique in their document only, so without DOCREF it is the
  /// reference's own; in another document it is looked for only where a single one has that identifier.
  XmlElement follow(XmlElement reference) const;
  /// All diagnostic layers of a kind ("ECU-VARIANT"), in document order.
  std::vector<XmlElement> layers(const char* kind) const;

 private:
  struct Target {
    XmlElement element;
    XmlElement document;  ///< its document node
  };
  void addNames(const XmlDocument& document);
  bool isNamed(XmlElement document, const std::string& name) const;

  std::vector<XmlDocument> documents_;
  std::unordered_multimap<std::string_view, Target> byId_;
  std::multimap<std::string, XmlElement> byName_;  ///< document nodes by what a DOCREF calls them
};

/// Text of an element, with one blank for what is white space or control characters inside, and none around.
std::string plainText(XmlElement element);
/// The plain text of a child element; empty when there is none.
std::string childText(XmlElement element, const char* name);
/// LONG-NAME, or SHORT-NAME where there is none.
std::string displayName(XmlElement element);

}  // namespace tarnlog::host
