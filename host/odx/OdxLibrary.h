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

  /// The element that an ID-REF (or the like) names; none when there is no such.
  XmlElement find(std::string_view id) const;
  /// The element that a child of this kind of `owner` refers to by its ID-REF.
  XmlElement follow(XmlElement owner, const char* referenceName) const;
  /// All diagnostic layers of a kind ("ECU-VARIANT"), in document order.
  std::vector<XmlElement> layers(const char* kind) const;

 private:
  std::vector<XmlDocument> documents_;
  std::unordered_map<std::string_view, XmlElement> byId_;
};

/// Text of a child element without white space around; empty when there is none.
std::string childText(XmlElement element, const char* name);
/// LONG-NAME, or SHORT-NAME where there is none.
std::string displayName(XmlElement element);

}  // namespace tarnlog::host
