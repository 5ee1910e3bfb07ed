#include "host/odx/OdxLibrary.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "platform/base/TarnError.h"

namespace tarnlog::host {
namespace {

XmlElement documentOf(XmlElement element) {
  for (XmlElement parent = element.parent(); parent; parent = parent.parent()) element = parent;
  return element;
}

}  // namespace

OdxLibrary::OdxLibrary(const std::vector<PdxEntry>& entries) {
  documents_.reserve(entries.size());
  for (const PdxEntry& entry : entries) {
    XmlDocument& document = documents_.emplace_back();
    if (const auto error = document.parse(entry.bytes))
      throw TarnError(1, "OdxLibrary",
                      fmt::format("{}, line {}: {}", entry.name, error->line, error->reason));
    if (!document.selectSingleNode("ODX"))
      throw TarnError(1, "OdxLibrary", entry.name + ": expected an ODX document (root element ODX)");
    for (const XmlElement element : document.selectNodes("//*[@ID]"))
      byId_.emplace(element.attributeOrEmpty("ID"), Target{element, document.documentNode()});
    addNames(document);
  }
}

/// A DOCREF names the category of a document or one of the layers in it.
void OdxLibrary::addNames(const XmlDocument& document) {
  for (const char* const path : {"ODX/*[SHORT-NAME]", "ODX/DIAG-LAYER-CONTAINER/*/*[SHORT-NAME]"})
    for (const XmlElement element : document.selectNodes(path))
      byName_.emplace(childText(element, "SHORT-NAME"), document.documentNode());
}

bool OdxLibrary::isNamed(XmlElement document, const std::string& name) const {
  const auto [first, last] = byName_.equal_range(name);
  return std::any_of(first, last, [&](const auto& named) { return named.second == document; });
}

XmlElement OdxLibrary::follow(XmlElement reference) const {
  const auto [first, last] = byId_.equal_range(reference.attributeOrEmpty("ID-REF"));
  const std::string wanted(reference.attributeOrEmpty("DOCREF"));
  const XmlElement own = documentOf(reference);
  for (auto target = first; target != last; ++target) {
    const XmlElement document = target->second.document;
    if (wanted.empty() ? document == own : isNamed(document, wanted)) return target->second.element;
  }
  return std::distance(first, last) == 1 ? first->second.element : XmlElement();
}

std::vector<XmlElement> OdxLibrary::layers(const char* kind) const {
  std::vector<XmlElement> all;
  for (const XmlDocument& document : documents_)
    for (const XmlElement element : document.selectNodes(("//" + std::string(kind)).c_str()))
      if (element.attribute("ID")) all.push_back(element);
  return all;
}

std::string plainText(XmlElement element) {
  std::string text;
  for (const char c : element.text()) {
    const bool isBlank = static_cast<unsigned char>(c) <= 0x20 || c == 0x7F;
    if (!isBlank)
      text += c;
    else if (!text.empty() && text.back() != ' ')
      text += ' ';
  }
  if (text.ends_with(' ')) text.pop_back();
  return text;
}

std::string childText(XmlElement element, const char* name) { return plainText(element.firstChild(name)); }

std::string displayName(XmlElement element) {
  std::string name = childText(element, "LONG-NAME");
  return name.empty() ? childText(element, "SHORT-NAME") : name;
}

}  // namespace tarnlog::host
